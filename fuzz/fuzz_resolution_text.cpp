// The resolution parser over any text: either both sides lie from 1 to
// 10000, or the answer is QSize(-1, -1); a size read back from its own text
// is the same size.

#include "FuzzSupport.h"

#include "PresetLists.h"

using Resolutions = KVApplication;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), int(size));
    const QSize parsed = Resolutions::SizeFromString(text);
    if (parsed == QSize(-1, -1))
        return 0;
    const auto inRange = [](int side) { return side >= 1 && side <= 10000; };
    KVFuzz::Check(inRange(parsed.width()) && inRange(parsed.height()),
                  "a parsed resolution lies within 1 to 10000");
    KVFuzz::Check(Resolutions::SizeFromString(Resolutions::SizeToString(parsed)) == parsed,
                  "a resolution reads back from its own text");
    return 0;
}
