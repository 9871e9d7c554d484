// The export preset files as the user's disk may hold them: the input is
// the file of each list. Loading keeps only valid entries, and whatever the
// list then writes reads back as the same list.

#include "FuzzSupport.h"

#include "PresetLists.h"

#include <QGuiApplication>

namespace {
bool IsValid(const QSize& size)
{
    return size.width() >= 1 && size.width() <= 10000 && size.height() >= 1 &&
           size.height() <= 10000;
}

bool IsValid(long long size)
{
    return size > 0;
}

template <typename List> void LoadSyncReload(const QString& file)
{
    KVApplication::Load<List>(file);
    const auto loaded = List::GetList();
    for (const auto& entry : loaded)
        KVFuzz::Check(IsValid(entry), "a loaded preset is valid");
    KVApplication::Sync<List>();
    KVApplication::Release<List>();

    KVApplication::Load<List>(file);
    KVFuzz::Check(List::GetList() == loaded, "a synced preset list reads back the same");
    KVApplication::Release<List>();
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    KVFuzz::MakeApplication<QGuiApplication>();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const KVFuzz::InputFile resolutions("exportandshareresolution.ini", data, size);
    LoadSyncReload<MZExportResolutions>(resolutions.Path());
    const KVFuzz::InputFile sizes("exportandsharesize.ini", data, size);
    LoadSyncReload<MZExportSizes>(sizes.Path());
    return 0;
}
