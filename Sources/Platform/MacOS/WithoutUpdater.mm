#import "SystemUpdater.h"

namespace tessel {

std::unique_ptr<UpdaterController> makeSystemUpdater()
{
    return nullptr;
}

} // namespace tessel
