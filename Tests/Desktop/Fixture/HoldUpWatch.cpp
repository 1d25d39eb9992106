#include "HoldUpWatch.h"

#include "ClientFiles.h"
#include "Program.h"

namespace tessel::desktop {

namespace {

const BusAddress idleAddress{"org.tessel.Idle", "/heartbeat"};

} // namespace

HoldUpWatch::HoldUpWatch(Desktop& desktop, pid_t program)
    : idleProgram_({clientFile("qt-heartbeat").string(), idleAddress.name}, desktop.environment())
    , program_((idleProgram_.waitForLine("ready"), desktop.busAddress()), Program::busAddress(),
               {program, desktop.busProcess(), desktop.serverProcess()})
    , idle_(desktop.busAddress(), idleAddress, {idleProgram_.pid(), desktop.busProcess()})
{}

HoldUp HoldUpWatch::finish()
{
    const auto program = program_.finish();
    const auto idle = idle_.finish();
    return {program.longest,    idle.longest,       program.longestAtWork,
            idle.longestAtWork, program.longestRun, idle.longestRun};
}

} // namespace tessel::desktop
