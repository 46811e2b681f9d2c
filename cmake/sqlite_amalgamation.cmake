# SQLite for targets that have no package of it: the public-domain amalgamation as the npm package better-sqlite3 carries
# it, fetched at configure time through npm's own configuration and checked.
set(package better-sqlite3-12.11.1.tgz)
set(integrity 76af40b40a608393c616d0733c54819771d94231e893981a40233ace1d989346929830acd426e7548f3f1e001242434ab16169b1e20ef5b7a0e71c696216c87c)
set(SQLITE_FOLDER ${PROJECT_BINARY_DIR}/sqlite CACHE PATH "Where the amalgamation is kept; several builds may share it")

if(NOT EXISTS ${SQLITE_FOLDER}/package/deps/sqlite3/sqlite3.c)
  file(MAKE_DIRECTORY ${SQLITE_FOLDER})
  if(NOT EXISTS ${SQLITE_FOLDER}/${package})
    find_program(NPM npm REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    message(STATUS "Fetching the SQLite amalgamation")
    execute_process(COMMAND ${NPM} pack --loglevel=error better-sqlite3@12.11.1 WORKING_DIRECTORY ${SQLITE_FOLDER}
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  endif()
  file(SHA512 ${SQLITE_FOLDER}/${package} found)
  if(NOT found STREQUAL integrity)
    file(REMOVE ${SQLITE_FOLDER}/${package})
    message(FATAL_ERROR "${package} is not the file that was expected: SHA-512 ${found}")
  endif()
  file(ARCHIVE_EXTRACT INPUT ${SQLITE_FOLDER}/${package} DESTINATION ${SQLITE_FOLDER}
       PATTERNS package/deps/sqlite3/sqlite3.c package/deps/sqlite3/sqlite3.h)
endif()

add_library(sqlite3 STATIC ${SQLITE_FOLDER}/package/deps/sqlite3/sqlite3.c)
add_library(SQLite::SQLite3 ALIAS sqlite3)
target_include_directories(sqlite3 SYSTEM INTERFACE ${SQLITE_FOLDER}/package/deps/sqlite3)
target_compile_options(sqlite3 PRIVATE -w)
# Every connection belongs to one thread; extensions are not loaded.
target_compile_definitions(sqlite3 PRIVATE SQLITE_THREADSAFE=2 SQLITE_OMIT_LOAD_EXTENSION
                           SQLITE_DEFAULT_MEMSTATUS=0 SQLITE_ENABLE_MATH_FUNCTIONS)
