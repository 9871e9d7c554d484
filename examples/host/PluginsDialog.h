#pragma once

#include "PluginDoctor.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// Help > Plug-ins: every plug-in file of this start with what it contributed
// or why it did not load, the files left out, and the skipped ones, which
// the user can take back. It shows the account that --report prints.
class PluginsDialog : public QDialog
{
    Q_OBJECT
public:
    PluginsDialog(const PluginDoctor::Account& account, QWidget* parent = nullptr);

    // The rows of files: load records, files left out in safe mode, skipped files.
    int FileCount() const;

private:
    void Fill();
    void Retranslate();
    void TakeBackSelected();
    QTreeWidgetItem* AddFile(const QString& path, const QString& status);

    PluginDoctor::Account m_account;
    QLabel* m_notice = nullptr;
    QTreeWidget* m_tree = nullptr;
    QPushButton* m_takeBack = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_close = nullptr;
};
