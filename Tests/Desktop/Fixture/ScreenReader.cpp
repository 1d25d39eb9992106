#include "ScreenReader.h"

#include <algorithm>

#include "ClientFiles.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

/// Takes the first word off a line.
std::string_view takeWord(std::string_view& line)
{
    const auto [word, rest] = splitLine(line);
    line = rest;
    return word;
}

/// Texts have an underscore behind them, so that an empty one is a word too.
std::string takeText(std::string_view& line)
{
    auto word = takeWord(line);
    word.remove_suffix(1);
    return unescaped(word);
}

std::vector<std::string> takeList(std::string_view& line)
{
    auto word = takeWord(line);
    std::vector<std::string> items;
    for (word.remove_prefix(1); !word.empty();) {
        const auto comma = std::min(word.find(','), word.size());
        items.emplace_back(word.substr(0, comma));
        word.remove_prefix(std::min(comma + 1, word.size()));
    }
    return items;
}

Frame takeFrame(std::string_view& line)
{
    const std::string list = "_" + std::string(takeWord(line));
    std::string_view word = list;
    const auto numbers = takeList(word);
    return {std::stoi(numbers.at(0)), std::stoi(numbers.at(1)), std::stoi(numbers.at(2)),
            std::stoi(numbers.at(3))};
}

AccessibleNode parsedNode(std::string_view line)
{
    AccessibleNode node;
    node.path = takeWord(line);
    node.role = takeText(line);
    node.name = takeText(line);
    node.description = takeText(line);
    node.states = takeList(line);
    node.extents = takeFrame(line);
    node.actions = takeList(line);
    return node;
}

AccessibleEvent parsedEvent(std::string_view line)
{
    AccessibleEvent event;
    event.type = takeWord(line);
    event.detail = std::stoi(std::string(takeWord(line)));
    event.role = takeText(line);
    event.name = takeText(line);
    event.description = takeText(line);
    return event;
}

} // namespace

bool AccessibleNode::is(const std::string& state) const
{
    return std::find(states.begin(), states.end(), state) != states.end();
}

ScreenReader::ScreenReader(Desktop& desktop, pid_t program)
    : desktop_(desktop)
    , process_({clientFile("screen-reader").string(), std::to_string(program)}, desktop.environment())
{
    process_.waitForLine("ready");
}

std::string ScreenReader::ask(const std::string& request, Tree& nodes)
{
    process_.writeLine(request);
    while (const auto line = process_.nextLine("an answer of the screen reader", Deadline())) {
        const auto [word, rest] = splitLine(*line);
        if (word == "ok")
            return std::string(rest);
        if (word == "node")
            nodes.push_back(parsedNode(rest));
        else if (word == "event")
            events_.push_back(parsedEvent(rest));
    }
    throw DesktopFailure("the screen reader has ended; it said: " + process_.errorOutput());
}

ScreenReader::Tree ScreenReader::read()
{
    Tree nodes;
    ask("tree", nodes);
    return nodes;
}

ScreenReader::Tree ScreenReader::waitForTree(const std::string& awaited,
                                             const std::function<bool(const Tree&)>& condition)
{
    Tree nodes;
    desktop_.connection().waitUntil("the screen reader to read " + awaited,
                                    [&] { return condition(nodes = read()); });
    return nodes;
}

AccessibleNode ScreenReader::waitForNode(const std::string& role, const std::string& name)
{
    AccessibleNode found;
    std::string seen;
    const auto isFound = [&](const Tree& tree) {
        seen.clear();
        for (const AccessibleNode& node : tree) {
            if (!node.is("showing"))
                continue;
            found = node;
            if (node.role == role && node.name == name)
                return true;
            seen += " " + node.role + " \"" + node.name + "\"";
        }
        return false;
    };
    try {
        waitForTree("the " + role + " \"" + name + "\"", isFound);
    } catch (const DesktopFailure& failure) {
        throw DesktopFailure(failure.what() + (" (it reads:" + seen + ")"));
    }
    return found;
}

bool ScreenReader::hasHeard(const std::string& type) const
{
    return std::any_of(events_.begin(), events_.end(),
                       [&](const AccessibleEvent& event) { return event.type == type; });
}

AccessibleEvent ScreenReader::waitForEvent(const std::string& type, const std::string& name,
                                           std::optional<int> detail)
{
    const std::string awaited = "the event " + type + " of \"" + name + "\"";
    for (const Deadline deadline; !deadline.hasPassed();) {
        while (!events_.empty()) {
            const AccessibleEvent event = events_.front();
            events_.pop_front();
            if (event.type == type && event.name == name && event.detail == detail.value_or(event.detail))
                return event;
        }
        const auto line = process_.nextLine(awaited, deadline);
        if (!line)
            break;
        if (const auto [word, rest] = splitLine(*line); word == "event")
            events_.push_back(parsedEvent(rest));
    }
    throw DesktopFailure(awaited + " did not come");
}

void ScreenReader::act(const std::string& path, const std::string& action)
{
    Tree nodes;
    const auto outcome = ask("act " + path + " " + action, nodes);
    if (outcome != "done")
        throw DesktopFailure("the action " + action + " of " + path + " is " + outcome);
}

} // namespace tessel::desktop
