// Colour profile files as a profile folder may hold them. A profile that
// loads keeps the file's bytes and the header's colour space.

#include "FuzzSupport.h"

#include <KVCMSProfile.h>

#include <QtEndian>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const KVFuzz::InputFile file("profile.icc", data, size);
    KVCMSProfile profile;
    if (!profile.Load(file.Path())) {
        KVFuzz::Check(profile.IsEmpty() && profile.GetColorSpace() == 0,
                      "a profile that fails to load is empty");
        return 0;
    }
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
    KVFuzz::Check(profile.GetData() == bytes, "a loaded profile holds the file's bytes");
    KVFuzz::Check(profile.GetColorSpace() == qFromBigEndian<quint32>(data + 16),
                  "a loaded profile has the header's colour space");
    const KVCMSProfile copy = profile;
    KVFuzz::Check(copy == profile, "a copied profile is equal");
    return 0;
}
