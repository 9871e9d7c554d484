// user.ini as the user's disk may hold it: the input is the file. Every
// typed setting reads (from a damaged file, its default), the recent lists
// restore, and a write either lands or leaves the file as it was.

#include "FuzzSupport.h"

#include <KVApplication.h>
#include <KVRecentManager.h>

#include <QFile>

namespace {
void ReadEverything()
{
    KVApplication::GetBackground();
    KVApplication::GetForeground();
    KVApplication::GetMaskBackground();
    KVApplication::GetMaskForeground();
    KVApplication::GetPathOpen();
    KVApplication::GetTexturePatternIndex();
    KVApplication::GetColorManagementEqualPolicy();
    KVApplication::IsPNGCompressionVisible();
    KVApplication::WarnAboutLayerInfo();
    KVApplication::GetApplicationTheme();
    KVApplication::GetUserValue(KVApplication::LanguageIndex);
    KVApplication::GetUserValue(QStringLiteral("Plugin/Key"));
    KVRecentManager::InitInstance();
    KVRecentManager::ReleaseInstance();
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    KVFuzz::MakeApplication<KVApplication>();
    KVApplication::SetUserDataFolder(KVFuzz::ScratchFolder());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const KVFuzz::InputFile file("user.ini", data, size);
    ReadEverything();
    const QByteArray before = [&] {
        QFile in(file.Path());
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }();
    KVApplication::SetPathExport(QStringLiteral("/exports"));
    const bool written = KVApplication::GetPathExport() == QLatin1String("/exports");
    QFile after(file.Path());
    KVFuzz::Check(after.open(QIODevice::ReadOnly) && (written || after.readAll() == before),
                  "a write that does not land leaves the file as it was");
    ReadEverything();
    return 0;
}
