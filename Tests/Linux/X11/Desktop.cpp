#include "Desktop.h"

#include "WaitUntil.h"
#include "X11/PropertyValue.h"

namespace tessel {

namespace {

/// One window manager for all tests of a suite.
std::unique_ptr<ChildProcess>& windowManager()
{
    static std::unique_ptr<ChildProcess> process;
    return process;
}

constexpr const char* readyProperty = "TESSEL_TEST_READY";

xcb_atom_t readyAtom(X11Connection& connection)
{
    const std::string name = readyProperty;
    const auto cookie =
        xcb_intern_atom(connection.raw(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    return connection.wait(xcb_intern_atom_reply, cookie)->atom;
}

bool isReady(X11Connection& connection)
{
    const auto cookie =
        xcb_get_property(connection.raw(), 0, connection.root(), readyAtom(connection), XCB_ATOM_ANY, 0, 1);
    return firstUnitOf(connection.wait(xcb_get_property_reply, cookie).get()) != 0;
}

} // namespace

void BareDesktop::SetUp()
{
    typist.setLayout("us");
    room = makeX11Room({[this] { ++trustPrompts; },
                        [this] {
                            ++primaryOffers;
                            return pastedIsText;
                        }});
    ASSERT_TRUE(room.connection->isAlive());
}

void BareDesktop::TearDown()
{
    EXPECT_TRUE(typist.keysDownOnXTest().none()) << "A key is still pressed on the server.";
    // Everything goes before the typist does: a room that outlives its test would hold grabs.
    room = {};
}

void ManagedDesktop::SetUpTestSuite()
{
    // It announces itself before it is ready for windows, and then runs this.
    windowManager() = std::make_unique<ChildProcess>(std::vector<std::string>{
        "openbox", "--sm-disable", "--startup",
        std::string("xprop -root -f ") + readyProperty + " 32c -set " + readyProperty + " 1"});
    X11Connection connection;
    ASSERT_TRUE(waitUntil([&] { return isReady(connection); }));
}

void ManagedDesktop::TearDownTestSuite()
{
    windowManager().reset();
    X11Connection connection;
    xcb_delete_property(connection.raw(), connection.root(), readyAtom(connection));
    connection.currentServerTime();
}

void ManagedDesktop::SetUp()
{
    BareDesktop::SetUp();
    ASSERT_TRUE(waitUntil([this] { return room.windowManager->maintainsActiveWindow(); }));
}

} // namespace tessel
