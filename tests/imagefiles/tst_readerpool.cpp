#include "TestImagePlugin.h"
#include "TestSupport.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

#include <QThread>

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <random>
#include <thread>
#include <vector>

using Manager = KVImageFileManager;
using Readers = QList<KVImageFileReader*>;

namespace {
QSet<KVImageFileReader*> ToSet(const Readers& readers)
{
    return QSet<KVImageFileReader*>(readers.begin(), readers.end());
}

const int kPoolSize = QThread::idealThreadCount(); // readers per pool

Readers AcquireAll(const QString& format, int count = kPoolSize)
{
    Readers readers;
    for (int i = 0; i < count; ++i)
        readers.append(Manager::AcquireReader(format));
    return readers;
}

void ReleaseAll(const Readers& readers)
{
    for (KVImageFileReader* reader : readers)
        Manager::ReleaseAcquiredReader(reader);
}
} // namespace

// The pool of readers that decoding threads borrow and give back.
class ReaderPoolTest : public QObject
{
    Q_OBJECT

private:
    // Registered plug-ins outlive the pool, as the editor keeps them.
    std::vector<std::unique_ptr<TestImagePlugin>> m_plugins;

    TestImagePlugin* AddPlugin(const QStringList& formats, const QStringList& readerFormats = {},
                               bool makesReaders = true)
    {
        m_plugins.push_back(std::make_unique<TestImagePlugin>(
            TestImagePluginConfig{TestImagePluginConfig().uid,
                                  formats,
                                  {},
                                  {},
                                  {QUuid::createUuid().toString()},
                                  {},
                                  readerFormats,
                                  makesReaders}));
        Manager::Register(m_plugins.back().get());
        return m_plugins.back().get();
    }

private Q_SLOTS:
    void init() { Manager::InitInstance(); }
    void cleanup()
    {
        Manager::ReleaseReadersPool();
        m_plugins.clear();
        Manager::ReleaseInstance();
    }

    // One pool per reader, shared by its suffixes; released, the pool hands its
    // readers back to their plug-in, unless the plug-in was unregistered.
    void poolsAndTheirRelease()
    {
        QVERIFY(Manager::InitReadersPool() && !Manager::AcquireReader("png")); // no pools yet
        TestImagePlugin* jpeg = AddPlugin({"jpeg", "jpg"}, {"jpeg", "jpg"});
        TestImagePlugin* png = AddPlugin({"png"});
        AddPlugin({"gif"}, {"gif"}, false); // makes no readers
        QVERIFY(Manager::InitReadersPool());
        const Readers fromJpg = AcquireAll("JPG");
        ReleaseAll(fromJpg);
        const Readers fromJpeg = AcquireAll("jpeg");
        ReleaseAll(fromJpeg);
        QCOMPARE(ToSet(fromJpg), ToSet(fromJpeg));
        QCOMPARE(ToSet(fromJpg).size(), kPoolSize);
        TestImageReader stranger("{x}", {"png"});
        Manager::ReleaseAcquiredReader(&stranger); // a reader of no pool is ignored
        Manager::ReleaseAcquiredReader(nullptr);
        const Readers fromPng = AcquireAll("png");
        QVERIFY(!fromPng.contains(&stranger) && !fromPng.contains(nullptr));
        QVERIFY(!ToSet(fromPng).intersects(ToSet(fromJpeg)));
        ReleaseAll(fromPng);
        QVERIFY(!Manager::AcquireReader("gif"));
        Manager::InitReadersPool();
        QCOMPARE(jpeg->m_readersMade, kPoolSize); // formats with a pool get no second one
        delete fromPng.last();                    // a destroyed pool reader leaves its pool
        KVImageFileReader* own = Manager::CreateReader("png"); // not the pool's
        Manager::ReleaseReadersPool();
        QCOMPARE(png->m_readersReleased, kPoolSize - 1);
        QVERIFY(!Manager::AcquireReader("png"));
        Manager::ReleaseReader(own);
        Manager::InitReadersPool();
        const Readers orphans = AcquireAll("png");
        ReleaseAll(orphans);
        Manager::Unregister(png);
        Manager::ReleaseReadersPool();
        QVERIFY(!Manager::AcquireReader("png"));
        QCOMPARE(png->m_readersReleased, kPoolSize);
        qDeleteAll(orphans);
    }

