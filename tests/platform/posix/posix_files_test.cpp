#include "platform/posix/posix_files.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "support/fault_of.h"
#include "support/temporary_folder.h"

namespace parlorwire {
namespace {

int OpenDescriptors() {
  return static_cast<int>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

class PosixFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  PosixFiles files{folder.path()};
};

// ---- names ----

TEST_F(PosixFilesTest, ANameStandsOnTheDiskInUtf8) {
  files.Replace("Привет №5 Ђ ё.txt"_w, "x");
  EXPECT_EQ(folder.Content("Привет №5 Ђ ё.txt"), "x");
}

TEST_F(PosixFilesTest, EveryByteThatIsNotRefusedHasANameOfItsOwn) {
  int taken = 0;
  for (int byte = 0x20; byte < 0x100; ++byte) {
    const Text name = Text("a") + static_cast<char>(byte) + "b";
    if (!IsLegalFileName(name) || byte == '\\') continue;
    EXPECT_FALSE(files.Exists(name));
    files.Replace(name, name);
    EXPECT_EQ(files.Read(name), name);
    ++taken;
  }
  EXPECT_EQ(folder.Entries(), taken);
  EXPECT_EQ(taken, 0xE0 - 10);  // all but \ / : * ? " < > | and DEL
}

TEST_F(PosixFilesTest, ABackslashIsAFolder) {
  files.MakeFolder("Logs");
  files.MakeFolder("Logs\\Канал"_w);
  files.Append("Logs\\Канал\\21.11.2026.log"_w, "line");
  EXPECT_EQ(folder.Content("Logs/Канал/21.11.2026.log"), "line");
  EXPECT_TRUE(files.Exists("Logs\\Канал\\21.11.2026.log"_w));
}

class PosixFilesRefusedName : public testing::TestWithParam<const char*> {};

TEST_P(PosixFilesRefusedName, Is52InEveryCallAndTouchesNothing) {
  TemporaryFolder folder;
  PosixFiles files(folder.path() / "inside");
  std::filesystem::create_directory(folder.path() / "inside");
  folder.Put("victim", "safe");
  const Text name = GetParam();
  EXPECT_FALSE(files.Exists(name));
  EXPECT_EQ(FaultOf([&] { files.Size(name); }), 52);
  EXPECT_EQ(FaultOf([&] { files.Read(name); }), 52);
  EXPECT_EQ(FaultOf([&] { files.Replace(name, "x"); }), 52);
  EXPECT_EQ(FaultOf([&] { files.ReplaceUnflushed(name, "x"); }), 52);
  EXPECT_EQ(FaultOf([&] { files.WriteAt(name, 1, "x"); }), 52);
  EXPECT_EQ(FaultOf([&] { files.WriteAt(name, 0, "x"); }), 52);
  EXPECT_EQ(FaultOf([&] { files.Append(name, "x"); }), 52);
  EXPECT_EQ(FaultOf([&] { files.MakeFolder(name); }), 52);
  EXPECT_EQ(folder.Content("victim"), "safe");
  EXPECT_EQ(folder.Entries(), 2);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "inside"));
}

INSTANTIATE_TEST_SUITE_P(AllKinds, PosixFilesRefusedName,
                         testing::Values("", ".", "..", "..\\victim", "a\\..\\..\\victim",
                                         "\\victim", "a\\", "a\\\\b", "../victim", "/etc/x", "a/b",
                                         "c:x", "a*", "a?", "a\"b", "a<b", "a>b", "a|b", "a ", "a.",
                                         "a \\b", "a.\\b", " ", "a\tb", "a\nb",
                                         "a\x7f"
                                         "b",
                                         "a\x01"));

// ---- reading ----

