#include "../hardening/IniText.h"
#include "TestSupport.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <QRegularExpression>
#include <QSettings>

#include <algorithm>
#include <memory>
#include <stdexcept>

using Resolutions = MZExportResolutions;
using Sizes = MZExportSizes;

namespace {
QString PresetFile(const QString& group)
{
    return KVTest::HomePath() + "/Library/Preferences/Pelkaro AB/Pelkaro/exportandshare" +
           (group == "Sizes" ? "size.ini" : "resolution.ini");
}

// A preset file as an older release left it: version 1.0, the entries as given.
void WritePresets(const QString& group, const QByteArray& entries)
{
    QVERIFY(WriteFile(PresetFile(group),
                      "[General]\nVersion=1.0\n[" + group.toLatin1() + "]\n" + entries));
}

// The file's version, then its group as "key=value" lines in numeric key order.
QStringList Stored(const QString& group)
{
    QSettings settings(PresetFile(group), QSettings::IniFormat);
    QStringList lines{settings.value("Version").toString()};
    settings.beginGroup(group);
    QStringList keys = settings.childKeys();
    std::sort(keys.begin(), keys.end(),
              [](const QString& a, const QString& b) { return a.toLongLong() < b.toLongLong(); });
    for (const QString& key : keys)
        lines << key + '=' + settings.value(key).toString();
    return lines;
}

// "a b c" as this release writes it: "2.3.0", "0=a", "1=b", "2=c".
QStringList Written(const QString& list)
{
    QStringList lines{"2.3.0"};
    for (const QString& value : list.split(' ', Qt::SkipEmptyParts))
        lines << QString("%1=%2").arg(lines.size() - 1).arg(value);
    return lines;
}

// Both lists as "1920x1080 640x480 102400 256000".
QString ListText()
{
    QStringList texts;
    for (const QSize& size : Resolutions::GetList())
        texts << QString("%1x%2").arg(size.width()).arg(size.height());
    for (long long size : Sizes::GetList())
        texts << QString::number(size);
    return texts.join(' ');
}

} // namespace

// Every test starts from two empty lists in files of an older release.
class ExportPresetsTest : public QObject
{
    Q_OBJECT

    int m_argc = 1;
    char m_name[8] = "presets";
    char* m_argv[2] = {m_name, nullptr};
    std::unique_ptr<KVApplication> m_app;

    void Start() { m_app.reset(new KVApplication(m_argc, m_argv)); }

private Q_SLOTS:
    void init()
    {
        WritePresets("Resolutions", "");
        WritePresets("Sizes", "");
    }

    void cleanup() { m_app.reset(); }

    void outOfRangeThrows()
    {
        WritePresets("Resolutions", "0=800x600\n");
        Start();
        const auto message = [](auto get) {
            try {
                get();
            } catch (const std::out_of_range& error) {
                return QString(error.what());
            }
            return QString();
        };
        const QString resolution = "resolution index is out of range";
        QCOMPARE(message([] { Resolutions::Get(-1); }), resolution);
        QCOMPARE(message([] { Resolutions::Get(1); }), resolution);
        QCOMPARE(message([] { Sizes::Get(0); }), QString("size index is out of range"));
    }

    void firstUseWritesDefaults_data()
    {
        QTest::addColumn<QByteArray>("existing"); // null: no file
        QTest::newRow("no file") << QByteArray();
        QTest::newRow("no Version") << QByteArray("[Resolutions]\n0=111x111\n[Sizes]\n0=7\n");
    }

    void firstUseWritesDefaults()
    {
        QFETCH(QByteArray, existing);
        for (const char* group : {"Resolutions", "Sizes"}) {
            QFile::remove(PresetFile(group));
            if (!existing.isNull())
                QVERIFY(WriteFile(PresetFile(group), existing));
        }
        Start();
        const QString resolutions = "640x480 800x600 1024x768 1280x720 1280x1024 1366x768 "
                                    "1600x900 1920x1080 2560x1440 3840x2160";
        const QString sizes = "102400 256000 512000 1048576 2097152 5242880 10485760";
        QCOMPARE(ListText(), resolutions + ' ' + sizes);
        QCOMPARE(Stored("Resolutions"), Written(resolutions));
        QCOMPARE(Stored("Sizes"), Written(sizes));
    }

