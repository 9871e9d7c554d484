// Gradient stops read from any stream, as a saved gradient may hold them.
// The first byte chooses the stream's version and byte order; stops are read
// until the stream fails. A stop read whole writes and reads back the same,
// and the conversions take any list.

#include "FuzzSupport.h"

#include <KVGradientStop.h>

#include <QDataStream>

namespace {
QByteArray Written(const KVGradientStop& stop, int version)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(version);
    out << stop;
    return bytes;
}

// Compared as written bytes: a colour's components may be NaN, which no
// colour equals.
void CheckRoundTrip(const KVGradientStop& stop, int version)
{
    const QByteArray bytes = Written(stop, version);
    QDataStream in(bytes);
    in.setVersion(version);
    KVGradientStop copy;
    in >> copy;
    KVFuzz::Check(in.status() == QDataStream::Ok, "a written stop reads back");
    KVFuzz::Check(Written(copy, version) == bytes, "a stop reads back the same");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const int versions[] = {QDataStream::Qt_4_0, QDataStream::Qt_4_6, QDataStream::Qt_5_0,
                            QDataStream::Qt_5_15};
    const int version = versions[data[0] % 4];
    QDataStream stream(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data) + 1, int(size) - 1));
    stream.setVersion(version);
    stream.setByteOrder(data[0] & 4 ? QDataStream::LittleEndian : QDataStream::BigEndian);

    QList<KVGradientStop> stops;
    while (!stream.atEnd()) {
        KVGradientStop stop;
        stream >> stop;
        if (stream.status() != QDataStream::Ok)
            break;
        CheckRoundTrip(stop, version);
        stops.append(stop);
    }
    const QGradientStops forward = ToGradientStops(stops);
    const QGradientStops reversed = ToReversedStops(stops);
    KVFuzz::Check(forward.size() == stops.size() && reversed.size() == stops.size(),
                  "every stop converts");
    KVFuzz::Check(FromGradientStops(forward).size() == stops.size(), "every stop converts back");
    return 0;
}
