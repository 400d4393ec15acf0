#include "session/frame_stream.h"

#include <gtest/gtest.h>

#include <array>

#include "support/chat.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

// The frame as it comes from the socket; what the reader hands on and what it says to the chat.
struct Frame : testing::Test {
  Frame() { Watch(chat); }
  void Watch(Chat& watched) {
    watched.client.hooks.ParseChatLine = [this](const Text& line, int) { lines.push_back(line); };
    watched.client.hooks.SayBot = [this](const Text& text, int) { said.push_back(text); };
    watched.client.hooks.UpdateUsersFrame = [this](int tab) { users_asked.push_back(tab); };
    watched.client.hooks.ShowBalloon = [this](const Text&, const Text& text, int) {
      balloons.push_back(text);
    };
  }
  // The status lines since the frame was asked for.
  Text StatusLines() {
    const Text pane = chat.Pane();
    const std::string_view start = W<"Чтение с канала...">;
    const std::size_t at = pane.find(start);
    return at == Text::npos ? pane : pane.substr(at + start.size());
  }
  Text FirstChunk(std::string_view body) { return Text(kGoodHeader) + Text(body); }

  using Lines = std::vector<Text>;
  Chat chat;
  Lines lines, said, balloons;
  std::vector<int> users_asked;
};

TEST_F(Frame, TheSampleOfTheRobotsStyle) {
  chat.OpenFrame();
  chat.Deliver(
      "HTTP/1.0 200 OK\n"
      "\n"
      "<pre>\n"
      "..[16:45:57]alice:() hello\n"
      "..[16:45:59]bob приходит на канал\n"
      "<!-- -->\n"
      "..[16:46:10]alice:(quietly) one &amp; two\n"
      "<script>\n"
      "</script>..[16:46:12]bob:() hi\n"_w);
  EXPECT_EQ(lines, (Lines{"..[16:45:57]alice:() hello", "..[16:45:59]bob приходит на канал"_w,
                          "..[16:46:10]alice:(quietly) one & two", "..[16:46:12]bob:() hi"}));
  EXPECT_TRUE(chat.tab().Timer2->Enabled());
}

TEST_F(Frame, EnteringAChannelSetsTheFlagsAndTellsTheUser) {
  chat.EnterChannel();
  EXPECT_TRUE(chat.tab().Connected);
  EXPECT_TRUE(chat.tab().EverConnected);
  EXPECT_TRUE(chat.platform.desktop.at(0).controls_enabled);
  EXPECT_EQ(users_asked, std::vector<int>{0});
  EXPECT_EQ(balloons, Lines{"Клиент успешно подключен!\r\nНик: alice\r\nКанал: lobby"_w});
  EXPECT_EQ(StatusLines(), " Ok.\r\n[12:00:00] Проверка установленного стиля... s9.\r\n"_w);
}

// ---- the first chunk ----

TEST_F(Frame, BothStatusLinesAndBothBlankLinesAreCut) {
  for (const char* header : {"HTTP/1.0 200 OK\r\na: b\r\n\r\n", "HTTP/1.1 200 OK\r\n\r\n",
                             "HTTP/1.0 200\n\n", "HTTP/1.1 200 Fine\na: b\n\n"}) {
    Chat fresh;
    Watch(fresh);
    lines.clear();
    fresh.OpenFrame();
    fresh.Deliver(Text(header) + "<pre>\nx:\n");
    EXPECT_TRUE(fresh.tab().Connected) << header;
    EXPECT_EQ(lines, Lines{"x:"}) << header;
  }
}

TEST_F(Frame, AHeaderWithoutABodyLeavesALineFeedForTheNextChunk) {
  chat.OpenFrame();
  chat.Deliver(kGoodHeader);
  EXPECT_EQ(chat.tab().LineCarry, "\n");
  EXPECT_FALSE(chat.tab().Connected);
  chat.Deliver("<pre>\n");
  EXPECT_TRUE(chat.tab().Connected);
}

TEST_F(Frame, AChunkWithTheStatusLineButNoBlankLineEndsInTheUnknownStyle) {
  chat.OpenFrame();
  chat.Deliver("HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n");
  EXPECT_TRUE(chat.tab().IgnoreStream);
  EXPECT_NE(StatusLines().find("Проверка установленного стиля... N/A."_w), Text::npos);
  EXPECT_EQ(chat.ErrorLog(),
            "[21.11.2026 12:00:00] Error: Unknown style or server ansver. Debug info:\r\n"
            "_!_HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n");
}

