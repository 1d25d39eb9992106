#include "EnduranceRecord.h"

#include <cstdlib>
#include <fstream>
#include <iomanip>

namespace tessel::desktop {

namespace {

double milliseconds(std::chrono::microseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

} // namespace

void record(const EnduranceFigures& figures)
{
    const char* file = std::getenv("TESSEL_ENDURANCE_RECORD");
    if (file == nullptr)
        return;
    std::ofstream stream(file, std::ios::app);
    stream << std::fixed << std::setprecision(1) << "| " << figures.hazard << " | " << figures.opening.count()
           << " | " << milliseconds(figures.holdUp.program) << " | " << milliseconds(figures.holdUp.idle)
           << " | " << figures.megabytesLeft << " |\n";
    if (!stream.flush())
        throw DesktopFailure(std::string("cannot write ") + file);
}

} // namespace tessel::desktop
