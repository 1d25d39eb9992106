// The running program on the session bus: what it can be asked, and that nothing of the history can be read.

#include "BusClient.h"
#include "SecondaryWindowTest.h"

namespace tessel::desktop {

namespace {

using testing::HasSubstr;
using testing::Not;

class RemoteCallTest : public SecondaryWindowTest {
protected:
    CommandResult gdbus(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "gdbus");
        return runCommand(std::move(arguments), desktop_.environment());
    }
    /// Calls a method of the program's object with arguments in the text form of GVariant.
    CommandResult call(const std::string& method, std::vector<std::string> arguments)
    {
        const auto address = Program::busAddress();
        std::vector<std::string> line = {"call",          "--session",  "--dest",   address.name,
                                         "--object-path", address.path, "--method", method};
        // What follows is no option, whatever it begins with.
        line.emplace_back("--");
        line.insert(line.end(), arguments.begin(), arguments.end());
        return gdbus(std::move(line));
    }
    CommandResult act(const std::string& action, const std::string& platformData = "@a{sv} {}")
    {
        return call("org.freedesktop.Application.ActivateAction", {action, "@av []", platformData});
    }
    std::string introspection(const std::string& name)
    {
        return gdbus({"introspect", "--session", "--dest", name, "--object-path", "/", "--recurse"}).output;
    }
};

TEST_F(RemoteCallTest, ActivateOpensTheHistory)
{
    EXPECT_TRUE(call("org.freedesktop.Application.Activate", {"@a{sv} {}"}).status.succeeded());
    program_->panel().waitUntilOpen();
    program_->closePanel();
}

TEST_F(RemoteCallTest, EachActionDoesItsJob)
{
    EXPECT_TRUE(act("open-history").status.succeeded());
    program_->panel().waitUntilOpen();
    EXPECT_TRUE(act("toggle-history").status.succeeded());
    program_->panel().waitUntilClosed();
    EXPECT_TRUE(act("settings").status.succeeded());
    settings().waitUntilOpen();
    EXPECT_TRUE(act("about").status.succeeded());
    about().waitUntilOpen();
    EXPECT_TRUE(act("quit").status.succeeded());
    EXPECT_TRUE(program_->process().waitForExit().succeeded());
    program_.reset();
}

TEST_F(RemoteCallTest, ClearHistoryEmptiesAnOpenPanelPinsAndAll)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_p);
    program_->panel().waitForHeight(Panel::heightFor(3));
    const auto before = program_->panel().picture();
    EXPECT_TRUE(act("clear-history").status.succeeded());
    program_->panel().waitUntilItDiffersFrom(before);
    program_->closePanel();
    expectEntryCount(0);
}

TEST_F(RemoteCallTest, TheClearOptionEmptiesTheHistory)
{
    copyTexts({"A", "B"});
    EXPECT_TRUE(Program::runOption(desktop_, "--clear").status.succeeded());
    expectEntryCount(0);
}

TEST_F(RemoteCallTest, TheUsersTokenIsHeardUnderBothNamesAndTheLauncherIsToldSo)
{
    xcb_connection_t* connection = desktop_.connection().get();
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection, desktop_.connection().root(), XCB_CW_EVENT_MASK, &mask);
    desktop_.connection().synchronize();
    const xcb_atom_t begin = desktop_.connection().atom("_NET_STARTUP_INFO_BEGIN");
    const xcb_atom_t more = desktop_.connection().atom("_NET_STARTUP_INFO");
    for (const std::string name : {"desktop-startup-id", "activation-token"}) {
        EXPECT_TRUE(act("about", "{'" + name + "': <'launcher-" + name + "_TIME17'>}").status.succeeded());
        std::string message;
        while (message.find('\0') == std::string::npos) {
            const auto event = desktop_.connection().nextEvent(Deadline());
            ASSERT_TRUE(event) << "no end of: " << message;
            if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE)
                continue;
            const auto& piece = reinterpret_cast<const xcb_client_message_event_t&>(*event);
            if (piece.type != begin && piece.type != more)
                continue;
            message.append(reinterpret_cast<const char*>(piece.data.data8), sizeof piece.data.data8);
        }
        EXPECT_EQ(message.substr(0, message.find('\0')), "remove: ID=\"launcher-" + name + "_TIME17\"");
    }
}

TEST_F(RemoteCallTest, BadCallsDoNothing)
{
    const std::string application = "org.freedesktop.Application.";
    EXPECT_TRUE(act("erase-everything").status.succeeded()) << "an unknown action is no error";
    EXPECT_TRUE(act("").status.succeeded());
    EXPECT_TRUE(
        call(application + "ActivateAction", {"erase", "[<'a parameter'>]", "@a{sv} {}"}).status.succeeded());
    const std::vector<std::pair<std::string, std::vector<std::string>>> refused = {
        {"Activate", {"'a text'"}},
        {"Activate", {}},
        {"ActivateAction", {"settings"}},
        {"Nonsense", {}},
    };
    for (const auto& [method, arguments] : refused)
        EXPECT_FALSE(call(application + method, arguments).status.succeeded()) << method;
    // Platform data of every type, also in place of a token, and far more of it than anybody needs.
    std::string platformData = "{'desktop-startup-id': <@a{sv} {}>, 'activation-token': <[1, 2, 3]>";
    constexpr int entries = 2000;
    for (int entry = 0; entry < entries; ++entry)
        platformData += ", 'key " + std::to_string(entry) + "': <'value'>";
    EXPECT_TRUE(act("nothing", platformData + "}").status.succeeded());
    EXPECT_TRUE(
        act("nothing", "{'desktop-startup-id': <'" + std::string(50'000, '"') + "'>}").status.succeeded());
    EXPECT_FALSE(program_->panel().isOpen());
    program_->openPanel();
    program_->closePanel();
}

TEST_F(RemoteCallTest, NothingOfTheHistoryCanBeRead)
{
    const std::string secret = "what the user copied";
    copyTexts({secret});
    program_->openPanel();
    const auto& pid = program_->process().pid();
    const auto names = gdbus({"call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                              "/org/freedesktop/DBus", "--method", "org.freedesktop.DBus.ListNames"})
                           .output;
    BusClient client(desktop_.busAddress());
    int examined = 0;
    for (std::size_t start = names.find('\''); start != std::string::npos; start = names.find('\'', start)) {
        const std::size_t end = names.find('\'', start + 1);
        const std::string name = names.substr(start + 1, end - start - 1);
        start = end + 1;
        if (client.processOf(name) != pid)
            continue;
        ++examined;
        EXPECT_THAT(introspection(name), Not(HasSubstr(secret))) << name;
    }
    EXPECT_GE(examined, 2) << "the connection and its well-known name";
    const std::string own = introspection(Program::busAddress().name);
    EXPECT_THAT(own, HasSubstr("interface org.freedesktop.Application"));
    // Commands go in, and nothing comes out.
    const auto start = own.find("interface org.freedesktop.Application");
    const auto application = own.substr(start, own.find("};", start) - start);
    EXPECT_THAT(application, Not(HasSubstr("out ")));
    EXPECT_THAT(application, Not(HasSubstr("readonly")));
    EXPECT_THAT(application, Not(HasSubstr("readwrite")));
    program_->closePanel();
}

} // namespace

} // namespace tessel::desktop