TEST_F(Frame, AnotherStatusLineIsNotCutAndIsAnUnknownStyle) {
  chat.OpenFrame();
  chat.Deliver("HTTP/1.0 404 Not found\r\n\r\n<pre>\n");
  EXPECT_FALSE(chat.tab().Connected);
  EXPECT_TRUE(chat.tab().IgnoreStream);
}

TEST_F(Frame, AHeaderWithAPieceOfALineBehindItIsDecidedAtOnce) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk("<pr"));  // the LF in front makes it a chunk with a line
  EXPECT_TRUE(chat.tab().IgnoreStream);
}

TEST_F(Frame, AfterConnectedAHeaderIsALineLikeOthers) {
  chat.EnterChannel();
  chat.Deliver("HTTP/1.0 200 OK\r\n\r\n");
  EXPECT_EQ(lines, (Lines{"HTTP/1.0 200 OK\r", "\r"}));
}

// ---- chunks ----

TEST_F(Frame, AChunkWithoutALineEndOnlyGrowsTheCarry) {
  chat.EnterChannel();
  chat.Deliver("..[1]a");
  chat.Deliver(":() b");
  EXPECT_EQ(lines, Lines{});
  EXPECT_EQ(chat.tab().LineCarry, "..[1]a:() b");
  chat.Deliver("\n");  // and so does a chunk that is just a line end
  EXPECT_EQ(lines, Lines{});
  EXPECT_EQ(chat.tab().LineCarry, "..[1]a:() b\n");
  chat.Deliver("<!-- -->\n");
  EXPECT_EQ(lines, Lines{"..[1]a:() b"});
  EXPECT_EQ(chat.tab().LineCarry, "");
}

TEST_F(Frame, ALineSplitAcrossTwoChunksArrivesWhole) {
  chat.EnterChannel();
  chat.Deliver("one\ntw");
  chat.Deliver("o\nthree\n");
  EXPECT_EQ(lines, (Lines{"one", "two", "three"}));
}

TEST_F(Frame, TheStreamCutAtEveryByteBehindItsFirstChunkGivesTheSame) {
  const Text stream =
      "..[1]alice:() hello\n<!-- -->\n<script>\nhidden\n</script>..[2]bob:() h&lt;i\n\n \n"
      "..[3]Вася приходит на канал\r\n<pre>\n"_w;
  chat.EnterChannel();
  chat.Deliver(stream);
  const Lines whole = lines;
  const Text pane = chat.Pane();
  ASSERT_EQ(whole.size(), 3U);
  for (std::size_t cut = 1; cut < stream.size(); ++cut) {
    Chat other;
    Watch(other);
    lines.clear();
    other.EnterChannel();
    other.Deliver(stream.substr(0, cut));
    other.Deliver(stream.substr(cut));
    other.Deliver("<!-- -->\n");  // a chunk of one line end waits for the next one
    EXPECT_EQ(lines, whole) << "cut at " << cut;
    EXPECT_EQ(other.Pane(), pane) << "cut at " << cut;
  }
}

TEST_F(Frame, TheStreamByteByByteGivesTheSame) {
  const Text stream = "a:() 1\n<script>\nx\n</script>b:() 2\nc:() 3\n<!-- -->\n";
  chat.EnterChannel();
  for (const char byte : stream)
    chat.Deliver(Text(1, byte));
  chat.Deliver("<!-- -->\n");
  EXPECT_EQ(lines, (Lines{"a:() 1", "b:() 2", "c:() 3"}));
}

TEST_F(Frame, EveryPassThatReadsLinesEmptiesChannelListPage) {
  chat.EnterChannel();
  chat.Deliver("no end");
  EXPECT_EQ(chat.tab().ChannelListPage, "no end");
  chat.Deliver(" yet\n");
  EXPECT_EQ(chat.tab().ChannelListPage, "");
}

// ---- pieces ----

TEST_F(Frame, BlankPiecesCommentsAndPreCarryNothing) {
  chat.EnterChannel();
  chat.Deliver("\n   \n<!-- -->\n  <!-- -->  \n<pre>\n <pre>\n\r\n");
  EXPECT_EQ(lines, (Lines{" <pre>", "\r"}));
}

TEST_F(Frame, EntitiesAreDecodedInTheirOrder) {
  chat.EnterChannel();
  chat.Deliver("&lt;&gt;&amp;&quot;&nbsp;. &amp;lt; &amp;amp; &amp;quot; &amp;nbsp; &LT; &copy;\n");
  EXPECT_EQ(lines, Lines{"<>&\" . &lt; &amp; \"   &LT; &copy;"});
}

