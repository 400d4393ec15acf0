#include "session/channel_list.h"

#include <gtest/gtest.h>

#include "session/http_answer.h"
#include "session/leaving.h"
#include "support/chat.h"
#include "support/scrolled_view.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

constexpr PaneColour kRed = 255, kYellow = 65535, kGreen = 65280, kBlue = 16711680;

PaneFormat Face(PaneColour colour, int size, bool bold, PaneAlignment alignment) {
  PaneFormat format;
  format.font_name = "verdana";
  format.colour = colour;
  format.font_size = size;
  format.bold = bold;
  format.alignment = alignment;
  return format;
}

struct ChannelList : testing::Test {
  // What the page leaves in the pane behind the line break of its head.
  std::vector<std::pair<Text, PaneFormat>> Shown(const Text& page) {
    chat.tab().Channel = "";
    chat.tab().Rich.Text("");
    chat.tab().ChannelListPage = page;
    ShowChannelList(chat.client, 0);
    std::vector<std::pair<Text, PaneFormat>> runs;
    for (const PaneRun& run : chat.tab().Rich.RunsBetween(2, chat.tab().Rich.Length()))
      runs.emplace_back(chat.tab().Rich.TextBetween(run.start, run.start + run.length), run.format);
    return runs;
  }
  Chat chat;
};

using Runs = std::vector<std::pair<Text, PaneFormat>>;

TEST_F(ChannelList, AChannelHasALabelAndABlueName) {
  PaneFormat label = Face(kYellow, 10, true, PaneAlignment::kCentre);
  label.italic = label.underline = true;
  EXPECT_EQ(Shown("channel: lobby\n"),
            (Runs{{"Канал: "_w, label},
                  {"lobby\r\n\r\n", Face(kBlue, 12, true, PaneAlignment::kCentre)}}));
}

TEST_F(ChannelList, FlagsAreGreenAndPlain) {
  EXPECT_EQ(Shown("chflags: +i\n"),
            (Runs{{"Флаги: +i\r\n"_w, Face(kGreen, 12, false, PaneAlignment::kLeft)}}));
}

TEST_F(ChannelList, EmptyFlagsPrintTheLabelAloneAndABlankPrintsNothing) {
  EXPECT_EQ(Shown("chflags:\n"),
            (Runs{{"Флаги:\r\n"_w, Face(kGreen, 12, false, PaneAlignment::kLeft)}}));
  EXPECT_EQ(Shown("chflags: \n"), Runs{});
}

TEST_F(ChannelList, ATopicHasAYellowLabelAndIsTrimmed) {
  EXPECT_EQ(Shown("topic:  a b  \n"),
            (Runs{{"Тема канала: "_w, Face(kYellow, 10, true, PaneAlignment::kLeft)},
                  {"a b\r\n", Face(kGreen, 12, true, PaneAlignment::kLeft)}}));
}

TEST_F(ChannelList, AnEmptyTopicPrintsNothing) {
  EXPECT_EQ(Shown("topic:   \n"), Runs{});
}

TEST_F(ChannelList, AUserEndsAtALineEndATabOrSevenBlanks) {
  const PaneFormat face = Face(kRed, 10, false, PaneAlignment::kLeft);
  EXPECT_EQ(Shown("user: bob \nuser:carol\t x\nuser:d e       f\n"),
            (Runs{{"bob\r\ncarol\r\nd e\r\n", face}}));
}

TEST_F(ChannelList, KeysMatchAnywhereAndInTheirCaseOnly) {
  EXPECT_EQ(Shown("x user:bob\n").size(), 1U);
  EXPECT_EQ(Shown("USER:bob\n"), Runs{});
}

TEST_F(ChannelList, AKeyInsideAValueMatchesToo) {
  const Runs runs = Shown("topic: x user:bob\n");
  EXPECT_EQ(runs.back().first, "bob\r\n");
  EXPECT_EQ(runs[1].first, "x user:bob\r\n");
}

TEST_F(ChannelList, APageWithoutKeysShowsAnEmptyList) {
  EXPECT_EQ(Shown("nothing here\n"), Runs{});
  EXPECT_EQ(chat.Pane(), "\r\n");
}

TEST_F(ChannelList, LetsEventsRunAtEachRecord) {
  Shown("user: a\nuser: b\n");
  EXPECT_EQ(chat.platform.desktop.yields, 2);
}

