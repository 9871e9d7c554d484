#include "KVSettingsCheck_p.h"
#include "SettingsRows.h"

#include <QGuiApplication>
#include <QtTest>

// The check over a file's bytes: harmless values, however odd, stay as they
// are; damaged ones, and nothing else, become "@Invalid()".
class SettingsCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repair_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("repaired");
        for (const SettingsRow& row : SettingsRows()) {
            SettingsRow invalid = row;
            invalid.value = row.repaired;
            QTest::newRow(row.name)
                << SettingsRowFile(row) << SettingsRowFile(row.damaged ? invalid : row);
        }
    }

    void repair()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, repaired);
        QCOMPARE(KVSettingsCheck::Repaired(file), repaired);
        QCOMPARE(KVSettingsCheck::Repaired(repaired), repaired);
    }

    // Where QSettings' own line syntax puts a value's end and its elements.
    void lineSyntax_data()
    {
        const QByteArray polygon = "@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)";
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("repaired");
        QTest::newRow("two damaged values, one good between")
            << "a=" + polygon + "\nb=1\r\nc=x, " + polygon + "\n"
            << QByteArray("a=@Invalid()\nb=1\r\nc=@Invalid()\n");
        QTest::newRow("value in quotes over two lines")
            << "a=\"" + polygon.chopped(1) + "\n)\"\nb=2\n"
            << QByteArray("a=@Invalid()\nb=2\n");
        QTest::newRow("escaped line break") << "a=x\\\n" + polygon + "\nb=2\n"
                                            << "a=x\\\n" + polygon + "\nb=2\n";
        QTest::newRow("commented out") << "; a=" + polygon + "\nb=2\n"
                                       << "; a=" + polygon + "\nb=2\n";
        QTest::newRow("in a section name") << "[" + polygon + "]\nb=2\n"
                                           << "[" + polygon + "]\nb=2\n";
        QTest::newRow("line without equals sign") << polygon + "\nb=2\n" << polygon + "\nb=2\n";
        QTest::newRow("in the key") << polygon + "=2\n" << polygon + "=2\n";
        QTest::newRow("no line break at the end")
            << "b=2\na=" + polygon << QByteArray("b=2\na=@Invalid()");
        QTest::newRow("semicolon ends the value") << "a=" + polygon + ";" + polygon + "\n"
                                                  << QByteArray("a=@Invalid();" + polygon + "\n");
    }

    void lineSyntax()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, repaired);
        QCOMPARE(KVSettingsCheck::Repaired(file), repaired);
    }
};

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv); // images and pixmaps in values decode only with one
    SettingsCheckTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_settingscheck.moc"
