#include "ProcessFigures.h"

#include <filesystem>
#include <fstream>
#include <string>

#include "Deadline.h"

namespace tessel::desktop {

namespace {

/// The number behind `name:` in a file of the kernel.
std::uint64_t field(const std::filesystem::path& file, const std::string& name)
{
    std::ifstream stream(file);
    for (std::string word; stream >> word;) {
        std::uint64_t value = 0;
        if (word == name + ":" && stream >> value)
            return value;
    }
    throw DesktopFailure("there is no " + name + " in " + file.string());
}

/// The time that a thread has run, the first number of its scheduler statistics.
std::chrono::nanoseconds runTime(const std::filesystem::path& thread)
{
    std::ifstream stream(thread / "schedstat");
    std::int64_t nanoseconds = 0;
    if (!(stream >> nanoseconds))
        throw DesktopFailure("cannot read " + (thread / "schedstat").string());
    return std::chrono::nanoseconds(nanoseconds);
}

std::filesystem::path processDirectory(pid_t process)
{
    return std::filesystem::path("/proc") / std::to_string(process);
}

} // namespace

double anonymousMegabytes(pid_t process)
{
    constexpr double kilobytesPerMegabyte = 1024;
    return static_cast<double>(field(processDirectory(process) / "smaps_rollup", "Anonymous")) /
           kilobytesPerMegabyte;
}

Usage usage(pid_t process)
{
    Usage total;
    for (const auto& thread : std::filesystem::directory_iterator(processDirectory(process) / "task")) {
        total.processorTime += runTime(thread.path());
        total.wakeUps += field(thread.path() / "status", "voluntary_ctxt_switches");
    }
    return total;
}

} // namespace tessel::desktop
