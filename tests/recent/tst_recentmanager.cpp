#include "TestSupport.h"

#include <KVApplication.h>
#include <KVRecentManager.h>

#include <QDataStream>
#include <QSettings>
#include <QTemporaryDir>

using Manager = KVRecentManager;

namespace {
// Runs scripts such as "R a, F b" on the manager and records every signal in
// the order emitted, as "Name:path[:role]". Steps: R PushRecent, F
// PushFavorite, X Remove, U ContentUpdated, D SetItemData(path, 1, "d-path"),
// G records "Data:" and GetItemData(path, 1, "none"), r SetRecentsNumber,
// f SetFavoritesNumber.
class Session : public QObject
{
public:
    explicit Session(Manager* manager)
        : m(manager)
    {
        const auto record = [this](auto signal, const char* name) {
            connect(m, signal, this, [this, name](const QString& path, auto... role) {
                events << QStringList{name, path, QString::number(role)...}.join(':');
            });
        };
#define KV_RECORD(signal) record(&Manager::signal, #signal)
        KV_RECORD(FavoriteInserted), KV_RECORD(RecentInserted), KV_RECORD(FavoriteRemoved);
        KV_RECORD(RecentRemoved), KV_RECORD(FavoriteUpdated), KV_RECORD(RecentUpdated);
        KV_RECORD(FavoriteDataChanged), KV_RECORD(RecentDataChanged);
#undef KV_RECORD
    }

    void Run(const QString& script)
    {
        using PathMember = void (Manager::*)(const QString&);
        const QMap<QChar, PathMember> operations = {{'R', &Manager::PushRecent},
                                                    {'F', &Manager::PushFavorite},
                                                    {'X', &Manager::Remove},
                                                    {'U', &Manager::ContentUpdated}};
        for (const QString& step : script.split(", ", Qt::SkipEmptyParts)) {
            const QChar op = step.at(0);
            const QString arg = step.mid(2);
            if (operations.contains(op))
                (m->*operations[op])(arg);
            else if (op == 'D')
                m->SetItemData(arg, 1, "d-" + arg);
            else if (op == 'G')
                events << "Data:" + m->GetItemData(arg, 1, "none").toString();
            else if (op == 'r')
                m->SetRecentsNumber(arg.toInt());
            else
                m->SetFavoritesNumber(arg.toInt());
        }
    }

    Manager* m;
    QStringList events;
};

QByteArray Stream(qint32 count, const QStringList& paths)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << count;
    for (const QString& path : paths)
        stream << path;
    return bytes;
}
} // namespace