    // A file is read as it stands (bad entries skipped, up to the first missing
    // index) and left alone until a change, announced before the file is
    // rewritten; stale keys go only below the old key count. A row: "entries |
    // call | signal (none: nothing written) | list | stored keys (default: list)".
    void change_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("row");
        const auto row = [](const QString& text, const char* group = "Resolutions") {
            QTest::newRow(qPrintable(text)) << QString(group) << text;
        };
        row("0=1920 x 1080;1=1920X1080;2=1920x1080x1;3=0x100;4=10001x10;5=4294967297x10;"
            "6=1x10000 | | | 1920x1080 1x10000");
        row("0=5000000000;1=0;2=-5;3=12abc;4=9223372036854775808;5=7 | | | 5000000000 7", "Sizes");
        // Unsorted, with a gap and a huge key; Add goes before the first greater width.
        const QString gap = "0=1920x1080;1=800x600;2147483647=1x1 | ";
        row(gap + "set 0 640x480 | Changhed 0 | 640x480 800x600 | 0=640x480 1=800x600 "
                  "2147483647=1x1");
        row(gap + "add 1024x768 | Inserted 0 | 1024x768 1920x1080 800x600 | 0=1024x768 "
                  "1=1920x1080 2=800x600 2147483647=1x1");
        const QString two = "0=800x600;1=1280x720 | ";
        row(two + "add 800x100 | Inserted 1 | 800x600 800x100 1280x720");
        row(two + "insert -5 1x1 | Inserted 0 | 1x1 800x600 1280x720");
        row(two + "insert 99 1x1 | Inserted 2 | 800x600 1280x720 1x1");
        row(two + "set 1 1x1 | Changhed 1 | 800x600 1x1");
        row(two + "set 1 1280x720 | | 800x600 1280x720");
        row(two + "set 2 1x1 | | 800x600 1280x720");
        row(two + "remove 0 | Removed 0 | 1280x720");
        row(two + "remove -1 | | 800x600 1280x720");
    }

    void change()
    {
        QFETCH(QString, group);
        QFETCH(QString, row);
        const QStringList fields = row.split(QRegularExpression(" *\\| *"));
        const QString signal = fields.at(2);
        const QString list = fields.at(3).trimmed();
        WritePresets(group, QString(fields.at(0)).replace(';', '\n').toLatin1() + '\n');
        const QByteArray before = ReadFile(PresetFile(group));
        Start();
        QCOMPARE(ReadFile(PresetFile(group)), before);
        QStringList seen;
        const auto record = [&](const char* name) {
            return [&, name](int at) {
                seen << QString("%1 %2").arg(name).arg(at) << ListText()
                     << QString::number(ReadFile(PresetFile(group)) != before);
            };
        };
        connect(Resolutions::GetInstance(), &Resolutions::Inserted, record("Inserted"));
        connect(Resolutions::GetInstance(), &Resolutions::Changhed, record("Changhed"));
        connect(Resolutions::GetInstance(), &Resolutions::Removed, record("Removed"));

        const QStringList words = fields.at(1).split(' ');
        const QStringList side = words.last().split('x');
        const QSize size(side.first().toInt(), side.last().toInt());
        const int index = words.value(1).toInt();
        if (words.first() == "add")
            QCOMPARE(Resolutions::Add(size), signal.section(' ', 1).toInt());
        else if (words.first() == "insert")
            Resolutions::Add(index, size);
        else if (words.first() == "set")
            Resolutions::Set(index, size);
        else if (words.first() == "remove")
            Resolutions::Remove(index);

        QCOMPARE(ListText(), list);
        const QStringList announced{signal, list, "0"};
        QCOMPARE(seen, signal.isEmpty() ? QStringList() : announced);
        if (signal.isEmpty())
            QCOMPARE(ReadFile(PresetFile(group)), before);
        else if (fields.size() > 4)
            QCOMPARE(Stored(group), QStringList{"2.3.0"} + fields.at(4).split(' '));
        else
            QCOMPARE(Stored(group), Written(list));
    }
};

KV_TEST_MAIN(ExportPresetsTest)
#include "tst_exportpresets.moc"
