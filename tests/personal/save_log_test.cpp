#include "personal/save_log.h"

#include <gtest/gtest.h>

#include "personal/pers_pane.h"
#include "personal/personal_fixture.h"
#include "support/one_smile.h"

namespace parlorwire {
namespace {

struct SaveLog : PersonalTest {
  void Save() { save_log(client, window, folder); }
  const SimulatedDesktop::Box& Box() { return platform.desktop.boxes.at(0); }

  PersonalWindow window;
  SimulatedFiles folder;
};

TEST_F(SaveLog, WritesThePaneAndSaysSo) {
  WriteAtEnd(window.Rich, "\xEF\xF0\xE8\r\nb\r\n", {});
  Save();
  EXPECT_EQ(folder.files["log.txt"], "\xEF\xF0\xE8\r\nb\r\n");
  EXPECT_EQ(folder.files.size(), 1U);
  EXPECT_TRUE(platform.files.files.empty());
  ASSERT_EQ(platform.desktop.boxes.size(), 1U);
  EXPECT_EQ(ToUtf8(Box().text), "Лог сохранен");
  EXPECT_EQ(Box().icon, BoxIcon::kInformation);
}

TEST_F(SaveLog, EveryLineEndsInCrLf) {
  WriteAtEnd(window.Rich, "a\nb\rc\r\nd\r\r\n", {});
  EXPECT_EQ(LogOf(window.Rich), "a\r\nb\r\nc\r\nd\r\n\r\n");
}

TEST_F(SaveLog, PicturesAreToldByTheirCodes) {
  LoadOneSmile(platform, client);
  WriteAtEnd(window.Rich, " a *:)* b\r\n", {});
  PersPasteSmiles(client, window, " a *:)* b", 0);
  ASSERT_EQ(window.Rich.Text(), " a   b\r\n");
  EXPECT_EQ(LogOf(window.Rich), " a *:)* b\r\n");
}

TEST_F(SaveLog, AFailureIsToldInBothLanguagesAndNothingElse) {
  folder.write_fault = 61;
  Save();
  ASSERT_EQ(platform.desktop.boxes.size(), 1U);
  EXPECT_EQ(ToUtf8(Box().text), "Лог не сохранен: Disk full");
  EXPECT_EQ(Box().icon, BoxIcon::kExclamation);
  platform.desktop.boxes.clear();
  client.app.Language = UiLanguage::kEnglish;
  Save();
  EXPECT_EQ(Box().text, "The log was not saved: Disk full");
}

TEST_F(SaveLog, TheQuestionForTheFolder) {
  EXPECT_EQ(ToUtf8(kSaveLogQuestion), "Выберите каталог, в котором сохранятся лог:");
}

}  // namespace
}  // namespace parlorwire