// A pane of some twenty lines with a view of five, and a list that comes behind them.
struct ScrolledChannelList : ChannelList {
  ScrolledChannelList() {
    for (int i = 0; i < 20; ++i)
      chat.tab().Rich.ReplaceSel("line\r\n");
    view.Scroll(PaneScroll::kBottom);
  }
  void Show(const Text& page) {
    chat.tab().ChannelListPage = page;
    ShowChannelList(chat.client, 0);
  }
  ScrolledView view{chat.tab().Rich, 5};
  const Text page = "channel: hall\nchflags: +k\ntopic: news\nuser: a\nuser: b\n";
};

TEST_F(ScrolledChannelList, AReaderAtTheBottomFollowsItToItsEnd) {
  Show(page);  // behind the words of a refusal
  EXPECT_TRUE(view.AtEnd()) << view.Top();
  chat.tab().LeavePending = true;
  Show(page);  // behind a line break
  EXPECT_TRUE(view.AtEnd()) << view.Top();
}

TEST_F(ScrolledChannelList, AReaderAtTheBottomFollowsAnEmptyListToo) {
  Show("");
  EXPECT_TRUE(view.AtEnd()) << view.Top();
}

TEST_F(ScrolledChannelList, AReaderFurtherUpStaysThere) {
  view.Scroll(PaneScroll::kLineUp);
  const int top = view.Top();
  Show(page);
  EXPECT_EQ(view.Top(), top);
}

TEST_F(ScrolledChannelList, AReaderWhoGoesUpWhileItComesStaysThere) {
  int top = 0;
  chat.platform.desktop.on_yield = [&] {
    if (top == 0) {
      view.Scroll(PaneScroll::kLineUp);
      top = view.Top();
    }
  };
  Show(page);
  EXPECT_EQ(view.Top(), top);
}

TEST_F(ChannelList, ARefusedChannelHasARedHeading) {
  chat.tab().ChannelListPage = "";
  ShowChannelList(chat.client, 0);
  EXPECT_EQ(chat.Pane(), "Доступ на канал lobby с Вашего ника или адреса запрещен!\r\n\r\n"_w);
  EXPECT_EQ(chat.tab().Rich.Runs()[0].format, Face(kRed, 15, true, PaneAlignment::kCentre));
}

TEST_F(ChannelList, LeavingAChannelIsNoRefusal) {
  chat.tab().LeavePending = true;
  ShowChannelList(chat.client, 0);
  EXPECT_EQ(chat.Pane(), "\r\n");
}

TEST_F(ChannelList, APageCutShortEndsThereAndTheFailureIsLoggedAtTheClose) {
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) +
               "этот стиль (номер 9) предназначен для роботов\nuser: a\nchannel: lob"_w);
  chat.Winsock1().PeerCloses();
  EXPECT_TRUE(chat.Pane().ends_with(
      "Получение списка каналов... Ok.\r\n[12:00:00] Построение и форматирование... Ok.\r\n\r\n"
      "a\r\n"_w));
  EXPECT_EQ(chat.ErrorLog(),
            "[21.11.2026 12:00:00] Error 5 Invalid procedure call or argument. Function: "
            "Winsock1_Close\r\n");
  EXPECT_EQ(chat.tab().ChannelListPage, "");
  EXPECT_EQ(chat.platform.desktop.at(0).caption, "Список каналов"_w);
  EXPECT_TRUE(chat.platform.desktop.close_tab_enabled);
  EXPECT_TRUE(chat.tab().Rich.Redraw());
}

TEST_F(ChannelList, NoReconnectFollowsAList) {
  chat.client.app.Language = UiLanguage::kEnglish;
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "\nid=1\nchannel: a\n");
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.platform.desktop.at(0).caption, "Channel list");
  const int connects = chat.Winsock1().connects;
  chat.platform.time.Advance(3600000);
  EXPECT_EQ(chat.Winsock1().connects, connects);
}

// What stands in a pane of a page that comes whole, by either way.
TEST_F(ChannelList, AHundredThousandUsersAreListed) {
  Text page = "этот стиль (номер 9) предназначен для роботов\nchannel: a\n"_w;
  for (int i = 0; i < 100'000; ++i)
    page += "user: nick" + std::to_string(i) + "\n";
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + page);
  chat.Winsock1().PeerCloses();
  EXPECT_TRUE(chat.Pane().ends_with("nick99998\r\nnick99999\r\n"));
  EXPECT_EQ(chat.ErrorLog(), "");

  chat.tab().Rich.Text("");
  LeaveChannel(chat.client, 0);
  chat.Winsock5().Accept();
  chat.Winsock5().Deliver(Koi(page));
  chat.Winsock5().PeerCloses();
  EXPECT_TRUE(chat.Pane().ends_with("nick99998\r\nnick99999\r\n"));
}

