#include "platform/profile_file.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <vector>

namespace parlorwire {
namespace {

constexpr std::size_t kAmple = 1000;

Text Read(std::string_view file, std::string_view section = "S", std::string_view key = "k") {
  return ReadProfileValue(file, section, key, kAmple);
}

Text Write(std::string_view file, std::string_view value = "new", std::string_view section = "S",
           std::string_view key = "k") {
  return WriteProfileValue(file, section, key, value);
}

struct ReadCase {
  std::string_view what;
  std::string_view file;
  std::string_view value;
};

void PrintTo(const ReadCase& read, std::ostream* out) {
  *out << read.what;
}

class ReadProfile : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadProfile, GivesTheValueOfKInSectionS) {
  EXPECT_EQ(Read(GetParam().file), GetParam().value) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(LineEnds, ReadProfile,
                         testing::Values(ReadCase{"CR LF", "[S]\r\nk=v\r\n", "v"},
                                         ReadCase{"LF", "[S]\nk=v\n", "v"},
                                         ReadCase{"CR", "[S]\rk=v\r", "v"},
                                         ReadCase{"mixed", "[S]\ra=1\n\r\nk=v\nb=2", "v"},
                                         ReadCase{"last line without an end", "[S]\r\nk=v", "v"},
                                         ReadCase{"header without an end", "[S]", ""},
                                         ReadCase{"empty file", "", ""}));

INSTANTIATE_TEST_SUITE_P(
    Blanks, ReadProfile,
    testing::Values(ReadCase{"around the line", " \t\v[S] \t\v\r\n \t\vk=v \t\v\r\n", "v"},
                    ReadCase{"around key and value", "[S]\r\nk \t\v= \t\v v w \r\n", "v w"},
                    ReadCase{"inside the brackets", "[ \tS\v ]\r\nk=v\r\n", "v"},
                    ReadCase{"form feed is no blank", "[S]\r\nk=\fv\r\n", "\fv"},
                    ReadCase{"no-break space is no blank", "[S]\r\nk=\xA0v\r\n", "\xA0v"},
                    ReadCase{"NUL is a character", std::string_view("[S]\nk=a\0b", 9),
                             std::string_view("a\0b", 3)}));

INSTANTIATE_TEST_SUITE_P(
    Comments, ReadProfile,
    testing::Values(ReadCase{"; at the start hides a key", "[S]\r\n;k=1\r\nk=2\r\n", "2"},
                    ReadCase{"; behind blanks too", "[S]\r\n \t;k=1\r\nk=2\r\n", "2"},
                    ReadCase{"; hides a section", ";[S]\r\nk=1\r\n[S]\r\nk=2\r\n", "2"},
                    ReadCase{"; in a value is data", "[S]\r\nk=v;w ; x\r\n", "v;w ; x"},
                    ReadCase{"# is no comment", "[S]\r\n#k=1\r\nk=2\r\n", "2"}));

TEST(ReadProfileValue, CommentSignsOfOtherFormatsArePartsOfKeys) {
  EXPECT_EQ(Read("[S]\r\n#k=1\r\n", "S", "#k"), "1");
  EXPECT_EQ(Read("[S]\r\n//k=1\r\n", "S", "//k"), "1");
  EXPECT_EQ(Read("[S]\r\na;b=1\r\n", "S", "a;b"), "1");
  EXPECT_EQ(Read("[S]\r\n;k=1\r\n", "S", ";k"), "");
}

INSTANTIATE_TEST_SUITE_P(
    Sections, ReadProfile,
    testing::Values(ReadCase{"the rest of the header is ignored", "[S]x]k=1\r\nk=2\r\n", "2"},
                    ReadCase{"no closing bracket", "[S\r\nk=v\r\n", "v"},
                    ReadCase{"no closing bracket, blanks", "[ S \r\nk=v\r\n", "v"},
                    ReadCase{"[ first makes a section, also with =", "[S]\r\n[k=1\r\nk=2\r\n", ""},
                    ReadCase{"another section ends it", "[S]\r\n[T]\r\nk=1\r\n", ""},
                    ReadCase{"only the first section of a name",
                             "[S]\r\na=1\r\n[T]\r\n[s]\r\nk=1\r\n", ""},
                    ReadCase{"ahead of the first section", "k=1\r\n[T]\r\n", ""},
                    ReadCase{"first key of a name", "[S]\r\nk=1\r\nk=2\r\n", "1"},
                    ReadCase{"first key, though empty", "[S]\r\nk=\r\nk=2\r\n", ""}));

INSTANTIATE_TEST_SUITE_P(
    Keys, ReadProfile,
    testing::Values(ReadCase{"parted at the first =", "[S]\r\nk=a=b=c\r\n", "a=b=c"},
                    ReadCase{"no =, no key", "[S]\r\nk\r\nk=2\r\n", "2"},
                    ReadCase{"a longer key", "[S]\r\nkk=1\r\nk=2\r\n", "2"},
                    ReadCase{"empty value", "[S]\r\nk=\r\n", ""},
                    ReadCase{"a junk line between", "[S]\r\njunk\r\n\r\nk=2\r\n", "2"}));

INSTANTIATE_TEST_SUITE_P(
    Quotes, ReadProfile,
    testing::Values(ReadCase{"double", "[S]\r\nk=\"v\"\r\n", "v"},
                    ReadCase{"single", "[S]\r\nk='v'\r\n", "v"},
                    ReadCase{"blanks inside stay", "[S]\r\nk= \" v \" \r\n", " v "},
                    ReadCase{"only one pair", "[S]\r\nk=\"\"v\"\"\r\n", "\"v\""},
                    ReadCase{"pair in pair", "[S]\r\nk=\"'v'\"\r\n", "'v'"},
                    ReadCase{"unlike", "[S]\r\nk=\"v'\r\n", "\"v'"},
                    ReadCase{"at the start only", "[S]\r\nk=\"v\r\n", "\"v"},
                    ReadCase{"at the end only", "[S]\r\nk=v\"\r\n", "v\""},
                    ReadCase{"a lone quote", "[S]\r\nk=\"\r\n", "\""},
                    ReadCase{"an empty pair", "[S]\r\nk=\"\"\r\n", ""},
                    ReadCase{"quotes in a name belong to it", "[\"S\"]\r\nk=1\r\n[S]\r\nk=2\r\n",
                             "2"}));

TEST(ReadProfileValue, NamesCompareWithoutCase) {
  EXPECT_EQ(Read("[mAiN]\r\nLaNgUaGe=x\r\n", "Main", "Language"), "x");
  EXPECT_EQ(Read("[РАЗДЕЛ]\r\nключ=x\r\n"_w, W<"раздел">, W<"КЛЮЧ">), "x");
}

TEST(ReadProfileValue, DropsSpacesAndOnlySpacesAroundTheCallersNames) {
  EXPECT_EQ(Read("[S]\r\nk=v\r\n", "  S ", " k  "), "v");
  EXPECT_EQ(Read("[S]\r\nk=v\r\n", "\tS", "k"), "");
  EXPECT_EQ(Read("[S]\r\nk=v\r\n", "S", "k\t"), "");
}

TEST(ReadProfileValue, GivesOneByteLessThanTheBufferHolds) {
  constexpr std::string_view file = "[S]\r\nk=value\r\n";
  EXPECT_EQ(ReadProfileValue(file, "S", "k", 0), "");
  EXPECT_EQ(ReadProfileValue(file, "S", "k", 1), "");
  EXPECT_EQ(ReadProfileValue(file, "S", "k", 2), "v");
  EXPECT_EQ(ReadProfileValue(file, "S", "k", 5), "valu");
  EXPECT_EQ(ReadProfileValue(file, "S", "k", 6), "value");
}

TEST(ReadProfileValue, ABufferAsLongAsTheFileNeverCuts) {
  constexpr std::string_view file = "[]\n=v";
  EXPECT_EQ(ReadProfileValue(file, "", "", file.size()), "v");
}

TEST(ReadProfileValue, AUtf8MarkIsPartOfTheFirstLine) {
  constexpr std::string_view file = "\xEF\xBB\xBF[S]\r\nk=1\r\n";
  EXPECT_EQ(Read(file), "");
  EXPECT_EQ(Write(file), Text(file) + "[S]\r\nk=new\r\n");
}

struct WriteCase {
  std::string_view what;
  std::string_view before;
  std::string_view after;
};

void PrintTo(const WriteCase& write, std::ostream* out) {
  *out << write.what;
}

class WriteProfile : public testing::TestWithParam<WriteCase> {};

TEST_P(WriteProfile, SetsKInSectionSToNew) {
  EXPECT_EQ(Write(GetParam().before), GetParam().after) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    ExistingKey, WriteProfile,
    testing::Values(
        WriteCase{"in its place", "[S]\r\na=1\r\nk=2\r\nb=3\r\n", "[S]\r\na=1\r\nk=new\r\nb=3\r\n"},
        WriteCase{"spelling stays", "[ s ]x\r\n\tK =2\r\n", "[ s ]x\r\n\tK =new\r\n"},
        WriteCase{"its own line end stays", "[S]\nk=2\nb=3\n", "[S]\nk=new\nb=3\n"},
        WriteCase{"the lone CR stays", "[S]\rk=2\rb=3", "[S]\rk=new\rb=3"},
        WriteCase{"the last line gets an end", "[S]\nk=2", "[S]\nk=new\r\n"},
        WriteCase{"the first of two", "[S]\r\nk=1\r\nk=2\r\n", "[S]\r\nk=new\r\nk=2\r\n"},
        WriteCase{"in the first of two sections", "[S]\r\nk=1\r\n[S]\r\nk=2\r\n",
                  "[S]\r\nk=new\r\n[S]\r\nk=2\r\n"},
        WriteCase{"quotes go with the value", "[S]\r\nk=\"a b\"\r\n", "[S]\r\nk=new\r\n"}));

INSTANTIATE_TEST_SUITE_P(
    NewKey, WriteProfile,
    testing::Values(
        WriteCase{"behind the last key", "[S]\r\na=1\r\n\r\n;c\r\n[T]\r\nk=1\r\n",
                  "[S]\r\na=1\r\nk=new\r\n\r\n;c\r\n[T]\r\nk=1\r\n"},
        WriteCase{"behind the last key, junk between", "[S]\r\na=1\r\njunk\r\nb=2\r\njunk\r\n",
                  "[S]\r\na=1\r\njunk\r\nb=2\r\nk=new\r\njunk\r\n"},
        WriteCase{"behind the header of a section without keys", "[S]\r\n\r\n;c=1\r\n[T]\r\n",
                  "[S]\r\nk=new\r\n\r\n;c=1\r\n[T]\r\n"},
        WriteCase{"a commented key is no key", "[S]\r\n;k=1\r\n", "[S]\r\nk=new\r\n;k=1\r\n"},
        WriteCase{"behind a last line without an end", "[S]\na=1", "[S]\na=1\r\nk=new\r\n"},
        WriteCase{"behind a header without an end", "[S]", "[S]\r\nk=new\r\n"},
        WriteCase{"new lines end in CR LF", "[S]\na=1\nx\n", "[S]\na=1\nk=new\r\nx\n"},
        WriteCase{"into the first of two sections", "[S]\r\n[T]\r\n[S]\r\n",
                  "[S]\r\nk=new\r\n[T]\r\n[S]\r\n"}));

INSTANTIATE_TEST_SUITE_P(
    NewSection, WriteProfile,
    testing::Values(WriteCase{"in an empty file", "", "[S]\r\nk=new\r\n"},
                    WriteCase{"at the end, no blank line", "[T]\r\na=1\r\n",
                              "[T]\r\na=1\r\n[S]\r\nk=new\r\n"},
                    WriteCase{"behind a last line without an end", "[T]\r\na=1",
                              "[T]\r\na=1\r\n[S]\r\nk=new\r\n"},
                    WriteCase{"behind keys of no section", "k=1\n", "k=1\n[S]\r\nk=new\r\n"},
                    WriteCase{"junk stays byte for byte", " \t\xFF=;\r\r\n[[]\n",
                              " \t\xFF=;\r\r\n[[]\n[S]\r\nk=new\r\n"}));

TEST(WriteProfileValue, NewNamesStandAsTheCallerSpellsThem) {
  EXPECT_EQ(WriteProfileValue("", " MaIn ", " KeY ", "v"), "[MaIn]\r\nKeY=v\r\n");
}

TEST(WriteProfileValue, TheValueGoesAsItIsAndLosesItsDressAtTheNextRead) {
  EXPECT_EQ(Write("", "  pass  "), "[S]\r\nk=  pass  \r\n");
  EXPECT_EQ(Read(Write("", "  pass  ")), "pass");
  EXPECT_EQ(Write("", "\"pass\""), "[S]\r\nk=\"pass\"\r\n");
  EXPECT_EQ(Read(Write("", "\"pass\"")), "pass");
  EXPECT_EQ(Read(Write("", "")), "");
}

// Whatever the file holds, what was written is what is read, and nothing else changes.
TEST(WriteProfileValue, OnRandomTextsReadsBackAndLeavesTheRest) {
  const std::vector<std::string_view> words = {"[S]",  "[T]", "[s", "k=1", "K = 2", "a=3",
                                               ";k=4", "=",   "]",  "[",   " ",     "\t",
                                               "junk", "\"",  "\r", "\n",  "\r\n"};
  std::mt19937 generator(1);
  const auto random = [&] { return static_cast<unsigned>(generator()); };
  for (int round = 0; round < 20000; ++round) {
    Text file;
    for (unsigned count = random() % 20; count > 0; --count)
      file += words[random() % words.size()];
    const Text written = Write(file);
    ASSERT_EQ(Read(written), "new") << file;
    for (const std::string_view key : {"a", "b", ""})
      ASSERT_EQ(Read(written, "T", key), Read(file, "T", key)) << file;
    ASSERT_EQ(Write(written), written) << file;
  }
}

}  // namespace
}  // namespace parlorwire
