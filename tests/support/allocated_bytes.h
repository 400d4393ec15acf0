// How much memory the process has allocated and not given back, in bytes.
#pragma once

#include <malloc.h>

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define PARLORWIRE_OWN_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define PARLORWIRE_OWN_ALLOCATOR 1
#endif
#endif

#ifdef PARLORWIRE_OWN_ALLOCATOR
// Of the sanitizer's library, whose header is not everywhere.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace parlorwire {

inline std::size_t AllocatedBytes() {
#ifdef PARLORWIRE_OWN_ALLOCATOR
  return __sanitizer_get_current_allocated_bytes();
#else
  const struct mallinfo2 all = mallinfo2();
  return all.uordblks + all.hblkhd;
#endif
}

}  // namespace parlorwire
