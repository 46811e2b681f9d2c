# The libraries as COM servers: everything linked in, the four entry points exported, the type library embedded, a
# manifest beside them for use without registration. Stands in for library.cmake.
enable_language(RC)
include(${CMAKE_CURRENT_LIST_DIR}/type_library.cmake)

add_compile_definitions(WIN32_LEAN_AND_MEAN)
# The interfaces of COM have no destructors: they are counted. Null dereferences are seen in the compiler's own headers,
# falsely.
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-non-virtual-dtor> -Wno-null-dereference)
set(COM_LIBRARIES ole32 oleaut32 uuid advapi32 user32)

function(component_library name)
  cmake_parse_arguments(ARG "WITH_CLASSES" "" "SOURCES;TESTS;PUBLIC;PRIVATE" ${ARGN})
  list(REMOVE_ITEM ARG_PRIVATE ${CMAKE_DL_LIBS})
  add_library(${name}_objects OBJECT ${ARG_SOURCES})
  target_include_directories(${name}_objects PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name}_objects PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})

  if(ARG_WITH_CLASSES)
    set(server ${PROJECT_SOURCE_DIR}/automation/com/registration)
    add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects> ${server}/server_entry.cpp ${server}/server.def)
    add_type_library(${name})
    # The entry points are exported without the decoration that 32 bits give them; symbols are not shipped.
    target_link_options(${name} PRIVATE -Wl,--enable-stdcall-fixup $<$<CONFIG:Release>:-s>)
    set_target_properties(${name} PROPERTIES PREFIX "" LINK_DEPENDS ${server}/server.def)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${ARG_PUBLIC} ${ARG_PRIVATE} ${COM_LIBRARIES})
  else()
    add_library(${name} STATIC $<TARGET_OBJECTS:${name}_objects>)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} ${ARG_PRIVATE} ${COM_LIBRARIES})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  endif()

  if(VESTARA_TESTS AND ARG_TESTS)
    # Built where the other tests of this platform are.
    set_property(GLOBAL PROPERTY ${name}_unit_tests ${ARG_TESTS})
  endif()
endfunction()
