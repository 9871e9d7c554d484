// libbrushcontainer: three brushes, registered with the brush tool registry
// (the round one made the main brush plug-in when there is none yet), and the
// brush factory that makes their tips.

#include "Brushes.h"

#include <IPluginContainer.h>
#include <KVBrushToolManager.h>

class BrushContainer : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IPluginContainer_iid)
    Q_INTERFACES(IPluginContainer)
public:
    void Initialize() override
    {
        // A second load of the same file reaches the same container.
        if (m_factory)
            return;
        m_brushes = {
            new SampleBrush(QStringLiteral("{cc7c8a15-1201-4b2d-886b-6d23c73536ff}"),
                            SampleBrush::Round),
            new SampleBrush(QStringLiteral("{ba117234-3aaa-4c83-9fbb-5d876b68714a}"),
                            SampleBrush::SoftRound),
            new SampleBrush(QStringLiteral("{e0ae454d-5eb4-4711-8ab3-5087302d890c}"),
                            SampleBrush::Square),
        };
        m_factory = new SampleBrushFactory(m_brushes);
        for (SampleBrush* brush : qAsConst(m_brushes))
            KVBrushToolManager::Register(brush);
        if (!KVBrushToolManager::GetMainBrushPlugin())
            KVBrushToolManager::SetMainBrushPlugin(m_brushes.first());
    }

    void Release() override
    {
        for (SampleBrush* brush : qAsConst(m_brushes)) {
            // Leave a UID alone that another plug-in held first.
            if (KVBrushToolManager::GetPlugin(brush->GetUID()) == brush)
                KVBrushToolManager::Unregister(brush->GetUID());
        }
        // The registry forgets a destroyed main brush plug-in by itself.
        delete m_factory;
        m_factory = nullptr;
        qDeleteAll(m_brushes);
        m_brushes.clear();
    }

    void UIReady() override {}

    QList<KVPlugin*> GetPlugins() override
    {
        if (!m_factory)
            return {};
        QList<KVPlugin*> plugins{m_factory};
        for (SampleBrush* brush : qAsConst(m_brushes))
            plugins.append(brush);
        return plugins;
    }

private:
    QList<SampleBrush*> m_brushes;
    SampleBrushFactory* m_factory = nullptr;
};

#include "BrushContainer.moc"
