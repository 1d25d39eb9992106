#include "AppState.h"
