#pragma once

#include <QObject>
#include <QString>

#include "kvcore_export.h"

#include <memory>

class QWidget;

/// The shared tool panel area of the main window. Each tool may contribute a
/// widget under its UID; the manager lays them all into one container, the
/// general content, which the window embeds, and shows one at a time, the
/// current content, chosen with Activate(). KVToolBarManager is the same for
/// the tool bar area, except that it also clears the focus of a content it
/// switches away.
///
/// A singleton: InitInstance() creates it with its general content,
/// ReleaseInstance() deletes it together with the general content and every
/// widget still inside. Every operation is static and answers as noted while
/// there is none. The manager deletes no widget itself and forgets destroyed
/// ones; if the window deletes the general content first, the manager is left
/// empty and GeneralContent() answers null.
class KVCORE_EXPORT KVToolWidgetManager : public QObject
{
    Q_OBJECT
public:
    /// Creates the manager and its general content unless the manager exists.
    static void InitInstance();
    /// The manager, for connecting to its signal; null while there is none.
    static KVToolWidgetManager* GetInstance();
    /// Deletes the manager, its general content and every widget still inside.
    static void ReleaseInstance();

    /// Lays the widget, hidden, into the general content (making it a child of
    /// it) under the UID. False when it is already there (its UID stays), for
    /// null, and without the manager.
    static bool Add(QWidget* widget, const QString& uid);
    /// Hides the widget and takes it out of the layout; it stays a child of
    /// the general content until the caller reparents or deletes it.
    static void Remove(QWidget* widget);
    /// Shows the widget instead of the current content and gives the general
    /// content its window title. Null or an unknown widget hides the current
    /// content and shows nothing.
    static void Activate(QWidget* widget);

    /// The container to embed in the window; null without the manager.
    static QWidget* GeneralContent();
    /// True while nothing is shown, however many widgets were added.
    static bool IsGeneralContentEmpty();
    /// The UID of the current content; empty when nothing is shown.
    static QString CurrentUID();

Q_SIGNALS:
    /// The current content changed, to another widget or to none.
    void ContentChanged();

private Q_SLOTS:
    void OnContentDestroyed(QObject* object);

private:
    KVToolWidgetManager();
    ~KVToolWidgetManager() override;

    friend class KVSingleton; // makes and deletes the instance
    class Private;
    std::unique_ptr<Private> d;
};
