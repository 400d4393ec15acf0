#include "display/message_colours.h"

#include <gtest/gtest.h>

#include "session/ini.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

struct MessageColor : testing::Test {
  Text table() { return client.app.CmIniText.text(); }
  Text& file() { return platform.files.files["CM.ini"]; }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(MessageColor, GuestWithAColonAndInLowerCaseIsOneEntryThatMovesToTheFront) {
  client.app.CmIniText.Assign("bob=5 Guest=7");
  EXPECT_EQ(LookupMessageColor(client, "Guest:"), 7U);
  EXPECT_EQ(table(), "Guest=7 bob=5");
  EXPECT_EQ(LookupMessageColor(client, "bob"), 5U);
  EXPECT_EQ(LookupMessageColor(client, "guest"), 7U);
  EXPECT_EQ(table(), "guest=7 bob=5");
}

TEST_F(MessageColor, OnlyOneColonIsDropped) {
  platform.random.script = {0, 0, 0};
  LookupMessageColor(client, "bob::");
  EXPECT_EQ(table(), "bob:=25600");
}

TEST_F(MessageColor, ANewNickDrawsRedGreenAndBlueInThisOrder) {
  platform.random.script = {0.5, 0.25, 0.75};
  EXPECT_EQ(LookupMessageColor(client, "bob:"), Rgb(128, 139, 192));
  EXPECT_EQ(table(), "bob=" + std::to_string(Rgb(128, 139, 192)));
  EXPECT_TRUE(platform.random.script.empty());
}

TEST_F(MessageColor, TheColourOfANewNickLiesInItsLimits) {
  platform.random.script = {0, 0, 0};
  EXPECT_EQ(LookupMessageColor(client, "low"), Rgb(0, 100, 0));
  platform.random.script = {0.999999, 0.999999, 0.999999};
  EXPECT_EQ(LookupMessageColor(client, "high"), Rgb(255, 255, 255));
}

TEST_F(MessageColor, ANewNickGoesToTheFrontOfWhatTheFileHeld) {
  file() = "al=1 bob=2";
  LoadNickColours(client);
  platform.random.script = {0, 0, 0};
  LookupMessageColor(client, "new");
  EXPECT_EQ(table(), "new=25600 al=1 bob=2");
  EXPECT_EQ(file(), "al=1 bob=2");
}

TEST_F(MessageColor, AKnownNickDrawsNothing) {
  client.app.CmIniText.Assign("bob=5");
  platform.random.script = {0.1};
  LookupMessageColor(client, "bob");
  EXPECT_EQ(platform.random.script.size(), 1U);
}

TEST_F(MessageColor, AFaultInsideYieldsOnceAndGivesZero) {
  client.app.CmIniText.Assign("bob=red");
  EXPECT_EQ(LookupMessageColor(client, "bob"), 0U);
  EXPECT_EQ(platform.desktop.yields, 1);
  EXPECT_EQ(table(), "bob=red");
  EXPECT_EQ(platform.files.files.count("error.log"), 0U);
}

TEST_F(MessageColor, ANickHoldingABlankIsNeverFoundAgain) {
  platform.random.script = {0, 0, 0};
  EXPECT_EQ(LookupMessageColor(client, "a b:"), Rgb(0, 100, 0));
  EXPECT_EQ(LookupMessageColor(client, "a b:"), 0U);
  EXPECT_EQ(table(), "a b=25600");
}

TEST_F(MessageColor, AnEmptyNickHasAnEntryToo) {
  platform.random.script = {0, 0, 0};
  EXPECT_EQ(LookupMessageColor(client, ":"), Rgb(0, 100, 0));
  EXPECT_EQ(table(), "=25600");
  EXPECT_EQ(LookupMessageColor(client, ""), Rgb(0, 100, 0));
}

TEST_F(MessageColor, WithoutAFileTheTableIsEmptyAndNoFileIsMade) {
  client.app.CmIniText.Assign("old=1");
  LoadNickColours(client);
  EXPECT_EQ(table(), "");
  EXPECT_FALSE(platform.files.Exists("CM.ini"));
}

TEST_F(MessageColor, AnUnreadableOrHugeFileGivesAnEmptyTable) {
  file() = "bob=5";
  platform.files.unreadable.insert("CM.ini");
  LoadNickColours(client);
  EXPECT_EQ(table(), "");
  platform.files.unreadable.clear();
  file() = Text(static_cast<std::size_t>(kLargestConfigFile) + 1, 'x');
  LoadNickColours(client);
  EXPECT_EQ(table(), "");
}

TEST_F(MessageColor, AFileThatCouldNotBeReadIsNeverWritten) {
  client.tab(0).Login = "me";
  file() = "bob=5 al=1";
  platform.files.unreadable.insert("CM.ini");
  LoadNickColours(client);
  platform.files.unreadable.clear();  // who could read it now would still not know the colours
  change_message_color(client, "carl", 7);
  SaveNickColours(client);
  EXPECT_EQ(table(), "carl=7");
  EXPECT_EQ(file(), "bob=5 al=1");
  EXPECT_EQ(platform.files.writes, 0);
  LoadNickColours(client);
  change_message_color(client, "bob", 7);
  EXPECT_EQ(file(), "bob=7 al=1");
}

TEST_F(MessageColor, AHugeFileIsNeverWritten) {
  Text huge = "a=" + Text(static_cast<std::size_t>(kLargestConfigFile) - 2, 'x');
  file() = huge;
  LoadNickColours(client);
  EXPECT_TRUE(table() == huge);  // not yet
  huge += 'x';
  file() = huge;
  LoadNickColours(client);
  EXPECT_EQ(table(), "");
  client.app.CmIniText.Assign("bob=5");
  SaveNickColours(client);
  EXPECT_TRUE(file() == huge);
  file() = "";
  LoadNickColours(client);
  file() = huge;  // has grown since
  SaveNickColours(client);
  EXPECT_TRUE(file() == huge);
  EXPECT_EQ(platform.files.writes, 0);
}

TEST_F(MessageColor, GarbageInTheFileStaysBehindTheNewEntries) {
  file() = Text("\xFF\x00= = \r\n bob 1=", 15);
  LoadNickColours(client);
  platform.random.script = {0, 0, 0};
  EXPECT_EQ(LookupMessageColor(client, "bob"), Rgb(0, 100, 0));
  EXPECT_EQ(table(), "bob=25600 " + file());
}

TEST_F(MessageColor, TheFileIsWrittenFromItsFirstByteAndNotCut) {
  file() = "bob=16777215 al=1";
  client.app.CmIniText.Assign("bob=1 al=1");
  SaveNickColours(client);
  EXPECT_EQ(file(), "bob=1 al=115 al=1");
}

TEST_F(MessageColor, AWriteThatFailsIsIgnored) {
  file() = "bob=1";
  platform.files.write_fault = 61;
  client.app.CmIniText.Assign("bob=2");
  SaveNickColours(client);
  EXPECT_EQ(file(), "bob=1");
  platform.files.write_fault.reset();
  SaveNickColours(client);
  EXPECT_EQ(file(), "bob=2");
}

TEST_F(MessageColor, TheDialogOpensWithTheColourThatIsInForce) {
  client.tab(0).Login = "Me";
  client.app.rRichColors.TextColor = 9;
  client.app.CmIniText.Assign("al=1 bob=2 me=3 eve=red");
  EXPECT_EQ(MessageColorOf(client, "BOB"), 2U);
  EXPECT_EQ(MessageColorOf(client, "mE"), 9U);
  EXPECT_EQ(MessageColorOf(client, "nobody"), 9U);
  EXPECT_EQ(MessageColorOf(client, "eve"), 9U);
  EXPECT_EQ(table(), "al=1 bob=2 me=3 eve=red");
}

TEST_F(MessageColor, ANewColourOfAnotherNickGoesToTheFrontAndToTheFileAtOnce) {
  client.tab(2).Login = "me";
  platform.desktop.active_tab = 2;
  client.app.CmIniText.Assign("al=1 Bob=2");
  change_message_color(client, "bob", 0xFFFFFF);
  EXPECT_EQ(table(), "bob=16777215 al=1");
  EXPECT_EQ(file(), "bob=16777215 al=1");
  EXPECT_EQ(platform.desktop.focused_msg, 2);
  EXPECT_EQ(client.app.rRichColors.TextColor, 0xC0C0C0U);
  EXPECT_FALSE(platform.files.Exists("config.ini"));
}

TEST_F(MessageColor, ANickWithoutAnEntryGetsOne) {
  change_message_color(client, "bob", 5);
  EXPECT_EQ(file(), "bob=5");
}

TEST_F(MessageColor, AnEntryWithABrokenValueIsReplaced) {
  client.app.CmIniText.Assign("bob=red");
  change_message_color(client, "bob", 5);
  EXPECT_EQ(table(), "bob=5");
}

TEST_F(MessageColor, OnesOwnColourStaysInMemoryAndTheKeyGetsThatOfTheStatusFont) {
  client.tab(0).Login = "Me";
  client.app.rFontStatus.TextColor = 77;
  change_message_color(client, "mE", 5);
  EXPECT_EQ(client.app.rRichColors.TextColor, 5U);
  EXPECT_EQ(ReadIni(client, "Fonts", "rFontStatus.TextColor"), "77");
  EXPECT_EQ(ReadIni(client, "Fonts", "rRichColors.TextColor"), "");
  EXPECT_EQ(table(), "");
  EXPECT_TRUE(platform.files.Exists("CM.ini"));
  EXPECT_EQ(platform.desktop.focused_msg, 0);
}

TEST_F(MessageColor, ANickWithABlankThatHasAnEntryIsLoggedAndLeftAlone) {
  client.app.CmIniText.Assign("a b=5");
  change_message_color(client, "a b", 6);
  EXPECT_EQ(table(), "a b=5");
  EXPECT_TRUE(Contains(platform.files.files["error.log"],
                       "Error 5 Invalid procedure call or argument. Function: "
                       "change_message_color"));
}

}  // namespace
}  // namespace parlorwire
