#include "text/charset_wide.h"

#ifdef PARLORWIRE_AVX2

#include <immintrin.h>

// This file is compiled for AVX2 as a whole: it includes nothing whose inline functions others
// share.
namespace parlorwire {
namespace {

// 16 entries of the table, in both halves.
__m256i Row(const char* table, int number) {
  return _mm256_broadcastsi128_si256(
      _mm_loadu_si128(reinterpret_cast<const __m128i*>(table + number * 16)));
}

}  // namespace

// A row is looked up by the low half of each byte. Which row counts is decided by the bits above,
// one after the other: a blend looks at the highest bit of each byte, so the bit is shifted up
// there.
std::size_t MapWide(char* bytes, std::size_t count, const char* table) {
  const __m256i row8 = Row(table, 8), row9 = Row(table, 9), rowA = Row(table, 10);
  const __m256i rowB = Row(table, 11), rowC = Row(table, 12), rowD = Row(table, 13);
  const __m256i rowE = Row(table, 14), rowF = Row(table, 15);
  const __m256i low_half = _mm256_set1_epi8(0x0F);
  const std::size_t end = count - count % 32;
  for (std::size_t done = 0; done < end; done += 32) {
    auto* place = reinterpret_cast<__m256i*>(bytes + done);
    const __m256i in = _mm256_loadu_si256(place);
    const int high = _mm256_movemask_epi8(in);
    if (high == 0) continue;
    const __m256i low = _mm256_and_si256(in, low_half);
    const __m256i bit4 = _mm256_slli_epi16(in, 3);
    const __m256i bit5 = _mm256_slli_epi16(in, 2);
    const __m256i bit6 = _mm256_slli_epi16(in, 1);
    const auto pair = [&](__m256i even, __m256i odd) {
      return _mm256_blendv_epi8(_mm256_shuffle_epi8(even, low), _mm256_shuffle_epi8(odd, low),
                                bit4);
    };
    __m256i out = _mm256_blendv_epi8(pair(rowC, rowD), pair(rowE, rowF), bit5);
    if ((high & ~_mm256_movemask_epi8(bit6)) != 0) {  // some of 0x80..0xBF, which are rare
      const __m256i rest = _mm256_blendv_epi8(pair(row8, row9), pair(rowA, rowB), bit5);
      out = _mm256_blendv_epi8(rest, out, bit6);
    }
    _mm256_storeu_si256(place, _mm256_blendv_epi8(in, out, in));
  }
  return end;
}

}  // namespace parlorwire

#endif
