// How often something may happen.
#pragma once

#include <cstdint>

namespace parlorwire::service {

struct Bucket {
  std::int64_t empty_us = 0;  // when nothing of what has happened counts any more
};

// Whether it may happen now, which counts then. `per_second` times a second, and ten seconds' worth
// at once; 0 is always.
bool Take(Bucket& bucket, std::int64_t per_second, std::int64_t now_ms);

// Waits that grow with each wrong password.
struct Guesses {
  int wrong = 0;
  std::int64_t wait_until_ms = 0;
};

// Notes a wrong password: behind the free ones the next may come after 1, 2, 4 ... seconds.
void NoteWrong(Guesses& guesses, int free, std::int64_t longest_wait_ms, std::int64_t now_ms);

}  // namespace parlorwire::service
