// What a call faults with.
#pragma once

#include "text/fault.h"

namespace parlorwire {

// The number of the Fault that `call` throws; 0 if it throws none.
template <class Call>
int FaultOf(Call call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.number;
  }
  return 0;
}

}  // namespace parlorwire
