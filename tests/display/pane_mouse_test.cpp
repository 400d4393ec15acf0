#include "display/pane_mouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "session/personal_notice.h"
#include "session/status.h"
#include "support/chat.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr PaneColour kNickColour = Rgb(1, 1, 1);
constexpr PaneColour kTint = Rgb(2, 2, 2);
constexpr PaneColour kOwnColour = Rgb(3, 3, 3);

// Tab 0 is on a channel, with bob, an operator.
struct PaneMouseTest : testing::Test {
  PaneMouseTest() {
    chat.client.hooks.OpenUrl = [this](const Text& url) { opened.push_back(url); };
    chat.client.hooks.PopUpNickMenu = [this] { ++nick_menus; };
    chat.client.hooks.PopUpMenuCopy = [this](int tab) { copy_menus.push_back(tab); };
    chat.client.hooks.pers = [this](int tab) { personal.push_back(tab); };
    app.rRichColors.Nicks = kNickColour;
    app.rRichColors.NicksChoose = kTint;
    app.rFontMain.ColorMyNick = kOwnColour;
    chat.EnterChannel();
    chat.tab().UsersText.Append("bob", "10.0.0.1", "[+o]", "");
  }

  RichTextBox& Pane(int tab = 0) { return chat.tab(tab).Rich; }
  void Line(const Text& line, int tab = 0) { chat.Deliver(".." + line + "\n", tab); }
  // Where a text stands last in the pane.
  PanePosition At(std::string_view text, int tab = 0) {
    const std::size_t at = Pane(tab).Text().rfind(text);
    if (at == Text::npos) ADD_FAILURE() << text << " is not in the pane";
    return static_cast<PanePosition>(at);
  }
  PaneColour ColourAt(PanePosition at, int tab = 0) {
    return Pane(tab).RunsBetween(at, at + 1).front().format.colour;
  }
  void Move(PanePosition at, int tab = 0) { Rich_MouseMove(chat.client, tab, at); }
  void Click(PanePosition at, MouseButton button = MouseButton::kLeft, int tab = 0) {
    Move(at, tab);
    Rich_MouseDown(chat.client, tab, at, button);
    Rich_MouseUp(chat.client, tab, at, button);
  }
  bool Hand(int tab = 0) { return Pane(tab).MousePointer() == PanePointer::kCustom; }
  Text& Msg(int tab = 0) { return chat.platform.desktop.at(tab).msg; }

  Chat chat;
  AppState& app = chat.client.app;
  std::vector<Text> opened;
  std::vector<int> copy_menus;
  std::vector<int> personal;
  int nick_menus = 0;
};

constexpr auto kLeft = MouseButton::kLeft;
constexpr auto kRight = MouseButton::kRight;

// ---- nicks ----

TEST_F(PaneMouseTest, TheNickUnderTheMouseIsTinted) {
  Line("[16:45:57]bob:() hello");
  const PanePosition nick = At("bob:");
  for (const PanePosition at : {nick, nick + 3}) {
    Move(at);
    EXPECT_EQ(app.HoverNick, "bob:");
    EXPECT_EQ(ColourAt(nick), kTint);
    EXPECT_EQ(ColourAt(nick + 3), kTint);
    EXPECT_TRUE(Hand());
  }
  EXPECT_NE(ColourAt(nick - 1), kTint);
  EXPECT_NE(ColourAt(nick + 4), kTint);
  for (const PanePosition at : {nick - 1, nick + 4}) {
    Move(nick);
    Move(at);
    EXPECT_EQ(app.HoverNick, "");
    EXPECT_FALSE(Hand());
  }
}

TEST_F(PaneMouseTest, ANickWithTheColourOfARankComesBackInThatOfAllNicks) {
  Line("[16:45:57]bob:() hello");
  const PanePosition nick = At("bob:");
  EXPECT_EQ(ColourAt(nick), 0xFFFF00U);
  Move(nick);
  Move(At("hello"));
  EXPECT_EQ(ColourAt(nick), kNickColour);
  EXPECT_EQ(ColourAt(nick + 3), kNickColour);
}