TEST_F(Frame, AScriptBlockIsTheSignOfAPersonalMessage) {
  chat.EnterChannel();
  chat.Deliver("a\n<SCRIPT src=x>\nhidden\nstill\n");
  chat.Deliver("hidden too\n</Script>\nb\n");
  EXPECT_EQ(lines, (Lines{"a", "b"}));
  EXPECT_TRUE(chat.Pane().ends_with("Вам пришло персональное_сообщение!\r\n"_w));
  const Text pane = chat.Pane();
  chat.Deliver("<script>\n</script>\n");
  EXPECT_EQ(chat.Pane(), pane);  // said once while pers blinks
}

TEST_F(Frame, TheSignInEnglish) {
  chat.client.app.Language = UiLanguage::kEnglish;
  chat.EnterChannel();
  chat.Deliver("<script>\n</script>\n");
  EXPECT_TRUE(chat.Pane().ends_with("You have a personal_message!\r\n"));
}

TEST_F(Frame, ALineInsideABlockThatBeginsWithItsEndEndsIt) {
  chat.EnterChannel();
  chat.Deliver("<script>\nx</script>y\n</script></script>b\n");
  EXPECT_EQ(lines, Lines{"b"});
}

TEST_F(Frame, AStyleChangeIsRepairedAndTheRestOfTheChunkDropped) {
  chat.EnterChannel();
  chat.Deliver("a\n<B><FONT COLOR=\"#FF5050\">x\nb\nc");
  EXPECT_EQ(lines, Lines{"a"});
  EXPECT_EQ(said, Lines{"/set s 9"});
  EXPECT_TRUE(chat.Pane().ends_with("Обнаружена смена стиля. Установка s9...\r\n"_w));
  EXPECT_EQ(chat.tab().LineCarry, "c");
}

TEST_F(Frame, TheScriptOfTheFlagRIsRepairedInAnyCase) {
  chat.EnterChannel();
  chat.Deliver("a\n<Script Language=\"JavaScript\">\nb\n");
  EXPECT_EQ(lines, Lines{"a"});
  EXPECT_EQ(said, Lines{"/mo -R"});
  EXPECT_TRUE(chat.tab().FixingFlagR);
  EXPECT_TRUE(chat.Pane().ends_with("Обнаружен недопустимый флаг +R. Установка -R...\r\n"_w));
}

TEST_F(Frame, TheEjectLineIsAChunkByItself) {
  chat.EnterChannel();
  chat.Deliver("<hr>----- Аварийное катапультирование ----<hr>"_w);
  EXPECT_TRUE(chat.tab().EjectSeen);
  EXPECT_EQ(chat.tab().LineCarry, "");
}

TEST_F(Frame, TheEjectLineWithALineEndIsALineLikeOthers) {
  chat.EnterChannel();
  chat.Deliver("<hr>----- Аварийное катапультирование ----<hr>\n"_w);
  EXPECT_FALSE(chat.tab().EjectSeen);
  EXPECT_EQ(lines.size(), 1U);
}

TEST_F(Frame, AFaultInALineIsLoggedAndTheNextLineIsRead) {
  chat.client.hooks.ParseChatLine = [this](const Text& line, int) {
    if (line == "bad") throw Fault(fault::kInvalidCall);
    lines.push_back(line);
  };
  chat.EnterChannel();
  chat.Deliver("bad\ngood\n");
  EXPECT_EQ(lines, Lines{"good"});
  EXPECT_EQ(chat.ErrorLog(),
            "[21.11.2026 12:00:00] Error 5 Invalid procedure call or argument. Function: "
            "CacheMessages\r\n");
}

// ---- other styles ----

struct StyleRow {
  const char* body;
  Text status;
  const char* said;
};

