// The sample editor shell: a host of the library and its plug-ins.
//   Pelkaro                         the window
//   Pelkaro --report [--json] [image...]
//                                   explains the plug-ins and opens images, no window
//   Pelkaro --self-test FOLDER [image...]
//                                   the window, driven once through open, adjust,
//                                   export into FOLDER, the Plug-ins dialog and quit
//                                   (PELKARO_SCREENSHOT=file.png saves pictures first)
//   --safe-mode, --retry-plugins, --help: see HostOptions::Usage().

#include "HostSession.h"
#include "MainWindow.h"
#include "Options.h"
#include "PluginDoctor.h"
#include "Report.h"
#include "SelfTest.h"

#include <KVApplication.h>

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSplashScreen>
#include <QTextStream>

namespace {
// Whether the user starts without the plug-in that crashed the last start.
bool AskToSkip(const QString& file)
{
    QMessageBox box(QMessageBox::Warning, QCoreApplication::translate("main", "Pelkaro"),
                    QCoreApplication::translate(
                        "main", "Pelkaro closed unexpectedly while it loaded the plug-in "
                                "\"%1\" at its last start.")
                        .arg(QFileInfo(file).fileName()));
    box.setInformativeText(QCoreApplication::translate(
        "main", "Start without it? It stays left out until you take it back under "
                "Help > Plug-ins."));
    box.setDetailedText(file);
    QPushButton* skip = box.addButton(QCoreApplication::translate("main", "Start Without It"),
                                      QMessageBox::AcceptRole);
    box.addButton(QCoreApplication::translate("main", "Try Again"), QMessageBox::RejectRole);
    box.setDefaultButton(skip);
    box.exec();
    return box.clickedButton() == skip;
}

// Before loading: the plug-in that crashed the last start is skipped, after
// asking in the window, unless every skipped plug-in is taken back.
void HandleLastCrash(const HostSession& session, const HostOptions& options)
{
    if (options.retryPlugins)
        HostSession::TakeBackAll();
    const QString crashed = session.CrashedFile();
    if (crashed.isEmpty())
        return;
    if (options.mode == HostOptions::Window) {
        if (!options.retryPlugins && AskToSkip(crashed))
            HostSession::Skip(crashed);
        return;
    }
    // The JSON report keeps standard output to its document.
    QTextStream out(options.json ? stderr : stdout);
    out << PluginDoctor::CrashLine(crashed, !options.retryPlugins) << Qt::endl;
    if (!options.retryPlugins)
        HostSession::Skip(crashed);
}
} // namespace

int main(int argc, char** argv)
{
    KVApplication app(argc, argv);
    const HostOptions options = HostOptions::Parse(app.arguments().mid(1));
    if (options.mode == HostOptions::Help) {
        QTextStream(stdout) << HostOptions::Usage();
        return 0;
    }
    if (!options.error.isEmpty()) {
        QTextStream(stderr) << "Pelkaro: " << options.error << "\n\n" << HostOptions::Usage();
        return 2;
    }

    HostSession session(app);
    HandleLastCrash(session, options);
    if (options.mode == HostOptions::Report)
        return RunReport(app, session, options);

    QPixmap splashImage(420, 80);
    splashImage.fill(QColor(40, 40, 40));
    QSplashScreen splash(splashImage);
    splash.show();
    QObject::connect(&session, &HostSession::PluginLoading, &splash, [&](const QString& file) {
        splash.showMessage(
            QCoreApplication::translate("main", "Loading %1...").arg(QFileInfo(file).fileName()),
            Qt::AlignBottom | Qt::AlignHCenter, Qt::white);
    });
    session.LoadPlugins(options.safeMode);

    MainWindow window(session);
    window.show();
    splash.finish(&window);
    app.UIReady();

    if (options.mode == HostOptions::SelfTest)
        return RunSelfTest(window, options.images, options.exportFolder);
    return app.exec();
}
