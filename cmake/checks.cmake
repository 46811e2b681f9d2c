# What every build verifies besides compiling.

# Who includes whom.
add_custom_target(layer_check ALL COMMAND ${CMAKE_COMMAND} -P ${PROJECT_SOURCE_DIR}/tools/check_layers.cmake
                  COMMENT "Checking the layer rule" VERBATIM)

# Each header compiles alone, and twice in a row.
if(VESTARA_TESTS)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} automation/*.h records/*.h vestara/*.h
       dorvane/*.h)
  if(WIN32)
    # The others are looked at where they are developed.
    list(FILTER headers INCLUDE REGEX "/com/")
  else()
    list(FILTER headers EXCLUDE REGEX "/com/")
  endif()
  set(units)
  foreach(header ${headers})
    string(MAKE_C_IDENTIFIER ${header} unit)
    set(unit ${PROJECT_BINARY_DIR}/headers/${unit}.cpp)
    set(text "#include \"${header}\"\n#include \"${header}\"\n")
    file(CONFIGURE OUTPUT ${unit} CONTENT "${text}")
    list(APPEND units ${unit})
  endforeach()
  add_library(headers_alone OBJECT ${units})
  set_target_properties(headers_alone PROPERTIES UNITY_BUILD OFF)
  # Nothing of it runs.
  target_compile_options(headers_alone PRIVATE -O0 -g0 -fno-sanitize=all)
  target_link_libraries(headers_alone PRIVATE vestara dorvane database_clients)
endif()
