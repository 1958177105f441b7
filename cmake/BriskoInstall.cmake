# What a user of the installed tree gets: libraries, command, headers, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Brisko)

install(TARGETS BriskoHost Brisko EXPORT BriskoTargets
        LIBRARY COMPONENT library NAMELINK_COMPONENT development)
if(TARGET brisko)
  # The command finds its libraries from where it stands, so that the whole prefix can be moved.
  file(RELATIVE_PATH libraries_from_command ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(brisko PROPERTIES INSTALL_RPATH "\$ORIGIN/${libraries_from_command}")
  install(TARGETS brisko COMPONENT tools)
endif()

foreach(headers IN ITEMS include/Brisko src/host/Ondex src/host/Gorvel src/host/Pemmit src/host/Hexley)
  install(DIRECTORY ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development OPTIONAL
          FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/src/include/Brisko/Export.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Brisko
        COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/src/host/include/Gorvel/HostExport.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Gorvel COMPONENT development)

install(EXPORT BriskoTargets NAMESPACE Brisko:: DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/BriskoConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/BriskoConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/BriskoConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/BriskoConfig.cmake ${PROJECT_BINARY_DIR}/BriskoConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT development)

# pkg-config works out the prefix from where the file lies.
file(RELATIVE_PATH prefix_from_pkgconfig ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig "${prefix_from_pkgconfig}")
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE pkgconfig_libdir)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_INCLUDEDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE pkgconfig_includedir)
configure_file(${CMAKE_CURRENT_LIST_DIR}/brisko.pc.in ${PROJECT_BINARY_DIR}/brisko.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/brisko.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(PROJECT_IS_TOP_LEVEL)
  include(${CMAKE_CURRENT_LIST_DIR}/BriskoPackages.cmake)
endif()
