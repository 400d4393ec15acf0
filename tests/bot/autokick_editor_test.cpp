#include "bot/autokick_editor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "bot/autokick.h"
#include "support/simulated_platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Box = SimulatedDesktop::Box;

struct AutoKickEditing : testing::Test {
  void Open(const Text& list) {
    client.app.AutoKickText = list;
    editor = OpenAutoKickEditor(client);
  }
  bool Add(const Text& input) { return AddAutoKickRow(client, editor, input); }
  bool Edit(std::size_t row, AutoKickColumn column, const Text& typed) {
    return EditAutoKickCell(client, editor, row, column, typed);
  }
  Text Cell(std::size_t row, AutoKickColumn column) { return CellText(editor, row, column); }
  void ExpectTold(const Text& message) {
    EXPECT_THAT(desktop.boxes, ElementsAre(Box{message, BoxIcon::kExclamation, false}));
    desktop.boxes.clear();
  }
  Text& file() { return platform.files.files["AutoKick.lst"]; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  SimulatedDesktop& desktop = platform.desktop;
  AutoKickEditor editor;
};

// ---- opening ----

TEST_F(AutoKickEditing, EachEntryIsARow) {
  Open("// no\r\n\r\nBob\tAll\tGo\t\r\n10.0.*.*\ta;b\tSpam\tann;carl\r\n//x\ta\tb\tc");
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"Bob", "All", "Go", ""},
                                       AutoKickRow{"10.0.*.*", "a;b", "Spam", "ann;carl"}));
  EXPECT_THAT(desktop.boxes, IsEmpty());
}

TEST_F(AutoKickEditing, AnEmptyListHasNoRows) {
  Open("");
  EXPECT_THAT(editor.rows, IsEmpty());
  Open("// one\r\n// two");
  EXPECT_THAT(editor.rows, IsEmpty());
  EXPECT_THAT(desktop.boxes, IsEmpty());
}

TEST_F(AutoKickEditing, AnEntryOfThreeFieldsHasNoExceptions) {
  Open("Bob\tAll\tGo");
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"Bob", "All", "Go", ""}));
}

TEST_F(AutoKickEditing, AnEntryWithoutAReasonGetsTheDefaultOne) {
  Open("Bob\thall\r\nAnn\tattic\t");
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"Bob", "hall", Text(kDefaultReason), ""},
                                       AutoKickRow{"Ann", "attic", Text(kDefaultReason), ""}));
  EXPECT_THAT(desktop.boxes, IsEmpty());
}

TEST_F(AutoKickEditing, AnEmptyReasonAheadOfExceptionsStaysSoAndKicksNobody) {
  Open("Bob\tAll\t\tann");
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"Bob", "All", "", "ann"}));
}

TEST_F(AutoKickEditing, ALineWithoutATabIsToldOfOnceAndLosesNothing) {
  Open("garbage\r\nBob\tAll\tGo\t\r\nmore");
  ExpectTold("Произошла ошибка при построении списка автокика!"_w);
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"garbage", "", Text(kDefaultReason), ""},
                                       AutoKickRow{"Bob", "All", "Go", ""},
                                       AutoKickRow{"more", "", Text(kDefaultReason), ""}));
  ApplyAutoKickEditor(client, editor);
  EXPECT_EQ(FindAutoKick(client, "garbage", "hall", true, ""), "");
}

TEST_F(AutoKickEditing, WhatStandsBehindTheThirdTabStaysWhole) {
  Open("Bob\tAll\tGo\tann\tcarl\t");
  EXPECT_EQ(editor.rows.at(0).exceptions, "ann\tcarl\t");
  ApplyAutoKickEditor(client, editor);
  EXPECT_EQ(client.app.AutoKickText, "Bob\tAll\tGo\tann\tcarl\t");
}

// ---- button_add ----

TEST_F(AutoKickEditing, ANewMaskIsARowAtTheEnd) {
  Open("Ann\thall\tGo\t");
  EXPECT_TRUE(Add("Bob"));
  EXPECT_EQ(editor.rows.size(), 2U);
  EXPECT_EQ(editor.rows.back(), (AutoKickRow{"Bob", "All", Text(kDefaultReason), ""}));
  EXPECT_EQ(client.app.AutoKickText, "Ann\thall\tGo\t");
}

TEST_F(AutoKickEditing, AMaskOfAddressesIsAdded) {
  EXPECT_TRUE(Add("12.34.*.*"));
  EXPECT_EQ(Cell(0, AutoKickColumn::kMask), "12.34.*.*");
}

