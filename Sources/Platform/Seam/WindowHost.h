#pragma once

#include <memory>
#include <string>

#include "Geometry.h"
#include "HostedContent.h"
#include "PanelDescription.h"
#include "VisualEffect.h"
#include "WindowController.h"

namespace tessel {

/// How a window beside the panel is made.
struct WindowDescription {
    enum class Frame {
        none,     ///< All that is seen of the window is its content, which is translucent around its shape.
        titleBar, ///< With its title and a close button.
    };

    Frame frame = Frame::none;
    std::string title; ///< UTF-8, for a title bar.
    Size contentSize;  ///< Points.
};

/// Makes windows of the system's own classes around content of the view toolkit.
class WindowHost {
public:
    virtual ~WindowHost() = default;

    virtual std::unique_ptr<VisualEffect> makeVisualEffect() = 0;
    /// A floating panel, in the system's words an `NSPanel` that can become key.
    virtual std::unique_ptr<PanelController> makePanel(const PanelDescription& description,
                                                       std::unique_ptr<HostedContent> content) = 0;
    /// In the middle of the screen; not shown yet.
    virtual std::unique_ptr<WindowController> makeWindow(const WindowDescription& description,
                                                         std::unique_ptr<HostedContent> content) = 0;
};

} // namespace tessel
