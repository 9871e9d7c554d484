#pragma once

#include <KVToolPlugin.h>

#include <QKeySequence>
#include <QPointer>
#include <QWidget>

class KVActivateAction;

// One tool of libbasictools: its switch in the tool group, the checkable
// action that selects it in the window's tool bar, and its two widgets, the
// options in the tool bar area and the panel in the tool panel area. While
// the tool is in effect (its switch implicitly on, which a temporary tool is
// too) its widgets are the ones shown, and its action is checked.
//
// The action and the widgets exist only in a process whose application object
// is a KVApplication; without one the tool has its switch only. The tool
// deletes its widgets when it goes, unless their area went first.
class BasicTool : public KVToolPlugin
{
    Q_OBJECT
public:
    explicit BasicTool(const QString& uid);
    ~BasicTool() override;

    QString GetUID() const override { return m_uid; }
    QList<QAction*> GetActions() const override;

    // Joins the tool group, makes the action and the widgets, and adds the
    // widgets to the tool bar and tool panel areas. Once, after construction.
    void Install();
    // Makes this the selected tool, as a click on its action does.
    void Select();

protected:
    // The translated name, shown by the action and as the widgets' titles.
    virtual QString GetName() const = 0;
    virtual QKeySequence GetShortcut() const = 0;
    virtual QWidget* CreateToolBarWidget() = 0;
    virtual QWidget* CreatePanelWidget() = 0;
    // Sets the widgets' own texts again; called when the language changed.
    virtual void Retranslate() {}
    // Called when the tool comes into effect, before its widgets show.
    virtual void OnInEffect() {}
    // Writes the options to user.ini, when the application flushes plug-in data.
    virtual void SaveSettings() {}
    // The three above are called only while both widgets exist: when an area
    // deletes one of them, the tool deletes the other.

    KVActivateAction* GetActivateAction() const { return m_activate; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool HasWidgets() const { return m_toolBar && m_panel; }
    void OnImplicitToggled(bool inEffect);
    void OnFlush();
    void SetTexts();

    QString m_uid;
    KVActivateAction* m_activate;
    QAction* m_action = nullptr;
    QPointer<QWidget> m_toolBar;
    QPointer<QWidget> m_panel;
};
