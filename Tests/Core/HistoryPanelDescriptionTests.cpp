#include <gmock/gmock.h>

#include "Fakes/FakeDesktop.h"
#include "Panel/HistoryPanelDescription.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;

/// One line for each step.
struct StepText {
    std::string operator()(PanelStep::FloatingPanel step) const { return flag("floating", step.on); }
    std::string operator()(PanelStep::Level step) const { return "level " + std::to_string(step.value); }
    std::string operator()(PanelStep::CollectionBehavior step) const
    {
        return "collection behaviour " + std::to_string(step.mask);
    }
    std::string operator()(PanelStep::HasShadow step) const { return flag("shadow", step.on); }
    std::string operator()(PanelStep::MovableByWindowBackground step) const
    {
        return flag("movable", step.on);
    }
    std::string operator()(PanelStep::Opaque step) const { return flag("opaque", step.on); }
    std::string operator()(PanelStep::ClearBackground) const { return "clear background"; }
    std::string operator()(PanelStep::ContentViewController) const { return "content"; }

    static std::string flag(const char* name, bool on) { return std::string(name) + (on ? " on" : " off"); }
};

TEST(PanelDescription, IsABorderlessBufferedWindowThatIsMadeAtOnce)
{
    const PanelDescription description = panelDescription();
    EXPECT_EQ(description.contentRect, (Rect{{0, 0}, {460, 420}}));
    EXPECT_EQ(description.styleMask, 0U);
    EXPECT_EQ(description.backingStore, 2U);
    EXPECT_FALSE(description.defersCreation);
}

TEST(PanelDescription, ConfiguresTheWindowInTheOneOrder)
{
    std::vector<std::string> steps;
    for (const PanelConfigurationStep& step : panelDescription().configuration)
        steps.push_back(std::visit(StepText{}, step));
    EXPECT_THAT(steps, ElementsAre("floating on", "level 3", "collection behaviour 257", "shadow on",
                                   "movable on", "opaque off", "clear background", "shadow off", "content"));
}

TEST(PanelDescription, IsWhatThePanelIsMadeFrom)
{
    FakeDesktop desktop;
    desktop.launch().showPanel();
    EXPECT_EQ(desktop.panel()->description().configuration.size(), panelDescription().configuration.size());
    EXPECT_EQ(desktop.panel()->description().contentRect, panelDescription().contentRect);
}

} // namespace
} // namespace tessel::test
