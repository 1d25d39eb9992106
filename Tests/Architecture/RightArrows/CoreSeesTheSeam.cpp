#include "AppState.h"
#include "Platform.h"
