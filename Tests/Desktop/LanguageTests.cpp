// The program speaks its user's language.

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

/// A language of the session, and the panel's title in it.
struct Language {
    const char* name;
    const char* title;
};

class LanguageTest : public ProgramTest, public testing::WithParamInterface<Language> {
protected:
    LanguageTest()
        : ProgramTest({.variables = {{"LANG", GetParam().name}}})
    {}
};

} // namespace

TEST_P(LanguageTest, IsThatOfTheSessionOrEnglish)
{
    EXPECT_THAT(program_->openPanel().title, testing::StartsWith(GetParam().title));
    program_->closePanel();
}

// The C library needs none of these to be installed.
INSTANTIATE_TEST_SUITE_P(Language, LanguageTest,
                         testing::Values(Language{"C.UTF-8", "Clipboard"},
                                         Language{"en_US.UTF-8", "Clipboard"},
                                         Language{"de_DE.UTF-8", "Zwischenablage"},
                                         Language{"de_AT.UTF-8", "Zwischenablage"},
                                         Language{"tlh_AQ.UTF-8", "Clipboard"}),
                         [](const auto& language) {
                             std::string name = language.param.name;
                             name.erase(name.find('.'));
                             std::erase(name, '_');
                             return name;
                         });

} // namespace tessel::desktop
