#include "Scenario.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <functional>

namespace {
QString Joined(const QList<QSize>& sizes)
{
    QStringList texts;
    for (const QSize& size : sizes)
        texts.append(QStringLiteral("%1x%2").arg(size.width()).arg(size.height()));
    return texts.join(QLatin1Char(','));
}

QString Joined(const QList<long long>& sizes)
{
    QStringList texts;
    for (long long size : sizes)
        texts.append(QString::number(size));
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
    if (list.size() < 6) {
        int index = 0;
        while (index < list.size() && list.at(index).width() <= size.width())
            ++index;
        list.insert(index, size);
        Change(
            "resolutions", [&] { MZExportResolutions::Add(size); }, &ResolutionState, Joined(list));
    } else if (step % 2) {
        const int index = step % list.size();
        list[index] = size;
        Change(
            "resolutions", [&] { MZExportResolutions::Set(index, size); }, &ResolutionState,
            Joined(list));
    } else {
        const int index = step % list.size();
        list.removeAt(index);
        Change(
            "resolutions", [&] { MZExportResolutions::Remove(index); }, &ResolutionState,
            Joined(list));
    }
}

void ChangeSizes(int step)
{
    QList<long long> list = MZExportSizes::GetList();
    const long long size = 1000LL * step + 5000000000LL;
    if (list.size() < 6) {
        list.append(size);
        Change(
            "sizes", [&] { MZExportSizes::Add(size); }, &SizeState, Joined(list));
    } else {
        const int index = step % list.size();
        list.removeAt(index);
        Change(
            "sizes", [&] { MZExportSizes::Remove(index); }, &SizeState, Joined(list));
    }
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
        switch (i % 3) {
        case 0: {
            const QString path = QStringLiteral("/Users/me/Pictures/%1").arg(step);
            Change(
                "user", [&] { KVApplication::SetPathOpen(path); }, &UserState, path);
            break;
        }
        case 1:
            ChangeResolutions(step);
            break;
        default:
            ChangeSizes(step);
        }
    }
    return 0;
}
