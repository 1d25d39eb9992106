// The toolkit asks Darwin's header of this name for the versions of the system that it is compiled for.
#pragma once

#define __MAC_OS_X_VERSION_MIN_REQUIRED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__
#define __MAC_OS_X_VERSION_MAX_ALLOWED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__