    // Releasing a pool reader waits for the whole pool, holding none of it
    // meanwhile: a borrower holding the rest still gets the one free reader,
    // and both finish. Releasing a reader of no pool does not wait.
    void relocationLeavesFreeReadersToBorrowers()
    {
        KV_IN_CHILD_PROCESS(20000);
        TestImagePlugin* png = AddPlugin({"png"});
        Manager::InitReadersPool();
        const Readers all = AcquireAll("png");
        KVImageFileReader* free = all.first();
        ReleaseAll(all); // the first released is the last lent
        std::atomic<bool> holdsTheRest{false}, go{false}, givesBack{false};
        KVImageFileReader* last = nullptr;
        std::thread borrower([&] {
            const Readers held = AcquireAll("png", kPoolSize - 1);
            holdsTheRest = true;
            while (!go)
                QThread::yieldCurrentThread();
            QThread::msleep(100); // the relocation below is waiting by now
            last = Manager::AcquireReader("png");
            givesBack = true;
            ReleaseAll(held + Readers{last});
        });
        while (!holdsTheRest)
            QThread::yieldCurrentThread();
        // Were this to wait for the pool, the borrower would never go on.
        Manager::ReleaseReader(Manager::CreateReader("png"));
        go = true;
        Manager::ReleaseReader(free);
        const bool waited = givesBack;
        borrower.join();
        QVERIFY2(waited, "relocation must wait for the lent readers");
        QCOMPARE(last, free);
        QCOMPARE(png->m_readersReleased, 2);
    }

    // Eight threads borrow one reader, or one of each of two pools (in the same
    // order), while this thread unregisters a plug-in and releases pool readers,
    // which their plug-in deletes. No reader is lent twice or after its release,
    // none is lost, and every thread finishes.
    void borrowersAndRelocationsTogether()
    {
        KV_IN_CHILD_PROCESS(120000);
        AddPlugin({"png"});
        TestImagePlugin* jpeg = AddPlugin({"jpg"});
        Manager::InitReadersPool();
        std::map<KVImageFileReader*, std::atomic<int>> holders;
        const Readers png = AcquireAll("png");
        const Readers jpg = AcquireAll("jpg");
        for (KVImageFileReader* reader : png + jpg)
            holders[reader] = 0;
        ReleaseAll(png + jpg);
        std::atomic<int> errors{0};
        const auto borrow = [&](const char* format) {
            KVImageFileReader* reader = Manager::AcquireReader(format);
            const auto holder = holders.find(reader);
            if (holder == holders.end() || holder->second.fetch_add(1) != 0)
                ++errors;
            return reader;
        };
        const auto giveBack = [&](KVImageFileReader* reader) {
            const auto holder = holders.find(reader);
            if (holder != holders.end())
                holder->second.fetch_sub(1);
            Manager::ReleaseAcquiredReader(reader);
        };
        std::vector<std::thread> borrowers;
        for (int t = 0; t < 8; ++t) {
            borrowers.emplace_back([&, t] {
                std::mt19937 random{unsigned(t)};
                for (int i = 0; i < 20000; ++i) {
                    const unsigned kind = random() % 3;
                    KVImageFileReader* first = borrow(kind == 1 ? "jpg" : "png");
                    KVImageFileReader* second = kind == 2 ? borrow("jpg") : nullptr;
                    if (random() % 8 == 0)
                        std::this_thread::sleep_for(std::chrono::microseconds(random() % 50));
                    if (second)
                        giveBack(second);
                    giveBack(first);
                }
            });
        }
        QThread::msleep(20);
        Manager::Unregister(jpeg);
        for (int i = 1; i < png.size(); ++i) {
            Manager::ReleaseReader(png.at(i));
            holders.at(png.at(i)) = 1; // lent to nobody from now on
        }
        for (std::thread& borrower : borrowers)
            borrower.join();
        QCOMPARE(errors.load(), 0);
        QCOMPARE(Manager::AcquireReader("png"), png.first());
        Manager::ReleaseAcquiredReader(png.first());
        const Readers jpgAfter = AcquireAll("jpg");
        QCOMPARE(ToSet(jpgAfter), ToSet(jpg));
        ReleaseAll(jpgAfter);
        // The jpg readers outlived their plug-in, which no longer disposes of
        // them: deleted, they leave their pool.
        qDeleteAll(jpg);
    }
};

KV_TEST_APP_MAIN(ReaderPoolTest)
#include "tst_readerpool.moc"
