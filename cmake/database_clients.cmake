# The database clients that the connector is built on, as one target: database_clients.
add_library(database_clients INTERFACE)
if(WIN32)
  # The servers' clients come with neither the cross compiler nor a Windows machine.
  include(${CMAKE_CURRENT_LIST_DIR}/sqlite_amalgamation.cmake)
  target_link_libraries(database_clients INTERFACE SQLite::SQLite3)
else()
  find_package(SQLite3 REQUIRED)
  find_package(PostgreSQL REQUIRED)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(libmariadb REQUIRED IMPORTED_TARGET libmariadb)
  target_link_libraries(database_clients INTERFACE SQLite::SQLite3 PostgreSQL::PostgreSQL PkgConfig::libmariadb)
endif()
