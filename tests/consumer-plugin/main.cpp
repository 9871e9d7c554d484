#include <KVAdjustmentManager.h>
#include <KVApplication.h>

#include <QFileInfo>

#include <cstdio>

// Loads the plug-in file as the editor does and applies its adjustment.
int main(int argc, char** argv)
{
    KVApplication app(argc, argv);
    KVAdjustmentManager::InitInstance();
    const QString file = QStringLiteral(PLUGIN_FILE);
    app.LoadPlugin(file);

    const QStringList ids = KVAdjustmentManager::GetRegistered();
    KVAdjustment* sepia =
        ids.size() == 1 ? KVAdjustmentManager::GetAdjustment(ids.first()) : nullptr;
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::gray);
    const QRgb adjusted = sepia ? sepia->Apply(image).pixel(1, 1) : 0;
    std::printf("plugin: %s %s %s %d,%d,%d\n", qUtf8Printable(QFileInfo(file).fileName()),
                qUtf8Printable(app.GetErrorInfo(file)),
                sepia ? qUtf8Printable(sepia->GetName()) : "none", qRed(adjusted), qGreen(adjusted),
                qBlue(adjusted));

    app.UnloadPlugins();
    const bool empty = KVAdjustmentManager::GetRegistered().isEmpty();
    KVAdjustmentManager::ReleaseInstance();
    return empty ? 0 : 1;
}
