// Takes the pictures that Documentation/Pictures holds: the panel in each of its states, over each desktop,
// and the other windows, light and dark; with and without a compositor, at two scales. The program and
// everything around it are real.
//
//     tessel-reference-pictures <directory> [panel | windows]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "ClipboardOwner.h"
#include "Landscape.h"
#include "Program.h"
#include "Surroundings.h"
#include "WindowPictures.h"

namespace tessel::desktop {

namespace {

constexpr int rowInTheMiddle = 300; // Points from the top of a panel with six entries.

/// What the user does with a panel that has just been opened.
enum class Deed { nothing, click };

struct State {
    std::string name;
    std::vector<std::string> texts = {}; ///< The entries, oldest first,
    int pictures = 0;                    ///< with pictures after the first two of them.
    int pins = 0;                        ///< Entries that are pinned, from the newest.
    Deed deed = Deed::nothing;
};

const std::vector<State>& states()
{
    static const std::vector<std::string> mixed = {
        "https://www.example.org/reports/2024/"
        "quarterly?format=pdf&include=charts,tables,appendix&session=0a1b2c3d",
        "Thanks so much for yesterday 🎉 \u2014 the prototype landed really well 👩‍💻👍🏽",
        "The panel opens beside the pointer. It is small, dark and quick, it holds the last hundred things "
        "that "
        "were copied, and it goes away as soon as one of them has been chosen.",
        "const auto found = std::find_if(rows.begin(), rows.end(),\n\t[id](const Row& row) {\n\t\treturn "
        "row.id == id;\n\t});",
        "Meet at 14:30, platform 7",
    };
    static const std::vector<State> states = {
        {.name = "empty"},
        {.name = "one-text", .texts = {"Meet at 14:30, platform 7"}},
        {.name = "mixed", .texts = mixed, .pictures = 1, .pins = 2},
        {.name = "selected-and-hovered", .texts = mixed, .pictures = 1, .pins = 2, .deed = Deed::click},
        {.name = "long-and-right-to-left",
         .texts = {"Donaudampfschifffahrtselektrizitätenhauptbetriebswerkbauunterbeamtengesellschaft"
                   "sversammlungsprotokollführerinnenausbildungsverordnung",
                   "שלום, נפגש מחר בשעה 14:30 ברציף 7",
                   "قائمة المهام: مراجعة التقرير النهائي وإرساله إلى فريق التصميم قبل نهاية الأسبوع، ثم "
                   "التخطيط للإصدار القادم من التطبيق مع بقية الزملاء",
                   "First line\r\nsecond line\r\n\tand an indented third"}},
        {.name = "images", .texts = {}, .pictures = 4},
    };
    return states;
}

/// A cut-out of a landscape, of a size that no two pictures share.
Picture photograph(int number)
{
    const Picture landscape = makeLandscape(900 + 100 * number, 500);
    const int left = 110 * number;
    Picture cut{480 - 90 * number, 360, {}};
    for (int y = 0; y < cut.height; ++y) {
        const auto from = landscape.pixels.begin() + (40 * number + y) * landscape.width + left;
        // Each at another hour of the day.
        std::transform(from, from + cut.width, std::back_inserter(cut.pixels), [number](Colour colour) {
            std::rotate(colour.begin(), colour.begin() + number % 3, colour.end());
            return colour;
        });
    }
    return cut;
}

/// One desktop, on which every state is shown over every wallpaper.
class Session {
public:
    Session(const Surroundings& surroundings, std::filesystem::path directory)
        : directory_(std::move(directory))
        , scale_(surroundings.scale)
        , desktop_(surroundings.desktop())
        , owner_(desktop_.displayName())
    {
        std::filesystem::create_directories(directory_);
    }

    void takeAll()
    {
        for (const State& state : states())
            take(state);
    }

private:
    void take(const State& state)
    {
        desktop_.pointer().moveTo(farFromTheWindows);
        owner_.clear();
        Program program(desktop_);
        copyEntries(program, state);
        const Extent screen = desktop_.screen();
        const std::vector<std::pair<std::string, Picture>> wallpapers = {
            {"white", {1, 1, {{255, 255, 255}}}},
            {"black", {1, 1, {{0, 0, 0}}}},
            {"photograph", makeLandscape(screen.width, screen.height)},
        };
        for (const auto& [name, wallpaper] : wallpapers) {
            desktop_.pixels().paintBackground(wallpaper);
            desktop_.pixels().readQuietScreen();
            const WindowFacts panel = program.openPanel();
            perform(state.deed, panel.frame);
            saveWithSurroundings(desktop_, panel.frame, directory_ / (state.name + "-" + name + ".png"));
            desktop_.pointer().moveTo(farFromTheWindows);
            program.closePanel();
        }
        program.quit();
    }

    void copyEntries(Program& program, const State& state)
    {
        program.openPanel();
        const std::size_t textsBeforePictures = std::min<std::size_t>(state.texts.size(), 2);
        std::size_t number = 0;
        for (; number < textsBeforePictures; ++number)
            copy(program, [&] { owner_.copyText(state.texts[number]); });
        for (int picture = 0; picture < state.pictures; ++picture)
            copy(program, [&] { owner_.copyPng(encodePng(photograph(picture))); });
        for (; number < state.texts.size(); ++number)
            copy(program, [&] { owner_.copyText(state.texts[number]); });
        for (int pin = 0; pin < state.pins; ++pin) {
            const Picture before = program.panel().picture();
            for (int step = 0; step < 2 * pin; ++step)
                desktop_.keyboard().tap(XKB_KEY_Down);
            desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_p);
            program.panel().waitUntilItDiffersFrom(before);
        }
        desktop_.pixels().readQuietScreen();
        program.closePanel();
    }

    template <class Copy>
    void copy(Program& program, Copy copyNow)
    {
        const Picture before = program.panel().picture();
        copyNow();
        program.panel().waitUntilItDiffersFrom(before);
    }

    void perform(Deed deed, const Frame& panel)
    {
        if (deed == Deed::nothing)
            return;
        desktop_.pointer().moveTo(
            {panel.x + panel.width / 2, panel.y + static_cast<int>(rowInTheMiddle * scale_)});
        desktop_.pointer().click();
    }

    std::filesystem::path directory_;
    double scale_;
    Desktop desktop_;
    ClipboardOwner owner_;
};

/// What there are pictures of.
enum class Choice { everything, panel, windows };

std::optional<Choice> choiceOf(const std::string& word)
{
    if (word == "panel")
        return Choice::panel;
    if (word == "windows")
        return Choice::windows;
    return std::nullopt;
}

void takeAll(const std::filesystem::path& directory, Choice choice)
{
    for (const auto compositor : {CompositorChoice::none, CompositorChoice::picom}) {
        for (const double scale : {1.0, 2.0}) {
            const Surroundings surroundings = {compositor, scale};
            std::printf("%s\n", surroundings.name().c_str());
            std::fflush(stdout);
            if (choice != Choice::windows)
                Session(surroundings, directory / surroundings.name()).takeAll();
            if (choice != Choice::panel)
                takeWindowPictures(surroundings, directory / surroundings.name());
        }
    }
}

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    using tessel::desktop::Choice;
    const auto choice =
        argumentCount == 3 ? tessel::desktop::choiceOf(arguments[2]) : std::optional(Choice::everything);
    if (argumentCount < 2 || argumentCount > 3 || !choice) {
        std::fprintf(stderr, "usage: %s <directory> [panel | windows]\n", arguments[0]);
        return EXIT_FAILURE;
    }
    try {
        tessel::desktop::takeAll(arguments[1], *choice);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