// The recent and favourite lists, inside one application object whose user
// folder moves to a fresh place for every test.
class RecentManagerTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_files; // p0 .. p19 exist, "missing" does not
    QScopedPointer<QTemporaryDir> m_user;

    QStringList Files(const QString& names) const
    {
        QStringList paths;
        for (const QString& name : names.split(' ', Qt::SkipEmptyParts))
            paths << m_files.filePath(name);
        return paths;
    }
    QStringList Files(int count) const
    {
        QStringList paths;
        for (int i = 0; i < count; ++i)
            paths << m_files.filePath(QString("p%1").arg(i));
        return paths;
    }

    static Manager* Start()
    {
        Manager::InitInstance();
        return Manager::GetInstance();
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString& path : Files(20))
            QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    }

    void init()
    {
        m_user.reset(new QTemporaryDir);
        KVApplication::SetUserDataFolder(m_user->path());
    }

    void cleanup() { Manager::ReleaseInstance(); }

    // "setup / action = signals | favourites | recents", default limits 10
    // recents and 5 favourites.
    void operations_data()
    {
        QTest::addColumn<QString>("row");
        for (const char* row :
             {// A full recents list evicts the oldest, and forgets it.
              "r 2, R a, D a, R b / R c, R a, G a = RecentRemoved:a RecentInserted:c "
              "RecentRemoved:b RecentInserted:a Data:none||a c",
              "R a, R b / R b = RecentRemoved:b RecentInserted:b||b a",
              // A full favourites list refuses, but reorders.
              "F a, F b, F c, F d, F e, R x / F x, F b = FavoriteRemoved:b "
              "FavoriteInserted:b|b e d c a|x",
              "R a, R b, D a / F a, G a = RecentRemoved:a FavoriteInserted:a Data:d-a|a|b",
              "F a, R b / R a = FavoriteUpdated:a|a|b",
              // Recents limit 0: no eviction, favourites listed too.
              "F a, r 0, R b, R c / R d, R a, D a = RecentInserted:d RecentInserted:a "
              "RecentDataChanged:a:1|a|a d c b",
              // A removed favourite is demoted, evicting; a removed recent is forgotten.
              "r 2, R a, R b, F c, D c / X c, G c = FavoriteRemoved:c RecentRemoved:a "
              "RecentInserted:c Data:d-c||c b",
              "R a, R b, D a / X a, R a, G a = RecentRemoved:a RecentInserted:a Data:none||a b",
              "F a, R b / U a, U b, U z, D a, D b, D z, G z = FavoriteUpdated:a RecentUpdated:b "
              "FavoriteDataChanged:a:1 RecentDataChanged:b:1 Data:none|a|b",
              "F a, F b, F c, F d / f 2 = FavoriteRemoved:a RecentInserted:a FavoriteRemoved:b "
              "RecentInserted:b|d c|b a",
              "R a, R b, R c, R d / r 2 = RecentRemoved:a RecentRemoved:b||d c",
              "R a, R b, F c, F d / r 0, f 0 = |d c|b a"})
            QTest::newRow(row) << QString(row);
    }

    void operations()
    {
        QFETCH(QString, row);
        Session session(Start());
        session.Run(row.section(" / ", 0, 0));
        session.events.clear();
        session.Run(row.section(" / ", 1).section(" = ", 0, 0));
        const QStringList favorites = session.m->GetFavorites();
        const QStringList recents = session.m->GetRecents();
        QCOMPARE(session.events.join(' ') + '|' + favorites.join(' ') + '|' + recents.join(' '),
                 row.section(" = ", 1));
        QCOMPARE(session.m->GetFavoriteCount(), favorites.size());
        QCOMPARE(session.m->GetRecentCount(), recents.size());
        QCOMPARE(session.m->IsFavorite("a"), favorites.contains("a"));
    }

    // What the user file may hold (no limit: the key left out) as "list limit
    // stream = limit count"; the list restores as the first files p0, p1...
    void restore_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QByteArray>("files");
        const QByteArray twenty = Stream(20, Files(20)), three = Stream(3, Files(3));
        QTest::newRow("recents: 40") << "Recent 40 = 15 15" << twenty;
        QTest::newRow("favourites: 40") << "Favorite 40 = 10 10" << twenty;
        QTest::newRow("negative") << "Recent -3 = 0 0" << three;
        QTest::newRow("beyond int") << "Recent 3000000000 = 0 0" << three;
        QTest::newRow("missing files use up the count")
            << "Recent - = 10 2" << Stream(3, Files("p0 missing p1 p2"));
        QTest::newRow("truncated stream") << "Recent - = 10 2" << three.chopped(3);
    }

    void restore()
    {
        QFETCH(QString, row);
        QFETCH(QByteArray, files);
        const QStringList w = row.split(' ');
        if (w[1] != "-")
            KVApplication::SetUserValue(w[0] + "Limit", w[1]);
        KVApplication::SetUserValue(w[0] + "Files", files);
        Manager* manager = Start();
        const bool favorites = w[0] == "Favorite";
        QCOMPARE(favorites ? manager->GetFavoritesNumber() : manager->GetRecentsNumber(),
                 w[3].toInt());
        QCOMPARE(favorites ? manager->GetFavorites() : manager->GetRecents(), Files(w[4].toInt()));
        QCOMPARE(favorites ? manager->GetRecents() : manager->GetFavorites(), QStringList());
    }

    // Releasing saves both lists and limits (the limits as set); a restart
    // restores them within range, without missing files or item data.
    void saveAndRestore()
    {
        const QStringList p = Files("p0 p1 missing p2");
        Session session(Start());
        session.Run(QString("R %1, R %2, R %3, F %4, r 40, f 3, D %2").arg(p[0], p[1], p[2], p[3]));
        Manager::ReleaseInstance();
        QSettings stored(m_user->filePath("user.ini"), QSettings::IniFormat);
        QCOMPARE(stored.value("RecentLimit").toInt(), 40);
        QCOMPARE(stored.value("FavoriteLimit").toInt(), 3);
        QCOMPARE(stored.value("RecentFiles").toByteArray(), Stream(3, Files("missing p1 p0")));
        QCOMPARE(stored.value("FavoriteFiles").toByteArray(), Stream(1, Files("p2")));

        Session restored(Start());
        QCOMPARE(restored.m->GetRecentsNumber(), 15);
        QCOMPARE(restored.m->GetRecents(), Files("p1 p0"));
        QCOMPARE(restored.m->GetFavorites(), Files("p2"));
        restored.Run(QString("G %1").arg(p[1]));
        QCOMPARE(restored.events, QStringList{"Data:none"});
    }
};

KV_TEST_APP_MAIN(RecentManagerTest)
#include "tst_recentmanager.moc"
