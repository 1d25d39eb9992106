#include "TextClient.h"

#include <utility>

#include "ClientFiles.h"
#include "ClientWindow.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

std::string programName(TextClientKind kind)
{
    switch (kind) {
    case TextClientKind::gtk:
        return "gtk-text-view";
    case TextClientKind::qt:
        return "qt-text-edit";
    case TextClientKind::gtkEntry:
        return "gtk-entry";
    case TextClientKind::qtLineEdit:
        return "qt-line-edit";
    case TextClientKind::gtk4:
        return "gtk4-text-view";
    case TextClientKind::gtk4Entry:
        return "gtk4-entry";
    }
    throw DesktopFailure("there is no such client");
}

/// One program has both clients of GTK 4, and is told which to be.
std::vector<std::string> commandOf(TextClientKind kind)
{
    const bool isGtk4 = kind == TextClientKind::gtk4 || kind == TextClientKind::gtk4Entry;
    if (isGtk4)
        return {clientFile("gtk4-client").string(), programName(kind)};
    return {clientFile(programName(kind)).string()};
}

} // namespace

std::ostream& operator<<(std::ostream& stream, TextClientKind kind)
{
    return stream << programName(kind);
}

TextClient::TextClient(Desktop& desktop, TextClientKind kind)
    : TextClient(desktop, std::make_shared<ChildProcess>(commandOf(kind), desktop.environment()), "",
                 programName(kind))
{}

TextClient::TextClient(Desktop& desktop, std::shared_ptr<ChildProcess> process, std::string prefix,
                       const std::string& title)
    : desktop_(desktop)
    , process_(std::move(process))
    , prefix_(std::move(prefix))
    , clipboard_(desktop.displayName())
    , window_(awaitClientWindow(desktop, *process_, title))
{
    activate();
}

TextClient TextClient::openSecondWindow()
{
    ask("open second");
    return {desktop_, process_, "second ", "second"};
}

void TextClient::activate()
{
    desktop_.windows().activate(window_);
    desktop_.connection().waitUntil(process_->name() + " to know that it has the focus",
                                    [this] { return hasFocus(); });
}

std::string TextClient::ask(const std::string& request)
{
    process_->writeLine(prefix_ + request);
    const auto answer = process_->waitForLine("ok");
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
            "the expected text in " + process_->name(),
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
