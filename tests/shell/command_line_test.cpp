#include "shell/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/version.h"

namespace parlorwire {
namespace {

using testing::HasSubstr;
using testing::Optional;

TEST(CommandLineTest, VersionPrintsTheNameAndTheVersion) {
  EXPECT_THAT(AnswerOnCommandLine({{"--version"}}),
              Optional("parlorwire " + std::string(kVersion) + "\n"));
}

TEST(CommandLineTest, HelpNamesBothOptionsAndWhereTheSettingsLie) {
  const auto help = AnswerOnCommandLine({{"--help"}});
  EXPECT_THAT(help, Optional(HasSubstr("  --help  ")));
  EXPECT_THAT(help, Optional(HasSubstr("  --version  ")));
  EXPECT_THAT(help, Optional(HasSubstr("~/.local/share/parlorwire")));
}

TEST(CommandLineTest, TheFirstThatIsKnownCounts) {
  EXPECT_THAT(AnswerOnCommandLine({{"-x", "--version", "--help"}}),
              Optional(HasSubstr("parlorwire ")));
  EXPECT_THAT(AnswerOnCommandLine({{"--help", "--version"}}), Optional(HasSubstr("Usage")));
}

TEST(CommandLineTest, AnythingElseIsIgnored) {
  EXPECT_EQ(AnswerOnCommandLine({}), std::nullopt);
  EXPECT_EQ(AnswerOnCommandLine({{"", "help", "-h", "--helpful", "--version=1", "file"}}),
            std::nullopt);
}

}  // namespace
}  // namespace parlorwire
