#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Clock.h"
#include "Geometry.h"
#include "Screens.h"

namespace tessel::test {

/// What the program should be after any sequence of events, said a second time: plain lists and numbers,
/// written without the rules of the core.
class DesktopModel {
public:
    /// A value on the pasteboard. Both may be there, or none.
    struct Value {
        std::optional<std::string> text;
        std::optional<std::size_t> image; ///< A place in `imageKinds`.
    };
    /// A captured value is a text or an image.
    struct Entry {
        int serial = 0; ///< The how-manieth capture it was.
        std::string text;
        std::optional<std::size_t> image;
        Date date = 0;
        bool isPinned = false;
    };
    enum class QuickClear { custom, oneDay, never };
    enum class PanelState { absent, visible, hidden };
    struct Stroke {
        std::int64_t due = 0; ///< Milliseconds since the start.
        std::optional<std::int64_t> process;
    };

    /// Images of the same kind have the same content.
    explicit DesktopModel(std::vector<int> imageKinds)
        : imageKinds_(std::move(imageKinds))
    {}

    // The world around the program.
    Point pointer;
    std::vector<Screen> screens;
    std::optional<Screen> mainScreen;
    std::optional<std::int64_t> frontProcess;
    bool isTrusted = true;

    // What happens.
    void copiedFromElsewhere(const Value& value);
    void ticked(Date now);
    void wrote(int serial);
    /// `now` in milliseconds since the start.
    void pasted(int serial, std::int64_t now);
    void pinToggled(int serial);
    void removed(int serial);
    void cleared();
    void policyChosen(QuickClear policy, Date now);
    void secondsChosen(double seconds, Date now);
    void panelToggled();
    void panelShown();
    void panelHiddenBySystem();
    void escapePressed();
    void selectionMoved(int step);
    /// The view has noticed whatever happened.
    void viewUpdated();

    // What the program should be.
    std::vector<Entry> entries; ///< Newest first.
    PanelState panel = PanelState::absent;
    Rect panelFrame;
    int panelsMade = 0;
    std::optional<int> selected; ///< A serial.
    std::vector<Stroke> strokes;
    int prompts = 0;
    double seconds = 900;
    QuickClear policy = QuickClear::never;

    /// The entries as they are shown.
    std::vector<Entry> shown() const;
    const Entry* find(int serial) const;

private:
    void prune(Date now);
    void capture(Date now);
    bool isSameContent(const Entry& left, const Entry& right) const;
    void fitAndPlacePanel();
    void closePanel();

    std::vector<int> imageKinds_;
    Value onBoard_;
    bool hasUnseenChange_ = false;
    std::optional<Entry> marker_;
    std::optional<std::int64_t> target_;
    int nextSerial_ = 0;
};

} // namespace tessel::test
