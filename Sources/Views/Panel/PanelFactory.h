#pragma once

#include <functional>
#include <memory>

#include "PanelDescription.h"
#include "WindowController.h"

namespace tessel {

class AppState;
class Application;
class NativeWindows;

/// Makes the controllers of history panels, for `WindowFactory::panel`. `nativeWindows` and `application`
/// must outlive the result and every controller that it makes. `QApplication` must exist when it is called.
std::function<std::unique_ptr<PanelController>(AppState&, const PanelDescription&)>
panelFactory(NativeWindows& nativeWindows, Application& application);

} // namespace tessel
