#pragma once

#include <QStringList>

class KVApplication;

// The host without a window: explains every file of the plug-in folders,
// loads the plug-ins, prints their records, the image groups and dialog
// filters, and opens the given images through the reader pool. Returns the
// process's exit code: non-zero when an image could not be opened.
int RunReport(KVApplication& app, const QStringList& images);
