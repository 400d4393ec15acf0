// The port to a generator of random numbers.
#pragma once

namespace parlorwire {

class Random {
 public:
  virtual ~Random() = default;
  // A number in [0, 1).
  virtual double Next() = 0;
};

}  // namespace parlorwire
