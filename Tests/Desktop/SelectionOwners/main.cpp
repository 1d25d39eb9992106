// selection-owners: owners and requestors of X selections, good ones and bad ones, each with a name, to test
// other programs with.

#include <csignal>
#include <fstream>
#include <iostream>

#include <sys/signalfd.h>

#include "Check.h"
#include "CommandLine.h"
#include "NothingThere.h"
#include "OwnerCatalogue.h"
#include "OwnerStage.h"
#include "Report.h"
#include "RequestorCatalogue.h"

namespace tessel::owners {
namespace {

/// Exit statuses.
constexpr int ownerIsGood = 0;
constexpr int ownerIsBad = 1;
constexpr int wrongUsage = 2;
constexpr int nothingThere = 3;

constexpr std::string_view usage =
    "usage: selection-owners --list\n"
    "       selection-owners <owner> [--selection NAME] [--for TIME] [--text TEXT] [--file PATH] [--mime "
    "TYPE]\n"
    "                                [--size MEGABYTES]\n"
    "       selection-owners <requestor> [--selection NAME] [--target NAME] [--patience TIME] [--for TIME]\n"
    "                                    [--count NUMBER] [--every MILLISECONDS] [--output PATH]\n"
    "An owner takes the selection (CLIPBOARD) in the named way, prints \"owned\" once it has it, and stays "
    "until\n"
    "the time is over or SIGTERM comes. A requestor asks the present owner in the named way, and prints what "
    "it\n"
    "saw. Times are seconds: 10, 10s, 0.5s, 500ms.\n"
    "Exit status: 0 the owner behaved, 1 it did not, 2 wrong usage, 3 there is no display or no owner.\n";

/// A descriptor that becomes readable when the program is asked to end.
int stopDescriptor()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

int own(const NamedOwner& named, const Options& options)
{
    std::optional<Clock::time_point> end;
    if (options.duration)
        end = Clock::now() + *options.duration;
    OwnerStage(named.make(options), options.selection).run(end, stopDescriptor(), [](std::string_view word) {
        std::cout << word << std::endl;
    });
    return ownerIsGood;
}

void write(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush())
        throw UsageError("cannot write the file '" + path + "'");
}

int request(const NamedRequestor& named, const Options& options)
{
    const Observation observation = named.run(options);
    const bool printsValue = observation.value && options.output.empty();
    if (observation.value && !options.output.empty())
        write(options.output, *observation.value);
    if (printsValue)
        std::cout << *observation.value << std::flush;
    report(printsValue ? std::cerr : std::cout, named, observation);
    return observation.isGood ? ownerIsGood : ownerIsBad;
}

/// Null: there is none.
template <class Groups>
auto findNamed(const Groups& groups, const std::string& name) -> decltype(&groups.front().entries.front())
{
    for (const auto& group : groups) {
        for (const auto& entry : group.entries) {
            if (entry.name == name)
                return &entry;
        }
    }
    return nullptr;
}

int run(const std::vector<std::string>& words)
{
    const auto [name, options] = parseCommandLine(words);
    if (name == "--help")
        std::cout << usage;
    else if (name == "--list")
        list(std::cout);
    else if (name == "--list-markdown")
        listAsMarkdown(std::cout);
    else if (name == "check")
        return check(options, std::cout) ? ownerIsGood : ownerIsBad;
    else if (const NamedOwner* owner = findNamed(ownerGroups(), name))
        return own(*owner, options);
    else if (const NamedRequestor* requestor = findNamed(requestorGroups(), name))
        return request(*requestor, options);
    else
        throw UsageError("there is nothing named '" + name + "'; --list shows what there is");
    return EXIT_SUCCESS;
}

} // namespace
} // namespace tessel::owners

int main(int count, char** words)
{
    using namespace tessel::owners;
    try {
        return run({words + 1, words + count});
    } catch (const std::invalid_argument& failure) {
        std::cerr << "selection-owners: " << failure.what() << "\n" << usage;
        return wrongUsage;
    } catch (const std::exception& failure) {
        std::cerr << "selection-owners: " << failure.what() << "\n";
        return nothingThere;
    }
}
