# Headers mirror the tree under include/vestara-1; CMake package Vestara; pkg-config files vestara and dorvane.
include(CMakePackageConfigHelpers)

install(TARGETS automation vestara dorvane EXPORT VestaraTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_COMPONENT Development)
if(TARGET vestara_program)
  install(TARGETS vestara_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# What a C++ host includes, with all that those headers include.
set(public_headers
    automation/c_abi/automation.h automation/coercion.h automation/collection.h automation/date.h
    automation/describe.h automation/entry_points.h automation/error.h automation/event_source.h automation/export.h
    automation/in_out.h automation/int16.h automation/member.h automation/object.h automation/ref.h
    automation/registration.h automation/registry.h automation/report.h automation/text.h automation/variant.h automation/yield.h
    vestara/foundation/combination_walk.h vestara/foundation/connector.h vestara/foundation/date_order.h vestara/foundation/error_log.h vestara/foundation/recordset.h
    vestara/foundation/schema.h vestara/foundation/selection.h vestara/foundation/sql_text.h vestara/foundation/wheel_grid.h
    vestara/foundation/wheels.h
    vestara/archive/archive_text.h vestara/archive/draw_record.h
    vestara/archive/hit_counters.h vestara/archive/hit_search.h vestara/archive/lotto.h vestara/archive/search_text.h
    vestara/distances/deviation.h vestara/distances/gap_list.h vestara/distances/gap_text.h vestara/distances/hit_distances.h
    vestara/distances/distance_lists.h vestara/distances/distance_text.h vestara/distances/distance_walk.h vestara/distances/number_distances.h
    vestara/frequency/analytic_scan.h vestara/frequency/analytic_table.h vestara/frequency/frequency.h
    vestara/frequency/loads.h vestara/frequency/ranking.h
    vestara/statistics/combinations.h vestara/statistics/statistics.h
    vestara/draws/draw_row.h vestara/draws/wheel_names.h vestara/keeping/catalogue_text.h vestara/keeping/draw_changes.h
    vestara/keeping/history_text.h vestara/keeping/saved_search_text.h
    vestara/keeping/saved_searches.h vestara/keeping/saved_systems.h vestara/systems/combination_text.h vestara/systems/integral.h
    vestara/systems/number_sets.h vestara/systems/systems.h
    dorvane/connector.h dorvane/home_process.h)
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
