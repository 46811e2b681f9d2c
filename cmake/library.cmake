# A shared library over the sources of one folder, its unit tests beside them:
#   component_library(automation)  ->  automation_objects, automation, Vestara::automation, automation_test
# WITH_CLASSES gives the library the entry points by which it registers its classes.
# The objects are a target of their own so that unit tests reach what the library hides.
function(component_library name)
  cmake_parse_arguments(ARG "WITH_CLASSES" "" "SOURCES;TESTS;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name}_objects OBJECT ${ARG_SOURCES})
  target_include_directories(${name}_objects PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  target_link_libraries(${name}_objects PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  # Nobody replaces a function that a library shows: its own calls of it may be inlined.
  target_compile_options(${name}_objects PRIVATE -fno-semantic-interposition)

  add_library(${name} SHARED)
  add_library(Vestara::${name} ALIAS ${name})
  target_sources(${name} PRIVATE $<TARGET_OBJECTS:${name}_objects>)
  if(ARG_WITH_CLASSES)
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/automation/classes/entry_points.cpp)
  endif()
  target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                            $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vestara-1>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                                           LINKER_LANGUAGE CXX)
  target_link_options(${name} PRIVATE -Wl,-z,defs)
  if(VESTARA_SANITIZE)
    target_link_options(${name} PRIVATE -Wl,-z,undefs)
  endif()

  if(VESTARA_TESTS AND ARG_TESTS)
    add_executable(${name}_test ${ARG_TESTS})
    set_target_properties(${name}_test PROPERTIES UNITY_BUILD OFF)
    target_link_libraries(${name}_test PRIVATE ${name}_objects ${ARG_PRIVATE} test_support GTest::gtest_main)
    discover_tests(${name}_test)
  endif()
endfunction()
