#include "TestSupport.h"

#include <KVApplication.h>
#include <KVGradientStop.h>

#include <QDataStream>

namespace {
QByteArray Serialized(const KVGradientStop& stop, int version)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream << stop;
    return bytes;
}
} // namespace

class GradientStopTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resolution_data()
    {
        QTest::addColumn<int>("flags");    // background 1, foreground 2, user colour 4
        QTest::addColumn<int>("resolves"); // background 0, foreground 1, black 2, stored 3
        QTest::newRow("fixed") << 0 << 3;
        QTest::newRow("background") << 1 << 0;
        QTest::newRow("foreground") << 2 << 1;
        QTest::newRow("user colour") << 4 << 2;
        QTest::newRow("background and foreground") << 3 << 0;
        QTest::newRow("foreground and user colour") << 6 << 1;
    }

    // Bound stops follow every change of the stored colours, also when
    // converted for Qt; converted back, stops are fixed.
    void resolution()
    {
        QFETCH(int, flags);
        QFETCH(int, resolves);
        const KVGradientStop stop(0.25, Qt::red, flags & 1, flags & 2, flags & 4);
        const KVGradientStop end(1.0, Qt::blue, false, false, false);
        for (const QColor& paper : {QColor(Qt::yellow), QColor(Qt::cyan)}) {
            const QColor ink = paper.darker();
            KVApplication::SetBackground(paper);
            KVApplication::SetForeground(ink);
            const QColor expected = QList<QColor>{paper, ink, Qt::black, Qt::red}[resolves];
            QCOMPARE(stop.GetColor(), expected);
            QCOMPARE(ToGradientStops({stop, end}),
                     QGradientStops({{0.25, expected}, {1.0, Qt::blue}}));
            QCOMPARE(ToReversedStops({stop, end}),
                     QGradientStops({{0.0, Qt::blue}, {0.75, expected}}));
        }
        const QGradientStops fixed{{0.25, Qt::green}};
        QCOMPARE(ToGradientStops(FromGradientStops(fixed)), fixed);
    }

    // What is read back writes the same bytes: position, stored colour and
    // flags (Qt 3.3 wrote colours without alpha).
    void roundTrip()
    {
        const KVGradientStop stop(0.5, QColor(1, 2, 3, 4), true, false, true);
        QCOMPARE(Serialized(stop, QDataStream::Qt_5_15),
                 QByteArray::fromHex("3fe0000000000000"       // position
                                     "0104040101020203030000" // colour
                                     "010001"));              // flags
        for (int version : {int(QDataStream::Qt_5_15), int(QDataStream::Qt_3_3)}) {
            const QByteArray bytes = Serialized(stop, version);
            QDataStream stream(bytes);
            stream.setVersion(version);
            KVGradientStop read;
            stream >> read;
            QCOMPARE(stream.status(), QDataStream::Ok);
            QCOMPARE(Serialized(read, version), bytes);
        }
    }

    // A cut stream keeps what was read; only what was cut reads as 0.0, an
    // invalid colour or false.
    void shortStream()
    {
        const QByteArray bytes =
            Serialized(KVGradientStop(0.5, Qt::red, true, true, true), QDataStream::Qt_5_15);
        const int colourEnd = 8 + 11;
        for (int length = 0; length < bytes.size(); ++length) {
            QDataStream stream(bytes.left(length));
            KVGradientStop read(0.9, Qt::blue, false, false, false);
            stream >> read;
            QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
            QCOMPARE(read.GetPosition(), length >= 8 ? 0.5 : 0.0);
            QCOMPARE(read.IsBackground(), length > colourEnd);
            QCOMPARE(read.IsForeground(), length > colourEnd + 1);
            QVERIFY(!read.IsUserColor());
            read.SetBackground(false);
            read.SetForeground(false);
            QCOMPARE(read.GetColor(), length >= colourEnd ? QColor(Qt::red) : QColor());
        }
    }

    void colourModel_data()
    {
        QTest::addColumn<int>("model");
        QTest::addColumn<bool>("read");
        QTest::newRow("extended RGB") << int(QColor::ExtendedRgb) << true;
        QTest::newRow("one past the last") << int(QColor::ExtendedRgb) + 1 << false;
        QTest::newRow("negative") << -1 << false;
    }

    // A colour of a model Qt does not know marks the stream corrupt and reads
    // invalid; the position read before it stays.
    void colourModel()
    {
        QFETCH(int, model);
        QFETCH(bool, read);
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly)
            << 0.5 << qint8(model) << quint16(0xffff) << quint16(1) << quint16(2) << quint16(3)
            << quint16(0) << false << false << false;
        QDataStream in(bytes);
        KVGradientStop stop;
        in >> stop;
        QCOMPARE(in.status() == QDataStream::Ok, read);
        QCOMPARE(stop.GetPosition(), 0.5);
        QCOMPARE(stop.GetColor().isValid(), read);
    }
};

KV_TEST_APP_MAIN(GradientStopTest)

#include "tst_gradientstop.moc"
