# Who may include whom. Run on every build: cmake -P tools/check_layers.cmake
# Each row: a folder, then the prefixes that its files may include from this project.
set(layers
    "automation|automation/"
    "vestara/foundation|automation/ vestara/foundation/"
    "vestara/draws|automation/ vestara/foundation/ vestara/draws/"
    "vestara/keeping|automation/ vestara/foundation/ vestara/draws/ vestara/keeping/"
    "vestara/archive|automation/ vestara/foundation/ vestara/keeping/ vestara/archive/ vestara/statistics/"
    "vestara/statistics|automation/ vestara/foundation/ vestara/statistics/ vestara/distances/"
    "vestara/distances|automation/ vestara/foundation/ vestara/distances/"
    "vestara/systems|automation/ vestara/foundation/ vestara/keeping/ vestara/systems/"
    "vestara/frequency|automation/ vestara/foundation/ vestara/frequency/"
    "vestara/server|automation/ vestara/"
    "dorvane|automation/ dorvane/ vestara/foundation/connector.h vestara/foundation/recordset.h"
    "hosts|automation/ vestara/ dorvane/ hosts/")
# The component library and the component model stand on the standard library alone.
set(standard_only "^(automation|vestara)/")
set(platform_headers "^(stddef|stdint|windows|dlfcn|oleauto|objbase|olectl|dispex|unistd|sys/[a-z]+|fcntl)\\.?h?$")

get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
set(failures 0)

function(check_file file allowed)
  file(STRINGS "${root}/${file}" lines REGEX "^#include ")
  foreach(line IN LISTS lines)
    if(line MATCHES "^#include \"([^\"]+)\"")
      set(included "${CMAKE_MATCH_1}")
      set(fits FALSE)
      foreach(prefix IN LISTS allowed)
        string(FIND "${included}" "${prefix}" place)
        if(place EQUAL 0)
          set(fits TRUE)
        endif()
      endforeach()
      # Unit tests beside a source may use the common doubles.
      if(file MATCHES "_test\\.cpp$" AND included MATCHES "^tests/support/")
        set(fits TRUE)
      endif()
    elseif(line MATCHES "^#include <([^>]+)>")
      set(included "${CMAKE_MATCH_1}")
      set(fits TRUE)
      if(file MATCHES "${standard_only}" AND NOT file MATCHES "_test\\.cpp$" AND included MATCHES "[./]"
         AND NOT included MATCHES "${platform_headers}")
        set(fits FALSE)
      endif()
    endif()
    if(NOT fits)
      message(SEND_ERROR "${file} may not include ${included}")
    endif()
  endforeach()
endfunction()

foreach(layer IN LISTS layers)
  string(REPLACE "|" ";" parts "${layer}")
  list(GET parts 0 folder)
  list(GET parts 1 prefixes)
  string(REPLACE " " ";" prefixes "${prefixes}")
  file(GLOB_RECURSE files RELATIVE "${root}" "${root}/${folder}/*.h" "${root}/${folder}/*.cpp")
  foreach(file IN LISTS files)
    check_file("${file}" "${prefixes}")
  endforeach()
endforeach()
