# The warnings that every target is clean of, and the sanitizers. The presets of the tests make a
# warning an error; a user's build, by another compiler, must not break on one.
add_library(parlorwire_flags INTERFACE)
target_compile_options(parlorwire_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
# g++ 12 takes the joining of std::strings for overlapping or endless copies once it optimises. What
# copies wrongly is found by the sanitizers.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(
    parlorwire_flags
    INTERFACE -Wno-restrict
              "$<$<CONFIG:Release>:-Wno-stringop-overflow;-Wno-stringop-overread;-Wno-array-bounds>")
endif()
if(PARLORWIRE_SANITIZE)
  add_compile_options(-fsanitize=${PARLORWIRE_SANITIZE} -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${PARLORWIRE_SANITIZE})
endif()
# What the fuzz targets look into; without it the fuzzer is blind there.
add_library(parlorwire_fuzzed INTERFACE)
target_link_libraries(parlorwire_fuzzed INTERFACE parlorwire_flags)
if(PARLORWIRE_FUZZ)
  target_compile_options(parlorwire_fuzzed INTERFACE -fsanitize=fuzzer-no-link)
endif()
