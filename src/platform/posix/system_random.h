// Random numbers, seeded by the system.
#pragma once

#include <random>

#include "platform/random.h"

namespace parlorwire {

class SystemRandom : public Random {
 public:
  double Next() override;

 private:
  std::mt19937_64 generator_{std::random_device{}()};
};

}  // namespace parlorwire
