# Compile options and include root shared by every target of the project.
add_library(norvane_options INTERFACE)
target_include_directories(norvane_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(norvane_options INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion -pedantic)

# norvane_module(NAME SOURCES ... [DEPS ...]): a static library of the project.
# norvane-cli links every module registered this way.
function(norvane_module name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC norvane_options ${ARG_DEPS})
  set_property(GLOBAL APPEND PROPERTY NORVANE_CORE_LIBRARIES ${name})
endfunction()

# Programs find their data in ../share/norvane beside their own folder, as when
# installed; in the build tree that is a link to data/.
function(norvane_link_data_folder)
  get_filename_component(share ${CMAKE_CURRENT_BINARY_DIR}/../share ABSOLUTE)
  file(MAKE_DIRECTORY ${share})
  if(IS_SYMLINK ${share}/norvane)
    file(REMOVE ${share}/norvane)  # it may point to a tree that has moved
  endif()
  if(NOT EXISTS ${share}/norvane)
    file(CREATE_LINK ${NORVANE_DATA_DIR} ${share}/norvane SYMBOLIC)
  endif()
endfunction()
