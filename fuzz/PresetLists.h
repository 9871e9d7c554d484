#pragma once

#include <QList>
#include <QSize>
#include <QString>

// The export preset lists as the editor has them: read from the user's files
// when the application object starts, written after every change.
namespace KVFuzzPresets {

// The user's folder that holds the preset files, relative to the scratch
// folder (the fuzz targets' HOME). The first call makes it and prepares the
// process for application objects.
QString UserFolder();

// Checks what an application object made now loads, then makes each list
// write itself back (an entry added and removed again) and checks that the
// next application object reads the same lists. The resolutions loaded.
QList<QSize> LoadWriteReload();

} // namespace KVFuzzPresets
