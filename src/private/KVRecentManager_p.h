#pragma once

#include "KVRecentManager.h"
