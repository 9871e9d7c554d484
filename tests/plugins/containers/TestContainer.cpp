// A plug-in container for the loader's tests; KV_KIND_<kind> picks what it holds
// (see MakePlugins()) or how it fails: MISSING_SYMBOL calls a function no library
// defines, ABORT aborts in Initialize(). It logs its calls in
// the application's "testCalls" property.

#include "TestImagePlugin.h"

#include <IBrushFactory.h>
#include <IPluginContainer.h>
#include <KVAdjustment.h>
#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVBrushPlugin.h>

#include <cstdlib>

#if defined(KV_KIND_MISSING_SYMBOL)
// A C++ name, so that the loader's error names it mangled: _Z13MissingHelperv.
void MissingHelper();
#endif

namespace {
const QString kName = QStringLiteral(KV_CONTAINER_NAME);

void Record(const char* call)
{
    if (QCoreApplication* app = QCoreApplication::instance())
        app->setProperty("testCalls", app->property("testCalls").toStringList()
                                          << kName + ':' + call);
}
} // namespace

class TestBrushFactory : public KVBrushPlugin, public IBrushFactory
{
    Q_OBJECT
public:
    QString GetUID() const override { return "{00000000-0000-0000-0000-000000000002}"; }
    QStringList GetBrushIDs() const override { return {"round"}; }
    QString GetBrushName(const QString&) const override { return "Round"; }
    QImage CreateBrushTip(const QString&, int, qreal) const override { return QImage(); }
};

class TestAdjustment : public KVAdjustment
{
    Q_OBJECT
public:
    explicit TestAdjustment(const QString& id)
        : m_id(id)
    {}
    QString GetUID() const override { return m_id; }
    QString GetAdjustmentID() const override { return m_id; }
    const QString m_id;
};

namespace {
// IMAGE: an image-file plug-in of KV_CONTAINER_NAME files; BRUSH: a null entry
// and the brush factory; ADJUSTMENTS: two that the container registers itself.
QList<KVPlugin*> MakePlugins()
{
#if defined(KV_KIND_IMAGE)
    TestImagePluginConfig config;
    config.uid = QString("{7e57c000-0000-4000-8000-%1}").arg(qHash(kName), 12, 16, QChar('0'));
    config.formats = QStringList{kName};
    config.readerUIDs = QStringList{config.uid + "-reader"};
    return {new TestImagePlugin(config)};
#elif defined(KV_KIND_BRUSH)
    return {nullptr, new TestBrushFactory};
#elif defined(KV_KIND_ADJUSTMENTS)
    return {new TestAdjustment(kName + ".invert"), new TestAdjustment(kName + ".grey")};
#else
    return {};
#endif
}
} // namespace

class TestContainer : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IPluginContainer_iid)
    Q_INTERFACES(IPluginContainer)
public:
    void Initialize() override
    {
        Record("Initialize");
#if defined(KV_KIND_MISSING_SYMBOL)
        MissingHelper();
#elif defined(KV_KIND_ABORT)
        std::abort();
#endif
        if (!m_plugins.isEmpty())
            return;
        m_plugins = MakePlugins();
        if (KVApplication* app = KVApplication::GetInstance())
            m_flush = connect(app, &KVApplication::FlushPluginData, this,
                              [] { Record("FlushPluginData"); });
        for (KVPlugin* plugin : qAsConst(m_plugins)) {
            if (auto* adjustment = qobject_cast<KVAdjustment*>(plugin))
                KVAdjustmentManager::Register(adjustment);
        }
    }

    void Release() override
    {
        Record("Release");
        disconnect(m_flush);
        for (KVPlugin* plugin : qAsConst(m_plugins)) {
            if (auto* adjustment = qobject_cast<KVAdjustment*>(plugin))
                KVAdjustmentManager::Unregister(adjustment->GetAdjustmentID());
        }
        qDeleteAll(m_plugins);
        m_plugins.clear();
    }

    void UIReady() override
    {
        Record("UIReady");
    }
    QList<KVPlugin*> GetPlugins() override
    {
        return m_plugins;
    }

private:
    QList<KVPlugin*> m_plugins;
    QMetaObject::Connection m_flush;
};

#include "TestContainer.moc"
