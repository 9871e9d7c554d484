// The sample editor shell: a host of the library and its plug-ins.
//   Pelkaro                         the window
//   Pelkaro --report [image...]     explains the plug-ins and opens images, no window
//   Pelkaro --self-test FOLDER [image...]
//                                   the window, driven once through open, adjust,
//                                   export into FOLDER and quit (PELKARO_SCREENSHOT=file.png
//                                   saves a picture of the window first)

#include "HostSession.h"
#include "MainWindow.h"
#include "Report.h"
#include "SelfTest.h"

#include <KVApplication.h>

#include <QFileInfo>
#include <QSplashScreen>

int main(int argc, char** argv)
{
    KVApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    if (arguments.value(0) == QLatin1String("--report"))
        return RunReport(app, arguments.mid(1));

    HostSession session(app);
    QPixmap splashImage(420, 80);
    splashImage.fill(QColor(40, 40, 40));
    QSplashScreen splash(splashImage);
    splash.show();
    QObject::connect(&session, &HostSession::PluginLoading, &splash, [&](const QString& file) {
        splash.showMessage(
            QCoreApplication::translate("main", "Loading %1...").arg(QFileInfo(file).fileName()),
            Qt::AlignBottom | Qt::AlignHCenter, Qt::white);
    });
    session.LoadPlugins();

    MainWindow window;
    window.show();
    splash.finish(&window);
    app.UIReady();

    if (arguments.value(0) == QLatin1String("--self-test"))
        return RunSelfTest(window, arguments.mid(2), arguments.value(1));
    return app.exec();
}
