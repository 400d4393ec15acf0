#include "platform/posix/application_folder.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace parlorwire {
namespace {

class ApplicationFolderTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  const std::filesystem::path beside = folder.path() / "program";
  const std::filesystem::path data = folder.path() / "home" / ".local" / "share" / "parlorwire";

  void SetUp() override { std::filesystem::create_directory(beside); }
};

TEST_F(ApplicationFolderTest, IsTheProgramsWhereItCanBeWrittenTo) {
  EXPECT_EQ(ApplicationFolder(beside, data), beside);
  EXPECT_FALSE(std::filesystem::exists(data));
}

TEST_F(ApplicationFolderTest, IsTheUsersWhereTheProgramsCantBeWrittenTo) {
  folder.SetMode("", 0777);
  folder.SetMode("program", 0555);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return ApplicationFolder(beside, data) == data; }), 1);
  EXPECT_EQ(folder.Mode("home/.local/share/parlorwire"), 0700U);
}

TEST_F(ApplicationFolderTest, IsTheUsersWhereTheProgramsIsNot) {
  EXPECT_EQ(ApplicationFolder(folder.path() / "none", data), data);
  EXPECT_TRUE(std::filesystem::is_directory(data));
}

TEST_F(ApplicationFolderTest, IsTheUsersForAProgramUnderUsrAlsoForTheSuperuser) {
  EXPECT_EQ(ApplicationFolder("/usr/bin", data), data);
  EXPECT_EQ(ApplicationFolder("/usr/local/bin", data), data);
}

TEST_F(ApplicationFolderTest, StaysTheProgramsUnderUsrIfSettingsLieThereFromEarlier) {
  const auto under_usr = std::filesystem::path("/usr/..") / beside.relative_path();
  EXPECT_EQ(ApplicationFolder(under_usr, data), data);
  folder.Put("program/config.ini", "[Main]");
  EXPECT_EQ(ApplicationFolder(under_usr, data), under_usr);
}

TEST_F(ApplicationFolderTest, IsThereStillAtTheNextStart) {
  ApplicationFolder("/usr/bin", data);
  folder.Put("home/.local/share/parlorwire/config.ini", "kept");
  EXPECT_EQ(ApplicationFolder("/usr/bin", data), data);
  EXPECT_EQ(folder.Content("home/.local/share/parlorwire/config.ini"), "kept");
}

TEST_F(ApplicationFolderTest, ThatCantBeCreatedIsNoFailureYet) {
  folder.Put("home", "a file");
  EXPECT_EQ(ApplicationFolder("/usr/bin", data), data);
}

TEST_F(ApplicationFolderTest, WhatCameWithTheProgramLiesInShareOrBesideIt) {
  EXPECT_EQ(ProgramFolder(beside), beside);
  EXPECT_EQ(ProgramFolder("/no/such/folder"), "/no/such/folder");
  std::filesystem::create_directories(folder.path() / "share/parlorwire");
  EXPECT_EQ(ProgramFolder(beside), folder.path() / "share/parlorwire");
}

}  // namespace
}  // namespace parlorwire
