#pragma once

#include <QObject>

#include "kvcore_export.h"

#include <memory>

/// A tool's switch with two independent states: the explicit one, which the
/// user chose (the selected tool), and the implicit one, which says whether
/// the tool is in effect right now (a temporary tool is implicitly on while
/// the selected one waits). Checking or unchecking explicitly carries the
/// implicit state along, announced first. KVToolGroupManager keeps a group of
/// them exclusive. Main thread only.
class KVCORE_EXPORT KVActivateAction : public QObject
{
    Q_OBJECT
public:
    /// An action with both states off, a child of parent when one is given.
    explicit KVActivateAction(QObject* parent = nullptr);
    /// Deletes the action; a group it belongs to forgets it.
    ~KVActivateAction() override;

    /// The explicit state: whether this is the selected tool.
    bool IsChecked() const;
    /// The implicit state: whether the tool is in effect right now.
    bool IsImplicitlyChecked() const;

    /// Asked before every change that would happen; false vetoes it silently.
    /// The base answers what AllowChange() set (true at first); subclasses
    /// override it to decide at the moment.
    virtual bool IsAllowChange();

public Q_SLOTS:
    /// Sets the answer of the base IsAllowChange(); announces nothing.
    void AllowChange(bool allow);
    /// Flips the explicit state: ImplicitToggled() when the implicit state
    /// has to follow, then Toggled().
    void Toggle();
    /// Sets the explicit state, as Toggle() does; the current state again does nothing.
    void SetChecked(bool checked);
    /// Flips the implicit state alone: ImplicitToggled().
    void ImplicitToggle();
    /// Sets the implicit state alone; the current state again does nothing.
    void SetImplicitChecked(bool checked);

Q_SIGNALS:
    /// The explicit state changed to checked.
    void Toggled(bool checked);
    /// The implicit state changed to checked.
    void ImplicitToggled(bool checked);

private:
    class Private;
    std::unique_ptr<Private> d;
};
