#include "TestSupport.h"

#include <KVCMSManager.h>

#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <lcms2.h>

#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

namespace {
QByteArray Installed(const QString& name)
{
    QFile file("/usr/share/color/icc/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray CmykProfile()
{
    cmsHPROFILE profile = cmsCreateInkLimitingDeviceLink(cmsSigCmykData, 300);
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(int(size), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

// The manager is made once per process, so other folders are listed by a
// child: the working index, then the profile file names from index -1 to the
// count ("-" for an empty profile).
int ListProfiles(const QString& folder)
{
    KVCMSManager::InitInstance(folder);
    const KVCMSManager* manager = KVCMSManager::GetInstance();
    std::printf("%d\n", manager->GetWorkingRGBIndex());
    for (int i = -1; i <= manager->GetRGBProfileCount(); ++i) {
        const KVCMSProfile profile = manager->GetRGBProfile(i);
        std::printf("%s\n",
                    profile.IsEmpty() ? "-" : qPrintable(QFileInfo(profile.GetPath()).fileName()));
    }
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
        QByteArray random(4096, '\0');
        QRandomGenerator(11).fillRange(reinterpret_cast<quint32*>(random.data()), 1024);
        const QString mixed = m_dir.filePath("mixed/");
        QVERIFY(QDir().mkpath(mixed + "folder.icc"));
        QVERIFY(QDir().mkpath(m_dir.filePath("empty")));
        for (const QFileInfo& installed :
             QDir("/usr/share/color/icc", "*.icc *.ICM").entryInfoList(QDir::Files))
            QVERIFY(QFile::copy(installed.filePath(), mixed + installed.fileName()));
        const QList<QPair<QString, QByteArray>> files{
            {"Wide.icm", Installed("compatibleWithAdobeRGB1998.icc")},
            {"xyz.icm", Installed("LCMSXYZI.ICM")},
            {"Display.ICM", srgb}, // "*.icm" matches it only on case-insensitive file systems
            {"press.icc", CmykProfile()},
            {"empty.icc", QByteArray()},
            {"truncated.icc", srgb.left(srgb.size() / 2)},
            {"random.icc", random},
            {"rgb.txt", srgb},
            {"folder.icc/inside.icc", srgb}};
        for (const auto& [name, bytes] : files) {
            QFile file(mixed + name);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        }
        KVCMSManager::InitInstance(m_dir.filePath("mixed"));
        KVCMSManager::InitInstance(m_dir.filePath("empty")); // ignored
    }

    void cleanupTestCase()
    {
        if (KVCMSManager::GetInstance())
            KVCMSManager::ReleaseInstance();
    }

    void listing_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QStringList>("names");
        // Name order is case-sensitive and takes ".icc" and ".icm" together.
        QTest::newRow("mixed") << "mixed"
                               << QStringList{"CineonLog_M.icc",
                                              "CineonLog_M_Knee_10.icc",
                                              "CineonLog_M_Knee_20.icc",
                                              "CineonLog_M_Knee_30.icc",
                                              "CineonLog_M_Knee_60.icc",
                                              "LStar-RGB.icc",
                                              "Wide.icm",
                                              "compatibleWithAdobeRGB1998.icc",
                                              "sRGB.icc"};
        QTest::newRow("empty") << "empty" << QStringList();
        QTest::newRow("missing") << "missing" << QStringList();
    }

    void listing()
    {
        QFETCH(QString, folder);
        QFETCH(QStringList, names);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {"--list", m_dir.filePath(folder)});
        QVERIFY(child.waitForFinished(120000));
        const QStringList expected = QStringList{"-1", "-"} + names + QStringList{"-"};
        QCOMPARE(QString(child.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts), expected);
        if (folder == "mixed")
            QCOMPARE(KVCMSManager::GetInstance()->GetRGBProfileCount(), names.size());
    }

    void workingIndex()
    {
        KVCMSManager* manager = KVCMSManager::GetInstance();
        QSignalSpy spy(manager, &KVCMSManager::WorkingRGBIndexChanged);
        QList<int> seenBySlot; // the slot may call back: the lock is released by then
        const auto connection = connect(manager, &KVCMSManager::WorkingRGBIndexChanged,
                                        [&] { seenBySlot << manager->GetWorkingRGBIndex(); });
        for (int index : {3, 3, 99, 99, -1})
            manager->SetWorkingRGBIndex(index);
        disconnect(connection);
        QCOMPARE(seenBySlot, (QList<int>{3, 99, -1}));
        QCOMPARE(spy.size(), 3);
    }

    void manyThreads()
    {
        KVCMSManager* manager = KVCMSManager::GetInstance();
        const int count = manager->GetRGBProfileCount();
        QList<KVCMSProfile> expected;
        for (int i = -1; i <= count; ++i)
            expected << manager->GetRGBProfile(i);
        std::atomic<int> wrong{0};
        const auto connection =
            connect(manager, &KVCMSManager::WorkingRGBIndexChanged,
                    [&](int index) { wrong += manager->GetWorkingRGBIndex() > 3 || index > 3; });
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&, t] {
                for (int i = 0; i < 500; ++i) {
                    const int index = i % (count + 2) - 1;
                    wrong += manager->GetRGBProfile(index) != expected.at(index + 1);
                    manager->SetWorkingRGBIndex(t);
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        disconnect(connection);
        QCOMPARE(wrong.load(), 0);
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