TEST_F(PosixFilesTest, ReadGivesEveryByte) {
  std::string all;
  for (int i = 0; i < 300'000; ++i)
    all += static_cast<char>(i * 7);
  folder.Put("all", all);
  EXPECT_EQ(files.Read("all"), all);
  EXPECT_EQ(files.Size("all"), 300'000);
  EXPECT_TRUE(files.Exists("all"));
}

TEST_F(PosixFilesTest, AnEmptyFileIsThereAndEmpty) {
  folder.Put("empty", "");
  EXPECT_TRUE(files.Exists("empty"));
  EXPECT_EQ(files.Size("empty"), 0);
  EXPECT_EQ(files.Read("empty"), "");
}

TEST_F(PosixFilesTest, AFileThatIsNotThereIs53) {
  EXPECT_FALSE(files.Exists("none"));
  EXPECT_EQ(FaultOf([&] { files.Size("none"); }), 53);
  EXPECT_EQ(FaultOf([&] { files.Read("none"); }), 53);
}

TEST_F(PosixFilesTest, AFolderThatIsNotThereIs76InEveryCall) {
  const Text name = "none\\file";
  EXPECT_FALSE(files.Exists(name));
  EXPECT_EQ(FaultOf([&] { files.Size(name); }), 76);
  EXPECT_EQ(FaultOf([&] { files.Read(name); }), 76);
  EXPECT_EQ(FaultOf([&] { files.Replace(name, "x"); }), 76);
  EXPECT_EQ(FaultOf([&] { files.WriteAt(name, 1, "x"); }), 76);
  EXPECT_EQ(FaultOf([&] { files.Append(name, "x"); }), 76);
  EXPECT_EQ(FaultOf([&] { files.MakeFolder(name); }), 76);
}

TEST_F(PosixFilesTest, AFileInThePlaceOfAFolderIs76) {
  folder.Put("file", "");
  EXPECT_EQ(FaultOf([&] { files.Read("file\\x"); }), 76);
  EXPECT_EQ(FaultOf([&] { files.Append("file\\x", "x"); }), 76);
  EXPECT_EQ(FaultOf([&] { files.Replace("file\\x", "x"); }), 76);
}

TEST_F(PosixFilesTest, AFolderInThePlaceOfAFileIs75) {
  files.MakeFolder("folder");
  EXPECT_FALSE(files.Exists("folder"));
  EXPECT_EQ(FaultOf([&] { files.Size("folder"); }), 75);
  EXPECT_EQ(FaultOf([&] { files.Read("folder"); }), 75);
  EXPECT_EQ(FaultOf([&] { files.Replace("folder", "x"); }), 75);
  EXPECT_EQ(FaultOf([&] { files.WriteAt("folder", 1, "x"); }), 75);
  EXPECT_EQ(FaultOf([&] { files.Append("folder", "x"); }), 75);
  EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(PosixFilesTest, ANameThatIsTooLongForTheDiskIs75) {
  const Text name = Text(200, '\xFF');  // of 400 bytes on the disk
  EXPECT_FALSE(files.Exists(name));
  EXPECT_EQ(FaultOf([&] { files.Append(name, "x"); }), 75);
  EXPECT_EQ(FaultOf([&] { files.Replace(name, "x"); }), 75);
}

TEST_F(PosixFilesTest, AFileLargerThanATextIs75) {
  folder.Put("huge", "x");
  std::filesystem::resize_file(folder.path() / "huge", std::uintmax_t{1} << 31);
  EXPECT_EQ(files.Size("huge"), std::int64_t{1} << 31);
  EXPECT_EQ(FaultOf([&] { files.Read("huge"); }), 75);
}

// ---- writing ----

TEST_F(PosixFilesTest, ReplaceGivesTheFileThisContentAndNoOther) {
  files.Replace("file", "a long content");
  files.Replace("file", "short");
  EXPECT_EQ(folder.Content("file"), "short");
  files.Replace("file", "");
  EXPECT_EQ(folder.Content("file"), "");
  EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(PosixFilesTest, ReplaceUnflushedDoesTheSame) {
  files.ReplaceUnflushed("file", "a long content");
  folder.SetMode("file", 0640U);
  files.ReplaceUnflushed("file", "short");
  EXPECT_EQ(folder.Content("file"), "short");
  EXPECT_EQ(folder.Mode("file"), 0640U);
  EXPECT_EQ(folder.Entries(), 1);
  EXPECT_EQ(FaultOf([&] { files.ReplaceUnflushed("none\\file", "x"); }), 76);
}

TEST_F(PosixFilesTest, ReplaceKeepsTheFilesMode) {
  for (const unsigned mode : {0600U, 0644U, 0666U, 0640U, 0700U}) {
    folder.Put("file", "old");
    folder.SetMode("file", mode);
    files.Replace("file", "new");
    EXPECT_EQ(folder.Mode("file"), mode);
  }
}

TEST_F(PosixFilesTest, NewFilesAndFoldersAreForTheirOwnerOnly) {
  files.Replace("one", "");
  files.Append("two", "");
  files.WriteAt("three", 1, "");
  files.MakeFolder("four");
  EXPECT_EQ(folder.Mode("one"), 0600U);
  EXPECT_EQ(folder.Mode("two"), 0600U);
  EXPECT_EQ(folder.Mode("three"), 0600U);
  EXPECT_EQ(folder.Mode("four"), 0700U);
}

TEST_F(PosixFilesTest, ReplaceWritesOverWhatADeadProcessLeft) {
  folder.Put("file~" + std::to_string(getpid()), "half of something, and longer than the content");
  files.Replace("file", "new");
  EXPECT_EQ(folder.Content("file"), "new");
  EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(PosixFilesTest, WhatGoneProcessesLeftBesideAnyFileIsRemoved) {
  const std::string gone = std::to_string(GoneProcess());
  for (const char* name : {"config.ini", "error.log", "file", "Канал~1.txt"}) {
    folder.Put(name, "whole");
    folder.Put(name + ("~" + gone), "half");
  }
  folder.Put("never finished.txt~" + gone, "");
  files.RemoveLeftovers();
  for (const char* name : {"config.ini", "error.log", "file", "Канал~1.txt"})
    EXPECT_EQ(folder.Content(name), "whole");
  EXPECT_EQ(folder.Entries(), 4);
}

TEST_F(PosixFilesTest, WhatAProcessThatLivesIsWritingStays) {
  const std::vector<std::string> names = {"config.ini~" + std::to_string(getpid()),
                                          "config.ini~" + std::to_string(getppid()),
                                          "config.ini~1"};
  for (const std::string& name : names)
    folder.Put(name, "half");
  files.RemoveLeftovers();
  for (const std::string& name : names)
    EXPECT_EQ(folder.Content(name), "half");
}

TEST_F(PosixFilesTest, WhatSeemsToBeOfAProcessOfAnotherUserStays) {
  folder.SetMode("", 0777);
  EXPECT_EQ(InChildWithoutPrivileges([&] {
              files.Append("config.ini~1", "half");
              files.RemoveLeftovers();
              return files.Exists("config.ini~1") ? 1 : 0;
            }),
            1);
}

TEST_F(PosixFilesTest, OnlyWhatIsNamedAsALeftoverIsRemoved) {
  const std::string gone = std::to_string(GoneProcess());
  const std::vector<std::string> names = {"config.ini",
                                          "config.ini~",
                                          "~" + gone,
                                          "config.ini~0" + gone,
                                          "config.ini~" + gone + "~",
                                          "config.ini" + gone,
                                          "config.ini~-" + gone,
                                          "config.ini~+" + gone,
                                          "config.ini~0",
                                          "config.ini~4194305",
                                          "config.ini~x" + gone,
                                          "config.ini~ " + gone,
                                          "config.ini~" + gone + ".bak",
                                          "config.ini~20260101",
                                          "config.ini~99999999999999999999"};
  for (const std::string& name : names)
    folder.Put(name, "mine");
  std::filesystem::create_directory(folder.path() / ("folder~" + gone));
  std::filesystem::create_symlink("config.ini", folder.path() / ("link~" + gone));
  files.MakeFolder("Logs");
  folder.Put("Logs/x.log~" + gone, "not beside the program");
  files.RemoveLeftovers();
  for (const std::string& name : names)
    EXPECT_TRUE(std::filesystem::exists(folder.path() / name)) << name;
  EXPECT_EQ(folder.Entries(), static_cast<int>(names.size()) + 3);
  EXPECT_EQ(folder.Content("Logs/x.log~" + gone), "not beside the program");
}

TEST_F(PosixFilesTest, WhatBelongsToAnotherUserStays) {
  if (geteuid() != 0) GTEST_SKIP() << "files of another user can't be made here";
  const std::string name = "config.ini~" + std::to_string(GoneProcess());
  folder.Put(name, "another's");
  folder.SetMode("", 0777);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.RemoveLeftovers(); }); }), 0);
  EXPECT_EQ(folder.Content(name), "another's");
}

