#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "Desktop.h"

namespace tessel::desktop {

/// Something that a program tells assistive programs of.
struct AccessibleNode {
    /// The positions that lead to it from the application, such as "/0/4".
    std::string path;
    std::string role;
    std::string name;
    std::string description;
    std::vector<std::string> states;
    /// On the screen, in the units of the program's toolkit.
    Frame extents;
    std::vector<std::string> actions;

    bool is(const std::string& state) const;
};

/// A change that it has told of.
struct AccessibleEvent {
    std::string type;
    int detail = 0;
    std::string role;
    std::string name;
    std::string description;
};

/// A real client of the accessibility bus, which must be there. It reads one program.
class ScreenReader {
public:
    using Tree = std::vector<AccessibleNode>;

    /// Returns when it listens to events.
    ScreenReader(Desktop& desktop, pid_t program);

    ChildProcess& process() { return process_; }

    /// What the program tells now: its nodes from the top, each before its children. Empty: nothing.
    Tree read();
    /// Reads until the tree is as it has to be, and returns it.
    Tree waitForTree(const std::string& awaited, const std::function<bool(const Tree&)>& condition);
    /// Reads until a node of that role and name is to be seen, and returns it.
    AccessibleNode waitForNode(const std::string& role, const std::string& name);
    /// The next event of that type at a node of that name, with `detail` where that is given; earlier ones
    /// are dropped.
    AccessibleEvent waitForEvent(const std::string& type, const std::string& name,
                                 std::optional<int> detail = std::nullopt);
    /// The focus arrives at the node of that name.
    AccessibleEvent waitForFocus(const std::string& name)
    {
        return waitForEvent("object:state-changed:focused", name, 1);
    }
    /// True if an event of that type has come that nobody has waited for; it is kept.
    bool hasHeard(const std::string& type) const;
    /// Does an action of a node, which must have it.
    void act(const std::string& path, const std::string& action);

private:
    /// Sends a request, and returns the rest of its "ok"; what comes before goes to `nodes` or is kept.
    std::string ask(const std::string& request, Tree& nodes);

    Desktop& desktop_;
    ChildProcess process_;
    std::deque<AccessibleEvent> events_;
};

} // namespace tessel::desktop
