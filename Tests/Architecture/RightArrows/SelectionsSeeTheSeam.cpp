#include "Pasteboard.h"
