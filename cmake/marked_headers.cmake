# What a header is for stands in its first line: "#pragma once  // installed" for programs of other people,
# "#pragma once  // for hosts" for the hosts of this project besides. The others are a library's own.
#   marked_headers(variable root mark)  ->  their paths below the root
function(marked_headers variable root mark)
  set(marked)
  foreach(folder automation records vestara dorvane)
    file(GLOB_RECURSE headers RELATIVE "${root}" "${root}/${folder}/*.h")
    foreach(header IN LISTS headers)
      file(STRINGS "${root}/${header}" line REGEX "^#[^/]*/[/*] ${mark}" LIMIT_COUNT 1)
      if(line)
        list(APPEND marked "${header}")
      endif()
    endforeach()
  endforeach()
  set(${variable} ${marked} PARENT_SCOPE)
endfunction()
