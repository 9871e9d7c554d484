#include "TestImagePlugin.h"
#include "TestSupport.h"

#include <IBrushFactory.h>
#include <IPluginContainer.h>
#include <KVCMSProfile.h>
#include <KVPixelRatioRound.h>
#include <KVPlugin.h>

#include <QRandomGenerator>
#include <QTemporaryDir>

#include <lcms2.h>

namespace {
QByteArray ProfileBytes(cmsHPROFILE profile)
{
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(int(size), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

QByteArray GrayProfileBytes()
{
    cmsToneCurve* gamma = cmsBuildGamma(nullptr, 2.2);
    QByteArray bytes = ProfileBytes(cmsCreateGrayProfile(cmsD50_xyY(), gamma));
    cmsFreeToneCurve(gamma);
    return bytes;
}

// A brush plug-in object that is also the brush factory: the loader finds the
// factory by cross-casting from KVPlugin.
class FactoryPlugin : public KVPlugin, public IBrushFactory
{
    Q_OBJECT
public:
    QString GetUID() const override { return "{00000000-0000-0000-0000-000000000002}"; }
    QStringList GetBrushIDs() const override { return {"round"}; }
    QString GetBrushName(const QString&) const override { return "Round"; }
    QImage CreateBrushTip(const QString&, int, qreal) const override { return QImage(); }
};

class Container : public QObject, public IPluginContainer
{
    Q_OBJECT
    Q_INTERFACES(IPluginContainer)
public:
    void Initialize() override {}
    void Release() override {}
    void UIReady() override {}
    QList<KVPlugin*> GetPlugins() override { return {}; }
};

} // namespace

// The SDK types that plug-ins compile against.
class CompanionsTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString Write(const QString& name, const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(name);
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return path;
    }

private Q_SLOTS:
    void profileLoad_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("loads");
        QTest::addColumn<quint32>("colorSpace");

        const QByteArray srgb = ProfileBytes(cmsCreate_sRGBProfile());
        QByteArray random(4096, '\0');
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32*>(random.data()), 1024);
        QByteArray badMagic = srgb;
        badMagic[36] = 'x';

        QTest::newRow("sRGB") << srgb << true << quint32(0x52474220);
        QTest::newRow("gray") << GrayProfileBytes() << true << quint32(0x47524159);
        QTest::newRow("Lab") << ProfileBytes(cmsCreateLab4Profile(nullptr)) << true
                             << quint32(0x4C616220);
        QTest::newRow("empty") << QByteArray() << false << quint32(0);
        QTest::newRow("header cut short") << srgb.left(100) << false << quint32(0);
        QTest::newRow("end cut off") << srgb.left(srgb.size() / 2) << false << quint32(0);
        QTest::newRow("random bytes") << random << false << quint32(0);
        QTest::newRow("no ICC signature") << badMagic << false << quint32(0);
    }

    void profileLoad()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, loads);
        QFETCH(quint32, colorSpace);

        KVCMSProfile profile;
        QCOMPARE(profile.Load(Write("profile.icc", bytes)), loads);
        QCOMPARE(profile.GetColorSpace(), colorSpace);
        QCOMPARE(profile.IsEmpty(), !loads);

        // A failed load empties a profile that held one before.
        KVCMSProfile reused;
        QVERIFY(reused.Load(Write("srgb.icc", ProfileBytes(cmsCreate_sRGBProfile()))));
        QCOMPARE(reused.Load(Write("profile.icc", bytes)), loads);
        QCOMPARE(reused.GetColorSpace(), colorSpace);
    }

    void profileIsAValue()
    {
        KVCMSProfile loaded;
        QVERIFY(!loaded.Load(m_dir.filePath("missing.icc")));
        QVERIFY(!loaded.Load(m_dir.path()));
        QVERIFY(loaded.Load(Write("gray.icc", GrayProfileBytes())));

        KVCMSProfile copy = loaded;
        QCOMPARE(copy, loaded);
        QCOMPARE(copy.GetPath(), m_dir.filePath("gray.icc"));
        loaded = KVCMSProfile();
        QCOMPARE(copy.GetColorSpace(), quint32(0x47524159));
        QVERIFY(loaded.IsEmpty());
        QCOMPARE(loaded.GetColorSpace(), quint32(0));
    }

    void pixelRatio()
    {
        KVPixelRatioRound::SetPixelRatio(2.0);
        KVPixelRatioRound::SetPixelRatio(0.0); // ignored
        QCOMPARE(KVPixelRatioRound::GetPixelRatio(), 2.0);
        QCOMPARE(KVPixelRatioRound::ToDevice(10.3), 21);
        KVPixelRatioRound::SetPixelRatio(1.5);
        QCOMPARE(KVPixelRatioRound::ToDevice(3), 5);
        QCOMPARE(KVPixelRatioRound::ToLogical(3), 2.0);
    }

    // The casts the loader relies on, across the library boundary.
    void pluginTypesCast()
    {
        FactoryPlugin factory;
        KVPlugin* plugin = &factory;
        QVERIFY(dynamic_cast<IBrushFactory*>(plugin));
        QCOMPARE(plugin->GetType(), int(KVPlugin::GenericType));

        TestImagePlugin imageFile({});
        plugin = &imageFile;
        QCOMPARE(plugin->GetType(), 2);
        QCOMPARE(qobject_cast<KVImageFilePlugin*>(plugin), &imageFile);
        QVERIFY(!dynamic_cast<IBrushFactory*>(plugin));

        Container container;
        QObject* root = &container;
        QCOMPARE(qobject_cast<IPluginContainer*>(root), static_cast<IPluginContainer*>(&container));
        QVERIFY(root->qt_metacast("Pelkaro.PluginContainer/1.0"));
    }
};

KV_TEST_MAIN(CompanionsTest)
#include "tst_companions.moc"
