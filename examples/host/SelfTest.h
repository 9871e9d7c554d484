#pragma once

#include <QStringList>

class MainWindow;

// Drives the shown window as a user would: prints its menus and tool areas,
// opens the images given, applies the first adjustment, exports the last
// image at the first resolution preset into exportFolder, opens Help >
// Plug-ins, and closes the window. PELKARO_SCREENSHOT=file.png saves the
// window there and the dialog as file-plugins.png. Returns the process's
// exit code.
int RunSelfTest(MainWindow& window, const QStringList& images, const QString& exportFolder);
