// Plug-in files with any content. Loading one answers a record, and
// unloading it leaves no record behind.

#include "FuzzSupport.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

namespace {
// Qt is built without the fuzzer's coverage, so which of its checks turned a
// file away is invisible to the fuzzer. Telling the answers apart here lets
// it keep the inputs that get further into the loader.
int Outcome(const QString& error)
{
    static const char* const kStarts[] = {"Plugin OK.",
                                          "Is not an Pelkaro's plugin.",
                                          "Empty container.",
                                          "Cannot load library",
                                          "Failed to extract plugin meta data",
                                          "Found invalid metadata",
                                          "The plugin",
                                          "The file",
                                          "Unknown error"};
    int outcome = 0;
    for (const char* start : kStarts) {
        ++outcome;
        if (error.startsWith(QLatin1String(start)))
            return outcome;
    }
    return 0;
}

void Reached(int outcome)
{
    static volatile int counts[16];
    switch (outcome) {
    case 1:
        ++counts[1];
        break;
    case 2:
        ++counts[2];
        break;
    case 3:
        ++counts[3];
        break;
    case 4:
        ++counts[4];
        break;
    case 5:
        ++counts[5];
        break;
    case 6:
        ++counts[6];
        break;
    case 7:
        ++counts[7];
        break;
    case 8:
        ++counts[8];
        break;
    case 9:
        ++counts[9];
        break;
    default:
        ++counts[0];
    }
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    KVFuzz::MakeApplication<KVApplication>();
    KVImageFileManager::InitInstance();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const KVFuzz::InputFile file("libimageio.2.dylib", data, size);
    KVApplication* app = KVApplication::GetInstance();
    app->LoadPlugin(file.Path());
    const QString error = app->GetErrorInfo(file.Path());
    KVFuzz::Check(!error.isEmpty(), "a load attempt leaves its record");
    Reached(Outcome(error));
    app->UnloadPlugin(file.Path());
    KVFuzz::Check(app->GetErrorInfo(file.Path()) == QLatin1String("Errors not found"),
                  "unloading drops the record");
    // Rejected loaders are deleted later; without an event loop, here.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
