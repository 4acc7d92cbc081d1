# Cross-building for 32-bit ARM with Debian's compiler. VEHICLE_UNITS_SYSROOT names the folder in
# which the device's libraries were unpacked; scripts/armhf-sysroot makes one of Debian's.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VEHICLE_UNITS_SYSROOT)
set(CMAKE_FIND_ROOT_PATH "${VEHICLE_UNITS_SYSROOT}" /usr/arm-linux-gnueabihf ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Where the linker finds what the libraries that a host links need themselves.
foreach(folder usr/lib/arm-linux-gnueabihf usr/lib lib/arm-linux-gnueabihf lib)
  foreach(kind EXE SHARED)
    string(APPEND CMAKE_${kind}_LINKER_FLAGS_INIT
      " -Wl,-rpath-link,\"${VEHICLE_UNITS_SYSROOT}/${folder}\"")
  endforeach()
endforeach()

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L "${VEHICLE_UNITS_SYSROOT}")
