#include "TestImagePlugin.h"
