#include "../hardening/IniText.h"
#include "TestSupport.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

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

template <typename Get> QString OutOfRangeMessage(Get get)
{
    try {
        get();
    } catch (const std::out_of_range& error) {
        return QString::fromLatin1(error.what());
    }
    return QString();
}
} // namespace

// Every test starts from two empty lists in files of an older release, and
// constructs the application object when its files are in place.
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

    // Once the application object is gone, the lists read as empty and
    // changes are ignored.
    void neutralWithoutInstance()
    {
        Start();
        m_app.reset();
        QCOMPARE(Resolutions::GetSize(), -1);
        QCOMPARE(Sizes::GetSize(), -1);
        QCOMPARE(ListText(), QString());
        QCOMPARE(Resolutions::Get(0), QSize(-1, -1));
        QCOMPARE(Sizes::Get(0), -1LL);
        QCOMPARE(Resolutions::Add(QSize(10, 10)), -1);
        QCOMPARE(Sizes::Add(10), -1);
        Resolutions::Add(0, QSize(10, 10));
        Resolutions::Set(0, QSize(10, 10));
        Resolutions::Remove(0);
        QCOMPARE(Stored("Resolutions"), QStringList{"1.0"});
    }

    void firstUseWritesDefaults_data()
    {
        QTest::addColumn<QByteArray>("existing"); // null: no file
        QTest::newRow("no file") << QByteArray();
        QTest::newRow("no Version") << QByteArray("[Resolutions]\n0=111x111\n[Sizes]\n0=7\n");
        QTest::newRow("Version in a group") << QByteArray("[Old]\nVersion=2.3.0\n");
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

    // A file is read as it stands, bad entries skipped and up to the first
    // missing index, and left alone until the first change. A change is
    // announced after the list changed and before the file is written, which
    // rewrites the entries and removes stale keys only below the old key count.
    void change_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QByteArray>("entries");
        QTest::addColumn<QString>("call");   // an index and a size as they apply
        QTest::addColumn<QString>("signal"); // empty: none, and nothing written
        QTest::addColumn<QString>("list");
        QTest::addColumn<QStringList>("stored"); // empty: as the list is written
        const auto row = [](const QByteArray& name, const char* group, const QByteArray& entries,
                            const char* call, const char* signal, const QString& list,
                            const QStringList& stored = {}) {
            QTest::newRow(name) << QString(group) << entries << QString(call) << QString(signal)
                                << list << stored;
        };
        for (const char* text : {"1920 x 1080", "1x10000"})
            row(text, "Resolutions", "0=" + QByteArray(text) + "\n1=640x480\n", "", "",
                QString(text).remove(' ') + " 640x480");
        for (const char* bad : {"1920X1080", "1920x1080x1", "0x100", "10001x10", "4294967297x10"})
            row(bad, "Resolutions", "0=" + QByteArray(bad) + "\n1=640x480\n", "", "", "640x480");
        row("5000000000", "Sizes", "0=5000000000\n1=7\n", "", "", "5000000000 7");
        for (const char* bad : {"0", "-5", "12abc", "9223372036854775808"})
            row(bad, "Sizes", "0=" + QByteArray(bad) + "\n1=7\n", "", "", "7");
        const char* gap = "0=1920x1080\n1=800x600\n2147483647=1x1\n";
        row("unsorted, a gap, a huge key", "Resolutions", gap, "set 0 640x480", "Changhed 0",
            "640x480 800x600", {"2.3.0", "0=640x480", "1=800x600", "2147483647=1x1"});
        row("invalid middle", "Resolutions", "0=800x600\n1=abc\n2=1024x768\n", "set 0 640x480",
            "Changhed 0", "640x480 1024x768");
        // Before the first greater width, whatever the order.
        row("add to unsorted", "Resolutions", gap, "add 1024x768", "Inserted 0",
            "1024x768 1920x1080 800x600",
            {"2.3.0", "0=1024x768", "1=1920x1080", "2=800x600", "2147483647=1x1"});
        const char* two = "0=800x600\n1=1280x720\n";
        row("add after equal widths", "Resolutions", two, "add 800x100", "Inserted 1",
            "800x600 800x100 1280x720");
        row("insert -5", "Resolutions", two, "insert -5 1x1", "Inserted 0", "1x1 800x600 1280x720");
        row("insert 99", "Resolutions", two, "insert 99 1x1", "Inserted 2", "800x600 1280x720 1x1");
        row("set 1", "Resolutions", two, "set 1 1x1", "Changhed 1", "800x600 1x1");
        row("set 1 to the same", "Resolutions", two, "set 1 1280x720", "", "800x600 1280x720");
        row("set 2", "Resolutions", two, "set 2 1x1", "", "800x600 1280x720");
        row("remove 0", "Resolutions", two, "remove 0", "Removed 0", "1280x720");
        row("remove -1", "Resolutions", two, "remove -1", "", "800x600 1280x720");
    }

    void change()
    {
        QFETCH(QString, group);
        QFETCH(QByteArray, entries);
        QFETCH(QString, call);
        QFETCH(QString, signal);
        QFETCH(QString, list);
        QFETCH(QStringList, stored);
        WritePresets(group, entries);
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

        const QStringList words = call.split(' ');
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
        else
            QCOMPARE(Stored(group), stored.isEmpty() ? Written(list) : stored);
    }

    void getOutOfRange()
    {
        WritePresets("Resolutions", "0=800x600\n");
        Start();
        const QString resolution = "resolution index is out of range";
        QCOMPARE(OutOfRangeMessage([] { Resolutions::Get(-1); }), resolution);
        QCOMPARE(OutOfRangeMessage([] { Resolutions::Get(1); }), resolution);
        QCOMPARE(OutOfRangeMessage([] { Sizes::Get(0); }), QString("size index is out of range"));
    }
};

KV_TEST_MAIN(ExportPresetsTest)
#include "tst_exportpresets.moc"
