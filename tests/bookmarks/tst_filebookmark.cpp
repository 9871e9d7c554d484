#include "TestSupport.h"

#include <KVFileBookmark.h>
#include <KVFileBookmarkManager.h>
#include <private/KVFileBookmark_p.h>

#include <QSettings>
#include <QTemporaryDir>

#include <memory>
#include <thread>
#include <vector>

namespace {
const char kSandbox[] = "APP_SANDBOX_CONTAINER_ID";

// The portable store's user defaults.
struct Defaults : QSettings
{
    Defaults()
        : QSettings(QSettings::NativeFormat, QSettings::UserScope, "Pelkaro AB", "Pelkaro")
    {}
    QVariantMap Bookmarks() const { return value("Recent files").toMap(); }
};

int Access(const QString& path)
{
    return KVBookmarkStore::ActiveAccessCount(QFileInfo(path).absoluteFilePath());
}
} // namespace

class FileBookmarkTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    // A new bookmarked file, with the sandbox on.
    QString Bookmarked(const QString& name)
    {
        QFile file(m_dir.filePath(name));
        file.open(QIODevice::WriteOnly);
        KVFileBookmark::AddBookmark(file.fileName());
        return file.fileName();
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(KVTest::HomePath() + "/.config"));
        QVERIFY(QDir::setCurrent(m_dir.path()));
    }

    void init() { qputenv(kSandbox, ""); }

    // Runs first, while the defaults do not exist yet.
    void outsideSandbox()
    {
        qunsetenv(kSandbox);
        const QString file = Bookmarked("outside.png");
        {
            KVFileBookmark holder(file);
            QCOMPARE(Access(file), 0);
        }
        QVERIFY(!QFile::exists(Defaults().fileName()));
    }

    void addBookmarkKeepsTheFirst()
    {
        Bookmarked("kept.png");
        KVFileBookmark::AddBookmark("missing.png");
        const QVariantMap stored = Defaults().Bookmarks();
        QCOMPARE(stored.keys(), QStringList{m_dir.filePath("kept.png")});
        QVERIFY(QFile::remove("kept.png"));
        Bookmarked("kept.png");
        QCOMPARE(Defaults().Bookmarks(), stored);
    }

    // Access starts with the first holder, however made, and stops with the
    // last; letting go twice, or with an empty path, drops one reference only.
    // Access that cannot be stopped (the file moved) stays counted.
    void holders()
    {
        const QString file = Bookmarked("shared.png");
        std::vector<std::unique_ptr<KVFileBookmark>> holders;
        holders.push_back(std::make_unique<KVFileBookmark>("shared.png"));
        holders.push_back(std::make_unique<KVFileBookmark>(*holders.front()));
        holders.push_back(std::make_unique<KVFileBookmark>());
        *holders.back() = *holders.front();
        holders.push_back(std::make_unique<KVFileBookmark>());
        holders.back()->Acquire(file);
        KVFileBookmark released(file), emptied(file);
        released.Release();
        released.Release();
        emptied.Acquire(QString());
        emptied.Acquire(QString());
        for (; !holders.empty(); holders.pop_back())
            QCOMPARE(Access(file), 1);
        QCOMPARE(Access(file), 0);
        auto holder = std::make_unique<KVFileBookmark>(file);
        holder->Acquire("not bookmarked.png");
        QCOMPARE(Access(file), 0);
        holder = std::make_unique<KVFileBookmark>(file);
        QVERIFY(QFile::rename(file, "elsewhere.png"));
        holder.reset();
        QVERIFY(QFile::rename("elsewhere.png", file));
        holder = std::make_unique<KVFileBookmark>(file); // does not start it again
        QCOMPARE(Access(file), 1);
        holder.reset();
        QCOMPARE(Access(file), 0);
    }

    void badStore_data()
    {
        QTest::addColumn<QVariant>("recentFiles");
        QTest::addColumn<QByteArray>("bookmark");
        QTest::newRow("not a dictionary") << QVariant("garbage") << QByteArray();
        QTest::newRow("huge path length") << QVariant() << QByteArray::fromHex("4b56424dfffffff0");
    }

    void badStore()
    {
        QFETCH(QVariant, recentFiles);
        QFETCH(QByteArray, bookmark);
        const QString file = m_dir.filePath("bad.png");
        QFile(file).open(QIODevice::WriteOnly);
        Defaults().setValue("Recent files",
                            recentFiles.isValid() ? recentFiles : QVariantMap{{file, bookmark}});
        {
            KVFileBookmark holder(file);
            QCOMPARE(Access(file), 0);
        }
        // Only a store without a dictionary takes the new bookmark.
        KVFileBookmark::AddBookmark(file);
        KVFileBookmark holder(file);
        QCOMPARE(Access(file), recentFiles.isValid() ? 1 : 0);
    }

    void manyThreads()
    {
        const QString file = Bookmarked("threads.png");
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&, t] {
                for (int i = 0; i < 200; ++i) {
                    KVFileBookmark holder(t % 2 ? "threads.png" : file);
                    KVFileBookmark copy = holder;
                    KVFileBookmark::AddBookmark(file);
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(Access(file), 0);
    }
};

KV_TEST_MAIN(FileBookmarkTest)

#include "tst_filebookmark.moc"