TEST_F(AutoKickEditing, AnAddressOfTwoGroupsIsRefused) {
  EXPECT_FALSE(Add("12.34"));
  ExpectTold("Ошибка в наборе IP!"_w);
  EXPECT_FALSE(Add("no.nick"));
  ExpectTold("Ошибка в наборе IP!"_w);
  EXPECT_THAT(editor.rows, IsEmpty());
}

TEST_F(AutoKickEditing, ColonsAndOuterBlanksGo) {
  EXPECT_TRUE(Add("Nick:"));
  EXPECT_TRUE(Add("  :b:o:b: "));
  EXPECT_EQ(Cell(0, AutoKickColumn::kMask), "Nick");
  EXPECT_EQ(Cell(1, AutoKickColumn::kMask), "bob");
}

TEST_F(AutoKickEditing, AMaskOfTheTableInAnyCaseIsRefused) {
  Open("nick\tAll\tGo\t\r\n10.0.*.*\tAll\tGo\t\r\nёж\tAll\tGo\t"_w);
  EXPECT_FALSE(Add("NICK"));
  ExpectTold("Такой ник уже есть в списке!"_w);
  EXPECT_FALSE(Add("Ёж:"_w));
  ExpectTold("Такой ник уже есть в списке!"_w);
  EXPECT_FALSE(Add("10.0.*.*"));
  ExpectTold("Такой IP уже есть в списке!"_w);
  EXPECT_EQ(editor.rows.size(), 3U);
}

TEST_F(AutoKickEditing, ABlankInAMaskIsRefusedBeforeAnythingElse) {
  for (const char* input : {"a b", "12 .34", "a\tb", "a\r\nb", "a: b"}) {
    EXPECT_FALSE(Add(input)) << input;
    ExpectTold("Ник или IP не должен содержать пробелы!"_w);
  }
}

TEST_F(AutoKickEditing, AMaskThatIsWrongIsCalledSoAlsoIfTheTableHasIt) {
  Open("12.34\tAll\tGo\t\r\na b\tAll\tGo\t");
  EXPECT_FALSE(Add("12.34"));
  ExpectTold("Ошибка в наборе IP!"_w);
  EXPECT_FALSE(Add("a b"));
  ExpectTold("Ник или IP не должен содержать пробелы!"_w);
}

TEST_F(AutoKickEditing, AnEmptyFieldDoesNothing) {
  for (const char* input : {"", "   ", ":", " : ", "\t\r\n"})
    EXPECT_FALSE(Add(input));
  EXPECT_THAT(editor.rows, IsEmpty());
  EXPECT_THAT(desktop.boxes, IsEmpty());
}

// ---- editing a cell ----

TEST_F(AutoKickEditing, AMaskIsEditedByTheRulesOfAdding) {
  Open("Bob\tAll\tGo\t\r\nAnn\tAll\tGo\t\r\n10.0.*.*\tAll\tGo\t");
  const auto mask = AutoKickColumn::kMask;
  EXPECT_TRUE(Edit(0, mask, " Carl: "));
  EXPECT_EQ(Cell(0, mask), "Carl");
  for (const auto& [typed, message] :
       {std::pair{"a b"_w, "Ник или IP не должен содержать пробелы!"_w},
        {"12.34"_w, "Ошибка в наборе IP!"_w},
        {"ANN"_w, "Такой ник уже есть в списке!"_w},
        {"10.0.*.*"_w, "Такой IP уже есть в списке!"_w}}) {
    EXPECT_FALSE(Edit(0, mask, typed));
    ExpectTold(message);
    EXPECT_EQ(Cell(0, mask), "Carl");
  }
  EXPECT_FALSE(Edit(0, mask, " : "));
  EXPECT_THAT(desktop.boxes, IsEmpty());
  EXPECT_EQ(Cell(0, mask), "Carl");
}

TEST_F(AutoKickEditing, AMaskIsNotItsOwnDouble) {
  Open("Bob\tAll\tGo\t\r\nAnn\tAll\tGo\t");
  EXPECT_TRUE(Edit(0, AutoKickColumn::kMask, "BOB"));
  EXPECT_EQ(Cell(0, AutoKickColumn::kMask), "BOB");
}

TEST_F(AutoKickEditing, ChannelsLoseTheBlanksBehindTheirSemicolons) {
  Open("Bob\tAll\tGo\t");
  const auto channels = AutoKickColumn::kChannels;
  EXPECT_TRUE(Edit(0, channels, "  hall; attic;cellar; my room "));
  EXPECT_EQ(Cell(0, channels), "hall;attic;cellar;my room");
  EXPECT_TRUE(Edit(0, channels, "hall;  attic"));
  EXPECT_EQ(Cell(0, channels), "hall; attic");
}

