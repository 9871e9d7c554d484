#include "KVRecentManager_p.h"
