#include "Tools.h"

#include <IBrushFactory.h>
#include <KVActivateAction.h>
#include <KVApplication.h>
#include <KVBrushToolManager.h>
#include <KVToolBarManager.h>

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
const QString kMoveAutoSelect = QStringLiteral("BasicTools/MoveAutoSelect");
const QString kBrushSize = QStringLiteral("BasicTools/BrushSize");
const QString kBrushHardness = QStringLiteral("BasicTools/BrushHardness");
const QString kHandScrollAll = QStringLiteral("BasicTools/HandScrollAll");
// The brush panel shows tips up to this size.
constexpr int kPreviewSize = 64;

QWidget* Row(const QList<QWidget*>& children)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(4, 2, 4, 2);
    for (QWidget* child : children)
        layout->addWidget(child);
    layout->addStretch();
    return row;
}

QWidget* Column(const QList<QWidget*>& children)
{
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    for (QWidget* child : children)
        layout->addWidget(child);
    layout->addStretch();
    return column;
}

QLabel* HelpLabel()
{
    auto* label = new QLabel;
    label->setWordWrap(true);
    return label;
}

QCheckBox* StoredCheckBox(const QString& key)
{
    auto* box = new QCheckBox;
    box->setChecked(KVApplication::GetUserValue(key, false).toBool());
    return box;
}

QSpinBox* StoredSpinBox(const QString& key, int minimum, int maximum, int fallback)
{
    auto* box = new QSpinBox;
    box->setRange(minimum, maximum);
    box->setValue(KVApplication::GetUserValue(key, fallback).toInt());
    return box;
}
} // namespace

MoveTool::MoveTool()
    : BasicTool(QStringLiteral("{bd5d3191-0062-4fae-a9d2-3f0e9c273b40}"))
{}

QString MoveTool::GetName() const
{
    return tr("Move");
}

QKeySequence MoveTool::GetShortcut() const
{
    return QKeySequence(Qt::Key_V);
}

QWidget* MoveTool::CreateToolBarWidget()
{
    m_autoSelect = StoredCheckBox(kMoveAutoSelect);
    return Row({m_autoSelect});
}

QWidget* MoveTool::CreatePanelWidget()
{
    m_help = HelpLabel();
    return Column({m_help});
}

void MoveTool::Retranslate()
{
    m_autoSelect->setText(tr("Auto-select layer"));
    m_help->setText(tr("Drag in the image to move the selected layer; the arrow keys move it "
                       "by one pixel."));
}

void MoveTool::SaveSettings()
{
    KVApplication::SetUserValue(kMoveAutoSelect, m_autoSelect->isChecked());
}

BrushTool::BrushTool()
    : BasicTool(QStringLiteral("{94f3dd7b-ffac-4624-b908-02d3088e43c1}"))
{}

QString BrushTool::GetName() const
{
    return tr("Brush");
}

QKeySequence BrushTool::GetShortcut() const
{
    return QKeySequence(Qt::Key_B);
}

QWidget* BrushTool::CreateToolBarWidget()
{
    m_sizeLabel = new QLabel;
    m_size = StoredSpinBox(kBrushSize, 1, 1000, 20);
    m_hardnessLabel = new QLabel;
    m_hardness = StoredSpinBox(kBrushHardness, 0, 100, 80);
    m_sizeLabel->setBuddy(m_size);
    m_hardnessLabel->setBuddy(m_hardness);
    const auto changed = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(m_size, changed, this, &BrushTool::UpdatePreview);
    connect(m_hardness, changed, this, &BrushTool::UpdatePreview);
    return Row({m_sizeLabel, m_size, m_hardnessLabel, m_hardness});
}

QWidget* BrushTool::CreatePanelWidget()
{
    m_brushName = new QLabel;
    m_preview = new QLabel;
    m_preview->setFixedSize(kPreviewSize, kPreviewSize);
    m_preview->setAlignment(Qt::AlignCenter);
    return Column({m_brushName, m_preview});
}

