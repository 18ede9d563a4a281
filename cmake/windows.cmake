# What the build for Windows has of its own: programs that need no library but the system's, a stack for
# the deepest formula, and the libraries of headers without the rest of the build machine's headers.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
add_link_options(-static -Wl,--stack,536870912)   # platform/stack.hpp: kPileVoulue
add_link_options($<$<CONFIG:Release>:-s>)

# Two builds of one commit are the same file: no time of building, no folder of the build machine.
add_link_options(-Wl,--no-insert-timestamp)
add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${CMAKE_BINARY_DIR}=build>
                    $<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=voxtab>)
if(wxWidgets_DIR)
  cmake_path(SET boite_a_outils NORMALIZE "${wxWidgets_DIR}/../../..")
  add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${boite_a_outils}=wx/>)
endif()

# What the tool chain has against faults that others would use: no code runs where data stand, addresses
# differ at every start, a procedure that wrote beyond its variables doesn't return. docs/development.md
# tells why there is no control-flow guard.
add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:-fstack-protector-strong>)
add_link_options(-fstack-protector-strong -Wl,--nxcompat,--dynamicbase,--high-entropy-va)

# The version and manifest of a program of the terminal.
function(describe_program target description)
  string(REPLACE . , VOXTAB_VERSION_NUMBERS ${PROJECT_VERSION}.0)
  set(VOXTAB_PROGRAM ${target})
  set(VOXTAB_DESCRIPTION ${description})
  configure_file(${PROJECT_SOURCE_DIR}/data/windows/terminal.rc.in ${CMAKE_BINARY_DIR}/${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_BINARY_DIR}/${target}.rc)
endfunction()

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
