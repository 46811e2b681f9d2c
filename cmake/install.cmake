# Headers mirror the tree under include/vestara-1; CMake package Vestara; pkg-config files vestara and dorvane.
include(CMakePackageConfigHelpers)

install(TARGETS automation vestara dorvane EXPORT VestaraTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_COMPONENT Development)
if(TARGET vestara_program)
  install(TARGETS vestara_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# What a C++ host includes, with all that those headers include.
include(cmake/marked_headers.cmake)
marked_headers(public_headers "${PROJECT_SOURCE_DIR}" installed)
foreach(header ${public_headers})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vestara-1/${folder} COMPONENT Development)
endforeach()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Vestara)
install(EXPORT VestaraTargets NAMESPACE Vestara:: DESTINATION ${package_folder} COMPONENT Development)
configure_package_config_file(cmake/VestaraConfig.cmake.in ${PROJECT_BINARY_DIR}/VestaraConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VestaraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VestaraConfig.cmake ${PROJECT_BINARY_DIR}/VestaraConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT Development)

file(RELATIVE_PATH prefix_of_pc_files /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" prefix_of_pc_files "${prefix_of_pc_files}")
foreach(package vestara dorvane)
  configure_file(cmake/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
          COMPONENT Development)
endforeach()
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vestara)
