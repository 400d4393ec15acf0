#include "platform/dib.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/resource_file.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kInk = 0xFFA0B0C0;    // palette entry 5
constexpr std::uint32_t kPaper = 0xFF102030;  // the other entries

DibParts WithPalette(std::uint32_t depth, std::int32_t width, std::int32_t height, Text data) {
  DibParts parts{.width = width, .height = height, .depth = depth, .data = std::move(data)};
  parts.palette.assign(std::size_t{1} << depth, 0x102030);
  parts.palette[depth == 1 ? 1 : 5] = 0xA0B0C0;
  return parts;
}

DibParts Runs(std::uint32_t depth, std::int32_t width, std::int32_t height, Text data) {
  DibParts parts = WithPalette(depth, width, height, std::move(data));
  parts.compression = depth == 8 ? 1 : 2;
  return parts;
}

Picture Decoded(const DibParts& parts) {
  const auto picture = ReadDib(parts.Bytes());
  return picture ? *picture : Picture{-1, -1, 1, {}};
}

bool IsRefused(const DibParts& parts) {
  return !ReadDib(parts.Bytes());
}

Text Data(std::initializer_list<int> bytes) {
  Text data;
  for (const int byte : bytes)
    data += static_cast<char>(byte);
  return data;
}

// ---- kinds ----

TEST(Dib, EveryKindIsRead) {
  for (const auto& [name, parts] : EveryKindOfDib()) {
    const Picture picture = Decoded(parts);
    ASSERT_EQ(picture.pixels.size(), 1U) << name;
    const std::uint32_t expected = parts.depth == 1 || parts.depth == 16  ? 0xFFFFFFFF
                                   : parts.depth == 4 || parts.depth == 8 ? kInk
                                                                          : kPaper;
    EXPECT_EQ(picture.pixels[0], expected) << name;
  }
}

TEST(Dib, EveryKindIsRefusedWhereverItIsCut) {
  for (const auto& [name, parts] : EveryKindOfDib()) {
    const Text bytes = parts.Bytes();
    // Behind its only pixel a bitmap of runs has nothing but its end.
    const std::size_t needed =
        parts.compression == 1 || parts.compression == 2 ? bytes.size() - 2 : bytes.size();
    for (std::size_t size = 0; size < needed; ++size)
      ASSERT_FALSE(ReadDib(std::string_view(bytes).substr(0, size))) << name << " at " << size;
  }
}

TEST(Dib, AHeaderOfAnotherSizeIsRefused) {
  for (const std::uint32_t header : {0U, 11U, 16U, 39U, 41U, 64U, 107U, 123U, 125U, 0xFFFFFFFFU}) {
    Text bytes = DibParts{.data = Text(200, '\0')}.Bytes();
    bytes.replace(0, 4, LittleEndianBytes(header, 4));
    EXPECT_FALSE(ReadDib(bytes)) << header;
  }
}

TEST(Dib, ADepthThatIsNoneIsRefused) {
  for (const std::uint32_t depth : {0U, 2U, 3U, 15U, 48U, 64U})
    EXPECT_TRUE(IsRefused({.depth = depth, .data = Text(5000, '\0')})) << depth;
  for (const std::uint32_t depth : {16U, 32U})
    EXPECT_TRUE(IsRefused({.header = 12, .depth = depth, .data = Text(100, '\0')})) << depth;
}

TEST(Dib, ACompressionThatDoesNotFitTheDepthIsRefused) {
  for (const std::uint32_t depth : {1U, 4U, 8U, 16U, 24U, 32U})
    for (const std::uint32_t compression : {1U, 2U, 3U, 4U, 5U, 6U}) {
      const bool fits = (compression == 1 && depth == 8) || (compression == 2 && depth == 4) ||
                        (compression == 3 && (depth == 16 || depth == 32));
      const DibParts parts{.depth = depth, .compression = compression, .data = Text(5000, '\0')};
      EXPECT_EQ(IsRefused(parts), !fits) << depth << " " << compression;
    }
}

// ---- rows ----

TEST(Dib, RowsRunFromTheBottomAndArePaddedToFourBytes) {
  const Picture picture =
      Decoded({.width = 1, .height = 2, .data = Data({1, 2, 3, 9, 4, 5, 6, 9})});
  EXPECT_EQ(picture.width, 1);
  EXPECT_EQ(picture.height, 2);
  EXPECT_THAT(picture.pixels, ElementsAre(0xFF060504, 0xFF030201));
}

TEST(Dib, WithANegativeHeightRowsRunFromTheTop) {
  const Picture picture =
      Decoded({.width = 1, .height = -2, .data = Data({1, 2, 3, 9, 4, 5, 6, 9})});
  EXPECT_EQ(picture.height, 2);
  EXPECT_THAT(picture.pixels, ElementsAre(0xFF030201, 0xFF060504));
}

