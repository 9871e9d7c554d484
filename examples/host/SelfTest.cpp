#include "SelfTest.h"

#include "MainWindow.h"
#include "PluginsDialog.h"
#include "Tools.h"

#include <KVAdjustmentManager.h>
#include <KVToolBarManager.h>
#include <KVToolWidgetManager.h>

#include <QEventLoop>
#include <QFileInfo>
#include <QMenuBar>
#include <QTextStream>
#include <QTimer>

namespace {
QTextStream& Out()
{
    static QTextStream out(stdout);
    return out;
}

// Opens through the window and waits for the worker thread's answer.
QString OpenAndWait(MainWindow& window, const QString& path)
{
    QEventLoop loop;
    QString result = "timeout";
    QObject::connect(&window, &MainWindow::Opened, &loop,
                     [&](const QString& opened, const QString& error) {
                         if (opened == path) {
                             result = error;
                             loop.quit();
                         }
                     });
    QTimer::singleShot(30000, &loop, &QEventLoop::quit);
    window.Open(path);
    loop.exec();
    return result;
}
} // namespace

int RunSelfTest(MainWindow& window, const QStringList& images, const QString& exportFolder)
{
    QStringList menus;
    for (QAction* menu : window.menuBar()->actions())
        menus << menu->text();
    Out() << "menus: " << menus.join('|') << Qt::endl;
    QStringList tools;
    for (QAction* tool : ToolActions())
        tools << tool->objectName();
    Out() << "tools: " << tools.join('|') << Qt::endl;
    Out() << "tool areas: " << (KVToolBarManager::GeneralContent()->isVisible() ? "bar" : "no bar")
          << ", " << (KVToolWidgetManager::GeneralContent()->isVisible() ? "panel" : "no panel")
          << Qt::endl;

    int failures = 0;
    for (const QString& path : images) {
        const QString error = OpenAndWait(window, path);
        const QImage& image = window.Document().image;
        if (error.isEmpty()) {
            Out() << "opened " << path << ": " << image.width() << "x" << image.height()
                  << Qt::endl;
        } else {
            Out() << "not opened " << path << ": " << error << Qt::endl;
            ++failures;
        }
    }
    const QStringList adjustments = KVAdjustmentManager::GetRegistered();
    if (!adjustments.isEmpty() && window.ApplyAdjustment(adjustments.first()))
        Out() << "adjusted: " << adjustments.first() << Qt::endl;
    if (!window.Document().image.isNull()) {
        const QString exported = exportFolder + "/exported.png";
        const bool written = window.ExportAtPreset(0, exported);
        Out() << "exported " << exported << ": " << (written ? "yes" : "no") << Qt::endl;
        failures += written ? 0 : 1;
    }
    // Help > Plug-ins, as the user opens it.
    PluginsDialog* plugins = window.ShowPlugins();
    QCoreApplication::processEvents();
    Out() << "plug-ins dialog: " << plugins->FileCount() << " files" << Qt::endl;

    const QString screenshot = qEnvironmentVariable("PELKARO_SCREENSHOT");
    if (!screenshot.isEmpty()) {
        window.grab().save(screenshot);
        const QFileInfo file(screenshot);
        plugins->grab().save(file.path() + "/" + file.completeBaseName() + "-plugins." +
                             file.suffix());
    }
    plugins->close();
    window.close();
    return failures == 0 ? 0 : 1;
}
