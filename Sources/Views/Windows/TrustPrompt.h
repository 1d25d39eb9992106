#pragma once

#include <functional>

namespace tessel {

/// Makes the prompt that tells the user, without asking for anything and without taking the focus, that an
/// entry could only be copied because keys cannot be sent to other applications here. Calling the result
/// shows the one prompt window, or brings it forward. The result owns that window: it goes before
/// `QApplication` does.
std::function<void()> trustPrompt();

} // namespace tessel
