#include <QString>

#include "Backend.h"
#include "Platform.h"
