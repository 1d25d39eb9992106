#pragma once

// A field of the XKB protocol is named after a keyword of C++.
#define explicit explicitComponents
#include <xcb/xkb.h>
#undef explicit
