#pragma once

#include <memory>
#include <stdexcept>
#include <string_view>

#include <QtWidgets/QAbstractButton>

#include "Windows/SecondaryWindowController.h"

namespace tessel::test {

/// The window that a controller of `AppState` has. Throws where there is none.
inline QWidget& windowOf(const std::unique_ptr<WindowController>& controller)
{
    if (!controller)
        throw std::logic_error("There is no such window.");
    return dynamic_cast<SecondaryWindowController&>(*controller).window();
}

/// The button with that title. Throws where there is none.
inline QAbstractButton& button(const QWidget& window, std::string_view title)
{
    for (QAbstractButton* candidate : window.findChildren<QAbstractButton*>()) {
        if (candidate->text().toStdString() == title)
            return *candidate;
    }
    throw std::logic_error("No button has that title.");
}

} // namespace tessel::test
