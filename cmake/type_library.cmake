# The type library of a COM server, made from the member rows and embedded: a program for the machine that builds prints
# the interface definition, widl compiles it. VESTARA_IDL_PROGRAM names that program where it is built already.
set(VESTARA_IDL_PROGRAM "" CACHE FILEPATH "vestara_idl of a build for this machine; built from the sources when empty")
find_program(WIDL NAMES ${MINGW_WIDL} REQUIRED NO_CMAKE_FIND_ROOT_PATH)
# What an interface definition imports of the system comes with Wine.
find_path(SYSTEM_TYPE_LIBRARIES stdole2.tlb REQUIRED NO_CMAKE_FIND_ROOT_PATH
          PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows)

if(NOT VESTARA_IDL_PROGRAM)
  include(ExternalProject)
  set(program ${PROJECT_BINARY_DIR}/native/bin/vestara_idl)
  ExternalProject_Add(native SOURCE_DIR ${PROJECT_SOURCE_DIR} BINARY_DIR ${PROJECT_BINARY_DIR}/native
                      CMAKE_ARGS -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVESTARA_TESTS=OFF
                      BUILD_COMMAND ${CMAKE_COMMAND} --build . --target vestara_idl
                      BUILD_ALWAYS ON INSTALL_COMMAND "" BUILD_BYPRODUCTS ${program} USES_TERMINAL_BUILD ON)
  set(VESTARA_IDL_PROGRAM ${program})
endif()

function(add_type_library name)
  string(SUBSTRING ${name} 0 1 first)
  string(TOUPPER ${first} first)
  string(SUBSTRING ${name} 1 -1 rest)
  set(library ${first}${rest})
  set(folder ${PROJECT_BINARY_DIR}/generated/com)
  file(MAKE_DIRECTORY ${folder})
  string(REGEX MATCH "64" wide ${CMAKE_SYSTEM_PROCESSOR})
  set(width --win32)
  if(wide)
    set(width --win64)
  endif()
  add_custom_command(OUTPUT ${folder}/${name}.idl DEPENDS ${VESTARA_IDL_PROGRAM}
                     COMMAND ${VESTARA_IDL_PROGRAM} ${library} > ${folder}/${name}.idl VERBATIM)
  add_custom_command(OUTPUT ${folder}/${name}.tlb DEPENDS ${folder}/${name}.idl
                     COMMAND ${WIDL} ${width} -t -L ${SYSTEM_TYPE_LIBRARIES} -o ${name}.tlb ${name}.idl
                     WORKING_DIRECTORY ${folder} VERBATIM)
  set(VERSION_TITLE ${library})
  set(VERSION_FILE ${name}.dll)
  string(REPLACE "." "," VERSION_NUMBERS ${PROJECT_VERSION},0)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/server.rc.in ${folder}/${name}.rc @ONLY)
  set_source_files_properties(${folder}/${name}.rc PROPERTIES OBJECT_DEPENDS ${folder}/${name}.tlb)
  target_sources(${name} PRIVATE ${folder}/${name}.rc ${folder}/${name}.tlb)
  target_include_directories(${name} PRIVATE ${folder})
endfunction()

# The manifest of all servers, beside them.
set(architecture x86)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "64")
  set(architecture amd64)
endif()
set(SERVER_MANIFEST ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Vestara.manifest)
add_custom_command(OUTPUT ${SERVER_MANIFEST} DEPENDS ${VESTARA_IDL_PROGRAM}
                   COMMAND ${VESTARA_IDL_PROGRAM} manifest ${architecture} > ${SERVER_MANIFEST} VERBATIM)
add_custom_target(server_manifest ALL DEPENDS ${SERVER_MANIFEST})
