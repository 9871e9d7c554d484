#include <IPluginContainer.h>
#include <KVApplication.h>
#include <KVCMSProfile.h>
#include <KVPixelRatioRound.h>

#include <QDir>

#include <cstdio>

int main(int argc, char** argv)
{
    KVApplication app(argc, argv);
    const QString expected = QDir::homePath() + "/Library/Preferences/Pelkaro AB/Pelkaro";
    if (KVApplication::GetInstance() != &app || KVApplication::GetUserDataFolder() != expected ||
        !QDir(expected).exists() || KVCMSProfile().GetColorSpace() != 0 ||
        KVPixelRatioRound::GetPixelRatio() <= 0) {
        std::puts("consumer: unexpected state");
        return 1;
    }
    std::printf("consumer: user data folder %s\n", qUtf8Printable(expected));
    return 0;
}