TEST_F(AutoKickEditing, EmptiedChannelsComeBackAsAll) {
  Open("Bob\thall\tGo\t");
  for (const char* typed : {"", "   ", "\t"}) {
    editor.rows[0].channels = "hall";
    EXPECT_TRUE(Edit(0, AutoKickColumn::kChannels, typed));
    EXPECT_EQ(Cell(0, AutoKickColumn::kChannels), "All");
  }
}

TEST_F(AutoKickEditing, AnEmptiedReasonComesBackAsTheDefaultOne) {
  Open("Bob\tAll\tGo\t");
  const auto reason = AutoKickColumn::kReason;
  EXPECT_TRUE(Edit(0, reason, " за флуд; и за мат "_w));
  EXPECT_EQ(Cell(0, reason), "за флуд; и за мат"_w);
  EXPECT_TRUE(Edit(0, reason, "  "));
  EXPECT_EQ(Cell(0, reason), Text(kDefaultReason));
}

TEST_F(AutoKickEditing, ABlankInTheExceptionsIsRefused) {
  Open("Bob\tAll\tGo\tann");
  const auto exceptions = AutoKickColumn::kExceptions;
  EXPECT_FALSE(Edit(0, exceptions, "ann carl"));
  ExpectTold("Ник  не должен содержать пробелы!"_w);
  EXPECT_EQ(Cell(0, exceptions), "ann");
  EXPECT_TRUE(Edit(0, exceptions, " ann; carl "));
  EXPECT_EQ(Cell(0, exceptions), "ann;carl");
  EXPECT_TRUE(Edit(0, exceptions, ""));
  EXPECT_EQ(Cell(0, exceptions), "");
}

TEST_F(AutoKickEditing, LineEndsAndTabsThatAreTypedBecomeBlanks) {
  Open("Bob\tAll\tGo\tann");
  Edit(0, AutoKickColumn::kChannels, "one\ttwo");
  Edit(0, AutoKickColumn::kReason, "a\tb\r\nc");
  EXPECT_EQ(editor.rows[0], (AutoKickRow{"Bob", "one two", "a b  c", "ann"}));
  EXPECT_FALSE(Edit(0, AutoKickColumn::kExceptions, "a\tb"));
  ExpectTold("Ник  не должен содержать пробелы!"_w);
}

TEST_F(AutoKickEditing, EachColumnShowsItsField) {
  Open("a\tb\tc\td");
  EXPECT_EQ(Cell(0, AutoKickColumn::kMask), "a");
  EXPECT_EQ(Cell(0, AutoKickColumn::kChannels), "b");
  EXPECT_EQ(Cell(0, AutoKickColumn::kReason), "c");
  EXPECT_EQ(Cell(0, AutoKickColumn::kExceptions), "d");
}

// ---- deleting ----

TEST_F(AutoKickEditing, ARowIsDeletedOnYes) {
  Open("a\tAll\tGo\t\r\nb\tAll\tGo\t\r\nc\tAll\tGo\t");
  desktop.answers = {true};
  EXPECT_TRUE(DeleteAutoKickRow(client, editor, 1));
  EXPECT_THAT(desktop.boxes, ElementsAre(Box{"Вы действительно хотите удалить информацию о b?"_w,
                                             BoxIcon::kQuestion, true}));
  EXPECT_THAT(editor.rows,
              ElementsAre(AutoKickRow{"a", "All", "Go", ""}, AutoKickRow{"c", "All", "Go", ""}));
}

TEST_F(AutoKickEditing, OnNoItStays) {
  Open("a\tAll\tGo\t");
  desktop.answers = {false};
  EXPECT_FALSE(DeleteAutoKickRow(client, editor, 0));
  EXPECT_EQ(editor.rows.size(), 1U);
}

// ---- what the menu of a nick adds meanwhile ----

TEST_F(AutoKickEditing, ANickThatIsAddedMeanwhileIsARowAtTheEnd) {
  Open("Ann\thall\tGo\t");
  TakeUpAutoKick(editor, "Bob", "attic");
  TakeUpAutoKick(editor, "Carl", "All");
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"Ann", "hall", "Go", ""},
                                       AutoKickRow{"Bob", "attic", Text(kDefaultReason), ""},
                                       AutoKickRow{"Carl", "All", Text(kDefaultReason), ""}));
}

TEST_F(AutoKickEditing, ARowOfTheNickGetsTheChannelBehindWhatWasEditedThere) {
  Open("bob\thall\tGo\tann");
  Edit(0, AutoKickColumn::kChannels, "cellar");
  TakeUpAutoKick(editor, "Bob", "attic");
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"bob", "cellar;attic", "Go", "ann"}));
  TakeUpAutoKick(editor, "Bob", "ATTIC");
  EXPECT_EQ(Cell(0, AutoKickColumn::kChannels), "cellar;attic");
}

