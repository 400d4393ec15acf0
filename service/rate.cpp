#include "service/rate.h"

#include <algorithm>

namespace parlorwire::service {
namespace {

constexpr std::int64_t kSecondUs = 1'000'000;
constexpr std::int64_t kAtOnceUs = 10 * kSecondUs;
constexpr int kMostDoublings = 20;

}  // namespace

bool Take(Bucket& bucket, std::int64_t per_second, std::int64_t now_ms) {
  if (per_second == 0) return true;
  const std::int64_t now_us = now_ms * 1000;
  const std::int64_t each_us = kSecondUs / per_second;
  const std::int64_t empty_us = std::max(bucket.empty_us, now_us) + each_us;
  if (empty_us - now_us > kAtOnceUs) return false;
  bucket.empty_us = empty_us;
  return true;
}

void NoteWrong(Guesses& guesses, int free, std::int64_t longest_wait_ms, std::int64_t now_ms) {
  ++guesses.wrong;
  const int over = guesses.wrong - free;
  if (over <= 0) return;
  const std::int64_t wait = std::int64_t{1000} << std::min(over - 1, kMostDoublings);
  guesses.wait_until_ms = now_ms + std::min(wait, longest_wait_ms);
  guesses.wrong = std::min(guesses.wrong, free + kMostDoublings);
}

}  // namespace parlorwire::service
