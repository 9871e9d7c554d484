#include "TestSupport.h"

#include <KVApplication.h>
#include <KVGradientStop.h>
#include <KVRecentManager.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <QBitArray>
#include <QCborArray>
#include <QCborValue>
#include <QColorSpace>
#include <QConicalGradient>
#include <QDataStream>
#include <QFont>
#include <QImage>
#include <QJsonDocument>
#include <QKeySequence>
#include <QLinearGradient>
#include <QMatrix4x4>
#include <QPalette>
#include <QPen>
#include <QPolygon>
#include <QQuaternion>
#include <QRadialGradient>
#include <QRegion>
#include <QRegularExpression>
#include <QSettings>
#include <QTextCharFormat>
#include <QTextLength>
#include <QUuid>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>

namespace {
const QString kPreferences = "/Library/Preferences/Pelkaro AB/Pelkaro/";

QString UserFile()
{
    return KVTest::HomePath() + kPreferences + "user.ini";
}

QByteArray ReadFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteFile(const QString& path, const QByteArray& data)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(data);
}

// A list of variants nested this deep, around an int.
QByteArray NestedLists(int depth)
{
    QByteArray value = "@Variant(";
    for (int i = 0; i < depth; ++i)
        value += "\\0\\0\\0\\t\\0\\0\\0\\x1";
    return value + "\\0\\0\\0\\x2\\0\\0\\0\\x1)";
}
} // namespace

// Settings and preset files that Qt's own parsing cannot survive (it throws
// std::bad_alloc out of QtCore or writes through a null pointer in QtGui),
// and values of every kind that Qt writes, which must still be read.
class DamagedFilesTest : public QObject
{
    Q_OBJECT

private:
    int m_argc = 1;
    char* m_argv[2] = {const_cast<char*>("tst_damagedfiles"), nullptr};

private Q_SLOTS:
    void cleanup() { QDir(KVTest::HomePath() + "/Library").removeRecursively(); }

