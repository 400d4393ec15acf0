#include "platform/resources.h"

#include <gtest/gtest.h>

#include "support/fault_of.h"
#include "support/resource_file.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct ResourcesTest : testing::Test {
  void Load() { LoadResourceLibrary(resources, platform.Ports(), "smiles.dll"); }

  SimulatedPlatform platform;
  ResourceFile file;
  Resources resources;
};

Text OnePixel(char red) {
  return DibParts{.data = Text("\0\0", 2) + red + Text(1, '\0')}.Bytes();
}

TEST_F(ResourcesTest, WithoutALibraryThereIsNothing) {
  Load();
  EXPECT_FALSE(resources.library);
  EXPECT_EQ(LoadResourceString(resources, 101, 256), "");
  EXPECT_EQ(LoadResourceBitmap(resources, 102), nullptr);
}

TEST_F(ResourcesTest, TheApplicationFolderComesFirst) {
  file.String(1, u"installed");
  platform.program_files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceString(resources, 1, 256), "installed");
  file.String(1, u"own");
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceString(resources, 1, 256), "own");
  EXPECT_EQ(resources.path, "smiles.dll");
}

TEST_F(ResourcesTest, AnotherLoadForgetsTheLibraryBefore) {
  file.Bitmap(102, OnePixel(1));
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceBitmap(resources, 102)->pixels.at(0), 0xFF010000U);
  file.Bitmap(102, OnePixel(2));
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceBitmap(resources, 102)->pixels.at(0), 0xFF020000U);
  platform.files.files.clear();
  Load();
  EXPECT_EQ(LoadResourceBitmap(resources, 102), nullptr);
  EXPECT_EQ(resources.path, "");
}

TEST_F(ResourcesTest, FreedThereIsNothing) {
  file.String(1, u"text");
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  FreeResourceLibrary(resources);
  EXPECT_EQ(LoadResourceString(resources, 1, 256), "");
}

TEST_F(ResourcesTest, AFileThatIsNoLibraryIsAFault) {
  platform.files.files["smiles.dll"] = "no library";
  EXPECT_EQ(FaultOf([&] { Load(); }), 48);
  try {
    Load();
    ADD_FAILURE();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.description, "193 while trying to load the file 'smiles.dll'");
  }
  EXPECT_FALSE(resources.library);
}

TEST_F(ResourcesTest, AFileThatCannotBeReadIsAFaultAlsoWithAnotherInReserve) {
  platform.files.files["smiles.dll"] = platform.program_files.files["smiles.dll"] = file.Bytes();
  platform.files.unreadable.insert("smiles.dll");
  try {
    Load();
    ADD_FAILURE();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.number, 48);
    EXPECT_EQ(fault.description, "5 while trying to load the file 'smiles.dll'");
  }
  EXPECT_FALSE(resources.library);
}

// ---- strings ----

TEST_F(ResourcesTest, AStringIsCutToTheBuffer) {
  file.String(101, u"12345");
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceString(resources, 101, 256), "12345");
  EXPECT_EQ(LoadResourceString(resources, 101, 6), "12345");
  EXPECT_EQ(LoadResourceString(resources, 101, 5), "1234");
  EXPECT_EQ(LoadResourceString(resources, 101, 1), "");
  EXPECT_EQ(LoadResourceString(resources, 101, 0), "");
  EXPECT_EQ(LoadResourceString(resources, 101, -1), "");
}

TEST_F(ResourcesTest, ABufferOf256Takes255Characters) {
  file.String(101, std::u16string(300, u'x'));
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceString(resources, 101, 256), Text(255, 'x'));
}

TEST_F(ResourcesTest, IdsBelowOneAreNone) {
  file.String(0, u"zero");
  file.Bitmap(0, OnePixel(1));
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceString(resources, 0, 256), "");
  EXPECT_EQ(LoadResourceBitmap(resources, 0), nullptr);
}

TEST_F(ResourcesTest, StringsBecomeWindows1251) {
  file.String(101, std::u16string_view(u" роза\0№ 中 ", 10));
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceString(resources, 101, 256), " роза"_w + Text(1, '\0') + "№ ? "_w);
}

// ---- bitmaps ----

TEST_F(ResourcesTest, ABitmapIsReadOnceAndShared) {
  file.Bitmap(102, OnePixel(1));
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  const auto picture = LoadResourceBitmap(resources, 102);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->width, 1);
  EXPECT_EQ(LoadResourceBitmap(resources, 102), picture);
}

TEST_F(ResourcesTest, ABrokenBitmapIsNoneAndTheOthersAre) {
  file.Bitmap(102, "broken");
  file.Bitmap(103, OnePixel(1));
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  EXPECT_EQ(LoadResourceBitmap(resources, 102), nullptr);
  EXPECT_NE(LoadResourceBitmap(resources, 103), nullptr);
}

TEST_F(ResourcesTest, AllPicturesTogetherStayInProportionToTheFile) {
  DibParts parts{.width = 500, .height = 500, .depth = 8, .compression = 1, .colours = 1};
  parts.palette = {0};
  parts.data = Text("\0\1", 2);
  for (std::uint32_t id = 102; id < 112; ++id)
    file.Bitmap(id, parts.Bytes());
  platform.files.files["smiles.dll"] = file.Bytes();
  Load();
  int loaded = 0;
  for (int id = 102; id < 112; ++id)
    loaded += LoadResourceBitmap(resources, id) != nullptr ? 1 : 0;
  EXPECT_EQ(loaded, 4);
}

}  // namespace
}  // namespace parlorwire
