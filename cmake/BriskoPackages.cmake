# Archives and Debian packages of the installed tree, made by cpack. The Debian packages are one for each component:
# the libraries, what it takes to build against them, and the command.
set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_VENDOR Brisko)
set(CPACK_PACKAGE_CONTACT "The Brisko developers <brisko@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(description "Brisko lays style sheets over scenes of nodes, and writes the\ndeclarations that win into their attributes.")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libbrisko${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "${description}\nThis package has the libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libbrisko-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qtbase5-dev (>= 5.15)")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "${description}\nThis package has the headers, and the files for CMake and pkg-config.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME brisko)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
# The libraries are not installed where the packages are made; their package is named by the component.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/src/host)
set(CPACK_COMPONENT_TOOLS_DEPENDS library)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "${description}\nThis package has the command brisko.")

set(CPACK_COMPONENTS_ALL library development)
if(TARGET brisko)
  list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
include(CPack)