TEST_F(Frame, TheMarkersOfTheKnownStylesInTheirOrder) {
  const Text repair = "\r\n[12:00:00] Установка стиля s9...\r\n"_w;
  const std::array<StyleRow, 7> rows = {{
      {"<html>function std () {\n}\n<BODY onLoad=\"std()\">\n",
       "Обнаружен недопустимый флаг +R. Установка -R...\r\n"_w, "/mo -R"},
      {"<html>function std () {\n}\n<BODY bgColor=\"#281860\">\n",
       "Проверка установленного стиля... s2."_w + repair, "/set s 9"},
      {"x<BODY bgColor=\"#281860\"><FONT color=\"#FF5050\">\n",
       "Проверка установленного стиля... s4."_w + repair, "/set s 9"},
      {"x<FONT color=\"#FF5050\"><FONT color=\"#b0b0b0\">\n",
       "Проверка установленного стиля... s1."_w + repair, "/set s 9"},
      {"x<FONT color=\"#b0b0b0\"><font size=-1 color=\"#cfcfff\">\n",
       "Проверка установленного стиля... s0."_w + repair, "/set s 9"},
      {"x<font size=-1 color=\"#cfcfff\">\n",
       "Проверка установленного стиля... s0 или s1."_w + repair, "/set s 9"},
      {"<font size=-1 color=\"#cfcfffx>\n",  // the mark ends ahead of the closing quote
       "Проверка установленного стиля... s0 или s1."_w + repair, "/set s 9"},
  }};
  for (const StyleRow& row : rows) {
    chat.tab().Rich.Text("");
    said.clear();
    chat.OpenFrame();
    chat.Deliver(FirstChunk(row.body));
    EXPECT_EQ(StatusLines(), " Ok.\r\n[12:00:00] "_w + row.status) << row.body;
    EXPECT_EQ(said, Lines{row.said});
    EXPECT_TRUE(chat.tab().IgnoreStream);
    EXPECT_FALSE(chat.tab().Connected);
    EXPECT_FALSE(chat.tab().Timer3->Enabled());
    EXPECT_EQ(chat.tab().FixingFlagR, Text(row.said) == "/mo -R");
    chat.tab().FixingFlagR = false;
  }
}

TEST_F(Frame, TheRobotsMarkOnAChannelIsTheListOfARefusal) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk("Этот стиль (НОМЕР 9) предназначен для роботов\nchannel: a\n"_w));
  EXPECT_EQ(StatusLines(), " Ok.\r\n[12:00:00] Построение и форматирование...\r\n"_w);
  EXPECT_TRUE(chat.tab().IsChannelList);
  EXPECT_EQ(said, Lines{});
  EXPECT_TRUE(chat.tab().Timer3->Enabled());
}

TEST_F(Frame, AnUnknownStyleIsLoggedAndTheTabStaysAsItIs) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk("<table>\n"));
  EXPECT_EQ(StatusLines(),
            " Ok.\r\n[12:00:00] Проверка установленного стиля... N/A. Возможно, это связано со "
            "слишком короткой историей сообщений (/s h 0). Дамп ответа сервера был записан в "
            "лог-файл\r\n"_w);
  EXPECT_EQ(chat.ErrorLog(),
            "[21.11.2026 12:00:00] Error: Unknown style or server ansver. Debug info:\r\n"
            "_!_\n<table>\n\r\n");
  EXPECT_EQ(balloons, Lines{"Ошибка с определением стиля!\r\nНик: alice\r\nКанал: lobby"_w});
  EXPECT_FALSE(chat.tab().Timer3->Enabled());
  EXPECT_EQ(said, Lines{});
  const int connects = chat.Winsock1().connects;
  chat.platform.time.Advance(3600000);
  EXPECT_EQ(chat.Winsock1().connects, connects);
}

TEST_F(Frame, TheDumpOfAnUnknownStyleHoldsOnceWhatCameInEarlierChunks) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk(""));
  chat.Deliver("<table>\n");
  EXPECT_TRUE(chat.ErrorLog().ends_with("Debug info:\r\n_!_\n<table>\n\r\n")) << chat.ErrorLog();
}

TEST_F(Frame, IgnoredChunksStillRestartTheWatchdogAndCollectInThePage) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk("<table>\n"));
  chat.Deliver("more\n");
  EXPECT_EQ(lines, Lines{});
  EXPECT_TRUE(chat.tab().Timer3->Enabled());
  EXPECT_TRUE(chat.tab().ChannelListPage.ends_with("<table>\nmore\n"));
}

constexpr std::array<std::string_view, 2> kSelectionPages = {
    "<HTML>\n<head>\n<title>Select/Create channel</title>\n",
    "<html>\n<HEAD>\n<meta http-equiv=\"Content-Type\" content=\"text/html\" "
    "charset=\"KOI8-R\">\n"};