TEST_F(ChannelList, MegabytesInOneLineAreOneValue) {
  const Text value(4'000'000, 'x');
  EXPECT_EQ(Shown("junk" + value + " user:" + value + "\n"),
            (Runs{{value + "\r\n", Face(kRed, 10, false, PaneAlignment::kLeft)}}));
  EXPECT_EQ(Shown(value), Runs());
}

TEST_F(ChannelList, APageMayBeCutAtAnyByte) {
  const Text page =
      "\n\nchannel: hall\nchflags: +k\ntopic: hot: news\nuser: ann\t[+o]\nuser: bob       x\n";
  Shown(page);
  const Text whole = chat.Pane();
  for (std::size_t length = 0; length < page.size(); ++length) {
    try {
      Shown(page.substr(0, length));
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.number, fault::kInvalidCall) << length;
    }
    EXPECT_TRUE(whole.starts_with(chat.Pane())) << length;
  }
}

TEST_F(ChannelList, AGoodPageIsAnnouncedWithItsWordsAndClosedWithOk) {
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "\nid=1\nuser: bob\n");
  chat.Winsock1().PeerCloses();
  EXPECT_TRUE(chat.Pane().ends_with(
      "Получение списка каналов... Ok.\r\n[12:00:00] Построение и форматирование... Ok.\r\n\r\n"
      "bob\r\n"_w))
      << chat.Pane();
  EXPECT_EQ(chat.ErrorLog(), "");
}

TEST_F(ChannelList, AListIsRenderedOnceAndNeedsTheServiceForAnother) {
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "\nid=1\nuser: bob\n");
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.tab().ChannelListPage, "");
  const Text pane = chat.Pane();
  ShowChannelList(chat.client, 0);
  EXPECT_EQ(chat.Pane(), pane + "\r\n");
}

TEST_F(ChannelList, AConnectInTheMiddleEndsTheRendering) {
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "\nid=1\nuser: bob\nuser: carl\n");
  chat.platform.desktop.on_yield = [this] {
    chat.platform.desktop.on_yield = nullptr;
    chat.tab().ClearPanesOnConnect = true;
    ConnectToChat(chat.client, 0);
  };
  chat.Winsock1().PeerCloses();
  EXPECT_EQ(chat.Pane(), "[12:00:00] Подключение к чату...\r\n"_w);
  EXPECT_TRUE(chat.tab().Rich.Redraw());
}

TEST_F(ChannelList, TheListIsPaintedAsOne) {
  bool painted = true;
  chat.platform.desktop.on_yield = [&] { painted = chat.tab().Rich.Redraw(); };
  Shown("user: a\n");
  EXPECT_FALSE(painted);
  EXPECT_TRUE(chat.tab().Rich.Redraw());
}

TEST_F(ChannelList, AKeyRepeatedWithoutALineEndDoesNotFillTheMemory) {
  Text page;
  for (int i = 0; i < 20'000; ++i)
    page += "user:";
  chat.tab().Channel = "";
  chat.tab().ChannelListPage = page + "\n";
  try {
    ShowChannelList(chat.client, 0);
    ADD_FAILURE() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, 7);
    EXPECT_EQ(fault.description, "Out of memory");
  }
  EXPECT_LT(chat.tab().Rich.Length(), 40'000'000);
}

TEST_F(ChannelList, AFrameThatNobodyReadsDoesNotFillTheMemory) {
  chat.OpenFrame();
  chat.Deliver(Text(kGoodHeader) + "<html>something else\n");
  const Text chunk(4 * 1024 * 1024, 'x');
  for (int i = 0; i < 6; ++i)
    chat.Deliver(chunk);
  EXPECT_EQ(chat.tab().ChannelListPage.size(), kLargestAnswer);
}

TEST_F(ChannelList, ATabThatIsClosedWhileItsLoginIsSavedDoesNotEnter) {
  chat.platform.files.files["config.ini"] = "[Main]\r\nLogins=1\r\nLogin0=alice\r\n";
  chat.platform.desktop.on_yield = [this] { ++chat.tab().SessionNumber; };
  EnterListedChannel(chat.client, 0, "hall");
  EXPECT_EQ(chat.Winsock1().connects, 0);
}

}  // namespace
}  // namespace parlorwire
