#include "platform/posix/system_random.h"

namespace parlorwire {

double SystemRandom::Next() {
  // 53 bits are what a double holds exactly, so no rounding reaches 1.
  return static_cast<double>(generator_() >> 11) * 0x1p-53;
}

}  // namespace parlorwire
