#pragma once

#include <functional>
#include <memory>

#include "PanelDescription.h"
#include "WindowController.h"

namespace tessel {

class AppState;
class Application;
class NativeWindows;
class WindowHost;

using PanelFactory = std::function<std::unique_ptr<PanelController>(AppState&, const PanelDescription&)>;

/// Makes the controllers of history panels, for `WindowFactory::panel`. `nativeWindows` and `application`
/// must outlive the result and every controller that it makes. `QApplication` must exist when it is called.
PanelFactory panelFactory(NativeWindows& nativeWindows, Application& application);

/// The same where the panel is a window of the system's own. `host` must outlive the result.
PanelFactory hostedPanelFactory(WindowHost& host);

} // namespace tessel
