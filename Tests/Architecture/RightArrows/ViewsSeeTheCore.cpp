#include <QWidget>

#include "AppState.h"
#include "VirtualKeyEvent.h"
