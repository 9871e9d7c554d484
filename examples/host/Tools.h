#pragma once

#include <QList>

class QAction;

// The tool actions that the loaded tool plug-ins contribute, for the tool bar.
QList<QAction*> ToolActions();
