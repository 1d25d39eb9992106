// selection-owners: named owners of the CLIPBOARD selection, good ones and bad ones, to test other programs
// with.

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include <sys/signalfd.h>
#include <unistd.h>

#include "Behaviour.h"
#include "SelectionOwner.h"

namespace tessel::owners {
namespace {

constexpr std::string_view usage = "usage: selection-owners --list\n"
                                   "       selection-owners <name> [--for SECONDS] [--text TEXT] [--file "
                                   "PATH] [--mime TYPE] [--size MEGABYTES]\n"
                                   "Owns CLIPBOARD in the named way, prints \"owned\" once it does, and "
                                   "stays until the time is over or SIGTERM comes.\n";

struct Arguments {
    std::string name;
    Options options;
    std::optional<double> seconds;
};

void list()
{
    for (const NamedBehaviour& entry : catalogue())
        std::cout << entry.name << "\n    " << entry.description << "\n";
}

Arguments parse(const std::vector<std::string>& words)
{
    Arguments arguments;
    for (std::size_t index = 0; index < words.size(); ++index) {
        const std::string& word = words[index];
        if (!word.starts_with("--")) {
            arguments.name = word;
            continue;
        }
        if (index + 1 == words.size())
            throw std::invalid_argument(word + " lacks its value");
        const std::string& value = words[++index];
        if (word == "--for")
            arguments.seconds = std::stod(value); // "10s" reads as 10.
        else if (word == "--text")
            arguments.options.text = value;
        else if (word == "--file")
            arguments.options.file = value;
        else if (word == "--mime")
            arguments.options.mime = value;
        else if (word == "--size")
            arguments.options.megabytes = std::stoul(value);
        else
            throw std::invalid_argument("unknown option " + word);
    }
    return arguments;
}

const NamedBehaviour& behaviourNamed(const std::string& name)
{
    for (const NamedBehaviour& entry : catalogue()) {
        if (entry.name == name)
            return entry;
    }
    throw std::invalid_argument("there is no owner named '" + name + "'; --list shows them");
}

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

void own(const Arguments& arguments)
{
    std::optional<std::chrono::steady_clock::time_point> end;
    if (arguments.seconds)
        end = std::chrono::steady_clock::now() +
              std::chrono::milliseconds(static_cast<std::int64_t>(*arguments.seconds * 1000));
    SelectionOwner owner(behaviourNamed(arguments.name).make(arguments.options));
    owner.run(end, stopDescriptor(), [] { std::cout << "owned" << std::endl; });
}

int run(const std::vector<std::string>& words)
{
    if (words.empty()) {
        std::cerr << usage;
        return EXIT_FAILURE;
    }
    if (words.front() == "--list") {
        list();
        return EXIT_SUCCESS;
    }
    if (words.front() == "--help") {
        std::cout << usage;
        return EXIT_SUCCESS;
    }
    own(parse(words));
    return EXIT_SUCCESS;
}

} // namespace
} // namespace tessel::owners

int main(int count, char** words)
{
    try {
        return tessel::owners::run({words + 1, words + count});
    } catch (const std::exception& failure) {
        std::cerr << "selection-owners: " << failure.what() << "\n";
        return EXIT_FAILURE;
    }
}
