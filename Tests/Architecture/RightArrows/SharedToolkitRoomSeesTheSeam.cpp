#include "KeyEvent.h"
#include "VirtualKeyEvent.h"
