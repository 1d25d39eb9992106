#pragma once

#include <QtCore/QString>

#include "Clock.h"

namespace tessel {

/// Hours and minutes of the local time, as the default locale writes them.
QString timeText(Date date);

} // namespace tessel
