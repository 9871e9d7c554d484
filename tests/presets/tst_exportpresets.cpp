#include "../hardening/IniText.h"
#include "BundleFixture.h"
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
QString PresetFile(const QString& group, const QString& home = KVTest::HomePath())
{
    return home + "/Library/Preferences/Pelkaro AB/Pelkaro/exportandshare" +
           (group == "Sizes" ? "size.ini" : "resolution.ini");
}

// A preset file as an older release left it: version 1.0, the entries as given.
void WritePresets(const QString& group, const QByteArray& entries)
{
    QVERIFY(WriteFile(PresetFile(group),
                      "[General]\nVersion=1.0\n[" + group.toLatin1() + "]\n" + entries));
}

QString Stored(const QString& path, const QString& key)
{
    return QSettings(path, QSettings::IniFormat).value(key).toString();
}

// The group as "key=value" lines, in numeric key order.
QStringList StoredGroup(const QString& group)
{
    QSettings settings(PresetFile(group), QSettings::IniFormat);
    settings.beginGroup(group);
    QStringList keys = settings.childKeys();
    std::sort(keys.begin(), keys.end(),
              [](const QString& a, const QString& b) { return a.toLongLong() < b.toLongLong(); });
    QStringList lines;
    for (const QString& key : keys)
        lines << key + '=' + settings.value(key).toString();
    return lines;
}

// "a b c" as a group stores it: "0=a", "1=b", "2=c".
QStringList Numbered(const QString& list)
{
    QStringList lines;
    for (const QString& value : list.split(' ', Qt::SkipEmptyParts))
        lines << QString("%1=%2").arg(lines.size()).arg(value);
    return lines;
}

QString ResolutionText()
{
    QStringList texts;
    for (const QSize& size : Resolutions::GetList())
        texts << QString("%1x%2").arg(size.width()).arg(size.height());
    return texts.join(' ');
}

