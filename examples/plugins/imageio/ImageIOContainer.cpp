// libimageio: every image format that Qt's image I/O both reads and writes,
// one format group per family of suffixes. The loader registers the plug-in
// with the image file registry and unregisters it before unloading.

#include "QtImageFormats.h"

#include <IPluginContainer.h>
#include <KVImageFileManager.h>

class ImageIOContainer : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IPluginContainer_iid)
    Q_INTERFACES(IPluginContainer)
public:
    void Initialize() override
    {
        // A second load of the same file reaches the same container.
        if (!m_plugin)
            m_plugin = new QtImageFilePlugin;
    }

    void Release() override
    {
        // Unloading this file alone leaves the registry to the container.
        KVImageFileManager::Unregister(m_plugin);
        delete m_plugin;
        m_plugin = nullptr;
    }

    void UIReady() override {}

    QList<KVPlugin*> GetPlugins() override
    {
        return m_plugin ? QList<KVPlugin*>{m_plugin} : QList<KVPlugin*>();
    }

private:
    QtImageFilePlugin* m_plugin = nullptr;
};

#include "ImageIOContainer.moc"
