#include "KVSettingsCheck_p.h"
#include "SettingsRows.h"

#include <QGuiApplication>
#include <QtTest>

// The check over a file's bytes: harmless values stay, damaged ones become
// "@Invalid()", and a repaired file needs no further repair.
class SettingsCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repair_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("repaired");
        for (const SettingsRow& row : SettingsRows())
            QTest::newRow(row.name) << SettingsRowFile(row) << SettingsRowFile(row, true);

        // Where QSettings' own line syntax puts a value's end and its elements.
        const QByteArray polygon = "@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)";
        QTest::newRow("two damaged values, one in a list, one good between")
            << "a=" + polygon + "\nb=1\r\nc=x, " + polygon + "\n"
            << QByteArray("a=@Invalid()\nb=1\r\nc=@Invalid()\n");
        QTest::newRow("value in quotes over two lines")
            << "a=\"" + polygon.chopped(1) + "\n)\"\nb=2\n"
            << QByteArray("a=@Invalid()\nb=2\n");
        const std::pair<const char*, QByteArray> leftAlone[] = {
            {"escaped line break", "a=x\\\n" + polygon + "\nb=2\n"},
            {"commented out", "; a=" + polygon + "\nb=2\n"},
            {"in a section name", "[" + polygon + "]\nb=2\n"},
            {"in the key", polygon + "=2\n"}};
        for (const auto& [name, file] : leftAlone)
            QTest::newRow(name) << file << file;
        QTest::newRow("no line break at the end")
            << "b=2\na=" + polygon << QByteArray("b=2\na=@Invalid()");
    }

    void repair()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, repaired);
        QCOMPARE(KVSettingsCheck::Repaired(file), repaired);
        QCOMPARE(KVSettingsCheck::Repaired(repaired), repaired);
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