QString SizeText()
{
    QStringList texts;
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

    // Without an instance, before the application object and after it, the
    // lists read as empty and changes are ignored.
    void neutralWithoutInstance()
    {
        for (const bool started : {false, true}) {
            if (started) {
                Start();
                m_app.reset();
            }
            const QByteArray file = ReadFile(PresetFile("Resolutions"));
            QCOMPARE(Resolutions::GetSize(), -1);
            QCOMPARE(Sizes::GetSize(), -1);
            QVERIFY(Resolutions::GetList().isEmpty() && Sizes::GetList().isEmpty());
            QCOMPARE(Resolutions::Get(0), QSize(-1, -1));
            QCOMPARE(Sizes::Get(0), -1LL);
            QCOMPARE(Resolutions::Add(QSize(10, 10)), -1);
            QCOMPARE(Sizes::Add(10), -1);
            Resolutions::Add(0, QSize(10, 10));
            Resolutions::Set(0, QSize(10, 10));
            Resolutions::Remove(0);
            QCOMPARE(ReadFile(PresetFile("Resolutions")), file);
        }
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
        QCOMPARE(ResolutionText(), QString("640x480 800x600 1024x768 1280x720 1280x1024 1366x768 "
                                           "1600x900 1920x1080 2560x1440 3840x2160"));
        QCOMPARE(SizeText(), QString("102400 256000 512000 1048576 2097152 5242880 10485760"));
        QCOMPARE(StoredGroup("Resolutions"), Numbered(ResolutionText()));
        QCOMPARE(StoredGroup("Sizes"), Numbered(SizeText()));
        QCOMPARE(Stored(PresetFile("Resolutions"), "Version"), QString("2.3.0"));
        QCOMPARE(Stored(PresetFile("Sizes"), "Version"), QString("2.3.0"));
    }

    // A file is read as it stands and left alone until the first change,
    // which rewrites the entries and removes stale keys only below the old
    // key count.
    void load_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QByteArray>("entries");
        QTest::addColumn<QString>("list");
        QTest::addColumn<QStringList>("afterSet"); // of entry 0 to 640x480
        const auto row = [](const QByteArray& name, const char* group, const QByteArray& entries,
                            const char* list, const QStringList& afterSet = {}) {
            QTest::newRow(name) << QString(group) << entries << QString(list) << afterSet;
        };
        // One value, then one that must still be read.
        const auto resolution = [&](const QByteArray& text, const char* list) {
            row("resolution " + text, "Resolutions", "0=" + text + "\n1=640x480\n", list);
        };
        resolution("1920x1080", "1920x1080 640x480");
        resolution("1920 x 1080", "1920x1080 640x480");
        resolution("1x10000", "1x10000 640x480");
        for (const char* bad : {"1920X1080", "1920x", "x1080", "1920x1080x1", "0x100", "10001x10",
                                "-5x10", "4294967297x10", "abc", ""})
            resolution(bad, "640x480");
        const auto size = [&](const QByteArray& text, const char* list) {
            row("size " + text, "Sizes", "0=" + text + "\n1=7\n", list);
        };
        size("5000000000", "5000000000 7");
        size("9223372036854775807", "9223372036854775807 7");
        for (const char* bad : {"0", "-5", "12abc", "9223372036854775808", "abc"})
            size(bad, "7");
        const QByteArray huge(100000, '9');
        row("huge size", "Sizes", "0=" + huge + "\n", "");
        row("huge resolution", "Resolutions", "0=" + huge + "x1\n", "");
        row("unsorted", "Resolutions", "0=1920x1080\n1=800x600\n", "1920x1080 800x600",
            {"0=640x480", "1=800x600"});
        row("gap", "Resolutions", "0=800x600\n1=1024x768\n3=1920x1080\n", "800x600 1024x768",
            {"0=640x480", "1=1024x768", "3=1920x1080"});
        row("invalid middle", "Resolutions", "0=800x600\n1=abc\n2=1024x768\n", "800x600 1024x768",
            {"0=640x480", "1=1024x768"});
        row("huge key", "Resolutions", "0=800x600\n2147483647=1x1\n", "800x600",
            {"0=640x480", "2147483647=1x1"});
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
        QCOMPARE(group == "Sizes" ? SizeText() : ResolutionText(), list);
        QCOMPARE(ReadFile(PresetFile(group)), before);
        if (afterSet.isEmpty())
            return;
        Resolutions::Set(0, QSize(640, 480));
        QCOMPARE(StoredGroup(group), afterSet);
        QCOMPARE(Stored(PresetFile(group), "Version"), QString("2.3.0"));
    }

    void change_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<int>("index");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("signal"); // empty: none, and nothing written
        QTest::addColumn<QString>("list");
        const auto row = [](const char* name, const char* call, int index, QSize size,
                            const char* signal, const char* list) {
            QTest::newRow(name) << QString(call) << index << size << QString(signal)
                                << QString(list);
        };
        const QSize any(100, 100);
        row("sorted between", "add", 0, {1024, 768}, "Inserted 1", "800x600 1024x768 1280x720");
        row("sorted, same width", "add", 0, {800, 100}, "Inserted 1", "800x600 800x100 1280x720");
        row("at -5", "insert", -5, any, "Inserted 0", "100x100 800x600 1280x720");
        row("at 99", "insert", 99, any, "Inserted 2", "800x600 1280x720 100x100");
        row("set", "set", 1, any, "Changhed 1", "800x600 100x100");
        row("set equal", "set", 1, {1280, 720}, "", "800x600 1280x720");
        row("set at 2", "set", 2, any, "", "800x600 1280x720");
        row("remove", "remove", 0, any, "Removed 0", "1280x720");
        row("remove at -1", "remove", -1, any, "", "800x600 1280x720");
    }

    // Signals come after the list changed and before the file is written.
    void change()
    {
        QFETCH(QString, call);
        QFETCH(int, index);
        QFETCH(QSize, size);
        QFETCH(QString, signal);
        QFETCH(QString, list);
        WritePresets("Resolutions", "0=800x600\n1=1280x720\n");
        Start();
        QFile::remove(PresetFile("Resolutions"));
        QStringList seen;
        const auto record = [&](const char* name) {
            return [&, name](int at) {
                seen << QString("%1 %2").arg(name).arg(at) << ResolutionText()
                     << QString::number(QFile::exists(PresetFile("Resolutions")));
            };
        };
        connect(Resolutions::GetInstance(), &Resolutions::Inserted, record("Inserted"));
        connect(Resolutions::GetInstance(), &Resolutions::Changhed, record("Changhed"));
        connect(Resolutions::GetInstance(), &Resolutions::Removed, record("Removed"));

        if (call == "add")
            QCOMPARE(Resolutions::Add(size), signal.section(' ', 1).toInt());
        else if (call == "insert")
            Resolutions::Add(index, size);
        else if (call == "set")
            Resolutions::Set(index, size);
        else
            Resolutions::Remove(index);

        QCOMPARE(ResolutionText(), list);
        const QStringList expected{signal, list, "0"};
        QCOMPARE(seen, signal.isEmpty() ? QStringList() : expected);
        QCOMPARE(QFile::exists(PresetFile("Resolutions")), !signal.isEmpty());
        if (!signal.isEmpty())
            QCOMPARE(StoredGroup("Resolutions"), Numbered(list));
    }

    // Set leaves the entry where it is, and Add then takes the first greater
    // value's place whatever the order.
    void sizesInsertAndPersist()
    {
        WritePresets("Sizes", "0=100\n1=500\n2=1000\n");
        Start();
        QSignalSpy inserted(Sizes::GetInstance(), &Sizes::Inserted);
        QCOMPARE(Sizes::Add(500), 2);
        QCOMPARE(Sizes::Add(5000000000LL), 4);
        Sizes::Set(0, 2000);
        QCOMPARE(Sizes::Add(700), 0);
        QCOMPARE(inserted.size(), 3);
        QCOMPARE(inserted.at(2).at(0).toInt(), 0);
        m_app.reset();
        Start();
        QCOMPARE(SizeText(), QString("700 2000 500 500 1000 5000000000"));
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

    void survivesKillAfterChange()
    {
        BundleFixture bundle;
        QVERIFY(bundle.IsValid());
        const BundleFixture::Result result = bundle.RunScenario("presetsKilledAfterChange");
        QCOMPARE(result.exitCode, -1);
        QCOMPARE(Stored(PresetFile("Resolutions", bundle.HomePath()),
                        "Resolutions/" + result.Value("resolutionIndex")),
                 QString("1234x567"));
        QCOMPARE(
            Stored(PresetFile("Sizes", bundle.HomePath()), "Sizes/" + result.Value("sizeIndex")),
            QString("5000000000"));
    }
};

KV_TEST_MAIN(ExportPresetsTest)
#include "tst_exportpresets.moc"
