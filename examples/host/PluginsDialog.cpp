#include "PluginsDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QJsonDocument>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
// The data role of a skipped file's row: its path.
constexpr int kSkippedRole = Qt::UserRole + 1;

QString KindName(PluginDoctor::Contribution::Kind kind)
{
    switch (kind) {
    case PluginDoctor::Contribution::ImageFormats:
        return PluginsDialog::tr("Image formats");
    case PluginDoctor::Contribution::ImageGroup:
        return PluginsDialog::tr("Image group");
    case PluginDoctor::Contribution::Adjustment:
        return PluginsDialog::tr("Adjustment");
    case PluginDoctor::Contribution::Brush:
        return PluginsDialog::tr("Brush");
    case PluginDoctor::Contribution::BrushFactory:
        return PluginsDialog::tr("Brush factory");
    case PluginDoctor::Contribution::Tool:
        return PluginsDialog::tr("Tool");
    case PluginDoctor::Contribution::UndefinedSymbol:
        return PluginsDialog::tr("Undefined symbol");
    }
    return QString();
}
} // namespace

PluginsDialog::PluginsDialog(const PluginDoctor::Account& account, QWidget* parent)
    : QDialog(parent)
    , m_account(account)
{
    setObjectName("PluginsDialog");
    m_notice = new QLabel;
    m_notice->setWordWrap(true);
    m_tree = new QTreeWidget;
    m_tree->setColumnCount(2);
    m_tree->setRootIsDecorated(true);
    m_tree->setUniformRowHeights(true);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);

    auto* buttons = new QDialogButtonBox;
    m_takeBack = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_copy = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_close = buttons->addButton(QDialogButtonBox::Close);
    connect(m_close, &QPushButton::clicked, this, &QDialog::close);
    connect(m_takeBack, &QPushButton::clicked, this, &PluginsDialog::TakeBackSelected);
    connect(m_copy, &QPushButton::clicked, this, [this] {
        QApplication::clipboard()->setText(
            QString::fromUtf8(QJsonDocument(PluginDoctor::ToJson(m_account)).toJson()));
    });
    connect(m_tree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        m_takeBack->setEnabled(item && !item->data(0, kSkippedRole).toString().isEmpty());
    });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_notice);
    layout->addWidget(m_tree);
    layout->addWidget(buttons);
    Retranslate();
    resize(860, 600);
}

int PluginsDialog::FileCount() const
{
    return m_tree->topLevelItemCount();
}

QTreeWidgetItem* PluginsDialog::AddFile(const QString& path, const QString& status)
{
    auto* item = new QTreeWidgetItem(m_tree, {QFileInfo(path).fileName(), status});
    item->setToolTip(0, path);
    item->setToolTip(1, status);
    return item;
}

void PluginsDialog::Fill()
{
    m_tree->clear();
    QStyle* look = style();
    // What the user may want to take back comes first.
    for (const QString& skipped : m_account.skipped) {
        QTreeWidgetItem* item = AddFile(skipped, tr("Skipped: it crashed Pelkaro while it loaded"));
        item->setIcon(0, look->standardIcon(QStyle::SP_MessageBoxWarning));
        item->setData(0, kSkippedRole, skipped);
    }
    for (const PluginDoctor::File& file : m_account.files) {
        const bool loaded = file.status == QLatin1String("loaded");
        const QString status =
            loaded ? tr("Loaded in %1 ms").arg(file.milliseconds)
                   : (file.status == QLatin1String("missing") ? tr("Missing") : tr("Failed")) +
                         QStringLiteral(": ") + file.error;
        QTreeWidgetItem* item = AddFile(file.path, status);
        item->setIcon(0, look->standardIcon(loaded ? QStyle::SP_DialogApplyButton
                                                   : QStyle::SP_MessageBoxCritical));
        for (const PluginDoctor::Contribution& contribution : PluginDoctor::Contributions(file))
            new QTreeWidgetItem(item, {KindName(contribution.kind), contribution.text});
        if (!loaded && item->childCount() == 0)
            new QTreeWidgetItem(item, {tr("Error"), file.error});
    }
    for (const HostSession::LeftOut& leftOut : m_account.leftOut) {
        if (leftOut.reason != HostSession::LeftOut::SafeMode)
            continue;
        QTreeWidgetItem* item = AddFile(leftOut.path, tr("Left out in safe mode"));
        item->setIcon(0, look->standardIcon(QStyle::SP_MessageBoxInformation));
    }
    m_tree->expandAll();
    m_takeBack->setEnabled(false);
}

void PluginsDialog::Retranslate()
{
    setWindowTitle(tr("Plug-ins"));
    QStringList notices;
    if (!m_account.crashedLastStart.isEmpty()) {
        notices << tr("The last start ended while it loaded %1.")
                       .arg(QFileInfo(m_account.crashedLastStart).fileName());
    }
    if (m_account.safeMode)
        notices << tr("Safe mode: only the plug-ins that ship with Pelkaro are loaded.");
    notices << tr("Plug-in files tried: %1.").arg(m_account.files.size());
    m_notice->setText(notices.join(QLatin1Char(' ')));
    m_tree->setHeaderLabels({tr("Plug-in"), tr("Status and contributions")});
    m_takeBack->setText(tr("Take Back"));
    m_takeBack->setToolTip(tr("Load the selected skipped plug-in again at the next start"));
    m_copy->setText(tr("Copy as JSON"));
    Fill();
}

void PluginsDialog::TakeBackSelected()
{
    QTreeWidgetItem* item = m_tree->currentItem();
    const QString path = item ? item->data(0, kSkippedRole).toString() : QString();
    if (path.isEmpty())
        return;
    HostSession::TakeBack(path);
    m_account.skipped.removeAll(path);
    item->setData(0, kSkippedRole, QString());
    item->setText(1, tr("Taken back: it loads at the next start"));
    item->setIcon(0, style()->standardIcon(QStyle::SP_BrowserReload));
    m_takeBack->setEnabled(false);
}
