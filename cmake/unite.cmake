# With PARLORWIRE_UNITE the sources of a folder are compiled as one, for what reads all of them anyway:
# the sanitizers' build and the lint. So names in unnamed namespaces differ within a folder.
option(PARLORWIRE_UNITE "Compile the sources of a folder as one" OFF)

function(unite target)
  if(NOT PARLORWIRE_UNITE)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    cmake_path(ABSOLUTE_PATH source OUTPUT_VARIABLE folder)
    cmake_path(GET folder PARENT_PATH folder)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
    string(REPLACE "/" "_" group "${folder}")
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${group}")
  endforeach()
  set_target_properties(
    ${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP UNITY_BUILD_CODE_BEFORE_INCLUDE
                         "// NOLINTNEXTLINE(bugprone-suspicious-include)")
endfunction()