TEST_F(PosixFilesTest, WithoutAnApplicationFolderThereAreNoLeftovers) {
  const PosixFiles nowhere(folder.path() / "gone");
  EXPECT_EQ(FaultOf([&] { nowhere.RemoveLeftovers(); }), 0);
}

struct Way {
  const char* name;
  void (Files::*replace)(const Text& name, const Text& content);
};

void PrintTo(const Way& way, std::ostream* out) {
  *out << way.name;
}

class PosixFilesReplaced : public PosixFilesTest, public testing::WithParamInterface<Way> {};

INSTANTIATE_TEST_SUITE_P(InBothWays, PosixFilesReplaced,
                         testing::Values(Way{"Replace", &Files::Replace},
                                         Way{"ReplaceUnflushed", &Files::ReplaceUnflushed}));

TEST_P(PosixFilesReplaced, AKillInTheMiddleLeavesOneContentWhole) {
  const auto replace = GetParam().replace;
  const Text old_content(300'000, 'o'), new_content(200'000, 'n');
  files.Replace("file", old_content);
  int olds = 0, news = 0;
  for (int round = 0; round < 40; ++round) {
    InChildThatIsKilled(round * 311, [&] {
      (files.*replace)("file", new_content);
      (files.*replace)("file", old_content);
    });
    const Text content = files.Read("file");
    ASSERT_TRUE(content == old_content || content == new_content) << content.size();
    ++(content == old_content ? olds : news);
    files.RemoveLeftovers();
    ASSERT_EQ(folder.Entries(), 1);
  }
  EXPECT_EQ(olds + news, 40);
}

