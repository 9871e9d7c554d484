// libadjustments: the container registers its adjustments with the
// adjustment registry itself, and takes them out again before it goes.

#include "Adjustments.h"

#include <IPluginContainer.h>
#include <KVAdjustmentManager.h>

class AdjustmentsContainer : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IPluginContainer_iid)
    Q_INTERFACES(IPluginContainer)
public:
    void Initialize() override
    {
        // A second load of the same file reaches the same container.
        if (!m_adjustments.isEmpty())
            return;
        m_adjustments = {
            new InvertAdjustment,
            new GreyscaleAdjustment,
            new BrightnessAdjustment(QStringLiteral("{555880be-f88b-4c5a-a398-a0569f77928a}"), 32),
            new BrightnessAdjustment(QStringLiteral("{d9ca3ec5-9c84-4043-81e1-d7bb7f142d61}"), -32),
            new ContrastAdjustment(QStringLiteral("{30848d46-7bce-4e15-b871-56839a78f8a1}"), 1.25),
            new ContrastAdjustment(QStringLiteral("{f646ccbc-d49b-40a2-ad1f-980c719dee7e}"), 0.8),
        };
        for (KVAdjustment* adjustment : qAsConst(m_adjustments))
            KVAdjustmentManager::Register(adjustment);
    }

    void Release() override
    {
        for (KVAdjustment* adjustment : qAsConst(m_adjustments)) {
            // Leave an identifier alone that another plug-in held first.
            const QString id = adjustment->GetAdjustmentID();
            if (KVAdjustmentManager::GetAdjustment(id) == adjustment)
                KVAdjustmentManager::Unregister(id);
        }
        qDeleteAll(m_adjustments);
        m_adjustments.clear();
    }

    void UIReady() override {}

    QList<KVPlugin*> GetPlugins() override
    {
        QList<KVPlugin*> plugins;
        for (KVAdjustment* adjustment : qAsConst(m_adjustments))
            plugins.append(adjustment);
        return plugins;
    }

private:
    QList<KVAdjustment*> m_adjustments;
};

#include "AdjustmentsContainer.moc"
