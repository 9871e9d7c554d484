#include "LogCapture.h"
#include "TestSupport.h"

#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVImageFileManager.h>
#include <KVPlugin.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <memory>

namespace {
QString PluginFile(const QString& name)
{
    return QStringLiteral(KV_TEST_PLUGIN_DIR "/lib%1.dylib").arg(name);
}

// Loader log lines with their build stamp and loading time made neutral.
QStringList LoaderLines(const LogCapture& capture)
{
    static const QRegularExpression time(QStringLiteral("Loading time is [0-9.e+-]+ sec"));
    return capture.StampedLines().replaceInStrings(time, QStringLiteral("Loading time is T sec"));
}

QString LoaderLine(const QString& path, const QString& what)
{
    return LogCapture::Expected("src/private/KVApplication_p",
                                QString("Plugin: \"%1\" %2").arg(path, what));
}

// The calls the test containers received, as "<container>:<call>", and a fresh log.
QStringList TakeCalls()
{
    QObject* app = QCoreApplication::instance();
    const QStringList calls = app->property("testCalls").toStringList();
    app->setProperty("testCalls", QVariant());
    return calls;
}

// The application's loading signals, in the order they came.
struct LoadingEvents : QObject
{
    explicit LoadingEvents(KVApplication* app)
    {
        const auto log = [this](const QString& what) {
            return [this, what](const QString& file) { events << what + file; };
        };
        connect(app, &KVApplication::PluginLoading, this, log("loading:"));
        connect(app, &KVApplication::PluginLoaded, this, log("loaded:"));
        connect(app, &KVApplication::PluginLoadingError, this,
                [this](const QString& file, const QString& error) {
                    events << "error:" + file;
                    errors << error;
                });
        connect(app, &KVApplication::PluginsLoadingFinished, this,
                [this] { events << "finished"; });
    }
    QStringList events, errors;
};
} // namespace

// Loading and unloading real plug-in files one by one, their records, and
// what the loader hands to the registries.
class PluginLoadingTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<KVApplication> m_app;
    QTemporaryDir m_dir;
    int m_argc = 1;
    char m_name[8] = "Pelkaro";
    char* m_argv[2] = {m_name, nullptr};

