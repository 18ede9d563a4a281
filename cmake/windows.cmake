# What the build for Windows has of its own: programs that need no library but the system's, a stack for
# the deepest formula, and the libraries of headers without the rest of the build machine's headers.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
add_link_options(-static -Wl,--stack,536870912)   # platform/stack.hpp: kPileVoulue
add_link_options($<$<CONFIG:Release>:-s>)

set(headers ${CMAKE_BINARY_DIR}/headers)
foreach(library nlohmann CLI doctest)
  file(MAKE_DIRECTORY ${headers}/${library})
  if(EXISTS /usr/include/${library})
    file(CREATE_LINK /usr/include/${library} ${headers}/${library}/${library} SYMBOLIC)
  endif()
endforeach()

# The target of a library of headers.
function(library_of_headers target folder)
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} SYSTEM INTERFACE ${headers}/${folder})
endfunction()
library_of_headers(nlohmann_json::nlohmann_json nlohmann)
library_of_headers(CLI11::CLI11 CLI)
library_of_headers(doctest::doctest doctest)

# The tests run where they are built, under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