TEST_F(AutoKickEditing, ARowOfTheNickGetsAllInPlaceOfItsChannels) {
  Open("Bob\thall;attic\tGo\t\r\nAnn\tall\tGo\t");
  TakeUpAutoKick(editor, "Bob", "All");
  TakeUpAutoKick(editor, "Ann", "attic");
  EXPECT_EQ(Cell(0, AutoKickColumn::kChannels), "All");
  EXPECT_EQ(Cell(1, AutoKickColumn::kChannels), "all");
}

TEST_F(AutoKickEditing, ANickWhoseRowWasDeletedIsARowAgain) {
  Open("Bob\thall\tOut\t");
  desktop.answers = {true};
  DeleteAutoKickRow(client, editor, 0);
  TakeUpAutoKick(editor, "Bob", "attic");
  EXPECT_THAT(editor.rows, ElementsAre(AutoKickRow{"Bob", "attic", Text(kDefaultReason), ""}));
}

// ---- applying ----

TEST_F(AutoKickEditing, TheListAndTheFileBecomeWhatTheRowsSay) {
  Open("// comment\r\nBob\tAll\tGo\r\nAnn\thall\tOut\tcarl");
  ApplyAutoKickEditor(client, editor);
  EXPECT_EQ(client.app.AutoKickText, "Bob\tAll\tGo\t\r\nAnn\thall\tOut\tcarl");
  EXPECT_EQ(file(),
            "// Сгенерировано Parlorwire, не редактировать!\r\n"
            "// Generated by Parlorwire, do not modify!\r\n"
            "Bob\tAll\tGo\t\r\nAnn\thall\tOut\tcarl"_w);
}

TEST_F(AutoKickEditing, ARowWithoutExceptionsIsWrittenWithATabAtTheEnd) {
  Add("Bob");
  ApplyAutoKickEditor(client, editor);
  EXPECT_EQ(client.app.AutoKickText, "Bob\tAll\t" + Text(kDefaultReason) + "\t");
}

TEST_F(AutoKickEditing, WithoutRowsTheListIsEmpty) {
  Open("Bob\tAll\tGo\t");
  desktop.answers = {true};
  DeleteAutoKickRow(client, editor, 0);
  ApplyAutoKickEditor(client, editor);
  EXPECT_EQ(client.app.AutoKickText, "");
  EXPECT_TRUE(file().ends_with("do not modify!\r\n"));
}

TEST_F(AutoKickEditing, WhatGoesOutComesIn) {
  Open("Bob\tAll\tGo\r\nAnn\thall\r\n10.*.*.*\ta;b\tSpam\tx;y\r\n\tAll\tx\t");
  Add("ёж*"_w);
  ApplyAutoKickEditor(client, editor);
  LoadAutoKick(client);
  EXPECT_EQ(OpenAutoKickEditor(client).rows, editor.rows);
}

TEST_F(AutoKickEditing, AFileThatCouldNotBeReadIsNotRewritten) {
  file() = "precious";
  platform.files.unreadable.insert("AutoKick.lst");
  LoadAutoKick(client);
  Add("Bob");
  ApplyAutoKickEditor(client, editor);
  EXPECT_EQ(file(), "precious");
  EXPECT_EQ(client.app.AutoKickText, "Bob\tAll\t" + Text(kDefaultReason) + "\t");
}

TEST_F(AutoKickEditing, OnADiskThatCannotBeWrittenTheListHoldsInMemory) {
  platform.files.write_fault = fault::kPermissionDenied;
  Add("Bob");
  ApplyAutoKickEditor(client, editor);
  EXPECT_EQ(client.app.AutoKickText, "Bob\tAll\t" + Text(kDefaultReason) + "\t");
  EXPECT_FALSE(platform.files.files.contains("AutoKick.lst"));
}

// ---- the window's texts ----

TEST_F(AutoKickEditing, TheTitleBearsTheCaptionOfTheActiveTab) {
  desktop.SetTabCaption(2, "lobby - alice");
  desktop.active_tab = 2;
  EXPECT_EQ(AutoKickEditorTitle(client), "lobby - alice - Настройки бота"_w);
}

TEST(AutoKickEditorTexts, AreThese) {
  EXPECT_THAT(kAutoKickHeaders, ElementsAre("№"_w, "Ник или IP*"_w, "Забаненные каналы**"_w,
                                            "Причина"_w, "Ники-исключение"_w));
  EXPECT_EQ(kAutoKickInputLabel, "Введите ник или IP*:"_w);
  EXPECT_EQ(kAutoKickNote,
            "*Вы можете использовать символы-маску \"*\", \"?\", \"#\"\r\n"
            "**Каналы разделяются точкой с запятой, All означает все каналы"_w);
}

}  // namespace
}  // namespace parlorwire
