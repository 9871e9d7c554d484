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
    // missing index, and left alone until the first change, which rewrites
    // the entries and removes stale keys only below the old key count.
    void load_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QByteArray>("entries");
        QTest::addColumn<QString>("list");
        QTest::addColumn<QStringList>("afterSet"); // of entry 0 to 640x480
        const auto row = [](const QByteArray& name, const char* group, const QByteArray& entries,
                            const QString& list, const QStringList& afterSet = {}) {
            QTest::newRow(name) << QString(group) << entries << list << afterSet;
        };
        for (const char* text : {"1920 x 1080", "1x10000"})
            row(text, "Resolutions", "0=" + QByteArray(text) + "\n1=640x480\n",
                QString(text).remove(' ') + " 640x480");
        for (const char* bad : {"1920X1080", "1920x1080x1", "0x100", "10001x10", "4294967297x10"})
            row(bad, "Resolutions", "0=" + QByteArray(bad) + "\n1=640x480\n", "640x480");
        row("5000000000", "Sizes", "0=5000000000\n1=7\n", "5000000000 7");
        for (const char* bad : {"0", "-5", "12abc", "9223372036854775808"})
            row(bad, "Sizes", "0=" + QByteArray(bad) + "\n1=7\n", "7");
        row("unsorted, a gap, a huge key", "Resolutions",
            "0=1920x1080\n1=800x600\n2147483647=1x1\n", "1920x1080 800x600",
            {"2.3.0", "0=640x480", "1=800x600", "2147483647=1x1"});
        row("invalid middle", "Resolutions", "0=800x600\n1=abc\n2=1024x768\n", "800x600 1024x768",
            Written("640x480 1024x768"));
    }

    void load()
    {
        QFETCH(QString, group);
        QFETCH(QByteArray, entries);
        QFETCH(QString, list);
        QFETCH(QStringList, afterSet);
        WritePresets(group, entries);
        const QByteArray before = ReadFile(PresetFile(group));
        Start();
        QCOMPARE(ListText(), list);
        QCOMPARE(ReadFile(PresetFile(group)), before);
        if (!afterSet.isEmpty()) {
            Resolutions::Set(0, QSize(640, 480));
            QCOMPARE(Stored(group), afterSet);
        }
    }

    void change_data()
    {
        QTest::addColumn<QString>("call"); // and an index
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("signal"); // empty: none, and nothing written
        QTest::addColumn<QString>("list");
        const auto row = [](const char* call, QSize size, const char* signal, const char* list) {
            QTest::newRow(call) << QString(call) << size << QString(signal) << QString(list);
        };
        const QSize any(100, 100);
        row("add", {800, 100}, "Inserted 1", "800x600 800x100 1280x720"); // after equal widths
        row("insert -5", any, "Inserted 0", "100x100 800x600 1280x720");
        row("insert 99", any, "Inserted 2", "800x600 1280x720 100x100");
        row("set 1", any, "Changhed 1", "800x600 100x100");
        row("set 1 to the same", {1280, 720}, "", "800x600 1280x720");
        row("set 2", any, "", "800x600 1280x720");
        row("remove 0", any, "Removed 0", "1280x720");
        row("remove -1", any, "", "800x600 1280x720");
    }

    // Signals come after the list changed and before the file is written.
    void change()
    {
        QFETCH(QString, call);
        QFETCH(QSize, size);
        QFETCH(QString, signal);
        QFETCH(QString, list);
        WritePresets("Resolutions", "0=800x600\n1=1280x720\n");
        Start();
        QFile::remove(PresetFile("Resolutions"));
        QStringList seen;
        const auto record = [&](const char* name) {
            return [&, name](int at) {
                seen << QString("%1 %2").arg(name).arg(at) << ListText()
                     << QString::number(QFile::exists(PresetFile("Resolutions")));
            };
        };
        connect(Resolutions::GetInstance(), &Resolutions::Inserted, record("Inserted"));
        connect(Resolutions::GetInstance(), &Resolutions::Changhed, record("Changhed"));
        connect(Resolutions::GetInstance(), &Resolutions::Removed, record("Removed"));

        const int index = call.section(' ', 1, 1).toInt();
        if (call == "add")
            QCOMPARE(Resolutions::Add(size), signal.section(' ', 1).toInt());
        else if (call.startsWith("insert"))
            Resolutions::Add(index, size);
        else if (call.startsWith("set"))
            Resolutions::Set(index, size);
        else
            Resolutions::Remove(index);

        QCOMPARE(ListText(), list);
        const QStringList announced{signal, list, "0"};
        QCOMPARE(seen, signal.isEmpty() ? QStringList() : announced);
        QCOMPARE(Stored("Resolutions"), signal.isEmpty() ? QStringList{""} : Written(list));
    }

    // Set leaves the entry where it is, and Add then takes the first greater
    // value's place whatever the order.
    void addAfterSet()
    {
        WritePresets("Sizes", "0=100\n1=500\n2=1000\n");
        Start();
        Sizes::Set(0, 2000);
        QCOMPARE(Sizes::Add(700), 0);
        m_app.reset();
        Start();
        QCOMPARE(ListText(), QString("700 2000 500 1000"));
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