TEST_F(PosixFilesTest, WriteAtLeavesWhatStandsAround) {
  folder.Put("file", "abcdef");
  files.WriteAt("file", 3, "XY");
  EXPECT_EQ(folder.Content("file"), "abXYef");
  files.WriteAt("file", 6, "12");
  EXPECT_EQ(folder.Content("file"), "abXYe12");
  files.WriteAt("file", 8, "!");
  EXPECT_EQ(folder.Content("file"), "abXYe12!");
}

TEST_F(PosixFilesTest, WriteAtCreatesTheFileAndFillsAGapWithZeros) {
  files.WriteAt("file", 4, "x");
  EXPECT_EQ(folder.Content("file"), std::string("\0\0\0x", 4));
}

TEST_F(PosixFilesTest, APositionBelowOneIs63AndWritesNothing) {
  folder.Put("file", "abc");
  EXPECT_EQ(FaultOf([&] { files.WriteAt("file", 0, "x"); }), 63);
  EXPECT_EQ(FaultOf([&] { files.WriteAt("file", -5, "x"); }), 63);
  EXPECT_EQ(folder.Content("file"), "abc");
}

TEST_F(PosixFilesTest, AppendPutsBytesBehindTheLastOne) {
  files.Append("file", "one\r\n");
  files.Append("file", "two");
  EXPECT_EQ(folder.Content("file"), "one\r\ntwo");
}

TEST_F(PosixFilesTest, MakeFolderOfAFolderIsNothing) {
  files.MakeFolder("Logs");
  folder.Put("Logs/x", "stays");
  files.MakeFolder("Logs");
  EXPECT_EQ(folder.Content("Logs/x"), "stays");
}

TEST_F(PosixFilesTest, MakeFolderInThePlaceOfAFileIs75) {
  folder.Put("Logs", "");
  EXPECT_EQ(FaultOf([&] { files.MakeFolder("Logs"); }), 75);
}

// ---- failures of the disk ----

TEST_F(PosixFilesTest, ADeviceThatIsAlwaysFullIs61) {
  std::filesystem::create_symlink("/dev/full", folder.path() / "full.log");
  EXPECT_EQ(FaultOf([&] { files.Append("full.log", "x"); }), 61);
  EXPECT_EQ(FaultOf([&] { files.WriteAt("full.log", 1, "x"); }), 61);
}