TEST_F(PaneMouseTest, OnlyTheOwnNickKeepsItsColour) {
  Line("[16:45:57]Alice:() hello");
  const PanePosition nick = At("Alice:");
  Move(nick);
  EXPECT_EQ(ColourAt(nick), kTint);
  Move(At("hello"));
  EXPECT_EQ(ColourAt(nick), kOwnColour);
}

TEST_F(PaneMouseTest, FromNickToNickTheTintGoesAlong) {
  Line("[16:45:57]bob:() one");
  Line("[16:45:57]bob:() two");
  const PanePosition second = At("bob:");
  const PanePosition first = At("one") - 5;
  Move(first);
  Move(second);
  EXPECT_EQ(ColourAt(first), kNickColour);
  EXPECT_EQ(ColourAt(second), kTint);
}

TEST_F(PaneMouseTest, ATintWaitsForTheNextMove) {
  Line("[16:45:57]bob:() one");
  const PanePosition nick = At("bob:");
  Move(nick);
  Line("[16:45:57]bob:() two");
  EXPECT_EQ(ColourAt(nick), kTint);
  Move(At("two"));
  EXPECT_EQ(ColourAt(nick), kNickColour);
}

TEST_F(PaneMouseTest, BehindThreeSignsStandsTheNickOfAnEcho) {
  Line("[16:45:57] ### bob:() hello");
  EXPECT_TRUE(Contains(Pane().Text(), "[16:45:57] ### bob: hello"));
  Move(At("bob:"));
  EXPECT_EQ(app.HoverNick, "bob:");
  Move(At("###"));
  EXPECT_EQ(app.HoverNick, "");
}

TEST_F(PaneMouseTest, ATimeMayHoldABlank) {
  Line("[05/04/2004 23:02:38]bob:() hello");
  Move(At("bob:"));
  EXPECT_EQ(app.HoverNick, "bob:");
  Move(At("23:02:38"));
  EXPECT_EQ(app.HoverNick, "");
  EXPECT_NE(app.HoverTime, "");
  Line("[05/04/2004 23:02:38] ### dan:() hello");
  Move(At("dan:"));
  EXPECT_EQ(app.HoverNick, "dan:");
}

TEST_F(PaneMouseTest, ALineWithoutATimeShowsNoNick) {
  Line("bob:() hello");
  Move(At("bob: hello"));
  EXPECT_EQ(app.HoverNick, "");
  EXPECT_EQ(app.HoverTime, "");
}

TEST_F(PaneMouseTest, BehindALineFeedNoNickBegins) {
  Line("[16:45:57]bob:() one *n dan: two");
  Move(At("dan:"));
  EXPECT_EQ(app.HoverNick, "");
}

TEST_F(PaneMouseTest, LinesOfOtherKindsShowNoNick) {
  Line("[16:45:57]bob:() *** waves");
  Move(At("***"));
  EXPECT_EQ(app.HoverNick, "");
  Line("[16:45:57]dan comes in");
  Move(At("dan"));
  EXPECT_EQ(app.HoverNick, "");
  Move(At("comes"));
  EXPECT_EQ(app.HoverNick, "");
}

TEST_F(PaneMouseTest, TheMarksOfALineChangeNothing) {
  Line("[16:45:57]bob:() alice!");
  EXPECT_TRUE(Contains(Pane().Text(), ">[16:45:57] bob: alice!"));
  Move(At("bob:"));
  EXPECT_EQ(app.HoverNick, "bob:");
}

