# Who may include whom. Run on every build: cmake -P tools/check_layers.cmake
# Each row: a folder, then what its files may include of this project: what begins like that, or what lies in FOLDER
# itself for "FOLDER/*". A folder that ends in "/*" means its own files, not those of its rooms.
cmake_minimum_required(VERSION 3.25)
set(layers
    "automation/*|automation/*"
    "automation/system|automation/* automation/system/"
    "automation/text|automation/* automation/text/"
    "automation/values|automation/* automation/text/ automation/values/"
    "automation/objects|automation/* automation/system/ automation/text/ automation/values/ automation/objects/"
    "automation/classes|automation/* automation/system/ automation/text/ automation/objects/ automation/classes/"
    "automation/c_abi|automation/* automation/objects/ automation/c_abi/"
    "automation/com/system|automation/* automation/system/ automation/classes/ automation/com/system/"
    "automation/com/values|automation/* automation/com/system/ automation/com/values/"
    "automation/com/faces|automation/* automation/objects/ automation/classes/ automation/com/system/ automation/com/values/ automation/com/faces/"
    "automation/com/registration|automation/* automation/com/system/ automation/com/values/ automation/com/registration/"
    "records|automation/ records/"
    "vestara/foundation|automation/ records/ vestara/foundation/"
    "vestara/draws|automation/ records/ vestara/foundation/ vestara/draws/"
    "vestara/files|automation/ records/ vestara/foundation/ vestara/draws/ vestara/files/"
    "vestara/keeping|automation/ records/ vestara/foundation/ vestara/draws/ vestara/files/ vestara/keeping/"
    "vestara/study|automation/ records/ vestara/foundation/ vestara/draws/ vestara/files/ vestara/keeping/ vestara/study/ vestara/archive/ vestara/statistics/ vestara/distances/ vestara/frequency/"
    "vestara/study/chance|automation/ vestara/foundation/ vestara/draws/ vestara/study/chance/"
    "vestara/archive|automation/ records/ vestara/foundation/ vestara/draws/ vestara/keeping/ vestara/archive/ vestara/statistics/"
    "vestara/statistics|automation/ records/ vestara/foundation/ vestara/statistics/ vestara/distances/"
    "vestara/distances|automation/ records/ vestara/foundation/ vestara/distances/"
    "vestara/systems|automation/ records/ vestara/foundation/ vestara/keeping/ vestara/systems/"
    "vestara/frequency|automation/ records/ vestara/foundation/ vestara/frequency/"
    "vestara/server|automation/ records/ vestara/"
    "dorvane|automation/ records/ dorvane/ vestara/foundation/connector.h vestara/foundation/schema.h"
    "hosts|automation/ records/ vestara/ dorvane/ hosts/"
    "hosts/cli/terminal|automation/ records/ vestara/ hosts/cli/terminal/ hosts/cli/failure.h"
    "hosts/cli/output|automation/ records/ vestara/ hosts/cli/output/ hosts/cli/terminal/ hosts/cli/failure.h"
    "hosts/cli/options|automation/ records/ vestara/ hosts/cli/options/ hosts/cli/output/ hosts/cli/terminal/ hosts/cli/failure.h"
    "hosts/cli/checks|automation/ records/ vestara/ hosts/cli/checks/ hosts/cli/failure.h"
    "hosts/cli/programming|automation/ records/ vestara/ dorvane/ hosts/cli/programming/ hosts/cli/output/ hosts/cli/failure.h"
    "hosts/cli/commands|automation/ records/ vestara/ dorvane/ hosts/cli/commands/ hosts/cli/archive/ hosts/cli/checks/ hosts/cli/study/ hosts/cli/options/ hosts/cli/output/ hosts/cli/programming/ hosts/cli/terminal/ hosts/cli/command.h hosts/cli/context.h hosts/cli/failure.h hosts/cli/library_failure.h hosts/cli/in_process.h")
# The component library and the component model stand on the standard library alone, but for packed files.
set(standard_only "^(automation|records|vestara)/")
set(packing_headers "^(zip|zlib)\\.h$")
set(platform_headers "^(stddef|stdint|windows|dlfcn|oleauto|objbase|olectl|dispex|unistd|sys/[a-z]+|fcntl)\\.?h?$")

get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
set(failures 0)

function(check_file file allowed)
  file(STRINGS "${root}/${file}" lines REGEX "^#include ")
  foreach(line IN LISTS lines)
    if(line MATCHES "^#include \"([^\"]+)\"")
      set(included "${CMAKE_MATCH_1}")
      set(fits FALSE)
      get_filename_component(folder_of_included "${included}" DIRECTORY)
      foreach(prefix IN LISTS allowed)
        string(FIND "${included}" "${prefix}" place)
        if(place EQUAL 0 OR prefix STREQUAL "${folder_of_included}/*")
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
         AND NOT included MATCHES "${platform_headers}"
         AND NOT (file MATCHES "^vestara/files/" AND included MATCHES "${packing_headers}"))
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
  if(folder MATCHES "/\\*$")
    file(GLOB files RELATIVE "${root}" "${root}/${folder}.h" "${root}/${folder}.cpp")
  else()
    file(GLOB_RECURSE files RELATIVE "${root}" "${root}/${folder}/*.h" "${root}/${folder}/*.cpp")
  endif()
  foreach(file IN LISTS files)
    check_file("${file}" "${prefixes}")
  endforeach()
endforeach()

# What is installed works alone: installed headers include installed headers. Hosts of other people have no others.
include("${CMAKE_CURRENT_LIST_DIR}/../cmake/marked_headers.cmake")
marked_headers(installed "${root}" installed)
foreach(file IN LISTS installed)
  file(STRINGS "${root}/${file}" lines REGEX "^#include \"")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" included "${line}")
    if(NOT included IN_LIST installed)
      message(SEND_ERROR "${file} is installed and includes ${included}, which is not")
    endif()
  endforeach()
endforeach()

# Hosts see of the libraries what is installed and what is marked for them. The interface definitions are made from the
# member tables; tests look inside.
marked_headers(for_hosts "${root}" "for hosts")
file(GLOB_RECURSE files RELATIVE "${root}" "${root}/hosts/*.h" "${root}/hosts/*.cpp")
list(FILTER files EXCLUDE REGEX "^hosts/idl/|_test\\.cpp$")
foreach(file IN LISTS files)
  file(STRINGS "${root}/${file}" lines REGEX "^#include \"(automation|records|vestara|dorvane)/")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" included "${line}")
    if(NOT included IN_LIST installed AND NOT included IN_LIST for_hosts)
      message(SEND_ERROR "${file} includes ${included}, which is neither installed nor marked for hosts")
    endif()
  endforeach()
endforeach()