private Q_SLOTS:
    void init()
    {
        m_app = std::make_unique<KVApplication>(m_argc, m_argv);
        KVImageFileManager::InitInstance();
        KVAdjustmentManager::InitInstance();
    }

    void cleanup()
    {
        m_app->UnloadPlugins();
        // Rejected loaders are deleted later, by an event loop these tests never run.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        KVAdjustmentManager::ReleaseInstance();
        KVImageFileManager::ReleaseInstance();
        m_app.reset();
    }

    void oneFileOfEachKind_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("error"); // empty when it loads; a part of the message otherwise
        // tc_missingsymbol fails to load rather than crash at the call.
        for (const QString row :
             {"tc_image_a:", "missing:Missing file",
              "tc_otherinterface:Is not an Pelkaro's plugin.", "tc_empty:Empty container.",
              "tc_missingsymbol:_Z13MissingHelperv"})
            QTest::newRow(qPrintable(row.section(':', 0, 0)))
                << row.section(':', 0, 0) << row.section(':', 1);
    }

    void oneFileOfEachKind()
    {
        QFETCH(QString, kind);
        QFETCH(QString, error);

        const QString path = PluginFile(kind);
        LoadingEvents events(m_app.get());
        LogCapture capture;
        m_app->LoadPlugin(path);

        const QString info = m_app->GetErrorInfo(path);
        const bool loads = error.isEmpty();
        QVERIFY2(loads ? info == "Plugin OK." : info.contains(error), qPrintable(info));
        QCOMPARE(events.events,
                 QStringList({"loading:" + path, (loads ? "loaded:" : "error:") + path}));
        QCOMPARE(events.errors, loads ? QStringList() : QStringList{info});
        const QString logged =
            loads ? "loaded successfully. Loading time is T sec."
                  : "loading error. Loading time is T sec. Error message is \"" + info + "\".";
        QCOMPARE(LoaderLines(capture), QStringList{LoaderLine(path, logged)});
    }

    // A batch: its signals with events processed around every file, each file's
    // record (the first answers for the file), calls in reverse load order, and
    // unloading in reverse.
    void batchRecordsAndReverseUnload()
    {
        const QString late = m_dir.filePath("liblate.dylib");
        const QStringList batch = {PluginFile("tc_image_a"), PluginFile("tc_brush"),
                                   PluginFile("tc_adjustments"), PluginFile("tc_empty"), late};
        LoadingEvents events(m_app.get());
        connect(m_app.get(), &KVApplication::PluginLoading, &events, [&] {
            QMetaObject::invokeMethod(
                &events, [&] { events.events << "posted"; }, Qt::QueuedConnection);
        });
        m_app->LoadPlugins(batch);
        m_app->LoadPlugins(QStringList());
        QStringList expectedEvents;
        for (int i = 0; i < batch.size(); ++i)
            expectedEvents << "loading:" + batch[i] << "posted"
                           << (i < 3 ? "loaded:" : "error:") + batch[i];
        QCOMPARE(events.events, expectedEvents);
        QFile::copy(PluginFile("tc_image_b"), late);
        m_app->LoadPlugin(late);
        QVERIFY(KVApplication::GetBrushFactory()); // tc_brush's, after a null entry

        const auto describe = [&] {
            QStringList lines;
            for (const KVApplication::PluginRecord& record : m_app->GetPluginRecords()) {
                QStringList types;
                for (KVPlugin* plugin : record.plugins)
                    types << (plugin ? QString::number(plugin->GetType()) : "null");
                lines << QString("%1 %2 [%3] [%4] %5")
                             .arg(QFileInfo(record.fileName).fileName())
                             .arg(record.status)
                             .arg(types.join(','), record.adjustments.join(','), record.errorInfo);
            }
            return lines;
        };
        QStringList expected = {
            "libtc_image_a.dylib 3 [2] [] Plugin OK.",
            "libtc_brush.dylib 3 [null,3] [] Plugin OK.",
            "libtc_adjustments.dylib 3 [1,1] [adjustments.invert,adjustments.grey] Plugin OK.",
            "libtc_empty.dylib 2 [] [] Empty container.",
            "liblate.dylib 7 [] [] Missing file",
            "liblate.dylib 3 [2] [] Plugin OK."};
        QCOMPARE(describe(), expected);
        QCOMPARE(m_app->GetErrorInfo(late), QString("Missing file"));
        QCOMPARE(m_app->GetErrorPlugins(), std::vector<QString>({PluginFile("tc_empty"), late}));

        TakeCalls();
        m_app->UIReady();
        KVApplication::FlushData();
        QCOMPARE(TakeCalls(),
                 QStringList({"image_b:UIReady", "adjustments:UIReady", "brush:UIReady",
                              "image_a:UIReady", "image_a:FlushPluginData", "brush:FlushPluginData",
                              "adjustments:FlushPluginData", "image_b:FlushPluginData"}));

        LogCapture capture;
        m_app->UnloadPlugins();
        QCOMPARE(TakeCalls(), QStringList({"image_b:Release", "adjustments:Release",
                                           "brush:Release", "image_a:Release"}));
        QStringList unloaded;
        for (const QString& file : batch.mid(0, 3) + QStringList{late})
            unloaded.prepend(LoaderLine(file, "is unloaded successfully."));
        QCOMPARE(LoaderLines(capture), unloaded);
        QVERIFY(!KVApplication::GetBrushFactory());
        // Unloaded containers hand out nothing; the records keep the rest.
        QCOMPARE(describe(),
                 expected.replaceInStrings(QRegularExpression(" \\[[a-z0-9,]+\\] "), " [] "));
        m_app->UnloadPlugins();
        QVERIFY(TakeCalls().isEmpty());
    }

    void selectiveUnload()
    {
        const QString a = PluginFile("tc_image_a"), missing = m_dir.filePath("libgone.dylib");
        m_app->LoadPlugins(QStringList{a, missing, a, PluginFile("tc_image_b")});
        TakeCalls();

        LogCapture capture;
        m_app->UnloadPlugins(QStringList{"/not/loaded", missing});
        QVERIFY(capture.Lines().isEmpty()); // a failed record goes without a log line
        QVERIFY(m_app->GetErrorPlugins().empty());
        QCOMPARE(m_app->GetErrorInfo(missing), QString("Errors not found"));

        // Both records of a go; a file unloaded by name loads again.
        m_app->UnloadPlugin(a);
        QCOMPARE(TakeCalls(), QStringList({"image_a:Release", "image_a:Release"}));
        QCOMPARE(KVImageFileManager::GetSupportedReadFormats(), QStringList{"image_b"});
        m_app->LoadPlugin(a);
        QCOMPARE(TakeCalls(), QStringList{"image_a:Initialize"});
        QCOMPARE(KVImageFileManager::GetSupportedReadFormats(),
                 QStringList({"image_a", "image_b"}));
    }
};

KV_TEST_MAIN(PluginLoadingTest)
#include "tst_pluginloading.moc"