TEST_F(PosixFilesTest, AFullDiskIs61AndKeepsTheOldContent) {
  std::filesystem::create_directory(folder.path() / "disk");
  const Text too_much(200'000, 'n');
  const int result = InChildOnSmallDisk(folder.path() / "disk", 100'000, [&] {
    files.Replace("disk\\config.ini", "old");
    if (FaultOf([&] { files.Replace("disk\\config.ini", too_much); }) != 61) return 1;
    if (files.Read("disk\\config.ini") != "old") return 2;
    if (FaultOf([&] { files.Append("disk\\log", too_much); }) != 61) return 3;
    // What the failed rewriting wrote takes no place; the log has filled the disk to the last page.
    if (FaultOf([&] { files.Replace("disk\\config.ini", "new"); }) != 61) return 4;
    if (files.Read("disk\\config.ini") != "old") return 5;
    return std::distance(std::filesystem::directory_iterator(folder.path() / "disk"), {}) == 2 ? 0
                                                                                               : 6;
  });
  if (result == -1) GTEST_SKIP() << "a file system of our own can't be mounted here";
  EXPECT_EQ(result, 0);
}

TEST_F(PosixFilesTest, AFolderThatMayNotBeWrittenIs70) {
  folder.Put("file", "old");
  folder.SetMode("file", 0666);
  folder.SetMode("", 0555);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.Append("new", "x"); }); }),
            70);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.Replace("new", "x"); }); }),
            70);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.Replace("file", "x"); }); }),
            70);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.MakeFolder("new"); }); }),
            70);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.Append("file", "+"); }); }),
            0);
  EXPECT_EQ(folder.Content("file"), "old+");
  EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(PosixFilesTest, AFileThatMayNotBeWrittenIs70AndStays) {
  folder.Put("file", "old");
  folder.SetMode("file", 0444);
  folder.SetMode("", 0777);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.Replace("file", "x"); }); }),
            70);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.Append("file", "x"); }); }),
            70);
  EXPECT_EQ(
      InChildWithoutPrivileges([&] { return FaultOf([&] { files.WriteAt("file", 1, "x"); }); }),
      70);
  EXPECT_EQ(folder.Content("file"), "old");
  EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(PosixFilesTest, AFileThatMayNotBeReadIs70) {
  folder.Put("file", "secret");
  folder.SetMode("file", 0000);
  folder.SetMode("", 0755);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return FaultOf([&] { files.Read("file"); }); }), 70);
  EXPECT_EQ(InChildWithoutPrivileges([&] { return files.Exists("file") ? 1 : 0; }), 1);
}

TEST_F(PosixFilesTest, AnApplicationFolderThatIsGoneIs76) {
  PosixFiles nowhere(folder.path() / "gone");
  EXPECT_EQ(FaultOf([&] { nowhere.Replace("file", "x"); }), 76);
  EXPECT_EQ(FaultOf([&] { nowhere.Append("file", "x"); }), 76);
  EXPECT_FALSE(nowhere.Exists("file"));
}

TEST_F(PosixFilesTest, NoFileStaysOpenAfterACallThatWorksOrOneThatFails) {
  files.MakeFolder("folder");
  const int before = OpenDescriptors();
  files.Replace("file", "x");
  files.Append("file", "x");
  files.WriteAt("file", 1, "x");
  files.Read("file");
  FaultOf([&] { files.WriteAt("file", 0, "x"); });
  FaultOf([&] { files.Replace("folder", "x"); });
  FaultOf([&] { files.Read("folder"); });
  FaultOf([&] { files.Read("none"); });
  EXPECT_EQ(OpenDescriptors(), before);
}

// ---- one event that writes much ----

class PosixFilesInAnEvent : public PosixFilesTest {
 protected:
  void EndEvent() {
    for (const auto& action : std::exchange(later, {}))
      action();
  }

  std::vector<std::function<void()>> later;
  PosixFiles kept{folder.path(),
                  [this](std::function<void()> action) { later.push_back(std::move(action)); }};
  const int before = OpenDescriptors();
};

