#pragma once

#include <QGridLayout>
#include <QMap>
#include <QObject>
#include <QSizePolicy>
#include <QString>
#include <QWidget>

// What the tool bar and tool widget managers share: a container widget, the
// general content, that lays out the widgets contributed by tools and shows
// at most one of them, the current content. Manager is the public class; it
// has the signal ContentChanged() and the slot OnContentDestroyed(QObject*),
// which also hears the general content itself go (the window that embeds it
// may delete it first).
template <typename Manager> class KVToolContent
{
public:
    // What happens to the keyboard focus inside a content that is switched away.
    enum class FocusOnHide
    {
        Keep,
        Clear
    };

    KVToolContent(Manager* owner, FocusOnHide focus)
        : q(owner)
        , m_generalContent(new QWidget(nullptr, Qt::WindowFlags()))
        , m_layout(new QGridLayout(m_generalContent))
        , m_focusOnHide(focus)
    {
        m_generalContent->setSizePolicy(ContentSizePolicy());
        m_layout->setSpacing(0);
        m_layout->setContentsMargins(0, 0, 0, 0);
        m_layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
        Watch(m_generalContent);
    }

    // The contents still inside go with the general content, unheard.
    ~KVToolContent()
    {
        if (!m_generalContent)
            return;
        Unwatch(m_generalContent);
        for (auto it = m_contents.cbegin(); it != m_contents.cend(); ++it)
            Unwatch(it.key());
        delete m_generalContent;
    }

    KVToolContent(const KVToolContent&) = delete;
    KVToolContent& operator=(const KVToolContent&) = delete;

    // Every content takes the first cell: only one is ever shown, and the
    // hidden ones give up their space.
    bool Add(QWidget* widget, const QString& uid)
    {
        if (!widget || !m_generalContent || m_contents.contains(widget))
            return false;
        widget->setSizePolicy(ContentSizePolicy());
        m_layout->addWidget(widget, 0, 0);
        widget->hide();
        m_contents.insert(widget, uid);
        Watch(widget);
        return true;
    }

    // The widget stays a child of the general content until the caller takes it.
    void Remove(QWidget* widget)
    {
        if (!widget || !m_contents.contains(widget))
            return;
        Unwatch(widget);
        widget->hide();
        m_layout->removeWidget(widget);
        m_contents.remove(widget);
        if (widget == m_currentContent)
            ClearCurrent();
    }

    void Activate(QWidget* widget)
    {
        if (widget == m_currentContent)
            return;
        if (!widget || !m_contents.contains(widget)) {
            if (!m_currentContent)
                return;
            HideCurrent();
            m_currentContent = nullptr;
            Q_EMIT q->ContentChanged();
            return;
        }
        if (m_currentContent)
            HideCurrent();
        m_currentContent = widget;
        widget->show();
        m_generalContent->setWindowTitle(widget->windowTitle());
        Q_EMIT q->ContentChanged();
    }

    // Only pointers are compared: the object is half destroyed. The general
    // content says so before its children go, so they are let go whole.
    void OnContentDestroyed(QObject* object)
    {
        if (object == m_generalContent) {
            m_generalContent = nullptr;
            m_layout = nullptr;
            for (auto it = m_contents.cbegin(); it != m_contents.cend(); ++it)
                Unwatch(it.key());
            m_contents.clear();
            if (m_currentContent) {
                m_currentContent = nullptr;
                Q_EMIT q->ContentChanged();
            }
            return;
        }
        if (!m_contents.remove(object))
            return;
        if (object == m_currentContent)
            ClearCurrent();
    }

    QString CurrentUID() const
    {
        return m_currentContent ? m_contents.value(m_currentContent) : QString();
    }

    Manager* q;
    QWidget* m_generalContent; // null once something else deleted it
    QGridLayout* m_layout;
    QWidget* m_currentContent = nullptr;
    QMap<QObject*, QString> m_contents; // widget -> UID

private:
    static QSizePolicy ContentSizePolicy()
    {
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
        policy.setRetainSizeWhenHidden(false);
        return policy;
    }

    void Watch(QObject* object)
    {
        QObject::connect(object, SIGNAL(destroyed(QObject*)), q,
                         SLOT(OnContentDestroyed(QObject*)));
    }

    void Unwatch(QObject* object)
    {
        QObject::disconnect(object, SIGNAL(destroyed(QObject*)), q,
                            SLOT(OnContentDestroyed(QObject*)));
    }

    // Clearing the focus first keeps Qt from handing it to the next widget of
    // the window when the focused child disappears.
    void HideCurrent()
    {
        if (m_focusOnHide == FocusOnHide::Clear) {
            if (QWidget* focused = m_currentContent->focusWidget())
                focused->clearFocus();
        }
        m_currentContent->hide();
    }

    void ClearCurrent()
    {
        m_currentContent = nullptr;
        m_generalContent->setWindowTitle(QString());
        Q_EMIT q->ContentChanged();
    }

    FocusOnHide m_focusOnHide;
};
