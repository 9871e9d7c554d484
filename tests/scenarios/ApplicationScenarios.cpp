#include "Scenario.h"

#include <KVApplication.h>
#include <KVPixelRatioRound.h>

#include <QDir>
#include <QFileInfo>

// What construction found out about the bundle and the user's folders.
KV_SCENARIO(construction)
{
    Q_UNUSED(arguments);
    Report(QStringLiteral("resourcePath"), KVApplication::GetResourcePath());
    Report(QStringLiteral("dataFolder"), KVApplication::GetDataFolder());
    Report(QStringLiteral("userDataFolder"), KVApplication::GetUserDataFolder());
    Report(QStringLiteral("userDataFolderExists"),
           QString::number(QDir(KVApplication::GetUserDataFolder()).exists()));
    Report(QStringLiteral("userFileExists"),
           QString::number(QFileInfo::exists(KVApplication::GetUserDataFolder() + "/user.ini")));
    Report(QStringLiteral("language"), app.GetLanguages());
    Report(QStringLiteral("pixelRatio"), QString::number(KVPixelRatioRound::GetPixelRatio()));
    Report(QStringLiteral("highDpiPixmaps"),
           QString::number(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps)));
    Report(QStringLiteral("noIconsInMenus"),
           QString::number(QCoreApplication::testAttribute(Qt::AA_DontShowIconsInMenus)));
    return 0;
}