TEST_F(PosixFilesInAnEvent, AFileIsOpenedOnceAndClosedWhenTheEventIsOver) {
  kept.Append("file", "one ");
  kept.Append("file", "two ");
  EXPECT_EQ(OpenDescriptors(), before + 1);
  EXPECT_EQ(later.size(), 1U);
  EndEvent();
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_TRUE(later.empty());
  kept.Append("file", "three");
  EXPECT_EQ(later.size(), 1U);
  EndEvent();
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_EQ(folder.Content("file"), "one two three");
}

TEST_F(PosixFilesInAnEvent, EveryByteIsInTheFileWhenTheCallReturns) {
  kept.Append("file", "[1] ");
  EXPECT_EQ(folder.Content("file"), "[1] ");
  EXPECT_EQ(kept.Size("file"), 4);
  kept.Append("file", "alice: ");
  EXPECT_EQ(folder.Content("file"), "[1] alice: ");
  kept.WriteAt("file", kept.Size("file"), " hello\r\n");
  EXPECT_EQ(folder.Content("file"), "[1] alice: hello\r\n");
  EXPECT_EQ(kept.Size("file"), 18);
  kept.Append("file", "[2] ");
  EXPECT_EQ(folder.Content("file"), "[1] alice: hello\r\n[2] ");
  EXPECT_EQ(kept.Read("file"), folder.Content("file"));
}

TEST_F(PosixFilesInAnEvent, WhatAnotherProgramAppendsMeanwhileStays) {
  kept.Append("file", "ours ");
  files.Append("file", "theirs ");
  EXPECT_EQ(kept.Size("file"), 12);
  kept.Append("file", "ours");
  EXPECT_EQ(folder.Content("file"), "ours theirs ours");
}

TEST_F(PosixFilesInAnEvent, TheNextEventOpensWhatThenHasTheName) {
  kept.Append("file", "old");
  EndEvent();
  std::filesystem::rename(folder.path() / "file", folder.path() / "moved");
  kept.Append("file", "new");
  EXPECT_EQ(folder.Content("moved"), "old");
  EXPECT_EQ(folder.Content("file"), "new");
  EndEvent();
  std::filesystem::remove(folder.path() / "file");
  kept.WriteAt("file", 1, "newer");
  EXPECT_EQ(folder.Content("file"), "newer");
}

TEST_F(PosixFilesInAnEvent, AReplacedFileIsTheOneThatIsWrittenOn) {
  kept.Append("file", "old");
  kept.WriteAt("file", 1, "O");
  kept.Replace("file", "new");
  kept.Append("file", "er");
  kept.WriteAt("file", 1, "N");
  EXPECT_EQ(folder.Content("file"), "Newer");
}

TEST_F(PosixFilesInAnEvent, OneFileIsOpenAtATime) {
  kept.Append("one", "1");
  kept.WriteAt("two", 1, "2");
  EXPECT_EQ(OpenDescriptors(), before + 1);
  kept.Append("one", "1");
  EXPECT_EQ(later.size(), 1U);
  EXPECT_EQ(folder.Content("one"), "11");
  EXPECT_EQ(folder.Content("two"), "2");
  EndEvent();
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(PosixFilesInAnEvent, FailuresAreTheSame) {
  EXPECT_EQ(FaultOf([&] { kept.Append("none\\file", "x"); }), 76);
  EXPECT_EQ(FaultOf([&] { kept.Append("..\\file", "x"); }), 52);
  EXPECT_EQ(FaultOf([&] { kept.WriteAt("file", 0, "x"); }), 63);
  EXPECT_EQ(folder.Content("file"), "");
  std::filesystem::create_symlink("/dev/full", folder.path() / "full.log");
  EXPECT_EQ(FaultOf([&] { kept.Append("full.log", "x"); }), 61);
  EXPECT_EQ(FaultOf([&] { kept.WriteAt("full.log", 1, "x"); }), 61);
  kept.MakeFolder("none");
  kept.Append("none\\file", "x");
  EXPECT_EQ(folder.Content("none/file"), "x");
  EndEvent();
  EXPECT_EQ(OpenDescriptors(), before);
}

}  // namespace
}  // namespace parlorwire
