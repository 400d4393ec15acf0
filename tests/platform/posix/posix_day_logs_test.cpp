#include "platform/posix/posix_day_logs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "support/temporary_folder.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class PosixDayLogsTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  PosixDayLogs logs{folder.path() / "Logs"};

  void Put(const std::string& name, std::string_view content = "x") {
    const auto file = folder.path() / "Logs" / name;
    std::filesystem::create_directories(file.parent_path());
    folder.Put("Logs/" + name, content);
  }

  static Text Content(DayLogs::Reader& reader, std::size_t block) {
    Text content;
    std::vector<char> bytes(block);
    while (const std::size_t size = reader.Read(bytes))
      content.append(bytes.data(), size);
    return content;
  }
};

TEST_F(PosixDayLogsTest, AreListedWithTheirChannelsAndDays) {
  Put("main/01.02.2026.log");
  Put("main/31.12.2025.log");
  Put("Гостиная/05.06.2026.log");
  EXPECT_THAT(logs.List(),
              UnorderedElementsAre(DayLog{"main", {2026, 2, 1}}, DayLog{"main", {2025, 12, 31}},
                                   DayLog{"Гостиная"_w, {2026, 6, 5}}));
}

TEST_F(PosixDayLogsTest, OtherFilesAreNone) {
  for (const char* name :
       {"1.02.2026.log", "00.01.2026.log", "32.01.2026.log", "01.13.2026.log", "01.00.2026.log",
        "01-02-2026.log", "01.02.2026.txt", "01.02.2026.log~1", "-1.02.2026.log", "01.02.20 6.log",
        "+1.02.2026.log", "0x.02.2026.log", "notes"})
    Put(std::string("main/") + name);
  Put("01.02.2026.log");              // in no channel
  Put("日/01.02.2026.log");           // a channel that could not be said
  Put("main/01.02.2027.log/deeper");  // a folder
  EXPECT_THAT(logs.List(), IsEmpty());
}

TEST_F(PosixDayLogsTest, WithoutTheFolderThereAreNone) {
  EXPECT_THAT(logs.List(), IsEmpty());
  EXPECT_EQ(logs.Open({"main", {2026, 2, 1}}), nullptr);
}

TEST_F(PosixDayLogsTest, AFolderThatCannotBeReadIsPassedOver) {
  Put("closed/01.02.2026.log");
  Put("open/01.02.2026.log");
  folder.SetMode("", 0777);
  folder.SetMode("Logs", 0777);
  folder.SetMode("Logs/open", 0777);
  folder.SetMode("Logs/closed", 0);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return static_cast<int>(logs.List().size()); }), 1);
  folder.SetMode("Logs/closed", 0700);
}

TEST_F(PosixDayLogsTest, AreReadInBlocksOfAnySize) {
  Put("Гостиная/05.06.2026.log", "0123456789");
  for (const std::size_t block : {1U, 3U, 10U, 100U}) {
    const auto reader = logs.Open({"Гостиная"_w, {2026, 6, 5}});
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(Content(*reader, block), "0123456789") << block;
  }
}

TEST_F(PosixDayLogsTest, WhatComesMeanwhileIsReadToo) {
  Put("main/05.06.2026.log", "first");
  const auto reader = logs.Open({"main", {2026, 6, 5}});
  ASSERT_NE(reader, nullptr);
  EXPECT_EQ(Content(*reader, 100), "first");
  Put("main/05.06.2026.log", "first and second");
  EXPECT_EQ(Content(*reader, 100), " and second");
}

TEST_F(PosixDayLogsTest, AFolderInTheirPlaceGivesNothing) {
  Put("main/05.06.2026.log/deeper");
  const auto reader = logs.Open({"main", {2026, 6, 5}});
  EXPECT_TRUE(reader == nullptr || Content(*reader, 10).empty());
}

}  // namespace
}  // namespace parlorwire