TEST_F(Frame, BothFormsOfTheSelectionPageRefuseAChannel) {
  for (const std::string_view page : kSelectionPages) {
    chat.tab().Channel = "lobby";
    chat.tab().Rich.Text("");
    said.clear();
    chat.platform.random.script = {0.25};
    chat.OpenFrame();
    chat.Deliver(FirstChunk(page));
    EXPECT_EQ(StatusLines(),
              " Ok.\r\n[12:00:00] Внимание! Доступ на канал lobby c Вашего ника или адреса "
              "запрещен!\r\n[12:00:00] Список каналов построить невозможно, потому что cтиль чата "
              "не s9. Сейчас клиент сгенерирует имя канала и зайдет на него, чтобы выставить "
              "s9.\r\n[12:00:00] Установка стиля s9...\r\n"_w);
    EXPECT_EQ(chat.tab().Channel, "33333333");
    EXPECT_EQ(said, Lines{"/set s 9"});
  }
}

TEST_F(Frame, TheRobotsMarkCountsOnlyAfterTheMarkersOfTheStyles) {
  chat.OpenFrame();
  chat.Deliver(
      FirstChunk("этот стиль (номер 9) предназначен для роботов <FONT color=\"#b0b0b0\">\n"_w));
  EXPECT_FALSE(chat.tab().IsChannelList);
  EXPECT_EQ(said, Lines{"/set s 9"});
}

TEST_F(Frame, PreInCapitalsIsNotTheRobotsStyle) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk("<PRE>\n"));
  EXPECT_FALSE(chat.tab().Connected);
}

TEST_F(Frame, AFaultInACallUpwardDoesNotKeepTheTabOffTheChannel) {
  chat.client.hooks.UpdateUsersFrame = [](int) { throw Fault(fault::kInvalidCall); };
  chat.client.hooks.ShowBalloon = [](const Text&, const Text&, int) {
    throw Fault(fault::kInvalidCall);
  };
  chat.EnterChannel();
  EXPECT_TRUE(chat.tab().Connected);
  EXPECT_EQ(chat.platform.desktop.at(0).caption, "lobby - alice");
  const Text entry =
      "[21.11.2026 12:00:00] Error 5 Invalid procedure call or argument. Function: "
      "CacheMessages\r\n";
  EXPECT_EQ(chat.ErrorLog(), entry + entry);
}

// ---- the list was wanted ----

TEST_F(Frame, TheListInTheRobotsStyleCollects) {
  for (const Text& start :
       {"этот стиль (номер 9) предназначен для роботов\n"_w, Text("\nid=5\n")}) {
    Chat fresh;
    Watch(fresh);
    fresh.tab().Channel = "";
    fresh.OpenFrame();
    fresh.Deliver(FirstChunk(start));
    EXPECT_TRUE(fresh.tab().IsChannelList) << start;
    EXPECT_FALSE(fresh.tab().Timer3->Enabled());
    fresh.Deliver("channel: a\n");
    EXPECT_TRUE(fresh.tab().ChannelListPage.ends_with(start + "channel: a\n"));
    EXPECT_TRUE(lines.empty());
  }
}

TEST_F(Frame, TheListInAnotherStyleIsRepairedOnAGeneratedChannel) {
  for (const std::string_view page : kSelectionPages) {
    chat.tab().Channel = " ";
    chat.tab().Rich.Text("");
    said.clear();
    chat.platform.random.script = {0.0};
    chat.OpenFrame();
    chat.Deliver(FirstChunk(page));
    EXPECT_TRUE(chat.Pane().ends_with(
        "Получение списка каналов... Ошибка: cтиль чата не s9. Сейчас клиент сгенерирует имя "
        "канала и зайдет на него, чтобы выставить s9.\r\n[12:00:00] Установка стиля s9...\r\n"_w));
    EXPECT_EQ(chat.tab().Channel, "11111111");
    EXPECT_EQ(said, Lines{"/set s 9"});
  }
}

TEST_F(Frame, AnUnknownListPageIsLogged) {
  chat.tab().Channel = "";
  chat.OpenFrame();
  chat.Deliver(FirstChunk("what?\n"));
  EXPECT_TRUE(chat.Pane().ends_with(
      "Получение списка каналов... Ошибка: дамп ответа сервера был записан в лог-файл\r\n"_w));
  EXPECT_EQ(chat.ErrorLog(),
            "[21.11.2026 12:00:00] Error: Unknown style or server ansver. Debug info:\r\n"
            "\nwhat?\n\r\n");
  EXPECT_TRUE(said.empty());
}

}  // namespace
}  // namespace parlorwire
