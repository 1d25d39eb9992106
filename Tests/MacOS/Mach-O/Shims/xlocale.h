// libc++ asks for it on Darwin; here its contents are in <locale.h>.
#pragma once

#include <locale.h>
