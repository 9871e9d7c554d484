#include "IniText.h"
#include "SettingsRows.h"
#include "TestSupport.h"

#include <KVApplication.h>

#include <QDir>
#include <QDirIterator>
#include <QProcess>

namespace {
// Longer than any harmless read takes, even beside the sanitizers: a longer one hangs.
const int kChildTimeout = 3000;

// The key as plain QSettings reads it, in a child process; empty when the
// child crashed, aborted, ran out of its memory or time doing so.
QByteArray PlainText(const QString& file, const QString& key)
{
    QProcess child;
    child.start(QStringLiteral(KV_PLAIN_SETTINGS),
                {file, QString::fromLatin1(key.toUtf8().toHex())});
    const bool finished = child.waitForFinished(kChildTimeout);
    if (!finished)
        child.kill(), child.waitForFinished();
    return finished && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0
               ? child.readAllStandardOutput()
               : QByteArray();
}
} // namespace

// Every key that plain QSettings reads without harm reads the same through
// the library, for the fuzz corpora's settings and preset files and the rows.
class SettingsDifferentialTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameAsPlainQt_data()
    {
        QTest::addColumn<QByteArray>("file");
        for (const char* corpus : {"settings_file", "preset_files", "settings_repair"}) {
            QDirIterator files(KVTest::SourcePath(QStringLiteral("fuzz/corpus/") + corpus),
                               QDir::Files);
            while (files.hasNext()) {
                const QString path = files.next();
                QTest::addRow("%s/%s", corpus, qPrintable(QFileInfo(path).fileName()))
                    << ReadFile(path);
            }
        }
        for (const SettingsRow& row : SettingsRows())
            QTest::addRow("row: %s", row.name) << SettingsRowFile(row);
    }

    void sameAsPlainQt()
    {
        QFETCH(QByteArray, file);
        QTemporaryDir folder;
        const QString original = folder.filePath("original.ini");
        const QString library = folder.filePath("library/app.ini");
        QVERIFY(WriteFile(original, file) && WriteFile(library, file));

        KVApplication::SetDataFolder(folder.filePath("library"));
        KVApplication::GetApplicationValue("Any");
        // Whatever the library made of the file, QSettings parses it safely.
        const QStringList keys = QSettings(library, QSettings::IniFormat).allKeys();
        for (const QString& key : keys) {
            const QByteArray plain = PlainText(original, key);
            if (!plain.isEmpty())
                QCOMPARE(IniText(KVApplication::GetApplicationValue(key)), plain);
        }
        KVApplication::SetDataFolder(KVTest::HomePath());
    }
};

KV_TEST_APP_MAIN(SettingsDifferentialTest)
#include "tst_settingsdifferential.moc"
