#include "PresetLists.h"

#include "FuzzSupport.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <QDir>

#include <memory>

namespace KVFuzzPresets {
namespace {
bool IsValid(const QSize& size)
{
    return size.width() >= 1 && size.width() <= 10000 && size.height() >= 1 &&
           size.height() <= 10000;
}

bool IsValid(long long size)
{
    return size > 0;
}

template <typename List> auto Loaded()
{
    const auto loaded = List::GetList();
    for (const auto& entry : loaded)
        KVFuzz::Check(IsValid(entry), "a loaded preset is valid");
    return loaded;
}

// Any change writes the whole list; this one leaves it as it was.
template <typename List, typename Value> void WriteBack(const Value& extra)
{
    List::Add(List::GetSize(), extra);
    List::Remove(List::GetSize() - 1);
}

std::unique_ptr<KVApplication> Start()
{
    return std::make_unique<KVApplication>(KVFuzz::ApplicationArgc(), KVFuzz::ApplicationArgv());
}
} // namespace

QString UserFolder()
{
    static const QString folder = [] {
        KVFuzz::PrepareApplication();
        // An application object for every list read: Qt's minimal platform,
        // unlike the offscreen one, reads no font configuration for each.
        qputenv("QT_QPA_PLATFORM", "minimal");
        const QString relative = QStringLiteral("Library/Preferences/Pelkaro AB/Pelkaro");
        QDir(KVFuzz::ScratchFolder()).mkpath(relative);
        return relative;
    }();
    return folder;
}

QList<QSize> LoadWriteReload()
{
    auto app = Start();
    const auto resolutions = Loaded<MZExportResolutions>();
    const auto sizes = Loaded<MZExportSizes>();
    WriteBack<MZExportResolutions>(QSize(1, 1));
    WriteBack<MZExportSizes>(1LL);
    app.reset();

    app = Start();
    KVFuzz::Check(MZExportResolutions::GetList() == resolutions,
                  "written resolutions read back the same");
    KVFuzz::Check(MZExportSizes::GetList() == sizes, "written sizes read back the same");
    return resolutions;
}

} // namespace KVFuzzPresets
