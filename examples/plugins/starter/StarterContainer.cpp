// The starter plug-in's container, the root object of the library: it makes
// the adjustment, registers it, keeps its level in user.ini and takes
// everything back in Release().

#include "ThresholdAdjustment.h"

#include <IPluginContainer.h>
#include <KVAdjustmentManager.h>
#include <KVApplication.h>

// [starter-settings]
namespace {
// The plug-in's own group in user.ini, named after the plug-in.
const QString kLevelKey = QStringLiteral("Starter/ThresholdLevel");
constexpr int kDefaultLevel = 128;
} // namespace
// [starter-settings-end]

// [starter-container]
class StarterContainer : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IPluginContainer_iid)
    Q_INTERFACES(IPluginContainer)
public:
    // [starter-container-end]
    // [starter-initialize]
    void Initialize() override
    {
        // Loading the same file again reaches the same container again.
        if (m_threshold)
            return;
        // Settings belong to the main thread: read once here, never in Apply().
        const int level = KVApplication::GetUserValue(kLevelKey, kDefaultLevel).toInt();
        m_threshold = new ThresholdAdjustment(qBound(1, level, 255));
        KVAdjustmentManager::Register(m_threshold);
        // KVApplication::FlushData() asks every plug-in to save what it holds.
        connect(KVApplication::GetInstance(), &KVApplication::FlushPluginData, this,
                [this] { KVApplication::SetUserValue(kLevelKey, m_threshold->GetLevel()); });
    }
    // [starter-initialize-end]

    // [starter-release]
    void Release() override
    {
        if (!m_threshold)
            return;
        disconnect(KVApplication::GetInstance(), &KVApplication::FlushPluginData, this, nullptr);
        // Leave the identifier alone when another plug-in held it first.
        const QString id = m_threshold->GetAdjustmentID();
        if (KVAdjustmentManager::GetAdjustment(id) == m_threshold)
            KVAdjustmentManager::Unregister(id);
        delete m_threshold;
        m_threshold = nullptr;
    }
    // [starter-release-end]

    // [starter-plugins]
    void UIReady() override {}

    // An empty list would make the loader refuse the library ("Empty container.").
    QList<KVPlugin*> GetPlugins() override
    {
        return m_threshold ? QList<KVPlugin*>{m_threshold} : QList<KVPlugin*>{};
    }

private:
    ThresholdAdjustment* m_threshold = nullptr;
};
// [starter-plugins-end]

#include "StarterContainer.moc"
