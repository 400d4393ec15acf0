#include "personal/save_log.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "personal/pers_pane.h"
#include "personal/personal_fixture.h"
#include "support/one_smile.h"

namespace parlorwire {
namespace {

struct SaveLog : PersonalTest {
  // The user chooses a folder whose files are those of the test.
  struct ChosenFolder : SimulatedFiles {
    explicit ChosenFolder(SimulatedFiles& chosen) : files_of(chosen) {
      write_fault = chosen.write_fault;
    }
    ~ChosenFolder() override { files_of.files = files; }
    SimulatedFiles& files_of;
  };

  SaveLog() {
    TakeBoxes(window);
    window.hooks.BrowseForFolder = [this](const Text& title) {
      questions.push_back(ToUtf8(title));
      if (on_question) on_question();
      return chooses ? std::make_unique<ChosenFolder>(folder) : nullptr;
    };
  }
  void Save() { save_log(client, window); }
  const SimulatedDesktop::Box& Box() { return platform.desktop.boxes.at(0); }

  PersonalWindow window;
  SimulatedFiles folder;
  bool chooses = true;
  std::function<void()> on_question;
  std::vector<std::string> questions;
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

TEST_F(SaveLog, AsksForTheFolder) {
  Save();
  EXPECT_EQ(questions, std::vector<std::string>{"Выберите каталог, в котором сохранятся лог:"});
}

TEST_F(SaveLog, WithoutAFolderNothingIsSavedAndNothingSaid) {
  chooses = false;
  Save();
  EXPECT_EQ(questions.size(), 1U);
  EXPECT_TRUE(folder.files.empty());
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

TEST_F(SaveLog, AWindowThatIsClosedMeanwhileSavesNothing) {
  on_question = [this] { window.Closed = true; };
  Save();
  EXPECT_TRUE(folder.files.empty());
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

TEST_F(SaveLog, TheRecordLivesUntilTheBoxIsGone) {
  int running = 0;
  on_question = [&] { running = window.RunningEvents; };
  Save();
  EXPECT_EQ(running, 1);
  EXPECT_EQ(window.RunningEvents, 0);
}

}  // namespace
}  // namespace parlorwire