TEST_F(PaneMouseTest, ALeftClickPutsTheNickAheadOfWhatIsTyped) {
  Line("[16:45:57]bob:() hello");
  Msg() = "how are you";
  Click(At("bob:"));
  EXPECT_EQ(Msg(), "bob: how are you");
  EXPECT_EQ(chat.platform.desktop.focused_msg, 0);
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(PaneMouseTest, ARightClickOpensTheMenuOfTheNick) {
  Line("[16:45:57]bob:() hello");
  Click(At("bob:"), kRight);
  EXPECT_EQ(app.MenuNick, "bob");
  EXPECT_EQ(app.nick_menu.nickname, "bob");
  EXPECT_EQ(app.nick_menu.user_flags, "[+o]");
  EXPECT_EQ(nick_menus, 1);
  EXPECT_EQ(Msg(), "");
}

TEST_F(PaneMouseTest, ANickThatReadsLikeALinkIsANick) {
  Line("[16:45:57]www.x.ru:() hello");
  Click(At("www.x.ru:"));
  EXPECT_EQ(Msg(), "www.x.ru: ");
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(PaneMouseTest, TheSelectionOfThePaneStaysAsItIs) {
  Line("[16:45:57]bob:() hello");
  const PanePosition nick = At("bob:");
  Pane().ExSetSel(nick - 3, nick + 2);
  const Text before = Pane().Text();
  Move(nick);
  Move(At("hello"));
  EXPECT_EQ(Pane().SelStart(), nick - 3);
  EXPECT_EQ(Pane().SelLength(), 5);
  EXPECT_EQ(Pane().Text(), before);
}

TEST_F(PaneMouseTest, AClearedPaneIsNotColoured) {
  Line("[16:45:57]bob:() hello");
  Move(At("bob:"));
  Pane().Text("");
  PaneFormat tinted;
  tinted.colour = kTint;
  Pane().SelFormat(tinted);
  Pane().ReplaceSel(Text(2'000, 'x') + "\r\n");
  Line("[16:45:57]dan:() there");
  const auto runs = Pane().RunsBetween(0, 2'000);
  Move(At("there"));
  EXPECT_EQ(Pane().RunsBetween(0, 2'000), runs);
}

TEST_F(PaneMouseTest, ANickThatWasWrittenAnewKeepsItsColour) {
  Line("[16:45:57]bob:() hello");
  const PanePosition nick = At("bob:");
  const Text before = Pane().Text();
  Move(nick);
  Pane().Text(Pane().TextBetween(0, nick - 11));
  Pane().SelStart(Pane().Length());
  Line("[16:45:57]bob:() hello");
  EXPECT_EQ(Pane().Text(), before);
  Move(At("hello"));
  EXPECT_EQ(ColourAt(nick), 0xFFFF00U);
}

TEST_F(PaneMouseTest, ANickOnAPaneThatWasFilledAnewIsTintedAgain) {
  Line("[16:45:57]bob:() hello");
  const PanePosition nick = At("bob:");
  Move(nick);
  const Text text = Pane().Text();
  Pane().Text(text);
  Move(nick);
  EXPECT_EQ(ColourAt(nick), kTint);
}

TEST_F(PaneMouseTest, InAnotherTabTheFirstOnesTintGoes) {
  chat.tab(1).Login = "alice";
  chat.EnterChannel(1);
  Line("[16:45:57]bob:() hello");
  Line("[16:45:57]bob:() hello", 1);
  Move(At("bob:"));
  Move(At("hello", 1), 1);
  EXPECT_EQ(ColourAt(At("bob:")), kNickColour);
}

TEST_F(PaneMouseTest, WhenTheMouseLeavesNothingIsUnderIt) {
  Line("[16:45:57]bob:() hello");
  Move(At("bob:"));
  Rich_MouseLeave(chat.client, 0);
  EXPECT_EQ(ColourAt(At("bob:")), kNickColour);
  EXPECT_EQ(app.HoverNick, "");
  EXPECT_FALSE(Hand());
}

// ---- selecting ----

TEST_F(PaneMouseTest, WhileTheReaderSelectsNothingIsTinted) {
  Line("[16:45:57]bob:() hello");
  const PanePosition nick = At("bob:");
  Move(nick);
  Rich_MouseDown(chat.client, 0, nick, kLeft);
  Move(nick + 1);
  EXPECT_EQ(ColourAt(nick), kNickColour);
  EXPECT_EQ(app.HoverNick, "");
  Move(At("[16:45:57]") + 2);
  EXPECT_EQ(app.HoverTime, "");
  Rich_MouseUp(chat.client, 0, nick, kLeft);
  EXPECT_EQ(Msg(), "");
  EXPECT_FALSE(app.MouseSelecting);
}

TEST_F(PaneMouseTest, APressIsKnownByItsTabAndPlace) {
  Rich_MouseDown(chat.client, 3, 5, kLeft);
  EXPECT_TRUE(app.MouseSelecting);
  EXPECT_EQ(app.MouseDownTab, 3);
  EXPECT_EQ(app.MouseDownChar, 5);
}

TEST_F(PaneMouseTest, TheFirstCharacterOfThePaneDoesNotAnswer) {
  Pane().Text("first line\r\n");
  Rich_MouseDown(chat.client, 0, 0, kLeft);
  EXPECT_FALSE(app.MouseSelecting);
  Rich_MouseDown(chat.client, 0, 1, kRight);
  EXPECT_FALSE(app.MouseSelecting);
  Pane().ExSetSel(0, 5);
  Click(0, kRight);
  EXPECT_THAT(copy_menus, IsEmpty());
  Click(1, kRight);
  EXPECT_THAT(copy_menus, ElementsAre(0));
}

TEST_F(PaneMouseTest, ADoubleClickActsOnce) {
  Line("[16:45:57]bob:() hello");
  Click(At("bob:"));
  Rich_MouseUp(chat.client, 0, At("bob:"), kLeft);
  EXPECT_EQ(Msg(), "bob: ");
}

TEST_F(PaneMouseTest, ARightClickInTheSelectionOpensMenuCopy) {
  Line("[16:45:57]bob:() hello there");
  const PanePosition hello = At("hello");
  Pane().ExSetSel(hello, hello + 5);
  Click(hello - 1, kRight);
  Click(hello + 5, kRight);
  EXPECT_THAT(copy_menus, IsEmpty());
  Click(hello, kRight);
  Click(hello + 4, kRight);
  EXPECT_THAT(copy_menus, ElementsAre(0, 0));
  EXPECT_TRUE(app.menu_copy.Copies);
  EXPECT_EQ(app.menu_copy.Link, "");
}

TEST_F(PaneMouseTest, ANickInTheSelectionHasItsMenu) {
  Line("[16:45:57]bob:() hello there");
  Pane().ExSetSel(At("bob:"), At("there"));
  Click(At("bob:"), kRight);
  EXPECT_EQ(nick_menus, 1);
  EXPECT_THAT(copy_menus, IsEmpty());
}

// ---- times ----

TEST_F(PaneMouseTest, ATimeReachesFromBracketToBracket) {
  Line("[16:45:57]bob:() hello");
  const PanePosition time = At("[16:45:57]");
  for (const PanePosition at : {time, time + 5, time + 9}) {
    Move(at);
    EXPECT_EQ(app.HoverTime, "[16:45:57] bob: hello");
    EXPECT_TRUE(Hand());
  }
  Move(time + 10);
  EXPECT_EQ(app.HoverTime, "");
  EXPECT_FALSE(Hand());
}

TEST_F(PaneMouseTest, ATimeMayStandBehindMarks) {
  for (const Text& line : {Text("[1]bob:() alice"), Text("[2]alice:() hi"),
                           Text("[3]alice:() I am alice"), Text("[4]alice comes in")}) {
    Line(line);
    const PanePosition time = At(line.substr(0, 3));
    Move(time + 1);
    EXPECT_NE(app.HoverTime, "") << line;
    EXPECT_TRUE(app.HoverTime.starts_with('<') || app.HoverTime.starts_with('>')) << line;
    Move(time - 1);
    EXPECT_EQ(app.HoverTime, "") << line;
  }
}

TEST_F(PaneMouseTest, OtherBracketsAreNoTime) {
  Line("hello [there] everybody");
  Move(At("[there]") + 1);
  EXPECT_EQ(app.HoverTime, "");
  Line("[16:45:57]bob:() see [1]");
  Move(At("[1]") + 1);
  EXPECT_EQ(app.HoverTime, "");
}

TEST_F(PaneMouseTest, TheVeryFirstLineOfThePaneHasATimeToo) {
  Pane().Text("[16:45:57] first\r\n");
  Move(1);
  EXPECT_EQ(app.HoverTime, "[16:45:57] first");
  Move(0);
  EXPECT_EQ(app.HoverTime, "");
}

TEST_F(PaneMouseTest, ATimeMayStandBehindALineBreakInsideTheLine) {
  for (const char* end : {"\n", "\r"}) {
    Pane().Text("x" + Text(end) + "[16:45:57] first\r\n");
    Move(3);
    EXPECT_NE(app.HoverTime, "") << static_cast<int>(*end);
    Pane().Text("x" + Text(end) + "\t[16:45:57] first\r\n");
    Move(4);
    EXPECT_EQ(app.HoverTime, "") << static_cast<int>(*end);
  }
}

TEST_F(PaneMouseTest, ALeftClickAppendsTheTime) {
  Line("[16:45:57]bob:() alice, hello");
  Msg() = "you said at";
  Click(At("[16:45:57]") + 3);
  EXPECT_EQ(Msg(), "you said at [16:45:57]");
  EXPECT_EQ(chat.platform.desktop.focused_msg, 0);
}

TEST_F(PaneMouseTest, ARightClickAppendsTheLineWithItsMarkers) {
  Line("[16:45:57]bob:() one *n two *n three");
  EXPECT_TRUE(Contains(Pane().Text(), "one \n\t two \n\t three"));
  Msg() = "see";
  Click(At("[16:45:57]") + 3, kRight);
  EXPECT_EQ(Msg(), "see [16:45:57] bob: one *n two *n three");
  EXPECT_EQ(chat.platform.desktop.focused_msg, 0);
  EXPECT_EQ(nick_menus, 0);
}

// ---- notices ----

struct NoticeMouseTest : PaneMouseTest {
  NoticeMouseTest() {
    chat.tab(1).Login = "alice";
    chat.tab(1).Channel = "big hall";
    chat.platform.desktop.SetTabVisible(1, true);
    chat.EnterChannel(1);
    Line("[16:45:56]bob:() first", 1);
    Line("[16:45:57]bob:() look, alice", 1);
    EXPECT_TRUE(Contains(Pane().Text(), "Перейти"_w));
  }
  PanePosition Word() { return At("Перейти"_w); }
  SimulatedDesktop& desktop = chat.platform.desktop;
  using Box = SimulatedDesktop::Box;
};

TEST_F(NoticeMouseTest, ItsWordLeadsToTheLine) {
  Move(Word());
  EXPECT_TRUE(Hand());
  Click(Word() + 6);
  EXPECT_EQ(desktop.active_tab, 1);
  EXPECT_EQ(Pane(1).SelStart(), At(">[16:45:57] bob: look", 1));
  EXPECT_EQ(Pane(1).SelLength(), 0);
  EXPECT_FALSE(Pane(1).HideSelection());
  EXPECT_THAT(desktop.boxes, IsEmpty());
}

TEST_F(NoticeMouseTest, BehindItsWordAndByTheRightButtonNothingHappens) {
  Click(Word() + 7);
  Click(Word(), kRight);
  EXPECT_EQ(desktop.active_tab, 0);
  EXPECT_THAT(desktop.boxes, IsEmpty());
}

TEST_F(NoticeMouseTest, OfSeveralNoticesEachLeadsToItsOwnLine) {
  const PanePosition first = Word();
  Line("[16:46:00]bob:() alice, again", 1);
  Click(Word());
  EXPECT_EQ(Pane(1).SelStart(), At(">[16:46:00]", 1));
  desktop.active_tab = 0;
  Click(first);
  EXPECT_EQ(Pane(1).SelStart(), At(">[16:45:57]", 1));
}

TEST_F(NoticeMouseTest, ItsFirstLineIsReadFromTheEnd) {
  for (const Text& channel : {Text("big [hall"), Text("big id#7 hall")}) {
    chat.tab(1).Channel = channel;
    Line("[16:46:00]bob:() alice, again", 1);
    Click(Word());
    EXPECT_EQ(desktop.active_tab, 1) << channel;
    EXPECT_EQ(Pane(1).SelStart(), At(">[16:46:00]", 1)) << channel;
    desktop.active_tab = 0;
  }
}

TEST_F(NoticeMouseTest, TheCaseOfItsFirstWordDoesNotCount) {
  Pane().Text("x\r\nКАНАЛ big hall [alice] id#5\r\n>>x\r\nПерейти\r\n"_w);
  Click(Word());
  EXPECT_EQ(desktop.active_tab, 1);
  EXPECT_EQ(Pane(1).SelStart(), 5);
}

TEST_F(NoticeMouseTest, ATabThatIsClosedIsNamed) {
  desktop.SetTabVisible(1, false);
  Click(Word());
  EXPECT_THAT(desktop.boxes,
              ElementsAre(Box{"Невозможно перейти на канал big hall, он не открыт в клиенте!"_w,
                              BoxIcon::kExclamation}));
  EXPECT_EQ(desktop.active_tab, 0);
  EXPECT_TRUE(Contains(Pane().Text(), "Перейти"_w));
}

TEST_F(NoticeMouseTest, ATabOnAnotherChannelOrWithAnotherNickIsNotTheOne) {
  chat.tab(1).Channel = "big";
  Click(Word());
  chat.tab(1).Channel = "big hall";
  chat.tab(1).Login = "al";
  Click(Word());
  EXPECT_EQ(desktop.boxes.size(), 2U);
  EXPECT_EQ(desktop.active_tab, 0);
  chat.tab(4).Login = "alice";
  chat.tab(4).Channel = "big hall";
  desktop.SetTabVisible(4, true);
  Pane(4).Text(Pane(1).Text());
  Click(Word());
  EXPECT_EQ(desktop.active_tab, 4);
}

TEST_F(NoticeMouseTest, APaneThatIsTooShortByNowIsNotGoneTo) {
  Pane(1).Text("");
  Click(Word());
  EXPECT_THAT(desktop.boxes,
              ElementsAre(Box{"Не могу найти данное сообщение!"_w, BoxIcon::kExclamation}));
  EXPECT_EQ(desktop.active_tab, 0);
}

TEST_F(NoticeMouseTest, AnIdAtTheVeryEndIsStillThere) {
  const Text header = Pane().Text();
  const std::size_t id_at = header.rfind(" id#") + 4;
  const auto id = static_cast<std::size_t>(std::stoll(header.substr(id_at)));
  Pane(1).Text(Text(id, 'x'));
  Click(Word());
  EXPECT_EQ(desktop.active_tab, 1);
  desktop.active_tab = 0;
  Pane(1).Text(Text(id - 1, 'x'));
  Click(Word());
  EXPECT_EQ(desktop.active_tab, 0);
  EXPECT_EQ(desktop.boxes.size(), 1U);
}

TEST_F(NoticeMouseTest, TheQuotedLineHasItsTimeAndItsNick) {
  Move(At(">>>[16:45:57]") + 5);
  EXPECT_EQ(app.HoverTime, ">>>[16:45:57] bob: look, alice");
  Move(At("bob: look"));
  EXPECT_EQ(app.HoverNick, "bob:");
  Move(At("[alice] id#") + 1);
  EXPECT_EQ(app.HoverTime, "");
}

TEST_F(NoticeMouseTest, AMessageOfThatWordLeadsNowhere) {
  Line("[16:45:57]bob:() Перейти"_w);
  Click(At("Перейти"_w));
  Line("[16:45:57]bob:() x *n Перейти *n y"_w);
  Click(At("Перейти"_w));
  EXPECT_EQ(desktop.active_tab, 0);
  EXPECT_THAT(desktop.boxes, IsEmpty());
}

TEST_F(NoticeMouseTest, AWordThatStandsInNoNoticeLeadsNowhere) {
  for (const Text& text : {"x\r\nПерейти\r\n"_w, "x\r\nКанал hall [alice id#5\r\nПерейти\r\n"_w,
                           "x\r\nКанал hall [alice] id#no\r\nПерейти\r\n"_w,
                           "x\r\nКанал\r\nПерейти\r\n"_w, "x\r\nКанал h\r\nПерейти\r\n"_w,
                           "x\r\nКанал hall [alice] id#99999999999999999999\r\nПерейти\r\n"_w}) {
    Pane().Text(text);
    Click(At("Перейти"_w));
    EXPECT_EQ(desktop.active_tab, 0);
    EXPECT_THAT(desktop.boxes, IsEmpty());
  }
}

TEST_F(PaneMouseTest, TheNoticeOfAPersonalMessageCallsForTheWindow) {
  for (const UiLanguage language : {UiLanguage::kRussian, UiLanguage::kEnglish}) {
    app.Language = language;
    StatusOut(chat.client, InLanguage(chat.client, kPersonalNotice), StatusMode::kLine, 0);
    const PanePosition start = At(InLanguage(chat.client, kPersonalNotice));
    personal.clear();
    Move(start);
    EXPECT_TRUE(app.PersonalArmed);
    EXPECT_TRUE(Hand());
    Click(start + 10);
    EXPECT_THAT(personal, ElementsAre(0));
    Click(start + 10, kRight);
    Click(start + Len(InLanguage(chat.client, kPersonalNotice)));
    EXPECT_EQ(personal.size(), 1U);
  }
}

TEST_F(PaneMouseTest, TheWordAloneIsANoticeToo) {
  for (const Text& notice : {"персональное_сообщение!"_w, Text("personal_message!")}) {
    Pane().Text("x\r\n[16:45:57]  " + notice + " \r\n");
    Move(At(notice));
    EXPECT_TRUE(app.PersonalArmed);
  }
  Line("[16:45:57]bob:() personal_message!");
  Move(At("personal_message!"));
  EXPECT_FALSE(app.PersonalArmed);
}

// ---- links and addresses ----

TEST_F(PaneMouseTest, ALinkReachesFromItsFirstToTheLastLetterOfItsWord) {
  Line("[16:45:57]bob:() see www.a.ru, or *n HTTP://b and 10.0.*.*.");
  const PanePosition link = At("www.a.ru,");
  for (const PanePosition at : {link, link + 7, link + 8}) {
    Move(at);
    EXPECT_EQ(app.HoverLink, "www.a.ru");
    EXPECT_TRUE(Hand());
  }
  for (const PanePosition at : {link - 1, link + 9, At("see"), At("or")}) {
    Move(at);
    EXPECT_EQ(app.HoverLink, "");
    EXPECT_FALSE(Hand());
  }
  Move(At("HTTP://b"));
  EXPECT_EQ(app.HoverLink, "HTTP://b");
  Move(At("10.0.*.*"));
  EXPECT_EQ(app.HoverIP, "10.0.*.*");
  EXPECT_EQ(app.HoverLink, "");
}

TEST_F(PaneMouseTest, BehindALinkThatEndsALineThereIsNone) {
  Line("[16:45:57]bob:() see www.a.ru");
  const PanePosition link = At("www.a.ru");
  Move(link + 7);
  EXPECT_EQ(app.HoverLink, "www.a.ru");
  Move(link + 8);
  EXPECT_EQ(app.HoverLink, "");
  EXPECT_FALSE(Hand());
}

TEST_F(PaneMouseTest, AClickOpensTheLink) {
  Line("[16:45:57]bob:() see www.a.ru now");
  Click(At("www.a.ru") + 7);
  EXPECT_TRUE(Hand());
  EXPECT_THAT(opened, ElementsAre("www.a.ru"));
  Click(At("now"));
  EXPECT_EQ(opened.size(), 1U);
}

TEST_F(PaneMouseTest, ARightClickOnALinkOpensMenuCopyForIt) {
  Line("[16:45:57]bob:() see www.a.ru now");
  Pane().SelStart(0);
  Click(At("www.a.ru"), kRight);
  EXPECT_THAT(opened, IsEmpty());
  EXPECT_THAT(copy_menus, ElementsAre(0));
  EXPECT_EQ(app.menu_copy.Link, "www.a.ru");
  EXPECT_FALSE(app.menu_copy.Copies);
  Pane().ExSetSel(At("see"), At("now"));
  Click(At("www.a.ru"), kRight);
  EXPECT_EQ(app.menu_copy.Link, "www.a.ru");
  EXPECT_TRUE(app.menu_copy.Copies);
}

TEST_F(PaneMouseTest, AClickOnAnAddressOpensThePageAboutIt) {
  Line("[16:45:57]bob comes in from 10.0.*.*");
  Click(At("10.0.*.*"), kRight);
  EXPECT_THAT(opened, IsEmpty());
  Click(At("10.0.*.*"));
  EXPECT_THAT(opened, ElementsAre("http://chat.example/serv/wwwwhois/nph-wwwtr.cgi?server="
                                  "10.0.*.*&resolve=ripe&submit=++OK++"));
}

TEST_F(PaneMouseTest, OnlyATabOnAChannelAnswers) {
  Line("[16:45:57]bob:() see www.a.ru");
  chat.tab().Connected = false;
  for (const char* text : {"bob:", "www.a.ru", "[16:45:57]"}) {
    Move(At(text) + 1);
    EXPECT_FALSE(Hand());
  }
  EXPECT_EQ(app.HoverNick + app.HoverTime + app.HoverLink, "");
}

// ---- by keyboard ----

TEST_F(PaneMouseTest, AKeyActsOnWhatStandsAtTheCaret) {
  Line("[16:45:57]bob:() see www.a.ru now");
  const PanePosition link = At("www.a.ru");
  ClickAtCaret(chat.client, 0, {link, link}, link, kLeft);
  ClickAtCaret(chat.client, 0, {link - 4, link}, link, kLeft);
  EXPECT_EQ(opened.size(), 2U);
  ClickAtCaret(chat.client, 0, {link, link + 8}, link + 8, kLeft);
  EXPECT_EQ(opened.size(), 3U);
  ClickAtCaret(chat.client, 0, {link + 8, link + 8}, link + 8, kLeft);
  ClickAtCaret(chat.client, 0, {link + 8, link + 9}, link + 8, kLeft);
  EXPECT_EQ(opened.size(), 3U);
  EXPECT_EQ(app.HoverLink, "");
  EXPECT_FALSE(app.MouseSelecting);
  EXPECT_FALSE(Hand());
}

TEST_F(PaneMouseTest, AKeyLeavesNoTint) {
  Line("[16:45:57]bob:() hello");
  const PanePosition nick = At("bob:");
  ClickAtCaret(chat.client, 0, {nick, nick + 4}, nick + 4, kRight);
  EXPECT_EQ(nick_menus, 1);
  EXPECT_EQ(ColourAt(nick), kNickColour);
}

TEST_F(PaneMouseTest, ByTheMenuKeyASelectionHasItsMenu) {
  Line("[16:45:57]bob:() hello");
  const PanePosition hello = At("hello");
  Pane().ExSetSel(hello, hello + 5);
  ClickAtCaret(chat.client, 0, {hello, hello + 5}, hello + 5, kRight);
  EXPECT_THAT(copy_menus, ElementsAre(0));
}

TEST_F(PaneMouseTest, ByTheMenuKeyASelectionUpToALinkIsCopied) {
  Line("[16:45:57]bob:() see www.a.ru");
  const PanePosition link = At("www.a.ru");
  Pane().ExSetSel(link - 4, link);
  ClickAtCaret(chat.client, 0, {link - 4, link}, link, kRight);
  EXPECT_THAT(copy_menus, ElementsAre(0));
  EXPECT_EQ(app.menu_copy.Link, "www.a.ru");
  EXPECT_TRUE(app.menu_copy.Copies);
}

// ---- lines that are made to annoy ----

TEST_F(PaneMouseTest, ALineOfLineFeedsIsOneLine) {
  Text text;
  for (int i = 0; i < 20'000; ++i)
    text += " *n";
  Line("[16:45:57]bob:() first" + text + " www.a.ru last");
  Move(At("www.a.ru"));
  EXPECT_EQ(app.HoverLink, "www.a.ru");
  Click(At("[16:45:57]") + 1, kRight);
  EXPECT_TRUE(Msg().ends_with(" *n www.a.ru last"));
  EXPECT_TRUE(Msg().starts_with(" [16:45:57] bob: first *n"));
}

}  // namespace
}  // namespace parlorwire