TEST(Dib, TheHighestBitIsTheLeftmostPixel) {
  EXPECT_THAT(Decoded(WithPalette(1, 9, 1, Data({0x81, 0x80, 0, 0}))).pixels,
              ElementsAre(kInk, kPaper, kPaper, kPaper, kPaper, kPaper, kPaper, kInk, kInk));
  EXPECT_THAT(Decoded(WithPalette(4, 3, 1, Data({0x05, 0x50, 0, 0}))).pixels,
              ElementsAre(kPaper, kInk, kInk));
}

TEST(Dib, TheFourthByteOfThirtyTwoBitsIsNotTransparency) {
  EXPECT_THAT(Decoded({.depth = 32, .data = Data({1, 2, 3, 0})}).pixels, ElementsAre(0xFF030201));
  EXPECT_THAT(Decoded({.depth = 32, .data = Data({1, 2, 3, 0x80})}).pixels,
              ElementsAre(0xFF030201));
}

TEST(Dib, FifteenBitsAreSpreadOverEight) {
  const auto pixel = [](int bits) {
    return Decoded({.depth = 16, .data = LittleEndianBytes(static_cast<std::uint64_t>(bits), 4)})
        .pixels.at(0);
  };
  EXPECT_EQ(pixel(0x7C00), 0xFFFF0000);
  EXPECT_EQ(pixel(0x03E0), 0xFF00FF00);
  EXPECT_EQ(pixel(0x001F), 0xFF0000FF);
  EXPECT_EQ(pixel(0x8000), 0xFF000000);
  EXPECT_EQ(pixel(0x0010), 0xFF000084);
}

TEST(Dib, MasksSayWhereAColourIs) {
  const auto pixel = [](std::vector<std::uint32_t> masks, std::uint32_t bits) {
    return Decoded({.depth = 32,
                    .compression = 3,
                    .masks = std::move(masks),
                    .data = LittleEndianBytes(bits, 4)})
        .pixels.at(0);
  };
  EXPECT_EQ(pixel({0xFF000000, 0x00FF0000, 0x0000FF00}, 0x112233FF), 0xFF112233);
  EXPECT_EQ(pixel({0x1, 0x2, 0x4}, 0x5), 0xFFFF00FF);
  EXPECT_EQ(pixel({0, 0xFFFFFFFF, 0}, 0xFFFFFFFF), 0xFF00FF00);
}

TEST(Dib, HeadersWithRoomForMasksHoldThem) {
  DibParts parts{.header = 108,
                 .depth = 32,
                 .compression = 3,
                 .masks = {0x0000FF, 0x00FF00, 0xFF0000},
                 .data = Data({1, 2, 3, 0})};
  EXPECT_THAT(Decoded(parts).pixels, ElementsAre(0xFF010203));
  parts.compression = 0;  // then they are not in force
  EXPECT_THAT(Decoded(parts).pixels, ElementsAre(0xFF030201));
}

// ---- palettes ----

TEST(Dib, APaletteMayBeShorterThanTheWhole) {
  DibParts parts{.width = 2, .depth = 8, .colours = 2, .palette = {0x010203, 0x040506}};
  parts.data = Data({1, 0, 0, 0});
  EXPECT_THAT(Decoded(parts).pixels, ElementsAre(0xFF040506, 0xFF010203));
  parts.data = Data({1, 2, 0, 0});  // 2 has no entry
  EXPECT_THAT(Decoded(parts).pixels, ElementsAre(0xFF040506, 0xFF000000));
}

TEST(Dib, ADeepBitmapMayHaveAPaletteThatNobodyNeeds) {
  EXPECT_THAT(Decoded({.colours = 2, .palette = {7, 7}, .data = Data({1, 2, 3, 0})}).pixels,
              ElementsAre(0xFF030201));
}

TEST(Dib, APaletteShorterThanNamedIsRefused) {
  EXPECT_TRUE(IsRefused({.depth = 8, .colours = 200, .palette = {1, 2}, .data = Text(90, '\0')}));
  EXPECT_TRUE(IsRefused({.depth = 8, .palette = {1, 2}, .data = Text(90, '\0')}));
  EXPECT_TRUE(IsRefused({.depth = 1, .colours = 0xFFFFFFFF, .data = Text(90, '\0')}));
  EXPECT_TRUE(IsRefused({.depth = 24, .colours = 0x40000000, .data = Text(90, '\0')}));
}

// ---- runs ----

TEST(Dib, RunsOfEightBits) {
  EXPECT_THAT(Decoded(Runs(8, 4, 1, Data({1, 5, 3, 0, 0, 1}))).pixels,
              ElementsAre(kInk, kPaper, kPaper, kPaper));
}

