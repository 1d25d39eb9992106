#include "VirtualKeyEvent.h"
