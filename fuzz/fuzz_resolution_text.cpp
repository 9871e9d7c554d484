// The resolution parser over any text, as an entry of the resolutions file:
// either both sides lie from 1 to 10000 and the entry is kept, or it is
// dropped; a resolution read back from the text that the list writes for it
// is the same resolution.

#include "FuzzSupport.h"
#include "PresetLists.h"

#include <QSettings>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    KVFuzzPresets::UserFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString file = KVFuzz::ScratchFolder() + '/' + KVFuzzPresets::UserFolder() +
                         "/exportandshareresolution.ini";
    {
        QSettings settings(file, QSettings::IniFormat);
        settings.clear();
        settings.setValue("Version", "2.3.0");
        settings.setValue("Resolutions/0",
                          QString::fromUtf8(reinterpret_cast<const char*>(data), int(size)));
    }
    KVFuzz::Check(KVFuzzPresets::LoadWriteReload().size() <= 1,
                  "one entry reads as one resolution at most");
    return 0;
}
