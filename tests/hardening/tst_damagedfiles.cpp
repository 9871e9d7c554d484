#include "IniText.h"
#include "LogCapture.h"
#include "SettingsRows.h"
#include "TestSupport.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>

static QString PreferencesFile(const QString& name)
{
    return KVTest::HomePath() + "/Library/Preferences/Pelkaro AB/Pelkaro/" + name;
}

// Settings and preset files holding values that Qt cannot decode safely
// (SettingsRows.cpp): such a value costs that value alone, the original file
// is kept, and every other value reads and writes as with plain QSettings.
class DamagedFilesTest : public QObject
{
    Q_OBJECT

    int m_argc = 1;
    char* m_argv[2] = {const_cast<char*>("tst_damagedfiles"), nullptr};
    const QString m_user = PreferencesFile("user.ini");

private Q_SLOTS:
    void cleanup() { QDir(KVTest::HomePath() + "/Library").removeRecursively(); }

    void oddOrDamagedValue_data()
    {
        QTest::addColumn<SettingsRow>("row");
        for (const SettingsRow& row : SettingsRows())
            QTest::newRow(row.name) << row;
    }

    // A harmless value reads as Qt reads it and leaves the file alone; a
    // damaged one reads as invalid, the file is kept as it was and logged.
    void oddOrDamagedValue()
    {
        QFETCH(SettingsRow, row);
        const QByteArray file = SettingsRowFile(row);
        const QByteArray left = SettingsRowFile(row, true);
        WriteFile(m_user, left); // the repaired file, safe to read with plain QSettings
        const QStringList keys = QSettings(m_user, QSettings::IniFormat).allKeys();
        const QVariant plain = QSettings(m_user, QSettings::IniFormat).value("Plugin/Key");
        WriteFile(m_user, file);
        LogCapture log;
        KVApplication app(m_argc, m_argv);

        QCOMPARE(KVApplication::GetUserValue("Plugin/Key"), plain);
        QCOMPARE(KVApplication::GetTexturePatternIndex(), 4);
        QCOMPARE(KVApplication::GetPathOpen(), QString("/pictures"));
        QCOMPARE(KVApplication::GetBackground(), QColor(Qt::red));
        QCOMPARE(ReadFile(m_user), left);
        QCOMPARE(ReadFile(m_user + ".damaged"), row.damaged ? file : QByteArray());
        const QString logged = "The settings file \"" + m_user +
                               "\" held values that Qt cannot read safely; they now read as "
                               "invalid, and the file as it was is kept as \"" +
                               m_user + ".damaged\".";
        QCOMPARE(log.Categories().count("default"), log.Categories().size());
        QCOMPARE(log.StampedLines().filter("settings file"),
                 row.damaged
                     ? QStringList{LogCapture::Expected("src/private/KVSettingsFile_p", logged)}
                     : QStringList());

        KVApplication::SetPathOpen("/x");
        QSettings after(m_user, QSettings::IniFormat);
        QCOMPARE(after.allKeys(), keys);
        QCOMPARE(after.value("Save/PathOpen").toString(), QString("/x"));
    }

    // A read of a missing file creates nothing; each repair keeps the file as
    // it was then, beside the earlier copies.
    void missingFileThenRepairs()
    {
        const QByteArray damaged =
            SettingsRowFile(SettingsRows().at(0))
                .replace("Key=", "Key=@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)\nOld=");
        KVApplication app(m_argc, m_argv);
        QVERIFY(!KVApplication::GetUserValue("Plugin/Key").isValid());
        QVERIFY(!QFile::exists(m_user) && !QFile::exists(m_user + ".damaged"));
        QByteArray expected;
        for (const char* copy : {"1", "2", "3"}) {
            expected += damaged + "Copy" + copy + "=1\n";
            WriteFile(m_user, damaged + "Copy" + copy + "=1\n");
            QCOMPARE(KVApplication::GetTexturePatternIndex(), 4);
            QCOMPARE(ReadFile(m_user + ".damaged") + ReadFile(m_user + ".damaged.2") +
                         ReadFile(m_user + ".damaged.3"),
                     expected);
        }
    }

    void presetListKeepsWhatItCanRead_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("odd value beside the list")
            << QByteArray("[General]\nVersion=2.3.0\nOdd=@Variant(\\0\\0\\0\\v\\0\\0\\0\\x10)\n"
                          "[Resolutions]\n0=1234x567\n1=2000x1000\n");
        QTest::newRow("damaged entry")
            << QByteArray("[General]\nVersion=2.3.0\n[Resolutions]\n0=1234x567\n"
                          "1=@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)\n2=2000x1000\n");
    }

    // A file with "Version" is read as its keys stand, bad entries skipped;
    // a change writes every entry that was read.
    void presetListKeepsWhatItCanRead()
    {
        QFETCH(QByteArray, file);
        const QString path = PreferencesFile("exportandshareresolution.ini");
        WriteFile(path, file);
        const QList<QSize> read{{1234, 567}, {2000, 1000}};
        {
            KVApplication app(m_argc, m_argv);
            QCOMPARE(MZExportResolutions::GetList(), read);
            MZExportResolutions::Add(QSize(800, 600));
        }
        KVApplication app(m_argc, m_argv);
        QCOMPARE(MZExportResolutions::GetList(), QList<QSize>{QSize(800, 600)} + read);
    }
};

KV_TEST_MAIN(DamagedFilesTest)
#include "tst_damagedfiles.moc"
