#include "TestSupport.h"

#include <KVFileBookmark.h>
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

// The access count while a holder of path lives.
int HeldAccess(const QString& path)
{
    const KVFileBookmark holder(path);
    return Access(path);
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
        QCOMPARE(HeldAccess(file), 0);
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

    // A damaged bookmark gives no access and is kept; a store that is not a
    // dictionary gives none either, but takes a new bookmark.
    void badStore()
    {
        const QString file = m_dir.filePath("bad.png");
        QFile(file).open(QIODevice::WriteOnly);
        const QByteArray hugePath = QByteArray::fromHex("4b56424dfffffff0");
        Defaults().setValue("Recent files", QVariantMap{{file, hugePath}});
        KVFileBookmark::AddBookmark(file);
        QCOMPARE(HeldAccess(file), 0);
        Defaults().setValue("Recent files", "garbage");
        QCOMPARE(HeldAccess(file), 0);
        KVFileBookmark::AddBookmark(file);
        QCOMPARE(HeldAccess(file), 1);
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
