# The engines as scripts/windows-engines built them, under the names that pkg-config gives them elsewhere, and the tests'
# library from its sources.
if(NOT QUORVANE_ENGINES)
  message(FATAL_ERROR "QUORVANE_ENGINES is not set; scripts/windows builds for Windows")
endif()
function(quorvane_engine name library definition)
  add_library(${name} STATIC IMPORTED)
  set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${QUORVANE_ENGINES}/lib/${library}
    INTERFACE_COMPILE_DEFINITIONS ${definition})
  target_include_directories(${name} SYSTEM INTERFACE ${QUORVANE_ENGINES}/include ${ARGN})
endfunction()
quorvane_engine(PkgConfig::PCRE2 libpcre2-16.a PCRE2_STATIC)
quorvane_engine(PkgConfig::LIBXML2 libxml2.a LIBXML_STATIC ${QUORVANE_ENGINES}/include/libxml2)
quorvane_engine(PkgConfig::LIBXSLT libxslt.a LIBXSLT_STATIC)
target_link_libraries(PkgConfig::LIBXML2 INTERFACE ws2_32)
target_link_libraries(PkgConfig::LIBXSLT INTERFACE PkgConfig::LIBXML2)
add_library(CLI11::CLI11 INTERFACE IMPORTED)
target_include_directories(CLI11::CLI11 SYSTEM INTERFACE ${QUORVANE_ENGINES}/include)

if(EXISTS /usr/src/googletest/CMakeLists.txt)
  set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL SYSTEM)
endif()

# One file a program, wherever it is put.
add_link_options(-static)
