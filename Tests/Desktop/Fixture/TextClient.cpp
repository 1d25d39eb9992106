#include "TextClient.h"

#include "ClientFiles.h"
#include "ClientWindow.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

std::string programName(TextClientKind kind)
{
    return kind == TextClientKind::gtk ? "gtk-text-view" : "qt-text-edit";
}

} // namespace

std::ostream& operator<<(std::ostream& stream, TextClientKind kind)
{
    return stream << programName(kind);
}

TextClient::TextClient(Desktop& desktop, TextClientKind kind)
    : desktop_(desktop)
    , process_({clientFile(programName(kind)).string()}, desktop.environment())
    , clipboard_(desktop.displayName())
    , window_(awaitClientWindow(desktop, process_, programName(kind)))
{
    activate();
}

void TextClient::activate()
{
    desktop_.windows().activate(window_);
    desktop_.connection().waitUntil(process_.name() + " to know that it has the focus",
                                    [this] { return hasFocus(); });
}

std::string TextClient::ask(const std::string& request)
{
    process_.writeLine(request);
    const auto answer = process_.waitForLine("ok");
    return std::string(splitLine(answer).rest);
}

std::string TextClient::text()
{
    return unescaped(ask("dump"));
}

void TextClient::setText(const std::string& text)
{
    ask("set " + escaped(text));
}

void TextClient::waitForText(const std::string& expected, Deadline deadline)
{
    std::string seen;
    try {
        desktop_.connection().waitUntil(
            "the expected text in " + process_.name(),
            [&] {
                seen = text();
                return seen == expected;
            },
            deadline);
    } catch (const DesktopFailure& failure) {
        throw DesktopFailure(std::string(failure.what()) + ": expected \"" + expected + "\", it has \"" +
                             seen + "\"");
    }
}

int TextClient::pasteCount()
{
    return std::stoi(ask("pastes"));
}

bool TextClient::hasFocus()
{
    return ask("focus") == "yes";
}

void TextClient::copyByKeys(const std::string& text)
{
    setText(text);
    const auto before = clipboard_.count();
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_a);
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_c);
    clipboard_.waitForMoreThan(before);
}

void TextClient::pressPasteKeys()
{
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_v);
}

} // namespace tessel::desktop
