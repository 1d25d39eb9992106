#include "Platform.h"
