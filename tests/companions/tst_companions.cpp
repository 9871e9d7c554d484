#include "TestSupport.h"

#include <KVCMSProfile.h>
#include <KVPixelRatioRound.h>

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
} // namespace

class CompanionsTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString Write(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_dir.filePath(name));
        file.open(QIODevice::WriteOnly) && file.write(bytes);
        return file.fileName();
    }

private Q_SLOTS:
    void profileLoad_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("loads");
        QTest::addColumn<quint32>("colorSpace");
        const QByteArray srgb = ProfileBytes(cmsCreate_sRGBProfile());
        QByteArray badMagic = srgb;
        badMagic[36] = 'x';
        QTest::newRow("sRGB") << srgb << true << quint32(0x52474220);
        QTest::newRow("end cut off") << srgb.left(srgb.size() / 2) << false << quint32(0);
        QTest::newRow("no ICC signature") << badMagic << false << quint32(0);
    }

    void profileLoad()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, loads);
        QFETCH(quint32, colorSpace);
        KVCMSProfile profile;
        const QString path = Write("profile.icc", bytes);
        QCOMPARE(profile.Load(path), loads);
        QCOMPARE(profile.GetPath(), loads ? path : QString());
        QCOMPARE(profile.GetColorSpace(), colorSpace);
        QCOMPARE(profile.IsEmpty(), !loads);
        // A failed load empties a profile that held one before.
        KVCMSProfile reused;
        QVERIFY(reused.Load(Write("srgb.icc", ProfileBytes(cmsCreate_sRGBProfile()))));
        QCOMPARE(reused.Load(Write("profile.icc", bytes)), loads);
        QCOMPARE(reused.GetColorSpace(), colorSpace);
        QVERIFY(!reused.Load(m_dir.filePath("missing.icc")) && !reused.Load(m_dir.path()));
    }

    void pixelRatio()
    {
        KVPixelRatioRound::SetPixelRatio(1.5);
        KVPixelRatioRound::SetPixelRatio(0.0); // ignored
        QCOMPARE(KVPixelRatioRound::ToDevice(3), 5);
        QCOMPARE(KVPixelRatioRound::ToLogical(3), 2.0);
    }
};

KV_TEST_MAIN(CompanionsTest)
#include "tst_companions.moc"
