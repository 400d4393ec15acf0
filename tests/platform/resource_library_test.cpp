#include "platform/resource_library.h"

#include <gtest/gtest.h>

#include "support/resource_file.h"

namespace parlorwire {
namespace {

constexpr std::uint32_t kNeutralLanguage = 0;
constexpr std::uint32_t kRussianLanguage = 0x419;
constexpr std::uint32_t kGerman = 0x407;
constexpr std::uint32_t kEnglish = 0x409;

class ResourceLibraryTest : public testing::TestWithParam<ResourceForm> {
 protected:
  std::optional<ResourceLibrary> Read() const { return ResourceLibrary::Read(file.Bytes()); }
  Text String(int id) const { return Text(Read().value().String(id)); }
  Text Bitmap(int id) const { return Text(Read().value().Bitmap(id)); }
  // With other bytes at an offset.
  std::optional<ResourceLibrary> ReadChanged(std::size_t at, const Text& bytes) const {
    Text changed = file.Bytes();
    changed.replace(at, bytes.size(), bytes);
    return ResourceLibrary::Read(changed);
  }

  ResourceFile file{.form = GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Forms, ResourceLibraryTest,
                         testing::Values(ResourceForm::k32, ResourceForm::k64));

Text Wide(std::u16string_view text) {
  Text bytes;
  for (const char16_t unit : text)
    bytes += LittleEndianBytes(unit, 2);
  return bytes;
}

TEST_P(ResourceLibraryTest, HasItsStringsAndBitmaps) {
  file.String(101, u"2");
  file.String(102, u":) :-)");
  file.String(103, u"роза");
  file.String(112, u"in the next block");
  file.Bitmap(102, "first");
  file.Bitmap(112, "second");
  EXPECT_EQ(String(101), Wide(u"2"));
  EXPECT_EQ(String(102), Wide(u":) :-)"));
  EXPECT_EQ(String(103), Wide(u"роза"));
  EXPECT_EQ(String(112), Wide(u"in the next block"));
  EXPECT_EQ(Bitmap(102), "first");
  EXPECT_EQ(Bitmap(112), "second");
}

TEST_P(ResourceLibraryTest, WhatIsMissingIsEmpty) {
  file.String(102, u"only");
  EXPECT_EQ(String(101), "");
  EXPECT_EQ(String(103), "");
  EXPECT_EQ(String(16), "");
  EXPECT_EQ(String(-1), "");
  EXPECT_EQ(String(2147483647), "");
  EXPECT_EQ(Bitmap(102), "");
  EXPECT_EQ(Bitmap(0), "");
}

TEST_P(ResourceLibraryTest, TheNeutralLanguageComesFirst) {
  file.String(102, u"german", kGerman);
  file.String(102, u"russian", kRussianLanguage);
  file.String(102, u"neutral", kNeutralLanguage);
  file.Bitmap(102, "german", kGerman);
  file.Bitmap(102, "neutral", kNeutralLanguage);
  EXPECT_EQ(String(102), Wide(u"neutral"));
  EXPECT_EQ(Bitmap(102), "neutral");
}

TEST_P(ResourceLibraryTest, ThenRussian) {
  file.String(102, u"german", kGerman);
  file.String(102, u"russian", kRussianLanguage);
  file.Bitmap(102, "english", kEnglish);
  file.Bitmap(102, "russian", kRussianLanguage);
  EXPECT_EQ(String(102), Wide(u"russian"));
  EXPECT_EQ(Bitmap(102), "russian");
}

TEST_P(ResourceLibraryTest, ThenTheFirst) {
  file.String(102, u"english", kEnglish);
  file.String(102, u"german", kGerman);
  EXPECT_EQ(String(102), Wide(u"german"));
}

TEST_P(ResourceLibraryTest, ANamedLanguageIsNotRussian) {
  file.Bitmap(102, "english", kEnglish);
  file.Bitmap(102, "named", 0x80000000U | kRussianLanguage);
  EXPECT_EQ(Bitmap(102), "english");
}

TEST_P(ResourceLibraryTest, TheLanguageIsChosenForABlockAndHidesOthersTexts) {
  file.String(102, u"neutral", kNeutralLanguage);
  file.String(103, u"russian", kRussianLanguage);
  file.String(112, u"russian", kRussianLanguage);
  EXPECT_EQ(String(102), Wide(u"neutral"));
  EXPECT_EQ(String(103), "");
  EXPECT_EQ(String(112), Wide(u"russian"));
}

TEST_P(ResourceLibraryTest, BitmapsChooseEachByItself) {
  file.Bitmap(102, "neutral", kNeutralLanguage);
  file.Bitmap(103, "russian", kRussianLanguage);
  EXPECT_EQ(Bitmap(102), "neutral");
  EXPECT_EQ(Bitmap(103), "russian");
}

// ---- broken ones ----

TEST_P(ResourceLibraryTest, IsRefusedWhereverItIsCut) {
  file.String(101, u"1");
  file.Bitmap(102, "12345678");
  const Text bytes = file.Bytes();
  ASSERT_TRUE(ResourceLibrary::Read(bytes));
  for (std::size_t size = 0; size < bytes.size(); ++size)
    ASSERT_FALSE(ResourceLibrary::Read(bytes.substr(0, size))) << size;
}

TEST_P(ResourceLibraryTest, WithoutItsMarksItIsRefused) {
  EXPECT_FALSE(ReadChanged(0, "ZM"));
  EXPECT_FALSE(ReadChanged(ResourceFile::kHeader, "NE"));
  EXPECT_FALSE(ReadChanged(0x3C, LittleEndianBytes(0xFFFFFFFF, 4)));
  EXPECT_FALSE(ReadChanged(file.OptionalHeader(), LittleEndianBytes(0x107, 2)));
  EXPECT_FALSE(ReadChanged(ResourceFile::kHeader + 20, LittleEndianBytes(0xFFFF, 2)));
}

TEST_P(ResourceLibraryTest, MoreThan96SectionsAreRefused) {
  Text bytes = file.Bytes() + Text(std::size_t{40} * 100, '\0');
  bytes.replace(ResourceFile::kHeader + 6, 2, LittleEndianBytes(96, 2));
  EXPECT_TRUE(ResourceLibrary::Read(bytes));
  bytes.replace(ResourceFile::kHeader + 6, 2, LittleEndianBytes(97, 2));
  EXPECT_FALSE(ResourceLibrary::Read(bytes));
}

TEST_P(ResourceLibraryTest, WithoutADirectoryOfResourcesItHasNone) {
  file.String(101, u"1");
  for (const std::size_t at : {file.Directories() - 4, file.Directories() + 16}) {
    const auto library = ReadChanged(at, LittleEndianBytes(0, 4));
    ASSERT_TRUE(library);
    EXPECT_EQ(library->String(101), "");
  }
  const auto outside = ReadChanged(file.Directories() + 16, LittleEndianBytes(0x9000000, 4));
  ASSERT_TRUE(outside);
  EXPECT_EQ(outside->String(101), "");
}

TEST_P(ResourceLibraryTest, ADirectoryAtNothingIsNoneAlsoWhereASectionBegins) {
  file.String(101, u"1");
  file.address = 0;
  EXPECT_EQ(String(101), "");
  file.address = 4;
  EXPECT_EQ(String(101), Wide(u"1"));
}

// Types, and then numbers, lead to directories and nothing else.
TEST_P(ResourceLibraryTest, AnEntryThatLeadsToNoDirectoryIsEmpty) {
  file.Bitmap(102, "12345678");
  for (const std::size_t entry : {std::size_t{16}, std::size_t{40}}) {
    const std::size_t mark = ResourceFile::kResources + entry + 7;
    ASSERT_EQ(file.Bytes()[mark], '\x80') << entry;
    EXPECT_EQ(ReadChanged(mark, Text(1, '\0'))->Bitmap(102), "") << entry;
  }
}

TEST_P(ResourceLibraryTest, ASectionOutsideTheFileIsRefused) {
  EXPECT_FALSE(ReadChanged(file.SectionHeader() + 16, LittleEndianBytes(0xFFFFFFFF, 4)));
  EXPECT_FALSE(ReadChanged(file.SectionHeader() + 20, LittleEndianBytes(0xFFFFFF00, 4)));
}

// Whatever any four bytes of the resources become: some of them are then missing, and that is all.
TEST_P(ResourceLibraryTest, BrokenResourcesAreEmptyAtWorst) {
  file.String(101, u"1");
  file.String(102, u"two", kRussianLanguage);
  file.Bitmap(102, "12345678");
  file.Bitmap(103, "12345678", kGerman);
  const std::size_t end = file.Bytes().size();
  int missing = 0;
  for (std::size_t at = ResourceFile::kResources; at + 4 <= end; ++at)
    for (const std::uint32_t number : {0U, 1U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
      const auto library = ReadChanged(at, LittleEndianBytes(number, 4));
      ASSERT_TRUE(library);
      for (const int id : {101, 102, 103})
        missing += library->String(id).empty() || library->Bitmap(id).empty() ? 1 : 0;
    }
  EXPECT_GT(missing, 1000);
}

TEST_P(ResourceLibraryTest, DirectoriesThatLeadToThemselvesEnd) {
  file.Bitmap(102, "12345678");
  // The type leads to the first directory, the number to the same.
  for (const std::size_t entry : {std::size_t{16}, std::size_t{40}, std::size_t{64}}) {
    const auto library =
        ReadChanged(ResourceFile::kResources + entry + 4, LittleEndianBytes(0x80000000, 4));
    ASSERT_TRUE(library);
    EXPECT_EQ(library->Bitmap(102), "") << entry;
  }
}

TEST_P(ResourceLibraryTest, DataOutsideTheSectionIsEmpty) {
  file.Bitmap(102, "12345678");
  const std::size_t leaf = ResourceFile::kResources + 72;
  EXPECT_EQ(ReadChanged(leaf, LittleEndianBytes(0, 4))->Bitmap(102), "");
  EXPECT_EQ(ReadChanged(leaf + 4, LittleEndianBytes(9, 4))->Bitmap(102), "");
  EXPECT_EQ(ReadChanged(leaf + 4, LittleEndianBytes(8, 4))->Bitmap(102), "12345678");
  EXPECT_EQ(ReadChanged(leaf + 4, LittleEndianBytes(0xFFFFFFFF, 4))->Bitmap(102), "");
}

TEST_P(ResourceLibraryTest, AStringThatIsLongerThanItsBlockIsEmptyAndThoseAheadAreNot) {
  file.String(101, u"good");
  file.String(102, u"bad");
  Text& block = file.resources.at({6, 7, 0});
  const std::size_t length_at = block.size() - 2 * 9 - 2 * 3 - 2;
  ASSERT_EQ(block[length_at], 3);
  block[length_at + 1] = '\x7F';
  EXPECT_EQ(String(101), Wide(u"good"));
  EXPECT_EQ(String(102), "");
  EXPECT_EQ(String(103), "");
}

TEST_P(ResourceLibraryTest, MoreThanAThousandLanguagesAreNone) {
  for (std::uint32_t language = 1; language <= 1024; ++language)
    file.Bitmap(102, "1", language);
  EXPECT_EQ(Bitmap(102), "1");
  file.Bitmap(102, "1", 1025);
  EXPECT_EQ(Bitmap(102), "");
}

}  // namespace
}  // namespace parlorwire
