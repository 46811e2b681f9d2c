# Builds for users and for ./check compile several sources of a library at once (CMAKE_UNITY_BUILD): most of a compilation
# is its headers. Tests are compiled alone, and so is everything in the dev build, which ./check --full makes too: each
# source (all but those of automation/com) is known to compile alone.
set(CMAKE_UNITY_BUILD_BATCH_SIZE 8)

# Files with the member rows of a class call them by the same names, each for itself.
function(compile_member_rows_alone)
  foreach(source ${ARGN})
    file(STRINGS ${source} rows REGEX "using [a-z_]+ = (automation::)?Rows<" LIMIT_COUNT 1)
    if(rows)
      set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
endfunction()
