#include "LogCapture.h"
#include "TestSupport.h"

#include <KVAdjustmentManager.h>
#include <KVBrushToolManager.h>

#include <QSignalSpy>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {
template <typename Base> struct Named : Base
{
    explicit Named(const QString& id)
        : m_id(id)
    {}
    QString GetUID() const override { return m_id; }
    const QString m_id;
};
struct Adjustment : Named<KVAdjustment>
{
    using Named::Named;
    QString GetAdjustmentID() const override { return m_id; }
};
using Brush = Named<KVBrushPlugin>;
} // namespace

// The adjustment and brush registries, alone and under several threads.
class RegistriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        KVAdjustmentManager::InitInstance();
        KVBrushToolManager::InitInstance();
    }
    void cleanup()
    {
        KVAdjustmentManager::ReleaseInstance();
        KVBrushToolManager::ReleaseInstance();
    }

    void adjustments()
    {
        Adjustment invert("invert"), grey("grey"), otherInvert("invert");
        QSignalSpy registered(KVAdjustmentManager::GetInstance(), &KVAdjustmentManager::Registred);
        QSignalSpy unregistered(KVAdjustmentManager::GetInstance(),
                                &KVAdjustmentManager::Unregistred);
        LogCapture capture;

        QVERIFY(KVAdjustmentManager::Register(&invert));
        QVERIFY(KVAdjustmentManager::Register(&invert));
        QVERIFY(KVAdjustmentManager::Register(nullptr));
        QVERIFY(KVAdjustmentManager::Register(&grey));
        QVERIFY(!KVAdjustmentManager::Register(&otherInvert));
        QCOMPARE(registered.count(), 2);
        QCOMPARE(registered.at(0).at(1).value<KVAdjustment*>(), &invert);
        QCOMPARE(capture.StampedLines(),
                 QStringList{
                     LogCapture::Expected("src/KVAdjustmentManager",
                                          "id:invert already registered.Tool is not registered.")});
        QVERIFY(KVAdjustmentManager::GetID(&otherInvert).isNull());

        QVERIFY(KVAdjustmentManager::Unregister("invert"));
        QVERIFY(!KVAdjustmentManager::Unregister("invert"));
        QCOMPARE(unregistered.count(), 1);
        QVERIFY(KVAdjustmentManager::Register(&otherInvert));
        QCOMPARE(KVAdjustmentManager::GetRegistered(), QStringList({"grey", "invert"}));
        QCOMPARE(KVAdjustmentManager::GetAdjustment("invert"), &otherInvert);

        KVAdjustmentManager::ReleaseInstance();
        QVERIFY(!KVAdjustmentManager::Register(&grey));
        QVERIFY(KVAdjustmentManager::GetRegistered().isEmpty());
    }

    void brushes()
    {
        Brush soft("{soft}"), otherSoft("{soft}");
        LogCapture capture;
        QVERIFY(KVBrushToolManager::Register(&soft));
        QVERIFY(!KVBrushToolManager::Register(&otherSoft));
        QCOMPARE(
            capture.StampedLines(),
            QStringList{LogCapture::Expected(
                "src/KVBrushToolManager", "id:{soft} already registered.Tool will not register.")});

        // The main brush outlives its unregistering, not its deletion; a former one's
        // deletion leaves the main brush alone.
        auto main = std::make_unique<Brush>("{main}"), former = std::make_unique<Brush>("{f}");
        KVBrushToolManager::SetMainBrushPlugin(former.get());
        KVBrushToolManager::SetMainBrushPlugin(main.get());
        former.reset();
        KVBrushToolManager::Register(main.get());
        QVERIFY(KVBrushToolManager::Unregister("{main}"));
        QCOMPARE(KVBrushToolManager::GetMainBrushPlugin(), main.get());
        main.reset();
        QVERIFY(!KVBrushToolManager::GetMainBrushPlugin());
        KVBrushToolManager::SetMainBrushPlugin(&soft);
        KVBrushToolManager::SetMainBrushPlugin(nullptr);
        QVERIFY(!KVBrushToolManager::GetMainBrushPlugin());
    }

    // Threads register and unregister at once while a slot calls back in.
    void concurrentRegistration()
    {
        constexpr int kThreads = 4, kPerThread = 300;
        std::vector<std::unique_ptr<Adjustment>> adjustments;
        for (int i = 0; i < kThreads * kPerThread; ++i)
            adjustments.push_back(std::make_unique<Adjustment>(QString::number(i)));
        std::atomic<int> announced{0};
        connect(
            KVAdjustmentManager::GetInstance(), &KVAdjustmentManager::Registred, this,
            [&](const QString& id) {
                if (KVAdjustmentManager::GetAdjustment(id))
                    ++announced;
            },
            Qt::DirectConnection);

        std::vector<std::thread> threads;
        for (int t = 0; t < kThreads; ++t) {
            threads.emplace_back([&, t] {
                for (int i = 0; i < kPerThread; ++i) {
                    KVAdjustmentManager::Register(adjustments[size_t(t * kPerThread + i)].get());
                    KVAdjustmentManager::GetRegistered();
                    if (i % 2)
                        KVAdjustmentManager::Unregister(QString::number(t * kPerThread + i));
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();

        QCOMPARE(announced.load(), kThreads * kPerThread);
        QCOMPARE(KVAdjustmentManager::GetRegistered().size(), kThreads * kPerThread / 2);
        QCOMPARE(KVAdjustmentManager::GetID(adjustments[2].get()), QString("2"));
    }
};

KV_TEST_MAIN(RegistriesTest)
#include "tst_registries.moc"