TEST(Dib, RunsOfFourBitsTakeTurns) {
  EXPECT_THAT(Decoded(Runs(4, 4, 1, Data({4, 0x50, 0, 1}))).pixels,
              ElementsAre(kInk, kPaper, kInk, kPaper));
}

TEST(Dib, AbsoluteRunsArePaddedToSixteenBits) {
  EXPECT_THAT(Decoded(Runs(8, 4, 1, Data({0, 3, 5, 0, 5, 99, 1, 5, 0, 1}))).pixels,
              ElementsAre(kInk, kPaper, kInk, kInk));
  EXPECT_THAT(Decoded(Runs(4, 6, 1, Data({0, 5, 0x50, 0x55, 0x50, 99, 1, 0x50, 0, 1}))).pixels,
              ElementsAre(kInk, kPaper, kInk, kInk, kInk, kInk));
}

TEST(Dib, RowsOfRunsEndByCommandAndRunFromTheBottom) {
  EXPECT_THAT(Decoded(Runs(8, 2, 2, Data({1, 5, 0, 0, 1, 0, 1, 5, 0, 1}))).pixels,
              ElementsAre(kPaper, kInk, kInk, kPaper));
}

TEST(Dib, ADeltaMovesOn) {
  EXPECT_THAT(Decoded(Runs(8, 2, 2, Data({0, 2, 1, 1, 1, 5, 0, 1}))).pixels,
              ElementsAre(kPaper, kInk, kPaper, kPaper));
}

TEST(Dib, WhatRunsBeyondARowIsLeftOut) {
  EXPECT_THAT(Decoded(Runs(8, 2, 1, Data({200, 5, 0, 1}))).pixels, ElementsAre(kInk, kInk));
  EXPECT_THAT(Decoded(Runs(8, 1, 1, Data({0, 2, 255, 255, 9, 5, 0, 1}))).pixels,
              ElementsAre(kPaper));
}

TEST(Dib, RunsThatEndEarlyAreRefused) {
  EXPECT_TRUE(IsRefused(Runs(8, 4, 1, Data({1, 5}))));
  EXPECT_TRUE(IsRefused(Runs(8, 4, 2, Data({4, 5, 0, 0, 3, 5}))));
  EXPECT_TRUE(IsRefused(Runs(8, 4, 1, Data({0, 4, 5, 5, 5}))));
  EXPECT_TRUE(IsRefused(Runs(8, 4, 1, Data({0, 2, 1}))));
  EXPECT_FALSE(IsRefused(Runs(8, 4, 1, Data({4, 5}))));
}

// ---- sizes ----

TEST(Dib, SidesOf4096AreTheLargest) {
  const auto row = [](std::int32_t width) {
    return DibParts{.width = width, .data = Text(std::size_t{3} * 4100, '\0')};
  };
  EXPECT_EQ(Decoded(row(4096)).width, 4096);
  EXPECT_TRUE(IsRefused(row(4097)));
  const auto column = [](std::int32_t height) {
    return DibParts{.height = height, .data = Text(std::size_t{4} * 4100, '\0')};
  };
  EXPECT_EQ(Decoded(column(4096)).height, 4096);
  EXPECT_EQ(Decoded(column(-4096)).height, 4096);
  EXPECT_TRUE(IsRefused(column(4097)));
  EXPECT_TRUE(IsRefused(column(-4097)));
}

TEST(Dib, SidesThatAreNoneAreRefused) {
  for (const std::int32_t side : {0, -2147483647 - 1, 2147483647}) {
    EXPECT_TRUE(IsRefused({.height = side, .data = Text(100, '\0')})) << side;
    EXPECT_TRUE(IsRefused({.width = side, .data = Text(100, '\0')})) << side;
  }
  EXPECT_TRUE(IsRefused({.width = -1, .data = Text(100, '\0')}));
}

TEST(Dib, AFewBytesDoNotBecomeALargePicture) {
  EXPECT_TRUE(IsRefused(Runs(8, 4096, 4096, Data({0, 1}))));
  EXPECT_FALSE(IsRefused(Runs(8, 512, 512, Data({0, 1}))));
  EXPECT_FALSE(IsRefused(WithPalette(1, 4096, 4096, Text(std::size_t{512} * 4096, '\0'))));
}

TEST(Dib, TwiceTheUsualDotsAreHalfTheSize) {
  for (const std::uint32_t dots : {0U, 2835U, 3780U, 7499U, 7621U, 11811U})
    EXPECT_EQ(Decoded({.dots = dots, .data = Text(4, '\0')}).scale, 1) << dots;
  for (const std::uint32_t dots : {7500U, 7559U, 7560U, 7620U})
    EXPECT_EQ(Decoded({.dots = dots, .data = Text(4, '\0')}).scale, 2) << dots;
}

}  // namespace
}  // namespace parlorwire
