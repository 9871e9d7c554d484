// The export preset files as the user's disk may hold them: the input is
// the file of each list. Loading keeps only valid entries, and whatever the
// list then writes reads back as the same list.

#include "FuzzSupport.h"
#include "PresetLists.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    KVFuzzPresets::UserFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString folder = KVFuzzPresets::UserFolder();
    const KVFuzz::InputFile resolutions(folder + "/exportandshareresolution.ini", data, size);
    const KVFuzz::InputFile sizes(folder + "/exportandsharesize.ini", data, size);
    KVFuzzPresets::LoadWriteReload();
    return 0;
}
