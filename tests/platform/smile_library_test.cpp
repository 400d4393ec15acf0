// The library that the build makes, in both forms.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "platform/posix/posix_files.h"
#include "platform/resources.h"
#include "support/simulated_platform.h"
#include "text/cut.h"
#include "text/number.h"

namespace parlorwire {
namespace {

struct SmileLibrary : testing::TestWithParam<const char*> {
  Resources Load(const char* file) {
    PosixFiles files(std::filesystem::path(file).parent_path());
    Resources resources;
    LoadResourceLibrary(resources, platform.Ports(files), "smiles.dll");
    return resources;
  }

  SimulatedPlatform platform;
  Resources resources = Load(GetParam());
  int count = ToInteger(LoadResourceString(resources, 101, 256));
};

INSTANTIATE_TEST_SUITE_P(Forms, SmileLibrary, testing::Values(SMILES_FORM_64, SMILES_FORM_32),
                         [](const auto& form) { return form.index == 0 ? "Form64" : "Form32"; });

TEST_P(SmileLibrary, HasAPictureForEachLineAndNoNameTwice) {
  EXPECT_GE(count, 50);
  std::set<Text> names;
  std::size_t several = 0;
  for (int id = 102; id <= 101 + count; ++id) {
    const Text line = LoadResourceString(resources, id, 256);
    const auto words = Split(line, " ");
    ASSERT_FALSE(words.empty()) << id;
    several += words.size() > 1 ? 1 : 0;
    for (const std::string_view name : words) {
      EXPECT_FALSE(name.empty()) << line;
      EXPECT_TRUE(names.insert(Text(name)).second) << name;
    }
    const auto picture = LoadResourceBitmap(resources, id);
    ASSERT_NE(picture, nullptr) << line;
    EXPECT_EQ(picture->scale, 2) << line;
    EXPECT_EQ(picture->height, 40) << line;
  }
  EXPECT_GT(several, 30U);
  EXPECT_EQ(LoadResourceString(resources, 102 + count, 256), "");
}

TEST_P(SmileLibrary, HasTheNamesThatPersonalMessagesUseAndThePlainFaces) {
  std::set<Text> names;
  for (int id = 102; id <= 101 + count; ++id) {
    const Text line = LoadResourceString(resources, id, 256);
    for (const std::string_view name : Split(line, " "))
      names.insert(Text(name));
  }
  for (const char* name :
       {"sweet",   "eyes", "heart2", "coffe", "!",    "?(",      "champ", "b2",       "b1",
        "r4",      "r2",   "rom",    "rom2",  "rom3", "vasilek", "smoke", "dedmoroz", "sneg",
        "fingers", "hi",   "solo",   ":))",   ":o)",  "wg",      ":P",    ":b",       "kiss",
        ":D",      ":p",   ";)",     "r",     "rose", ":[",      "%|",    "8(",       "skel",
        "hnik",    ":)",   "beer",   "c",     ":(",   ":-)",     ":-(",   ";-)",      ":'("})
    EXPECT_TRUE(names.contains(name)) << name;
  EXPECT_TRUE(names.contains("роза"_w));
}

TEST_P(SmileLibrary, PicturesStandOnBlack) {
  for (int id = 102; id <= 101 + count; ++id) {
    const auto picture = LoadResourceBitmap(resources, id);
    std::set<std::uint32_t> colours(picture->pixels.begin(), picture->pixels.end());
    EXPECT_GT(colours.size(), 20U) << id;
    EXPECT_EQ(picture->pixels.front(), 0xFF000000) << id;
    EXPECT_EQ(picture->pixels.back(), 0xFF000000) << id;
  }
}

TEST_P(SmileLibrary, HoldsTheSameAsTheOtherForm) {
  Resources other = Load(GetParam() == Text(SMILES_FORM_64) ? SMILES_FORM_32 : SMILES_FORM_64);
  for (int id = 101; id < 200; ++id) {
    EXPECT_EQ(LoadResourceString(resources, id, 256), LoadResourceString(other, id, 256)) << id;
    const auto picture = LoadResourceBitmap(resources, id);
    const auto like_it = LoadResourceBitmap(other, id);
    ASSERT_EQ(picture == nullptr, like_it == nullptr) << id;
    if (picture == nullptr) continue;
    EXPECT_EQ(*picture, *like_it) << id;
  }
}

}  // namespace
}  // namespace parlorwire
