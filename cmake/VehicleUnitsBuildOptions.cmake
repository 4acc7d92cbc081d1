# How the project's own code is compiled: vehicle_units_build_options(TARGET), and how its shared
# libraries are linked: vehicle_units_library(TARGET [PROPERTY VALUE...]).
function(vehicle_units_build_options target)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_compile_features(${target} PUBLIC cxx_std_17)
  # Results are defined to the last bit on every machine: no fused multiply-add.
  target_compile_options(${target} PRIVATE -ffp-contract=off -Wall -Wextra -Wpedantic
                         -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
  if(VEHICLE_UNITS_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(VEHICLE_UNITS_SANITIZE)
    set(flags -fsanitize=${VEHICLE_UNITS_SANITIZE} -fno-omit-frame-pointer)
    target_compile_options(${target} PRIVATE ${flags} -fno-sanitize-recover=all)
    target_link_options(${target} PRIVATE ${flags})
  else()
    target_link_options(${target} PRIVATE -Wl,--no-undefined -Wl,--as-needed)
  endif()
endfunction()

# The libraries find each other beside themselves, wherever they are installed, and export exactly what
# their version scripts name.
function(vehicle_units_library target)
  vehicle_units_build_options(${target})
  set(map "${CMAKE_CURRENT_SOURCE_DIR}/${target}.map")
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH "$ORIGIN"
    LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib"
    LINK_DEPENDS "${map}"
    ${ARGN})
  target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
endfunction()
