#include "HotKeyCenter.h"
