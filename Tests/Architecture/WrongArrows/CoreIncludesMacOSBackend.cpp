#include "AppKitWindowHost.h"
