# Debian packages, made by cpack: the libraries with the data that they read, what builds against
# them, and the program.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "vehicle-units")
set(CPACK_PACKAGE_CONTACT "vehicle-units maintainers <maintainers@vehicle-units.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_FILE "${PROJECT_SOURCE_DIR}/cmake/package-description.txt")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime data development tools)
set(CPACK_COMPONENT_RUNTIME_GROUP library)
set(CPACK_COMPONENT_DATA_GROUP library)
set(CPACK_COMPONENT_DEVELOPMENT_GROUP development)
set(CPACK_COMPONENT_TOOLS_GROUP program)

set(library_package libvehicle-units${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvehicle-units-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME vehicle-units)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")

# What the binaries need of other packages is read from them; across architectures there is no
# database to read it with, so it is said here.
if(CMAKE_CROSSCOMPILING)
  set(runtime "libc6 (>= 2.34), libgcc-s1 (>= 3.5), libstdc++6 (>= 12)")
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS
      "${runtime}, libmuparser2v5 (>= 2.3.3), libtinyxml2.6.2v5")
  string(APPEND CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS ", ${runtime}, libtinyxml2.6.2v5")
else()
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
endif()
include(CPack)
