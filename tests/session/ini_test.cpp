#include "session/ini.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct Ini : testing::Test {
  Text& file() { return platform.files.files["config.ini"]; }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(Ini, AMissingFileIsCreatedEmptyByTheFirstReadAndEveryKeyReadsEmpty) {
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "");
  ASSERT_TRUE(platform.files.Exists("config.ini"));
  EXPECT_EQ(platform.files.Size("config.ini"), 0);
  EXPECT_EQ(ReadIni(client, "Fonts", "rFontMain.Name"), "");
  EXPECT_EQ(platform.files.writes, 1);
}

TEST_F(Ini, ReadingWritesNoDefault) {
  file() = "[Main]\r\n";
  ReadIni(client, "Main", "Language");
  EXPECT_EQ(file(), "[Main]\r\n");
  EXPECT_EQ(platform.files.writes, 0);
  EXPECT_EQ(platform.desktop.yields, 0);
}

TEST_F(Ini, EveryReadGoesToTheFile) {
  file() = "[Main]\r\nLanguage=English\r\n";
  EXPECT_EQ(ReadIni(client, "main", "LANGUAGE"), "English");
  file() = "[Main]\r\nLanguage=Russian\r\n";
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "Russian");
}

TEST_F(Ini, AValueIsNeverCutByTheBufferOfTheFilesLength) {
  file() = "[a]\nb=c";
  EXPECT_EQ(ReadIni(client, "a", "b"), "c");
}

TEST_F(Ini, AnUnreadableFileReadsEmptyAndIsNotOverwritten) {
  file() = "[Main]\r\nLanguage=English\r\n";
  platform.files.unreadable.insert("config.ini");
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "");
  WriteIni(client, "Main", "Language", "Russian");
  EXPECT_EQ(file(), "[Main]\r\nLanguage=English\r\n");
}

TEST_F(Ini, AMissingFileThatCannotBeCreatedReadsEmpty) {
  platform.files.write_fault = 70;
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "");
  EXPECT_FALSE(platform.files.Exists("config.ini"));
}

TEST_F(Ini, GarbageReadsEmptyAndSurvivesAWrite) {
  Text garbage;
  for (int i = 0; i < 5000; ++i)
    garbage += static_cast<char>(i * 7 + i / 256);
  file() = garbage;
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "");
  WriteIni(client, "Main", "Language", "English");
  EXPECT_TRUE(file().starts_with(garbage));
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "English");
}

TEST_F(Ini, AHugeFileCountsAsUnreadable) {
  const Text settings = "[Main]\r\nLanguage=English\r\n";
  file() = settings + Text(static_cast<std::size_t>(kLargestConfigFile) - settings.size(), 'x');
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "English");
  file() += 'x';
  EXPECT_EQ(ReadIni(client, "Main", "Language"), "");
  WriteIni(client, "Main", "Language", "Russian");
  EXPECT_EQ(platform.files.writes, 0);
}

TEST_F(Ini, AWriteYieldsOnceAndFirst) {
  file() = "[Main]\r\nLanguage=English\r\n";
  Text seen;
  platform.desktop.on_yield = [&] { seen = file(); };
  WriteIni(client, "Main", "Language", "Russian");
  EXPECT_EQ(platform.desktop.yields, 1);
  EXPECT_EQ(seen, "[Main]\r\nLanguage=English\r\n");
  EXPECT_EQ(file(), "[Main]\r\nLanguage=Russian\r\n");
}

TEST_F(Ini, AnEventInsideAWriteMayWriteAndChangeTheTextsItself) {
  Text value = "a value long enough to live on the heap";
  bool first = true;
  platform.desktop.on_yield = [&] {
    if (!first) return;
    first = false;
    WriteIni(client, "Main", "Inner", "1");
    value = Text(1000, 'x');
  };
  WriteIni(client, "Main", "Outer", value);
  EXPECT_EQ(file(), "[Main]\r\nInner=1\r\nOuter=a value long enough to live on the heap\r\n");
}

TEST_F(Ini, AMissingFileIsCreatedByAWrite) {
  WriteIni(client, "Main", "Language", "English");
  EXPECT_EQ(file(), "[Main]\r\nLanguage=English\r\n");
}

TEST_F(Ini, AWriteThatFailsIsIgnoredAndLeavesTheFile) {
  file() = "[Main]\r\nLanguage=English\r\n";
  platform.files.unwritable.insert("config.ini");
  WriteIni(client, "Main", "Language", "Russian");
  EXPECT_EQ(file(), "[Main]\r\nLanguage=English\r\n");
  EXPECT_EQ(platform.files.files.count("error.log"), 0U);
}

TEST_F(Ini, CommentsOrderAndUnknownLinesSurviveAWrite) {
  file() = "; mine\r\n[Unknown]\r\nx=1\r\n\r\n[Main]\r\n; c\r\nLanguage=English\r\njunk\r\n";
  WriteIni(client, "Main", "Language", "Russian");
  WriteIni(client, "Main", "Logins", "1");
  EXPECT_EQ(file(),
            "; mine\r\n[Unknown]\r\nx=1\r\n\r\n[Main]\r\n; c\r\nLanguage=Russian\r\nLogins=1\r\n"
            "junk\r\n");
}

}  // namespace
}  // namespace parlorwire
