#pragma once

#include <QStringList>

class MainWindow;

// Drives the shown window as a user would: prints its menus and tool areas,
// opens the images given, applies the first adjustment, exports the last
// image at the first resolution preset into exportFolder, and closes the
// window. Returns the process's exit code.
int RunSelfTest(MainWindow& window, const QStringList& images, const QString& exportFolder);
