#include "LogCapture.h"
#include "TestImagePlugin.h"
#include "TestSupport.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

#include <memory>

using Manager = KVImageFileManager;

namespace {
const QString kAll = "{00000000-0000-0000-0000-000000000001}";
const QString kPng = "{a0000000-0000-0000-0000-000000000001}";
const QString kJpeg = "{b0000000-0000-0000-0000-000000000002}";

std::unique_ptr<TestImagePlugin>
MakePlugin(const QStringList& formats, const QList<TestGroup>& groups = {},
           const QStringList& disabled = {},
           const QStringList& readerUIDs = {QUuid::createUuid().toString()},
           const QStringList& writerUIDs = {QUuid::createUuid().toString()})
{
    return std::make_unique<TestImagePlugin>(TestImagePluginConfig{
        TestImagePluginConfig().uid, formats, disabled, groups, readerUIDs, writerUIDs});
}

// Logs each path; the path *stopAt stops a batch.
QStringList g_opened;
bool LoggingOpen(const QString& path, bool* ok, void* stopAt)
{
    g_opened << path;
    if (path == *static_cast<QString*>(stopAt))
        *ok = false;
    return path.endsWith(".png");
}

// Hands the rest of a batch to LoggingOpen.
bool SwitchingOpen(const QString& path, bool*, void* stopAt)
{
    g_opened << "switch:" + path;
    Manager::Register(&LoggingOpen, stopAt);
    return true;
}

bool CountSave(MZDocumentInterface*, void* user)
{
    ++*static_cast<int*>(user);
    return true;
}
} // namespace

class ImageFileManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Manager::InitInstance(); }
    void cleanup() { Manager::ReleaseInstance(); }

    // The newest plug-in serves a suffix; signals come for real changes of the tables only.
    void signalsFollowRealChanges()
    {
        QStringList log; // both signals, in the order they came
        connect(Manager::GetInstance(), &Manager::SupportedGroupsChanged, this,
                [&] { log << "groups"; });
        connect(Manager::GetInstance(), &Manager::SupportedGroupChanged, this,
                [&](const QString& group) { log << group; });
        auto first = MakePlugin({"png", "jpg", "raw"},
                                {{kPng, "PNG", {"png"}}, {kJpeg, "JPEG", {"jpg"}}}, {"raw"});
        Manager::Register(first.get());
        QCOMPARE(std::exchange(log, {}),
                 QStringList({kAll, "groups", kPng, "groups", kJpeg, // read side
                              kAll, kPng, kJpeg}));                  // write side
        QVERIFY(!Manager::CreateReader("raw"));                      // disabled
        auto second = MakePlugin({"png", "gif"}, {{kPng, "Renamed", {"png", "gif"}}});
        Manager::Register(second.get());
        QVERIFY(Manager::Register(second.get())); // again: nothing changes
        QCOMPARE(std::exchange(log, {}), QStringList({kAll, kPng, kAll, kPng}));
        QCOMPARE(Manager::GetPluginForRead("PNG"), second.get());
        QCOMPARE(Manager::GetPluginForWrite("png"), second.get());
        QCOMPARE(Manager::GetPluginForRead("jpg"), first.get());
        QCOMPARE(Manager::GetGroupName(kPng), QString("PNG")); // the first name stays
        auto third = MakePlugin({"png"}, {{kPng, "PNG", {"png"}}});
        Manager::Register(third.get());
        QCOMPARE(std::exchange(log, {}), QStringList());
        // gif loses its only reader: out of All and PNG, which keeps png.
        QVERIFY(Manager::Unregister(second.get()));
        QVERIFY(!Manager::Unregister(second.get()));
        QCOMPARE(std::exchange(log, {}), QStringList({kAll, kPng, kAll, kPng}));
        QCOMPARE(Manager::GetPluginForRead("png"), third.get());
        QCOMPARE(Manager::GetGroupReadFormats(kPng), QStringList({"png"}));
        // Without the newest, the older one serves png again; the tables stay.
        Manager::Unregister(third.get());
        QCOMPARE(Manager::GetPluginForRead("png"), first.get());
        Manager::Register(third.get());
        QCOMPARE(std::exchange(log, {}), QStringList());
        // png still has the third plug-in; jpg goes, and JPEG is left empty.
        Manager::Unregister(first.get());
        QCOMPARE(std::exchange(log, {}),
                 QStringList({kAll, "groups", kJpeg, kAll, "groups", kJpeg}));
        QCOMPARE(Manager::GetSupportedReadGroups(), QStringList({kAll, kPng, kJpeg}));
        QCOMPARE(Manager::GetGroupReadFormats(kJpeg), QStringList());
        QCOMPARE(Manager::GetGroupName(kJpeg), QString("JPEG"));
        // A known, emptied group filled again is not a new group.
        auto fourth = MakePlugin({"jpg"}, {{kJpeg, "JPEG", {"jpg"}}});
        Manager::Register(fourth.get());
        QCOMPARE(std::exchange(log, {}), QStringList({kAll, kJpeg, kAll, kJpeg}));
        // A destroyed plug-in leaves the tables.
        fourth.reset();
        QCOMPARE(std::exchange(log, {}),
                 QStringList({kAll, "groups", kJpeg, kAll, "groups", kJpeg}));
        QVERIFY(!Manager::GetPluginForRead("jpg"));
        QCOMPARE(Manager::GetSupportedReadFormats(), QStringList({"png"}));
    }

    // A reader or writer UID seen before is logged and skipped; what is made
    // goes back to the plug-in that made it.
    void readersAndWritersGoBackToTheirPlugin()
    {
        auto plugin = MakePlugin({"png"}, {}, {}, {"{r1}"}, {"{w1}"});
        auto second = MakePlugin({"bmp"}, {}, {}, {"{r1}", "{r2}"}, {"{w1}"});
        LogCapture capture;
        Manager::Register(plugin.get());
        Manager::Register(second.get());
        QStringList lines; // log readers know this line by its number
        for (const QString& line : capture.Lines())
            lines << line.mid(line.indexOf("Line="));
        const QString line =
            "Line=521, file=\"src/private/KVImageFileManager_p\". %1 uid is not unique.";
        QCOMPARE(lines, QStringList({line.arg("{r1}"), line.arg("{w1}")}));
        Manager::ReleaseReader(Manager::CreateReaderByUID("{r1}"));
        Manager::ReleaseReader(Manager::CreateReaderByUID("{r2}"));
        Manager::ReleaseWriter(Manager::CreateWriterByUID("{w1}"));
        QVERIFY(!Manager::CreateReaderByUID("{unknown}"));
        QCOMPARE((QList<int>{plugin->m_readersMade, second->m_readersMade, plugin->m_writersMade,
                             second->m_writersMade}),
                 (QList<int>{1, 1, 1, 0}));
        Manager::ReleaseReader(Manager::CreateReader("PNG"));
        Manager::ReleaseWriter(Manager::CreateWriter("Png"));
        QCOMPARE(plugin->m_requestedFormats, QStringList({"png", "png"}));
        QVERIFY(!Manager::CreateWriter("gif"));
        QCOMPARE(QPair(plugin->m_readersReleased, plugin->m_writersReleased), QPair(2, 2));
        // Unknown pointers, and readers already destroyed, are ignored.
        delete Manager::CreateReader("png");
        TestImageReader stranger("{x}", {"png"}); // may reuse the address
        Manager::ReleaseReader(&stranger);
        Manager::ReleaseReader(nullptr);
        // After unregistering, the plug-in's readers are no longer the manager's.
        KVImageFileReader* orphan = Manager::CreateReader("png");
        Manager::Unregister(plugin.get());
        Manager::ReleaseReader(orphan);
        QCOMPARE(plugin->m_readersReleased, 2);
        delete orphan;
    }

    // Empty, the manager has only All, no filters, and takes no null plug-in.
    // Then groups come in UID order, All among them by its UID, an empty group
    // too, and no All to write. Without a manager every call answers neutrally.
    void groupsAndFilters()
    {
        QVERIFY(Manager::GetSupportedReadGroups().isEmpty());
        QCOMPARE(Manager::GetGroupName(kAll), QString("All"));
        QCOMPARE(Manager::GetGroupName(kPng), QString("Unknown"));
        QCOMPARE(Manager::GetFilterForRead(), QString());
        QVERIFY(!Manager::Register(nullptr) && !Manager::Unregister(nullptr));
        auto plain = MakePlugin({"png", "bmp"});
        Manager::Register(plain.get());
        QCOMPARE(Manager::GetFilterForRead(), QString("All (*.bmp *.png)"));
        QCOMPARE(Manager::GetFilterForWrite(), QString());
        auto grouped = MakePlugin({"png", "bmp"},
                                  {{kJpeg, "Empty", {}},
                                   {kPng, "Both", {"png", "bmp"}},
                                   {"{00000000-0000-0000-0000-000000000000}", "First", {"bmp"}}});
        Manager::Register(grouped.get());
        QCOMPARE(Manager::GetFilterForRead(),
                 QString("First (*.bmp);;All (*.bmp *.png);;Both (*.png *.bmp);;Empty )"));
        QCOMPARE(Manager::GetFilterForWrite(),
                 QString("First (*.bmp);;Both (*.png *.bmp);;Empty )"));
        Manager::ReleaseInstance();
        QCOMPARE(Manager::GetGroupName(kAll), QString());
        QCOMPARE(Manager::GetFilterForRead(), QString());
        QVERIFY(!Manager::CreateReader("png") && !Manager::AcquireReader("png"));
        QVERIFY(!Manager::InitReadersPool() && !Manager::Save(nullptr));
    }

    void openingAndSaving()
    {
        QString stopAt = "b.png";
        QVERIFY(!Manager::Open("a.png", nullptr));
        Manager::Open(QStringList{"a.png"}); // no callback: nothing to call
        Manager::Register(&LoggingOpen, &stopAt);
        bool ok = true;
        QVERIFY(Manager::Open("a.png", &ok) && ok);
        QVERIFY(!Manager::Open("a.jpg", nullptr));
        Manager::Open(QStringList{"a.png", "b.png", "c.png"});
        Manager::Register(&SwitchingOpen, &stopAt);
        Manager::Open(QStringList{"a", "b", "c"});
        QCOMPARE(g_opened, QStringList({"a.png", "a.jpg", "a.png", "b.png", "switch:a", "b", "c"}));
        Manager::Register(Manager::OpenCallback(nullptr), nullptr);
        QVERIFY(!Manager::Open("a.png", &ok) && !ok);
        QVERIFY(!Manager::Save(nullptr));
        int saves[2] = {0, 0};
        Manager::Register(&CountSave, &saves[0]);
        QVERIFY(Manager::Save(nullptr));
        Manager::Register(&CountSave, &saves[1]);
        QVERIFY(Manager::Save(nullptr));
        QCOMPARE(QPair(saves[0], saves[1]), QPair(1, 1));
    }
};

KV_TEST_APP_MAIN(ImageFileManagerTest)
#include "tst_imagefilemanager.moc"
