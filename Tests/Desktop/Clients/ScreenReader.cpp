// An assistive program: reads what other programs tell of their windows over the accessibility bus, and hears
// of what changes there. `tree` reads the windows of the program that was named on the command line, a line
// for each node; `act` does an action of a node. Every event is a line of its own.

#include <atspi/atspi.h>

#include <array>
#include <charconv>
#include <memory>

#include "GtkCommandLines.h"
#include "PercentText.h"

namespace {

using namespace tessel::desktop;

struct ObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Type>
using Owned = std::unique_ptr<Type, ObjectDeleter>;

struct TextDeleter {
    void operator()(gchar* text) const { g_free(text); }
};

/// Takes over a text; null is the empty one.
std::string taken(gchar* text)
{
    const std::unique_ptr<gchar, TextDeleter> owned(text);
    return owned ? owned.get() : "";
}

struct StateName {
    AtspiStateType state;
    const char* name;
};

constexpr std::array<StateName, 9> stateNames{{{ATSPI_STATE_ACTIVE, "active"},
                                               {ATSPI_STATE_ENABLED, "enabled"},
                                               {ATSPI_STATE_FOCUSABLE, "focusable"},
                                               {ATSPI_STATE_FOCUSED, "focused"},
                                               {ATSPI_STATE_SELECTABLE, "selectable"},
                                               {ATSPI_STATE_SELECTED, "selected"},
                                               {ATSPI_STATE_SHOWING, "showing"},
                                               {ATSPI_STATE_VISIBLE, "visible"},
                                               {ATSPI_STATE_DEFUNCT, "defunct"}}};

std::string statesOf(AtspiAccessible* accessible)
{
    const Owned<AtspiStateSet> states(atspi_accessible_get_state_set(accessible));
    std::string names;
    for (const auto& [state, name] : stateNames) {
        if (states && atspi_state_set_contains(states.get(), state) != FALSE)
            names.append(names.empty() ? "" : ",").append(name);
    }
    return names;
}

std::string extentsOf(AtspiAccessible* accessible)
{
    const Owned<AtspiComponent> component(atspi_accessible_get_component_iface(accessible));
    if (!component)
        return "0,0,0,0";
    AtspiRect* rectangle = atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, nullptr);
    if (rectangle == nullptr)
        return "0,0,0,0";
    std::string text;
    for (const int number : {rectangle->x, rectangle->y, rectangle->width, rectangle->height})
        text.append(text.empty() ? "" : ",").append(std::to_string(number));
    g_free(rectangle);
    return text;
}

std::string actionsOf(AtspiAccessible* accessible)
{
    const Owned<AtspiAction> action(atspi_accessible_get_action_iface(accessible));
    std::string names;
    const int count = action ? atspi_action_get_n_actions(action.get(), nullptr) : 0;
    for (int index = 0; index < count; ++index)
        names.append(index == 0 ? "" : ",")
            .append(taken(atspi_action_get_action_name(action.get(), index, nullptr)));
    return names;
}

/// Role, name and description, each as a word.
std::string identityOf(AtspiAccessible* accessible)
{
    return escaped(taken(atspi_accessible_get_role_name(accessible, nullptr))) + "_ " +
           escaped(taken(atspi_accessible_get_name(accessible, nullptr))) + "_ " +
           escaped(taken(atspi_accessible_get_description(accessible, nullptr))) + "_";
}

void describe(AtspiAccessible* accessible, const std::string& path)
{
    atspi_accessible_clear_cache(accessible);
    say("node " + path + " " + identityOf(accessible) + " _" + statesOf(accessible) + " " +
        extentsOf(accessible) + " _" + actionsOf(accessible));
    const int count = atspi_accessible_get_child_count(accessible, nullptr);
    for (int index = 0; index < count; ++index) {
        const Owned<AtspiAccessible> child(atspi_accessible_get_child_at_index(accessible, index, nullptr));
        if (child)
            describe(child.get(), path + "/" + std::to_string(index));
    }
}

/// Null: it has not told of itself.
Owned<AtspiAccessible> application(guint process)
{
    const Owned<AtspiAccessible> desktop(atspi_get_desktop(0));
    atspi_accessible_clear_cache(desktop.get());
    const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int index = 0; index < count; ++index) {
        Owned<AtspiAccessible> candidate(atspi_accessible_get_child_at_index(desktop.get(), index, nullptr));
        if (candidate && atspi_accessible_get_process_id(candidate.get(), nullptr) == process)
            return candidate;
    }
    return nullptr;
}

/// Goes down from an application by positions such as "/0/4".
Owned<AtspiAccessible> nodeAt(Owned<AtspiAccessible> node, std::string_view path)
{
    while (node && !path.empty()) {
        path.remove_prefix(1);
        int index = 0;
        const auto [end, error] = std::from_chars(path.data(), path.data() + path.size(), index);
        path = path.substr(static_cast<std::size_t>(end - path.data()));
        node.reset(atspi_accessible_get_child_at_index(node.get(), index, nullptr));
    }
    return node;
}

std::string act(Owned<AtspiAccessible> node, std::string_view wanted)
{
    const Owned<AtspiAction> action(node ? atspi_accessible_get_action_iface(node.get()) : nullptr);
    const int count = action ? atspi_action_get_n_actions(action.get(), nullptr) : 0;
    for (int index = 0; index < count; ++index) {
        if (taken(atspi_action_get_action_name(action.get(), index, nullptr)) == wanted)
            return atspi_action_do_action(action.get(), index, nullptr) != FALSE ? "done" : "refused";
    }
    return "impossible";
}

void hear(AtspiEvent* event, void*)
{
    say("event " + std::string(event->type) + " " + std::to_string(event->detail1) + " " +
        identityOf(event->source));
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

AtspiEventListener* listen()
{
    AtspiEventListener* listener = atspi_event_listener_new(hear, nullptr, nullptr);
    // Programs hear of these one after the other. Who tells of the focus has heard of them all.
    for (const char* type : {"window:activate", "object:property-change", "object:children-changed",
                             "object:state-changed:selected", "object:state-changed:focused"})
        atspi_event_listener_register(listener, type, nullptr);
    return listener;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2)
        return 1;
    // Programs may be slow here, and what they do not answer in time would look like nothing.
    constexpr int patience = 60'000;
    atspi_set_timeout(patience, patience);
    if (atspi_init() > 1)
        return 1;
    const auto process = static_cast<guint>(std::stoul(arguments[1]));
    const Owned<AtspiEventListener> listener(listen());
    static GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
    followCommandLines(
        [process](std::string_view word, std::string_view rest) -> std::string {
            auto root = application(process);
            if (word == "act") {
                const auto [path, action] = splitLine(rest);
                return act(nodeAt(std::move(root), path), action);
            }
            if (root)
                describe(root.get(), "");
            return {};
        },
        [] { g_main_loop_quit(loop); });
    say("ready");
    g_main_loop_run(loop);
    return 0;
}
