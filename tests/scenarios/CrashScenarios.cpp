#include "Scenario.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <functional>

namespace {
template <typename T> QString Joined(const QList<T>& sizes)
{
    QStringList texts;
    for (const T& size : sizes) {
        if constexpr (std::is_same_v<T, QSize>)
            texts << QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
        else
            texts << QString::number(size);
    }
    return texts.join(QLatin1Char(','));
}

// The states of the three files, as the keepWriting scenario reports them.
const std::function<QString()> kState[] = {[] { return KVApplication::GetPathOpen(); },
                                           [] { return Joined(MZExportResolutions::GetList()); },
                                           [] { return Joined(MZExportSizes::GetList()); }};
const char* const kFile[] = {"user", "resolutions", "sizes"};

// Reports the state that a change will leave ("next:<file>"), makes it, and
// reports it done ("done:<file>").
void Change(int file, const std::function<void()>& change, const QString& next)
{
    Report(QStringLiteral("next:") + kFile[file], next);
    change();
    Report(QStringLiteral("done:") + kFile[file], kState[file]());
}

// Adds to a short list, else replaces or removes an entry: the lists stay
// short and every kind of change gets written.
void ChangeResolutions(int step)
{
    QList<QSize> list = MZExportResolutions::GetList();
    const QSize size(100 + step % 9000, 100 + step % 7);
    const int index = list.isEmpty() ? 0 : step % list.size();
    std::function<void()> change = [&] { MZExportResolutions::Remove(index); };
    if (list.size() < 6) {
        int at = 0;
        while (at < list.size() && list.at(at).width() <= size.width())
            ++at;
        list.insert(at, size);
        change = [&] { MZExportResolutions::Add(size); };
    } else if (step % 2) {
        list[index] = size;
        change = [&] { MZExportResolutions::Set(index, size); };
    } else {
        list.removeAt(index);
    }
    Change(1, change, Joined(list));
}

void ChangeSizes(int step)
{
    QList<long long> list = MZExportSizes::GetList();
    const long long size = 1000LL * step + 5000000000LL;
    const int index = list.isEmpty() ? 0 : step % list.size();
    std::function<void()> change = [&] { MZExportSizes::Remove(index); };
    if (list.size() < 6) {
        list.append(size);
        change = [&] { MZExportSizes::Add(size); };
    } else {
        list.removeAt(index);
    }
    Change(2, change, Joined(list));
}
} // namespace

// Keeps changing user.ini and both preset lists, one file at a time, until it
// is killed. It reports what it loaded ("start:<file>") and then every
// change before and after making it, so that whoever kills it knows what
// each file must hold. The argument makes the values of this run its own.
KV_SCENARIO(keepWriting)
{
    Q_UNUSED(app);
    for (int file = 0; file < 3; ++file)
        Report(QStringLiteral("start:") + kFile[file], kState[file]());
    const int run = arguments.value(0).toInt();
    for (int i = 0; i < 100000; ++i) {
        const int step = run * 100000 + i;
        const QString path = QStringLiteral("/Users/me/Pictures/%1").arg(step);
        if (i % 3 == 1)
            ChangeResolutions(step);
        else if (i % 3 == 2)
            ChangeSizes(step);
        else
            Change(
                0, [&] { KVApplication::SetPathOpen(path); }, path);
    }
    return 0;
}
