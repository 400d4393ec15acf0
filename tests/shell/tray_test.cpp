#include "shell/tray.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "personal/pers_frm.h"
#include "personal/personal_window.h"
#include "session/personal_notice.h"
#include "support/chat.h"

namespace parlorwire {
namespace {

using testing::Each;
using testing::ElementsAre;
using enum TrayIcon;

constexpr std::string_view kMentionLine = "..[12:00:01]bob:() hi alice\n";

struct TrayTest : testing::Test {
  TrayTest() {
    SetTabTitle(client, "talk - Parlorwire");
    AddTrayIcon(client);
    desktop.window_active = false;
    tray.icons.clear();
  }

  void Pass(std::int64_t milliseconds) { chat.platform.time.Advance(milliseconds); }
  void Balloon(const Text& text = "hello") { ShowBalloon(client, {}, text, 16, {3}); }
  bool Blinking() const { return app.Timer24->Enabled() || app.Timer25->Enabled(); }

  Chat chat;
  Client& client = chat.client;
  AppState& app = client.app;
  SimulatedTray& tray = chat.platform.tray;
  SimulatedDesktop& desktop = chat.platform.desktop;
};

// ---- the icon and its tip ----

TEST(TrayStart, TheIconIsAddedWithTheWindowsCaption) {
  Chat chat;
  SetTabTitle(chat.client, "talk - Parlorwire");
  EXPECT_TRUE(chat.platform.tray.icons.empty());
  AddTrayIcon(chat.client);
  EXPECT_TRUE(chat.platform.tray.added);
  EXPECT_EQ(chat.platform.tray.tip, "talk - Parlorwire");
  EXPECT_EQ(chat.platform.tray.icon, kWindow);
}

TEST_F(TrayTest, TheTipFollowsTheCaption) {
  client.hooks.SetTabTitle("lobby - Parlorwire");
  EXPECT_EQ(tray.tip, "lobby - Parlorwire");
  SetTrayBlink(client, 2);
  Pass(500);
  EXPECT_EQ(tray.tip, "lobby - Parlorwire");
}

TEST_F(TrayTest, ANewTipShowsTheWindowsPictureUntilTheNextTick) {
  SetTrayBlink(client, 2);
  Pass(1000);
  ASSERT_EQ(tray.icon, kMention);
  SetTabTitle(client, "x");
  EXPECT_EQ(tray.icon, kWindow);
  Pass(1000);
  EXPECT_EQ(tray.icon, kMention);
}

TEST_F(TrayTest, TipTitleAndTextAreCutToTheirFields) {
  SetTabTitle(client, Text(127, 'a') + "b");
  EXPECT_EQ(tray.tip, Text(127, 'a'));
  ShowBalloon(client, Text(53, 't') + "u", Text(255, 'x') + "y", 16, {});
  ASSERT_TRUE(tray.balloon);
  EXPECT_EQ(tray.balloon->title, "Parlorwire" + Text(53, 't'));
  EXPECT_EQ(tray.balloon->text, Text(255, 'x'));
}

TEST(TrayStart, AnIconThatIsAddedLateHasACutTip) {
  Chat chat;
  SetTabTitle(chat.client, Text(200, 'a'));
  AddTrayIcon(chat.client);
  EXPECT_EQ(chat.platform.tray.tip, Text(127, 'a'));
}

TEST_F(TrayTest, TheIconGoesAtShutDown) {
  Balloon();
  DeleteTrayIcon(client);
  EXPECT_FALSE(tray.added);
  EXPECT_FALSE(tray.balloon);
}

// ---- balloons ----

TEST_F(TrayTest, ABalloonSaysWhatItIsAbout) {
  client.hooks.ShowBalloon("", "hello", kSilentBalloon, BalloonAbout{3});
  ASSERT_TRUE(tray.balloon);
  EXPECT_EQ(*tray.balloon, (parlorwire::Balloon{"Parlorwire", "hello", 16, {3, 0}}));
}

TEST_F(TrayTest, ABalloonGoesAfterEightSeconds) {
  Balloon();
  Pass(7999);
  EXPECT_TRUE(tray.balloon);
  Pass(1);
  EXPECT_FALSE(tray.balloon);
  EXPECT_FALSE(app.Timer23->Enabled());
}

TEST_F(TrayTest, ASecondBalloonStartsTheTimeAnew) {
  Balloon("one");
  Pass(5000);
  Balloon("two");
  Pass(7999);
  ASSERT_TRUE(tray.balloon);
  EXPECT_EQ(tray.balloon->text, "two");
  Pass(1);
  EXPECT_FALSE(tray.balloon);
}

TEST_F(TrayTest, AnEmptyTextTakesTheBalloonAway) {
  Balloon();
  Pass(5000);
  ShowBalloon(client, {}, {}, 0, {});
  EXPECT_FALSE(tray.balloon);
  Pass(7999);
  EXPECT_TRUE(app.Timer23->Enabled());  // it ran, so it runs anew
}

TEST_F(TrayTest, AnEmptyTextStartsNoTime) {
  ShowBalloon(client, {}, {}, 0, {});
  EXPECT_FALSE(app.Timer23->Enabled());
  EXPECT_EQ(tray.removals, 1);
}

TEST_F(TrayTest, NothingTicksOnceABalloonHasGone) {
  Balloon();
  Pass(8000);
  const auto ticks = chat.platform.time.ticks();
  Pass(3600 * 1000);
  EXPECT_EQ(chat.platform.time.ticks(), ticks);
}

// ---- the blink ----

TEST_F(TrayTest, AMentionBlinksWithItsPictureTwiceASecond) {
  client.hooks.SetTrayBlink(2);
  tray.icons.clear();
  Pass(499);
  EXPECT_TRUE(tray.icons.empty());
  Pass(1501);
  EXPECT_THAT(tray.icons, ElementsAre(kWindow, kMention, kWindow, kMention));
}

TEST_F(TrayTest, APersonalMessageBlinksWithTheOther) {
  SetTrayBlink(client, 1);
  tray.icons.clear();
  Pass(2000);
  EXPECT_THAT(tray.icons, ElementsAre(kWindow, kPersonal, kWindow, kPersonal));
}

TEST_F(TrayTest, AMentionOutranksAPersonalMessage) {
  SetTrayBlink(client, 1);
  Pass(700);
  SetTrayBlink(client, 2);
  EXPECT_FALSE(app.Timer24->Enabled());
  Pass(1000);
  EXPECT_THAT(tray.icons, testing::Contains(kMention));
  EXPECT_THAT(tray.icons, Each(testing::Ne(kPersonal)));
}

TEST_F(TrayTest, APersonalMessageDoesNotOutrankAMention) {
  SetTrayBlink(client, 2);
  SetTrayBlink(client, 1);
  EXPECT_FALSE(app.Timer24->Enabled());
  EXPECT_TRUE(app.Timer25->Enabled());
}

TEST_F(TrayTest, Mode3PutsTheWindowsPictureBack) {
  SetTrayBlink(client, 2);
  Pass(1000);
  ASSERT_EQ(tray.icon, kMention);
  SetTrayBlink(client, 3);
  EXPECT_EQ(tray.icon, kWindow);
  for (auto* timer : {&app.Timer20, &app.Timer24, &app.Timer25})
    EXPECT_FALSE((*timer)->Enabled());
  const auto ticks = chat.platform.time.ticks();
  Pass(3600 * 1000);
  EXPECT_EQ(chat.platform.time.ticks(), ticks);
}

TEST_F(TrayTest, ABlinkBeginsWithTheWindowsPicture) {
  SetTrayBlink(client, 2);
  Pass(500);
  SetTrayBlink(client, 3);
  SetTrayBlink(client, 1);
  Pass(500);
  EXPECT_EQ(tray.icon, kWindow);
}

TEST_F(TrayTest, EachModeModifiesTheIcon) {
  for (const int mode : {1, 2, 3}) {
    tray.icons.clear();
    SetTrayBlink(client, mode);
    EXPECT_THAT(tray.icons, ElementsAre(kWindow)) << mode;
  }
  tray.icons.clear();
  SetTrayBlink(client, 4);
  EXPECT_TRUE(tray.icons.empty());
}

TEST_F(TrayTest, EachModeGivesABalloonItsWholeTime) {
  for (const int mode : {1, 2, 3}) {
    Balloon();
    Pass(5000);
    SetTrayBlink(client, mode);
    Pass(7999);
    EXPECT_TRUE(tray.balloon) << mode;
    Pass(1);
    EXPECT_FALSE(tray.balloon) << mode;
  }
}

TEST_F(TrayTest, AModeStartsNoTimeOfABalloon) {
  SetTrayBlink(client, 1);
  EXPECT_FALSE(app.Timer23->Enabled());
}

// ---- the flash of the task bar ----

TEST_F(TrayTest, TheTaskBarFlashesUntilTheWindowIsActive) {
  SetTrayBlink(client, 1);
  Pass(1000);
  EXPECT_THAT(desktop.flashes, ElementsAre(true, true));
  Balloon();
  desktop.window_active = true;
  Pass(500);
  EXPECT_THAT(desktop.flashes, ElementsAre(true, true, false));
  EXPECT_FALSE(tray.balloon);
  EXPECT_FALSE(Blinking());
  EXPECT_FALSE(app.Timer20->Enabled());
  EXPECT_EQ(tray.icon, kWindow);
}

TEST_F(TrayTest, TheActivationEndsItAtOnce) {
  SetTrayBlink(client, 2);
  Balloon();
  Pass(1000);
  desktop.window_active = true;
  client_main_Activate(client);
  EXPECT_FALSE(app.Timer20->Enabled());
  EXPECT_FALSE(Blinking());
  EXPECT_EQ(tray.icon, kWindow);
  EXPECT_FALSE(tray.balloon);
}

TEST_F(TrayTest, AnActivationWithoutAFlashLeavesTheBalloon) {
  Balloon();
  desktop.window_active = true;
  client_main_Activate(client);
  EXPECT_TRUE(tray.balloon);
  EXPECT_TRUE(desktop.flashes.empty());
}

TEST_F(TrayTest, APersonalMessageWhileTheWindowIsActiveRaisesABalloonForAMomentAndNoBlink) {
  desktop.window_active = true;
  NoticePersonalMessage(client, 0);
  EXPECT_TRUE(tray.balloon);
  Pass(500);
  EXPECT_FALSE(tray.balloon);
  EXPECT_THAT(tray.icons, Each(kWindow));
  EXPECT_FALSE(app.Timer20->Enabled());
  EXPECT_FALSE(Blinking());
}

TEST_F(TrayTest, APersonalMessageBlinksAndSaysWhere) {
  NoticePersonalMessage(client, 0);
  EXPECT_TRUE(app.Timer24->Enabled());
  EXPECT_TRUE(app.Timer20->Enabled());
  ASSERT_TRUE(tray.balloon);
  EXPECT_EQ(tray.balloon->text,
            "Вам пришло персональное сообщение!\r\nНик: alice\r\nКанал: lobby"_w);
  EXPECT_EQ(tray.balloon->about, BalloonAbout{0});
}

TEST_F(TrayTest, AMentionWhileTheWindowIsActiveRaisesNoBlink) {
  chat.EnterChannel();
  Pass(8000);
  desktop.window_active = true;
  chat.Deliver(kMentionLine);
  EXPECT_FALSE(Blinking());
  EXPECT_FALSE(tray.balloon);
  desktop.window_active = false;
  chat.Deliver(kMentionLine);
  EXPECT_TRUE(app.Timer25->Enabled());
  ASSERT_TRUE(tray.balloon);
  EXPECT_EQ(tray.balloon->about, BalloonAbout{0});
}

// ---- the window ----

TEST_F(TrayTest, AClickHidesAVisibleWindow) {
  Form_tray_LeftButtonUp(client, false);
  EXPECT_FALSE(desktop.window_visible);
}

TEST_F(TrayTest, AClickOnAWindowThatIsInFrontIsIgnored) {
  Form_tray_LeftButtonUp(client, true);
  EXPECT_TRUE(desktop.window_visible);
  desktop.window_visible = false;
  Form_tray_LeftButtonUp(client, true);
  EXPECT_EQ(desktop.restores, 0);
}

TEST_F(TrayTest, AClickRestoresAHiddenWindowInItsLastState) {
  client_main_Resize(client, WindowState::kMaximized);
  client_main_Resize(client, WindowState::kMinimized);
  ASSERT_FALSE(desktop.window_visible);
  Form_tray_LeftButtonUp(client, false);
  EXPECT_TRUE(desktop.window_visible);
  EXPECT_EQ(desktop.window_state, WindowState::kMaximized);
}

TEST_F(TrayTest, AWindowThatWasNotMaximizedComesBackSo) {
  client_main_Resize(client, WindowState::kMaximized);
  client_main_Resize(client, WindowState::kNormal);
  client_main_Resize(client, WindowState::kMinimized);
  Form_tray_LeftButtonUp(client, false);
  EXPECT_EQ(desktop.window_state, WindowState::kNormal);
}

TEST_F(TrayTest, WhenTheWindowComesBackTheBalloonGoesAlmostAtOnce) {
  desktop.window_visible = false;
  Balloon();
  Form_tray_LeftButtonUp(client, false);
  Pass(9);
  EXPECT_TRUE(tray.balloon);
  Pass(1);
  EXPECT_FALSE(tray.balloon);
  EXPECT_EQ(app.Timer23->Interval(), 8000);
}

TEST_F(TrayTest, ABalloonThatComesWithTheWindowStaysItsWholeTime) {
  desktop.window_visible = false;
  Form_tray_LeftButtonUp(client, false);
  Balloon();
  Pass(7999);
  EXPECT_TRUE(tray.balloon);
}

TEST_F(TrayTest, AResizeTakesTheBalloonAway) {
  Balloon();
  client_main_Resize(client, WindowState::kNormal);
  Pass(10);
  EXPECT_FALSE(tray.balloon);
}

TEST_F(TrayTest, MinimizingLeavesTheBalloon) {
  Balloon();
  client_main_Resize(client, WindowState::kMinimized);
  Pass(10);
  EXPECT_TRUE(tray.balloon);
}

TEST_F(TrayTest, AMinimizedWindowIsHidden) {
  client_main_Resize(client, WindowState::kMinimized);
  EXPECT_FALSE(desktop.window_visible);
}

TEST_F(TrayTest, WithoutATrayAMinimizedWindowStaysMinimized) {
  tray.available = false;
  client_main_Resize(client, WindowState::kMinimized);
  EXPECT_TRUE(desktop.window_visible);
}

TEST_F(TrayTest, WithoutATrayTheWindowIsMinimizedInsteadOfHidden) {
  tray.available = false;
  put_in_tray(client);
  EXPECT_TRUE(desktop.window_visible);
  EXPECT_EQ(desktop.window_state, WindowState::kMinimized);
}

TEST_F(TrayTest, AClickOnATrayThatCameLateBringsUpAMinimizedWindow) {
  desktop.window_state = WindowState::kMinimized;
  Form_tray_LeftButtonUp(client, false);
  EXPECT_TRUE(desktop.window_visible);
  EXPECT_EQ(desktop.window_state, WindowState::kNormal);
}

TEST_F(TrayTest, ATrayThatGoesBringsAHiddenWindowBack) {
  client_main_Resize(client, WindowState::kMaximized);
  put_in_tray(client);
  ASSERT_FALSE(desktop.window_visible);
  TrayGone(client);
  EXPECT_TRUE(desktop.window_visible);
  EXPECT_EQ(desktop.window_state, WindowState::kMaximized);
}

TEST_F(TrayTest, ATrayThatGoesLeavesAVisibleWindowAlone) {
  TrayGone(client);
  desktop.window_state = WindowState::kMinimized;
  TrayGone(client);
  EXPECT_EQ(desktop.restores, 0);
}

TEST_F(TrayTest, TheMenuShowsTheOneOrTheOther) {
  EXPECT_TRUE(StateOfTrayMenu(client).put_in_tray);
  EXPECT_FALSE(StateOfTrayMenu(client).restore_client);
  put_in_tray(client);
  EXPECT_FALSE(StateOfTrayMenu(client).put_in_tray);
  EXPECT_TRUE(StateOfTrayMenu(client).restore_client);
  restore_client(client);
  EXPECT_TRUE(desktop.window_visible);
}

TEST_F(TrayTest, TheItemsOfTheMenuWorkOnAnActiveWindow) {
  desktop.window_active = true;
  put_in_tray(client);
  EXPECT_FALSE(desktop.window_visible);
}

TEST_F(TrayTest, ASecondStartShowsTheWindowAsItWas) {
  client_main_Resize(client, WindowState::kMaximized);
  put_in_tray(client);
  ShowClient(client);
  EXPECT_TRUE(desktop.window_visible);
  EXPECT_EQ(desktop.window_state, WindowState::kMaximized);
  ShowClient(client);
  EXPECT_TRUE(desktop.window_visible);
}

// ---- a click on a balloon ----

TEST_F(TrayTest, AClickOnABalloonBringsUpItsTab) {
  desktop.SetTabVisible(3, true);
  put_in_tray(client);
  BalloonClicked(client, {3});
  EXPECT_TRUE(desktop.window_visible);
  EXPECT_EQ(desktop.active_tab, 3);
}

TEST_F(TrayTest, AClickOnABalloonOfAClosedTabBringsUpTheWindowAlone) {
  desktop.window_visible = false;
  BalloonClicked(client, {7});
  EXPECT_TRUE(desktop.window_visible);
  EXPECT_EQ(desktop.active_tab, 0);
  BalloonClicked(client, {});
  EXPECT_EQ(desktop.active_tab, 0);
}

TEST_F(TrayTest, TheTabThatIsThereIsNotClickedAgain) {
  int clicks = 0;
  desktop.on_tab_click = [&](int) { ++clicks; };
  BalloonClicked(client, {0});
  EXPECT_EQ(clicks, 0);
}

TEST_F(TrayTest, AClickOnABalloonOfAPersonalWindowRaisesThatOne) {
  pers_Click(client, 0);
  ASSERT_EQ(app.PersWindows.size(), 1U);
  PersonalWindow& window = *app.PersWindows[0];
  int raised = 0;
  window.hooks.Raise = [&] { ++raised; };
  desktop.window_visible = false;
  BalloonClicked(client, {-1, window.Handle});
  EXPECT_EQ(raised, 1);
  EXPECT_FALSE(desktop.window_visible);
  BalloonClicked(client, {-1, window.Handle + 1});
  EXPECT_EQ(raised, 1);
  EXPECT_TRUE(desktop.window_visible);
}

}  // namespace
}  // namespace parlorwire
