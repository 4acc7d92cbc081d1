# What is installed where, in four components: runtime, development, tools and data. Everything
# finds everything else from where it stands itself, so the installed tree may be moved.
include(CMakePackageConfigHelpers)

file(RELATIVE_PATH VEHICLE_UNITS_DATA_FROM_PROGRAM
  "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_DATADIR}/vehicle-units")
file(RELATIVE_PATH VEHICLE_UNITS_DOCS_FROM_PROGRAM
  "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_DATADIR}/doc/vehicle-units")
file(RELATIVE_PATH VEHICLE_UNITS_LIBRARIES_FROM_PROGRAM
  "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")

# The package that others find; a library that was built against a host's own framework is part of
# that host's product and no package.
function(vehicle_units_install_package)
  set(cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/VehicleUnits")
  set(data_dir "${CMAKE_INSTALL_DATADIR}/vehicle-units")
  install(TARGETS vehicle-units-host vehicle-units EXPORT VehicleUnits
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vehicle-units"
    FILE_SET HEADERS
      DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vehicle-units" COMPONENT development)
  install(EXPORT VehicleUnits NAMESPACE VehicleUnits:: FILE VehicleUnitsTargets.cmake
    DESTINATION "${cmake_dir}" COMPONENT development)

  configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/VehicleUnitsConfig.cmake.in"
    VehicleUnitsConfig.cmake INSTALL_DESTINATION "${cmake_dir}" PATH_VARS data_dir)
  write_basic_package_version_file(VehicleUnitsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES
      "${CMAKE_CURRENT_BINARY_DIR}/VehicleUnitsConfig.cmake"
      "${CMAKE_CURRENT_BINARY_DIR}/VehicleUnitsConfigVersion.cmake"
    DESTINATION "${cmake_dir}" COMPONENT development)

  set(pkgconfig_dir "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig")
  file(RELATIVE_PATH include_from_pc
    "${pkgconfig_dir}" "${CMAKE_INSTALL_FULL_INCLUDEDIR}/vehicle-units")
  file(RELATIVE_PATH data_from_pc
    "${pkgconfig_dir}" "${CMAKE_INSTALL_FULL_DATADIR}/vehicle-units")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/vehicle-units.pc.in" vehicle-units.pc @ONLY)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vehicle-units.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
  install(FILES
      "${PROJECT_SOURCE_DIR}/SECURITY.md"
      "${PROJECT_SOURCE_DIR}/docs/host-guide.md"
      "${PROJECT_SOURCE_DIR}/docs/how-it-works.md"
      "${PROJECT_SOURCE_DIR}/docs/performance.md"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/vehicle-units" COMPONENT development)
endfunction()

function(vehicle_units_install)
  if(VEHICLE_UNITS_HOST_TARGET)
    install(TARGETS vehicle-units LIBRARY COMPONENT runtime NAMELINK_SKIP)
  else()
    vehicle_units_install_package()
  endif()
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/data/"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/vehicle-units" COMPONENT data)

  if(VEHICLE_UNITS_TOOLS)
    install(FILES
        "${PROJECT_SOURCE_DIR}/docs/check-rules.md"
        "${PROJECT_SOURCE_DIR}/docs/conversions.svg"
        "${PROJECT_SOURCE_DIR}/docs/data-files.md"
        "${PROJECT_SOURCE_DIR}/docs/logs.md"
      DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/vehicle-units" COMPONENT tools)
    install(TARGETS vehicle-units-program RUNTIME COMPONENT tools)
    configure_file("${PROJECT_SOURCE_DIR}/docs/vehicle-units.1.in" vehicle-units.1 @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vehicle-units.1"
      DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
    install(FILES "${PROJECT_SOURCE_DIR}/tools/completion.bash" RENAME vehicle-units
      DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT tools)
  endif()
endfunction()
