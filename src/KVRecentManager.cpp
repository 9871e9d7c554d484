#include "KVRecentManager.h"
