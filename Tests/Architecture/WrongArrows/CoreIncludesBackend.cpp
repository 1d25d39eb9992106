#include "Backend.h"
