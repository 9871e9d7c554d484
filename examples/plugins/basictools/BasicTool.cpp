#include "BasicTool.h"

#include <KVActivateAction.h>
#include <KVApplication.h>
#include <KVToolBarManager.h>
#include <KVToolGroupManager.h>
#include <KVToolWidgetManager.h>

#include <QAction>
#include <QEvent>
#include <QWidget>

BasicTool::BasicTool(const QString& uid)
    : m_uid(uid)
    , m_activate(new KVActivateAction(this))
{}

BasicTool::~BasicTool()
{
    // The switch goes first, while this tool can still follow the group's
    // hand-over to another tool.
    delete m_activate;
    delete m_toolBar;
    delete m_panel;
}

QList<QAction*> BasicTool::GetActions() const
{
    return m_action ? QList<QAction*>{m_action} : QList<QAction*>();
}

void BasicTool::Install()
{
    connect(m_activate, &KVActivateAction::ImplicitToggled, this, &BasicTool::OnImplicitToggled);
    KVToolGroupManager::Add(m_activate);

    KVApplication* app = KVApplication::GetInstance();
    if (!app)
        return;
    connect(app, &KVApplication::FlushPluginData, this, &BasicTool::OnFlush);

    m_action = new QAction(this);
    m_action->setCheckable(true);
    m_action->setShortcut(GetShortcut());
    m_action->setObjectName(m_uid);
    connect(m_action, &QAction::triggered, this, &BasicTool::Select);

    m_toolBar = CreateToolBarWidget();
    m_panel = CreatePanelWidget();
    m_panel->installEventFilter(this);
    // A widget announces its destruction while pointers to it still answer it.
    connect(m_toolBar, &QObject::destroyed, this, [this] {
        m_toolBar = nullptr;
        delete m_panel;
    });
    connect(m_panel, &QObject::destroyed, this, [this] {
        m_panel = nullptr;
        delete m_toolBar;
    });
    SetTexts();
    KVToolBarManager::Add(m_toolBar, m_uid);
    KVToolWidgetManager::Add(m_panel, m_uid);
}

void BasicTool::Select()
{
    // With only a temporary tool in effect, the group's first Activate() just
    // ends it; the second one selects.
    if (KVToolGroupManager::Activate(m_activate) &&
        KVToolGroupManager::GetExplicitAction() != m_activate)
        KVToolGroupManager::Activate(m_activate);
    // A click on the selected tool unchecked the action.
    if (m_action)
        m_action->setChecked(m_activate->IsImplicitlyChecked());
}

void BasicTool::OnImplicitToggled(bool inEffect)
{
    if (m_action)
        m_action->setChecked(inEffect);
    if (!HasWidgets())
        return;
    if (inEffect) {
        OnInEffect();
        KVToolBarManager::Activate(m_toolBar);
        KVToolWidgetManager::Activate(m_panel);
        return;
    }
    // Another tool may have shown its widgets already.
    if (KVToolBarManager::CurrentUID() == m_uid)
        KVToolBarManager::Activate(nullptr);
    if (KVToolWidgetManager::CurrentUID() == m_uid)
        KVToolWidgetManager::Activate(nullptr);
}

bool BasicTool::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_panel && event->type() == QEvent::LanguageChange && HasWidgets())
        SetTexts();
    return KVToolPlugin::eventFilter(watched, event);
}

void BasicTool::OnFlush()
{
    if (HasWidgets())
        SaveSettings();
}

void BasicTool::SetTexts()
{
    const QString name = GetName();
    m_action->setText(name);
    m_action->setToolTip(tr("%1 (%2)").arg(name, GetShortcut().toString(QKeySequence::NativeText)));
    m_toolBar->setWindowTitle(name);
    m_panel->setWindowTitle(name);
    Retranslate();
}
