#include "Scenario.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <functional>

namespace {
QString Text(const QSize& size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString Text(long long size)
{
    return QString::number(size);
}

template <typename T> QString Joined(const QList<T>& items)
{
    QStringList texts;
    for (const T& item : items)
        texts.append(Text(item));
    return texts.join(QLatin1Char(','));
}

QString UserState()
{
    return KVApplication::GetPathOpen();
}

QString ResolutionState()
{
    return Joined(MZExportResolutions::GetList());
}

QString SizeState()
{
    return Joined(MZExportSizes::GetList());
}

// Reports the state that a change will leave ("next:<file>"), makes it, and
// reports it done ("done:<file>").
void Change(const QString& file, const std::function<void()>& change,
            const std::function<QString()>& state, const QString& next)
{
    Report(QStringLiteral("next:") + file, next);
    change();
    Report(QStringLiteral("done:") + file, state());
}

// Adds to a short list, else replaces or removes an entry: the lists stay
// short and every kind of change gets written.
void ChangeResolutions(int step)
{
    QList<QSize> list = MZExportResolutions::GetList();
    const QSize size(100 + step % 9000, 100 + step % 7);
    const int index = list.isEmpty() ? 0 : step % list.size();
    std::function<void()> change;
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
        change = [&] { MZExportResolutions::Remove(index); };
    }
    Change("resolutions", change, &ResolutionState, Joined(list));
}

void ChangeSizes(int step)
{
    QList<long long> list = MZExportSizes::GetList();
    const long long size = 1000LL * step + 5000000000LL;
    const int index = list.isEmpty() ? 0 : step % list.size();
    std::function<void()> change;
    if (list.size() < 6) {
        list.append(size);
        change = [&] { MZExportSizes::Add(size); };
    } else {
        list.removeAt(index);
        change = [&] { MZExportSizes::Remove(index); };
    }
    Change("sizes", change, &SizeState, Joined(list));
}
} // namespace

// Keeps changing user.ini and both preset lists, one file at a time, until it
// is killed. It reports what it loaded ("start:<file>") and then every
// change before and after making it, so that whoever kills it knows what
// each file must hold. The argument makes the values of this run its own.
KV_SCENARIO(keepWriting)
{
    Q_UNUSED(app);
    Report("start:user", UserState());
    Report("start:resolutions", ResolutionState());
    Report("start:sizes", SizeState());
    const int run = arguments.value(0).toInt();
    for (int i = 0; i < 100000; ++i) {
        const int step = run * 100000 + i;
        if (i % 3 == 1) {
            ChangeResolutions(step);
        } else if (i % 3 == 2) {
            ChangeSizes(step);
        } else {
            const QString path = QStringLiteral("/Users/me/Pictures/%1").arg(step);
            Change(
                "user", [&] { KVApplication::SetPathOpen(path); }, &UserState, path);
        }
    }
    return 0;
}
