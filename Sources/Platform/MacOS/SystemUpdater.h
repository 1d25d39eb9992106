#pragma once

#include <memory>

#include "UpdaterController.h"

namespace tessel {

/// The updater that the program is built with. Null: it is built without one. Which it is, is chosen by the
/// build: one of the files that define this function is in it.
std::unique_ptr<UpdaterController> makeSystemUpdater();

} // namespace tessel
