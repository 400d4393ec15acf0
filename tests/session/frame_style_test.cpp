#include "session/frame_style.h"

#include <gtest/gtest.h>

#include <array>

#include "session/frame_fixture.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

struct FrameStyleTest : FrameFixture {};

TEST_F(FrameStyleTest, EnteringAChannelSetsTheFlagsAndTellsTheUser) {
  chat.EnterChannel();
  EXPECT_TRUE(chat.tab().Connected);
  EXPECT_TRUE(chat.tab().EverConnected);
  EXPECT_TRUE(chat.platform.desktop.at(0).controls_enabled);
  EXPECT_EQ(users_asked, std::vector<int>{0});
  EXPECT_EQ(balloons, Lines{"Клиент успешно подключен!\r\nНик: alice\r\nКанал: lobby"_w});
  EXPECT_EQ(balloons_about, std::vector{BalloonAbout{0}});
  EXPECT_EQ(StatusLines(), " Ok.\r\n[12:00:00] Проверка установленного стиля... s9.\r\n"_w);
}

TEST_F(FrameStyleTest, PreInCapitalsIsNotTheRobotsStyle) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk("<PRE>\n"));
  EXPECT_FALSE(chat.tab().Connected);
}

TEST_F(FrameStyleTest, AFaultInACallUpwardDoesNotKeepTheTabOffTheChannel) {
  chat.client.hooks.UpdateUsersFrame = [](int) { throw Fault(fault::kInvalidCall); };
  chat.client.hooks.ShowBalloon = [](const Text&, const Text&, int, const BalloonAbout&) {
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

// ---- other styles ----

struct StyleRow {
  const char* body;
  Text status;
  const char* said;
};

TEST_F(FrameStyleTest, TheMarkersOfTheKnownStylesInTheirOrder) {
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

TEST_F(FrameStyleTest, TheRobotsMarkOnAChannelIsTheListOfARefusal) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk("Этот стиль (НОМЕР 9) предназначен для роботов\nchannel: a\n"_w));
  EXPECT_EQ(StatusLines(), " Ok.\r\n[12:00:00] Построение и форматирование...\r\n"_w);
  EXPECT_TRUE(chat.tab().IsChannelList);
  EXPECT_EQ(said, Lines{});
  EXPECT_TRUE(chat.tab().Timer3->Enabled());
}

TEST_F(FrameStyleTest, AnUnknownStyleIsLoggedAndTheTabStaysAsItIs) {
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

TEST_F(FrameStyleTest, TheDumpOfAnUnknownStyleHoldsOnceWhatCameInEarlierChunks) {
  chat.OpenFrame();
  chat.Deliver(FirstChunk(""));
  chat.Deliver("<table>\n");
  EXPECT_TRUE(chat.ErrorLog().ends_with("Debug info:\r\n_!_\n<table>\n\r\n")) << chat.ErrorLog();
}

constexpr std::array<std::string_view, 2> kSelectionPages = {
    "<HTML>\n<head>\n<title>Select/Create channel</title>\n",
    "<html>\n<HEAD>\n<meta http-equiv=\"Content-Type\" content=\"text/html\" "
    "charset=\"KOI8-R\">\n"};

TEST_F(FrameStyleTest, BothFormsOfTheSelectionPageRefuseAChannel) {
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

TEST_F(FrameStyleTest, TheRobotsMarkCountsOnlyAfterTheMarkersOfTheStyles) {
  chat.OpenFrame();
  chat.Deliver(
      FirstChunk("этот стиль (номер 9) предназначен для роботов <FONT color=\"#b0b0b0\">\n"_w));
  EXPECT_FALSE(chat.tab().IsChannelList);
  EXPECT_EQ(said, Lines{"/set s 9"});
}

// ---- the list was wanted ----

TEST_F(FrameStyleTest, TheListInTheRobotsStyleCollects) {
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

TEST_F(FrameStyleTest, TheListInAnotherStyleIsRepairedOnAGeneratedChannel) {
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

TEST_F(FrameStyleTest, AnUnknownListPageIsLogged) {
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