void BrushTool::Retranslate()
{
    m_sizeLabel->setText(tr("Size:"));
    m_size->setSuffix(tr(" px"));
    m_hardnessLabel->setText(tr("Hardness:"));
    m_hardness->setSuffix(tr(" %"));
    UpdatePreview();
}

void BrushTool::OnInEffect()
{
    // The brushes may have been loaded after this tool.
    UpdatePreview();
}

void BrushTool::UpdatePreview()
{
    const IBrushFactory* factory = KVApplication::GetBrushFactory();
    const KVBrushPlugin* brush = KVBrushToolManager::GetMainBrushPlugin();
    if (!factory || !brush) {
        m_brushName->setText(tr("No brushes are installed."));
        m_preview->clear();
        return;
    }
    const QString id = brush->GetUID();
    m_brushName->setText(factory->GetBrushName(id));
    const QImage tip = factory->CreateBrushTip(id, qMin(m_size->value(), kPreviewSize),
                                               m_hardness->value() / 100.0);
    m_preview->setPixmap(QPixmap::fromImage(tip));
}

void BrushTool::SaveSettings()
{
    KVApplication::SetUserValue(kBrushSize, m_size->value());
    KVApplication::SetUserValue(kBrushHardness, m_hardness->value());
}

HandTool::HandTool()
    : BasicTool(QStringLiteral("{3578c7f8-ba68-45ec-982e-01148f18ae5d}"))
{
    if (QCoreApplication* app = QCoreApplication::instance())
        app->installEventFilter(this);
}

HandTool::~HandTool()
{
    if (QCoreApplication* app = QCoreApplication::instance())
        app->removeEventFilter(this);
}

QString HandTool::GetName() const
{
    return tr("Hand");
}

QKeySequence HandTool::GetShortcut() const
{
    return QKeySequence(Qt::Key_H);
}

QWidget* HandTool::CreateToolBarWidget()
{
    m_scrollAll = StoredCheckBox(kHandScrollAll);
    return Row({m_scrollAll});
}

QWidget* HandTool::CreatePanelWidget()
{
    m_help = HelpLabel();
    return Column({m_help});
}

void HandTool::Retranslate()
{
    m_scrollAll->setText(tr("Scroll all windows"));
    m_help->setText(tr("Drag in the image to scroll it. Hold Space to use the Hand tool while "
                       "another tool is selected."));
}

void HandTool::SaveSettings()
{
    KVApplication::SetUserValue(kHandScrollAll, m_scrollAll->isChecked());
}

bool HandTool::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // A modifier pressed while Space is held does not keep the tool on.
        if (key->key() == Qt::Key_Space && (m_temporary || key->modifiers() == Qt::NoModifier))
            return OnSpace(type == QEvent::KeyPress, key->isAutoRepeat());
    } else if (type == QEvent::ApplicationDeactivate && m_temporary) {
        // The release of Space will go to another application.
        OnSpace(false, false);
    }
    return BasicTool::eventFilter(watched, event);
}

// Whether Space means "temporary Hand tool" now, rather than a blank or a click.
bool HandTool::SpaceIsForTools() const
{
    const QWidget* content = KVToolBarManager::GeneralContent();
    const QWidget* focus = QApplication::focusWidget();
    return content && content->window() == QApplication::activeWindow() &&
           !QApplication::activeModalWidget() &&
           !(focus && focus->testAttribute(Qt::WA_InputMethodEnabled));
}

// Returns whether the key event is used up.
bool HandTool::OnSpace(bool pressed, bool autoRepeat)
{
    if (m_temporary) {
        // Repeats while Space is held belong to the temporary tool too.
        if (!pressed && !autoRepeat) {
            m_temporary = false;
            GetActivateAction()->SetImplicitChecked(false);
        }
        return true;
    }
    if (!pressed || autoRepeat || GetActivateAction()->IsImplicitlyChecked() || !SpaceIsForTools())
        return false;
    m_temporary = true;
    GetActivateAction()->SetImplicitChecked(true);
    return true;
}
