// One adjustment, registered by its container as the editor's own are.

#include <IPluginContainer.h>
#include <KVAdjustment.h>
#include <KVAdjustmentManager.h>

#include <utility>

class Sepia : public KVAdjustment
{
    Q_OBJECT
public:
    QString GetUID() const override
    {
        return QStringLiteral("{a29ab045-08fe-46d1-be63-14d694505c58}");
    }
    QString GetAdjustmentID() const override { return GetUID(); }
    QString GetName() const override { return tr("Sepia"); }
    QImage Apply(const QImage& image) const override
    {
        QImage result = image.convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < result.height(); ++y) {
            for (int x = 0; x < result.width(); ++x) {
                const int grey = qGray(result.pixel(x, y));
                result.setPixel(x, y, qRgb(qMin(255, grey + 40), qMin(255, grey + 20), grey));
            }
        }
        return result;
    }
};

class SepiaContainer : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IPluginContainer_iid)
    Q_INTERFACES(IPluginContainer)
public:
    void Initialize() override
    {
        if (!m_sepia)
            KVAdjustmentManager::Register(m_sepia = new Sepia);
    }
    void Release() override
    {
        if (m_sepia)
            KVAdjustmentManager::Unregister(m_sepia->GetAdjustmentID());
        delete std::exchange(m_sepia, nullptr);
    }
    void UIReady() override {}
    QList<KVPlugin*> GetPlugins() override { return {m_sepia}; }

private:
    Sepia* m_sepia = nullptr;
};

#include "SepiaContainer.moc"
