#pragma once

#include <QObject>

#include "kvcore_export.h"

// A tool's switch with two independent states: the explicit one, which the
// user chose (the selected tool), and the implicit one, which says whether
// the tool is in effect right now (a temporary tool is implicitly on while
// the selected one waits). Checking or unchecking explicitly carries the
// implicit state along, announced first. KVToolGroupManager keeps a group of
// them exclusive.
class KVCORE_EXPORT KVActivateAction : public QObject
{
    Q_OBJECT
public:
    explicit KVActivateAction(QObject* parent = nullptr);
    ~KVActivateAction() override;

    bool IsChecked() const;
    bool IsImplicitlyChecked() const;

    // Asked before every change that would happen; false vetoes it silently.
    // The base answers what AllowChange() set (true at first); subclasses
    // override it to decide at the moment.
    virtual bool IsAllowChange();

public Q_SLOTS:
    // Sets the answer of the base IsAllowChange(); announces nothing.
    void AllowChange(bool allow);
    // Flip or set the explicit state: ImplicitToggled() when the implicit
    // state has to follow, then Toggled().
    void Toggle();
    void SetChecked(bool checked);
    // Flip or set the implicit state alone: ImplicitToggled().
    void ImplicitToggle();
    void SetImplicitChecked(bool checked);

Q_SIGNALS:
    void Toggled(bool checked);
    void ImplicitToggled(bool checked);

private:
    class Private;
    Private* d;
};
