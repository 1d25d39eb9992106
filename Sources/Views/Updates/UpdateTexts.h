#pragma once

#include <QtCore/QString>

#include "Updates/UpdateUserDriver.h"

namespace tessel {

/// What is said of a status, in the user's language.
struct UpdateTexts {
    QString headline;
    QString message; ///< May be empty.
};

UpdateTexts updateTexts(const UpdateStatus& status);

} // namespace tessel
