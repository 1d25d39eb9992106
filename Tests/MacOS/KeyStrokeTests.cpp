#include "CoreGraphicsKeyStrokes.h"
#include "Support/MacOSTest.h"

namespace tessel::test {
namespace {

constexpr std::uint16_t keyV = 9;
constexpr auto command = static_cast<ModifierFlags>(0x100000);

class KeyStrokeTests : public MacOSTest {
protected:
    /// The source has the HID system state, 1; the key goes down and then up.
    void expectEvents(Answer down, Answer up)
    {
        expectCall("CGEventSourceCreate(1)", Object{"source"});
        expectCall("CGEventCreateKeyboardEvent(source, 9, YES)", std::move(down));
        expectCall("CGEventCreateKeyboardEvent(source, 9, NO)", std::move(up));
    }

    void expectCommandFlagOnly()
    {
        expectCall("CGEventSetFlags(down, 0x100000)");
        expectCall("CGEventSetFlags(up, 0x100000)");
    }

    CoreGraphicsKeyStrokes keyStrokes;
};

TEST_F(KeyStrokeTests, WithATargetTheKeyGoesDownAndUpInThatProcess)
{
    expectEvents(Object{"down"}, Object{"up"});
    expectCommandFlagOnly();
    expectCall("CGEventPostToPid(4242, down)");
    expectCall("CGEventPostToPid(4242, up)");
    keyStrokes.postKeyStroke(keyV, command, ProcessIdentifier{4242});
}

TEST_F(KeyStrokeTests, WithoutATargetTheKeyGoesDownAndUpAtTheHIDEventTap)
{
    expectEvents(Object{"down"}, Object{"up"});
    expectCommandFlagOnly();
    expectCall("CGEventPost(0, down)");
    expectCall("CGEventPost(0, up)");
    keyStrokes.postKeyStroke(keyV, command, std::nullopt);
}

TEST_F(KeyStrokeTests, NothingIsPostedWithoutASource)
{
    expectCall("CGEventSourceCreate(1)", Nil{});
    keyStrokes.postKeyStroke(keyV, command, ProcessIdentifier{4242});
}

TEST_F(KeyStrokeTests, NothingIsPostedWithoutTheEventThatPressesTheKey)
{
    expectEvents(Nil{}, Object{"up"});
    keyStrokes.postKeyStroke(keyV, command, ProcessIdentifier{4242});
}

TEST_F(KeyStrokeTests, NothingIsPostedWithoutTheEventThatReleasesTheKey)
{
    expectEvents(Object{"down"}, Nil{});
    keyStrokes.postKeyStroke(keyV, command, ProcessIdentifier{4242});
}

} // namespace
} // namespace tessel::test
