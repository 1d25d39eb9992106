#include "CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace tessel {
namespace {

CommandLine parse(std::vector<const char*> arguments)
{
    return parseCommandLine(arguments);
}

TEST(CommandLine, WithoutArgumentsJustRuns)
{
    const CommandLine line = parse({});
    EXPECT_EQ(line.purpose, CommandLine::Purpose::run);
    EXPECT_EQ(line.command, std::nullopt);
}

TEST(CommandLine, EachOptionAsksForItsCommand)
{
    EXPECT_EQ(parse({"--toggle"}).command, RemoteCommand::toggleHistory);
    EXPECT_EQ(parse({"--show"}).command, RemoteCommand::openHistory);
    EXPECT_EQ(parse({"--clear"}).command, RemoteCommand::clearHistory);
    EXPECT_EQ(parse({"--settings"}).command, RemoteCommand::settings);
    EXPECT_EQ(parse({"--about"}).command, RemoteCommand::about);
    EXPECT_EQ(parse({"--check-for-updates"}).command, RemoteCommand::checkForUpdates);
    EXPECT_EQ(parse({"--quit"}).command, RemoteCommand::quit);
    EXPECT_EQ(parse({"--version"}).purpose, CommandLine::Purpose::version);
    EXPECT_EQ(parse({"--help"}).purpose, CommandLine::Purpose::help);
}

TEST(CommandLine, NamesTheArgumentThatMakesNoSense)
{
    EXPECT_EQ(parse({"--togle"}).purpose, CommandLine::Purpose::invalid);
    EXPECT_EQ(parse({"--togle"}).offender, "--togle");
    EXPECT_EQ(parse({"--show", "now"}).purpose, CommandLine::Purpose::invalid);
    EXPECT_EQ(parse({"--show", "now"}).offender, "now");
    EXPECT_EQ(parse({""}).purpose, CommandLine::Purpose::invalid);
}

TEST(CommandLine, HelpNamesEveryOption)
{
    for (const char* option : {"--toggle", "--show", "--clear", "--settings", "--about", "--check-for-updates",
                               "--quit", "--version", "--help"})
        EXPECT_NE(helpText().find(option), std::string_view::npos) << option;
}

} // namespace
} // namespace tessel