    void damagedUserFileIsNeitherReadNorWritten_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QByteArray>("start");
        const auto row = [](const char* name, const QByteArray& value,
                            const QByteArray& start = QByteArray()) {
            QTest::newRow(name) << value << start;
        };
        // Qt 4 type numbers in a Qt 4.0 stream: 11 string list, 71 ('G')
        // polygon, 66 ('B') brush, 77 pen, 72 ('H') region, 8 map.
        row("string list count", QByteArray("@Variant(\\0\\0\\0\\xb\\x7f\\xff\\xff\\xff)"));
        row("polygon count", QByteArray("@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)"));
        row("hex-escaped @", QByteArray("\\x40Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)"));
        row("octal-escaped @", QByteArray("\\100Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)"));
        row("quoted, trailing spaces",
            QByteArray("\"@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)\"   "));
        row("list element", QByteArray("a, @Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)"));
        row("gradient stops",
            QByteArray("@Variant(\\0\\0\\0\\x42\\xf\\x1\\xff\\xff\\0\\0\\0\\0\\0\\0\\0\\0\\0\\0\\0"
                       "\\0\\x7f\\xff\\xff\\xff)"));
        row("pen dashes",
            QByteArray("@Variant(\\0\\0\\0M\\x1@\\0\\0\\0\\0\\0\\0\\0\\x1\\x1\\xff\\xff\\0\\0\\0"
                       "\\0\\0\\0\\0\\0@\\0\\0\\0\\0\\0\\0\\0\\x7f\\xff\\xff\\xff)"));
        row("region rectangles",
            QByteArray("@Variant(\\0\\0\\0H\\0\\0\\0\\b\\0\\0\\0\\n\\x7f\\xff\\xff\\xff)"));
        row("polygon in a map",
            QByteArray("@Variant(\\0\\0\\0\\b\\0\\0\\0\\x1\\0\\0\\0\\x2\\0\\x61\\0\\0\\0G"
                       "\\x7f\\xff\\xff\\xff)"));
        row("polygon in a date", QByteArray("@DateTime(\\0\\0\\0G\\0\\x7f\\xff\\xff\\xff)"));
        row("polygon of reals by name",
            QByteArray("@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\nQPolygonF\\0\\x7f\\xff\\xff\\xff)"));
        // 0xa8 is Qt 4's number of the polygon; after a byte order mark it
        // reads as Latin-1 in a section parsed after the file was read.
        row("byte order mark, polygon", QByteArray("@Variant(\\0\\0\\0\xa8\\x7f\\xff\\xff\\xff)"),
            QByteArray("\xef\xbb\xbf"));
        row("nested too deep", NestedLists(100));
        row("date in an unknown zone",
            QByteArray("@DateTime(\\0\\0\\0\\x10\\0\\0\\0\\0\\0\\0%\\x8ds\\0\\0\\0\\0\\x3"
                       "\\0\\0\\0\\x4\\0X\\0Y)"));
        row("colour of an unknown model",
            QByteArray("@Variant(\\0\\0\\0\\x43\\x11\\xff\\xff\\0\\0\\0\\0\\0\\0\\0\\0)"));
        row("colour of an unknown model, cut short",
            QByteArray("@Variant(\\0\\0\\0\\x43\\xf\\x28)"));
    }

    // The whole file is set aside while it holds the value: every read
    // answers its default and no write touches the file; once the value is
    // gone, the file is read again.
    void damagedUserFileIsNeitherReadNorWritten()
    {
        QFETCH(QByteArray, value);
        QFETCH(QByteArray, start);
        const QByteArray good = start + "[General]\nVersion=2.4.0\nTexturePatternIndex=4\n"
                                        "[Save]\nPathOpen=/pictures\n";
        WriteFile(UserFile(), good + "[Plugin]\nKey=" + value + "\n");
        KVApplication app(m_argc, m_argv);

        QCOMPARE(KVApplication::GetTexturePatternIndex(), 0);
        QCOMPARE(KVApplication::GetPathOpen(), QString());
        QCOMPARE(KVApplication::GetBackground(), QColor(Qt::white));
        KVApplication::SetPathExport("/exports");
        KVRecentManager::InitInstance();
        QCOMPARE(KVRecentManager::GetInstance()->GetRecentCount(), 0);
        KVRecentManager::ReleaseInstance();
        QCOMPARE(ReadFile(UserFile()), good + "[Plugin]\nKey=" + value + "\n");

        WriteFile(UserFile(), good + "[Plugin]\nKey=restored\n");
        QCOMPARE(KVApplication::GetTexturePatternIndex(), 4);
        QCOMPARE(KVApplication::GetPathOpen(), QString("/pictures"));
    }

    void valuesThatQtWritesAreRead_data()
    {
        QTest::addColumn<QVariant>("value");
        QLinearGradient linear(0, 0, 10, 0);
        linear.setStops({{0.0, Qt::red}, {0.5, Qt::green}, {1.0, Qt::blue}});
        QRadialGradient radial(5, 5, 3);
        radial.setColorAt(1.0, Qt::yellow);
        QPen pen(QBrush(linear), 2.5);
        pen.setDashPattern({1.0, 2.0, 3.0, 4.0});
        QTextCharFormat format;
        format.setForeground(QBrush(radial));
        format.setFontWeight(QFont::Bold);
        QPalette palette;
        palette.setBrush(QPalette::Window, QBrush(linear));
        QTest::newRow("polygon") << QVariant(QPolygon(QVector<QPoint>{{1, 2}, {3, 4}, {5, 6}}));
        QTest::newRow("polygonF") << QVariant(QPolygonF(QVector<QPointF>{{1.5, 2}, {3, 4.5}}));
        QTest::newRow("linear gradient") << QVariant(QBrush(linear));
        QTest::newRow("radial gradient") << QVariant(QBrush(radial));
        QConicalGradient conical(1, 2, 30);
        conical.setColorAt(0.5, Qt::magenta);
        QTest::newRow("conical gradient") << QVariant(QBrush(conical));
        QTest::newRow("pen") << QVariant(pen);
        QTest::newRow("palette") << QVariant(palette);
        QTest::newRow("region") << QVariant(QRegion(0, 0, 10, 10) + QRegion(20, 20, 5, 5));
        QTest::newRow("text format") << QVariant(QTextFormat(format));
        QTest::newRow("key sequence") << QVariant(QKeySequence("Ctrl+Shift+S, Ctrl+W"));
        QTest::newRow("font") << QVariant(QFont("Sans", 12));
        QImage image(2, 3, QImage::Format_ARGB32);
        image.fill(Qt::cyan);
        QTest::newRow("image") << QVariant(image);
        QTest::newRow("date and time") << QVariant(QDateTime(QDate(2026, 11, 21), QTime(10, 15)));
        QTest::newRow("map of many kinds") << QVariant(
            QVariantMap{{"a", QPolygon(QVector<QPoint>{{1, 2}})},
                        {"b", QStringList{"x", "y"}},
                        {"c", QColor(Qt::red)},
                        {"d", QDate(2026, 11, 21)},
                        {"e", QRectF(1, 2, 3, 4)},
                        {"f", QVariantList{1, "two", QSizeF(1, 2), QVariantList{QPointF(1, 2)}}},
                        {"g", QByteArray("bytes")},
                        {"h", QUrl("file:///tmp")},
                        {"i", QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed)},
                        {"j", QTransform(1, 2, 3, 4, 5, 6)},
                        {"k", QKeySequence("Ctrl+S")},
                        {"l", QVariant()},
                        {"m", QFont("Sans", 9)}});
        QTest::newRow("map of more kinds") << QVariant(QVariantMap{
            {"a", QVariant::fromValue(QBitArray(11, true))},
            {"b", QVariant::fromValue(QRegExp("a+b", Qt::CaseInsensitive))},
            {"c",
             QVariant::fromValue(QRegularExpression("x*", QRegularExpression::MultilineOption))},
            {"d", QVariant::fromValue(QUuid::createUuid())},
            {"e", QVariant::fromValue(QLocale(QLocale::German))},
            {"f", QVariant::fromValue(QChar(0x263a))},
            {"g", QVariant::fromValue(QLineF(1, 2, 3, 4))},
            {"h", QVariant::fromValue(QVector3D(1, 2, 3))},
            {"i", QVariant::fromValue(QQuaternion(1, 2, 3, 4))},
            {"j", QVariant::fromValue(QMatrix4x4())},
            {"k", QVariant::fromValue(QTextLength(QTextLength::PercentageLength, 50))},
            {"l", QVariant::fromValue(QByteArrayList{"x", "yz"})},
            {"m", QVariant::fromValue(QVariantHash{{"n", QTime(1, 2)}})},
            {"n", QVariant::fromValue(QColorSpace(QColorSpace::SRgb))},
            {"o", QVariant::fromValue(QJsonDocument::fromJson("{\"k\": [1, 2]}"))},
            {"p", QVariant::fromValue(QCborValue(QCborArray{1, "two"}))},
            {"q", QVariant::fromValue(short(-3))},
            {"r", QVariant::fromValue(2.5f)},
            {"s", QVariant::fromValue(char('c'))},
            {"t", QVariant::fromValue(long(5))},
            {"u", QVariant::fromValue(QVector2D(1, 2))},
            {"v", QVariant::fromValue(QVector4D(1, 2, 3, 4))},
            {"w", QVariant::fromValue(QPoint(1, 2))},
            {"x", QVariant::fromValue(QMatrix(1, 2, 3, 4, 5, 6))}});
    }

    // Written by QSettings into user.ini, alone and among other values, and
    // read back by the library, which must not take them for damage.
    void valuesThatQtWritesAreRead()
    {
        QFETCH(QVariant, value);
        {
            QSettings settings(UserFile(), QSettings::IniFormat);
            settings.setValue("Version", "2.4.0");
            settings.setValue("Colors/Background", QColor(Qt::red));
            settings.setValue("Plugin/Alone", value);
            settings.setValue("Plugin/InList", QVariantList{value, value});
            // Last in the map: a font's or an image's end is not followed.
            settings.setValue("Plugin/InMap", QVariantMap{{"a", 7}, {"z", value}});
        }
        KVApplication app(m_argc, m_argv);

        QCOMPARE(KVApplication::GetBackground(), QColor(Qt::red));
        QCOMPARE(KVApplication::GetUserValue("Plugin/Alone"), value);
        KVApplication::SetPathOpen("/pictures");
        QCOMPARE(QSettings(UserFile(), QSettings::IniFormat).value("Save/PathOpen").toString(),
                 QString("/pictures"));
    }

    void valuesThatQtWritesAreFollowedToTheirEnd_data() { valuesThatQtWritesAreRead_data(); }

    // Ahead of a polygon in one list: the check must read each value to its
    // exact end to accept the list, and to find the polygon out once its
    // count claims too much.
    void valuesThatQtWritesAreFollowedToTheirEnd()
    {
        QFETCH(QVariant, value);
        QByteArray bytes;
        {
            QDataStream out(&bytes, QIODevice::WriteOnly);
            out.setVersion(QDataStream::Qt_4_0);
            out << QVariant(QVariantList{value, QPolygon(QVector<QPoint>{{7, 7}})});
        }
        const auto userFile = [](const QByteArray& variant) {
            QByteArray escaped;
            for (const char byte : variant)
                escaped += "\\x" + QByteArray::number(uchar(byte), 16);
            return "[General]\nTexturePatternIndex=4\n[Plugin]\nKey=@Variant(" + escaped + ")\n";
        };
        KVApplication app(m_argc, m_argv);

        WriteFile(UserFile(), userFile(bytes));
        QCOMPARE(KVApplication::GetTexturePatternIndex(), 4);
        WriteFile(UserFile(), userFile(bytes.replace(bytes.size() - 12, 4, "\x7f\xff\xff\xff")));
        QCOMPARE(KVApplication::GetTexturePatternIndex(), 0);
    }

    void damagedPresetFileIsReplacedByTheDefaults_data()
    {
        QTest::addColumn<QByteArray>("section");
        QTest::newRow("in the list") << QByteArray("[Resolutions]\n1=");
        QTest::newRow("in another section") << QByteArray("[Other]\nKey=");
    }

    void damagedPresetFileIsReplacedByTheDefaults()
    {
        QFETCH(QByteArray, section);
        QList<QSize> defaults;
        {
            KVApplication app(m_argc, m_argv);
            defaults = MZExportResolutions::GetList();
        }
        const QString file = KVTest::HomePath() + kPreferences + "exportandshareresolution.ini";
        const QByteArray poison = "@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)\n";
        WriteFile(file, "[General]\nVersion=2.3.0\n[Resolutions]\n0=640x480\n" + section + poison);

        KVApplication app(m_argc, m_argv);
        QCOMPARE(MZExportResolutions::GetList(), defaults);
        QVERIFY(!ReadFile(file).contains("Variant"));
        QCOMPARE(QSettings(file, QSettings::IniFormat).value("Version").toString(),
                 QString("2.3.0"));
    }

    void gradientStopWithUnknownColourModelIsCorrupt_data()
    {
        QTest::addColumn<int>("model");
        QTest::addColumn<bool>("read");
        QTest::newRow("extended RGB") << int(QColor::ExtendedRgb) << true;
        QTest::newRow("one past the last") << int(QColor::ExtendedRgb) + 1 << false;
        QTest::newRow("beyond the enumeration") << 9 << false;
        QTest::newRow("negative") << -1 << false;
    }

    void gradientStopWithUnknownColourModelIsCorrupt()
    {
        QFETCH(int, model);
        QFETCH(bool, read);
        QByteArray bytes;
        {
            QDataStream out(&bytes, QIODevice::WriteOnly);
            out << 0.5 << qint8(model) << quint16(0xffff) << quint16(1) << quint16(2) << quint16(3)
                << quint16(0) << false << false << false;
        }
        QDataStream in(bytes);
        KVGradientStop stop;
        in >> stop;

        QCOMPARE(in.status() == QDataStream::Ok, read);
        QCOMPARE(stop.GetPosition(), read ? 0.5 : 0.0);
        QCOMPARE(stop.GetColor().isValid(), read);
    }
};

KV_TEST_MAIN(DamagedFilesTest)
#include "tst_damagedfiles.moc"
