#include "TestSupport.h"

#include <KVCMSManager.h>

#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace {
QByteArray Installed(const QString& name)
{
    QFile file("/usr/share/color/icc/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The manager is made once per process, so folders are listed by a child: the
// working index, then the file names from index -1 to the count ("-" for none).
int ListProfiles(const QString& folder)
{
    KVCMSManager::InitInstance(folder);
    const KVCMSManager* manager = KVCMSManager::GetInstance();
    QStringList names{QString::number(manager->GetWorkingRGBIndex())};
    for (int i = -1; i <= manager->GetRGBProfileCount(); ++i) {
        const KVCMSProfile profile = manager->GetRGBProfile(i);
        names << (profile.IsEmpty() ? "-" : QFileInfo(profile.GetPath()).fileName());
    }
    std::printf("%s", qPrintable(names.join(' ')));
    KVCMSManager::ReleaseInstance();
    return 0;
}
} // namespace

class CMSManagerTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private Q_SLOTS:
    void initTestCase()
    {
        const QByteArray srgb = Installed("sRGB.icc");
        if (srgb.isEmpty())
            QSKIP("Debian's icc-profiles-free is not installed");
        const QString mixed = m_dir.filePath("mixed/");
        QVERIFY(QDir().mkpath(mixed));
        // One file per way a file is left out, and three RGB profiles.
        const QList<QPair<QString, QByteArray>> files{
            {"sRGB.icc", srgb},
            {"Adobe.icc", Installed("compatibleWithAdobeRGB1998.icc")},
            {"Wide.icm", srgb},
            {"gray.icc", Installed("Gray.icc")},
            {"Display.ICM", srgb}, // "*.icm" matches it only on case-insensitive file systems
            {"truncated.icc", srgb.left(srgb.size() / 2)},
            {"rgb.txt", srgb}};
        for (const auto& [name, bytes] : files) {
            QFile file(mixed + name);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        }
        KVCMSManager::InitInstance(m_dir.filePath("mixed"));
        KVCMSManager::InitInstance(m_dir.filePath("missing")); // ignored
    }

    // Name order is case-sensitive and takes ".icc" and ".icm" together; no
    // folder is not the current folder, which is the mixed one.
    void listing()
    {
        const QList<QPair<QString, QString>> listings{
            {m_dir.filePath("mixed"), "-1 - Adobe.icc Wide.icm sRGB.icc -"}, {"", "-1 - -"}};
        for (const auto& [folder, listed] : listings) {
            QProcess child;
            child.setWorkingDirectory(m_dir.filePath("mixed"));
            child.start(QCoreApplication::applicationFilePath(), {"--list", folder});
            QVERIFY(child.waitForFinished(120000));
            QCOMPARE(QString(child.readAllStandardOutput()), listed);
        }
    }

    void workingIndex()
    {
        KVCMSManager* manager = KVCMSManager::GetInstance();
        QCOMPARE(manager->GetRGBProfileCount(), 3); // made for the first folder given
        QList<int> seenBySlot; // the slot may call back: the lock is released by then
        const auto connection = connect(manager, &KVCMSManager::WorkingRGBIndexChanged,
                                        [&] { seenBySlot << manager->GetWorkingRGBIndex(); });
        for (int index : {3, 3, 99, 99, -1})
            manager->SetWorkingRGBIndex(index);
        disconnect(connection);
        QCOMPARE(seenBySlot, (QList<int>{3, 99, -1}));
    }
};

int main(int argc, char** argv)
{
    KVTest::PrepareProcess();
    if (argc == 3 && qstrcmp(argv[1], "--list") == 0)
        return ListProfiles(QString::fromLocal8Bit(argv[2]));
    QCoreApplication app(argc, argv);
    CMSManagerTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_cmsmanager.moc"
