// The recent and favourite lists as user.ini may hold them. The first two
// bytes are the stored limits, the third says where the recents' bytes end
// and the favourites' begin. Restoring keeps each list within its clamped
// limit, and what the manager saves restores to the same lists.

#include "FuzzSupport.h"

#include <KVApplication.h>
#include <KVRecentManager.h>

namespace {
struct Lists
{
    QStringList recents;
    QStringList favorites;
    int recentLimit = 0;
    int favoriteLimit = 0;
};

Lists RestoreAndSave()
{
    KVRecentManager::InitInstance();
    const KVRecentManager* manager = KVRecentManager::GetInstance();
    const Lists lists{manager->GetRecents(), manager->GetFavorites(), manager->GetRecentsNumber(),
                      manager->GetFavoritesNumber()};
    KVRecentManager::ReleaseInstance();
    return lists;
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    KVFuzz::MakeApplication<KVApplication>();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 3)
        return 0;
    const auto bytes = reinterpret_cast<const char*>(data) + 3;
    const int length = int(size) - 3;
    const int split = length * data[2] / 255;
    KVApplication::SetUserValue("RecentLimit", int(qint8(data[0])));
    KVApplication::SetUserValue("FavoriteLimit", int(qint8(data[1])));
    KVApplication::SetUserValue("RecentFiles", QByteArray(bytes, split));
    KVApplication::SetUserValue("FavoriteFiles", QByteArray(bytes + split, length - split));

    const Lists restored = RestoreAndSave();
    KVFuzz::Check(restored.recentLimit >= 0 &&
                      restored.recentLimit <= KVRecentManager::GetRecentMaximumNumber() &&
                      restored.favoriteLimit >= 0 &&
                      restored.favoriteLimit <= KVRecentManager::GetFavoriteMaximumNumber(),
                  "restored limits are clamped");
    KVFuzz::Check(restored.recents.size() <= restored.recentLimit &&
                      restored.favorites.size() <= restored.favoriteLimit,
                  "restored lists keep within their limits");
    const Lists again = RestoreAndSave();
    KVFuzz::Check(again.recents == restored.recents && again.favorites == restored.favorites &&
                      again.recentLimit == restored.recentLimit &&
                      again.favoriteLimit == restored.favoriteLimit,
                  "saved lists restore the same");
    return 0;
}
