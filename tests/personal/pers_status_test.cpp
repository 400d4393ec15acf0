#include "personal/pers_status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/personal_fixture.h"
#include "support/scripted_view.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

struct PersStatus : PersonalTest {
  void Out(const Text& text, StatusMode kind) { PersStatusOut(client, window, text, kind); }
  PersonalWindow window;
};

TEST_F(PersStatus, ALineHasTheTimeInFront) {
  platform.time.SetNow({2026, 11, 22, 9, 5, 7});
  Out("one", StatusMode::kLine);
  Out("two", StatusMode::kLine);
  EXPECT_EQ(window.Rich.Text(), "[09:05:07] one\r\n[09:05:07] two\r\n");
}

TEST_F(PersStatus, OkGoesBehindTheLastLine) {
  Out("one...", StatusMode::kLine);
  Out("ignored", StatusMode::kOk);
  EXPECT_EQ(window.Rich.Text(), "[12:00:00] one... Ok.\r\n");
}

TEST_F(PersStatus, AFailureInBothLanguages) {
  Out("one...", StatusMode::kLine);
  Out("no way", StatusMode::kFailed);
  client.app.Language = UiLanguage::kEnglish;
  Out("two...", StatusMode::kLine);
  Out("no way", StatusMode::kFailed);
  EXPECT_EQ(ToUtf8(window.Rich.Text()),
            "[12:00:00] one... Ошибка: no way\r\n[12:00:00] two... Failed: no way\r\n");
}

TEST_F(PersStatus, AVerdictInAnEmptyPane) {
  Out("", StatusMode::kOk);
  EXPECT_EQ(window.Rich.Text(), " Ok.\r\n");
}

TEST_F(PersStatus, HasTheLookOfStatusLines) {
  client.app.rFontStatus = {.Italic = true,
                            .Bold = true,
                            .Name = "Arial",
                            .Size = 7,
                            .BackColor = 0x030201,
                            .TextColor = 0x060504};
  Out("one", StatusMode::kLine);
  Out("", StatusMode::kOk);
  EXPECT_THAT(RunsOf(window.Rich),
              ElementsAre("[12:00:00] one Ok.\\r\\n|Arial 7 040506 b i back=010203"));
}

TEST_F(PersStatus, ScrollsToTheEnd) {
  ScriptedView view(window.Rich);
  view.bar = {0, 100, 10, 0};
  Out("one", StatusMode::kLine);
  EXPECT_THAT(view.scrolls, ElementsAre(PaneScroll::kBottom));
}

}  // namespace
}  // namespace parlorwire
