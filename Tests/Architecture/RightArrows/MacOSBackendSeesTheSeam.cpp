#include "Backend.h"
#include "Platform.h"
