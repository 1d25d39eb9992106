#include "Panel/KeyCaptureView.h"
