#include "ScreenSpace.h"
