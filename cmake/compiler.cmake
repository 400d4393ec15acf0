# The warnings that every target is clean of, and the sanitizers.
add_library(parlorwire_flags INTERFACE)
target_compile_options(parlorwire_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
# g++ 12 takes the joining of std::strings for overlapping copies once it optimises.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(parlorwire_flags INTERFACE -Wno-restrict)
endif()
if(PARLORWIRE_SANITIZE)
  add_compile_options(-fsanitize=${PARLORWIRE_SANITIZE} -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${PARLORWIRE_SANITIZE})
endif()
if(PARLORWIRE_FUZZ)
  # Without it the fuzzer is blind inside the libraries.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
