# Runs the random sheets under two locales and compares the digests of all that came out.
#   cmake -DPROGRAMME=property -DFEUILLES=20000 -P compare_locales.cmake
function(essaie locale digest)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=LANGUAGE LC_ALL=${locale}
                          ${PROGRAMME} --feuilles ${FEUILLES}
                  OUTPUT_VARIABLE sortie RESULT_VARIABLE statut)
  message("${sortie}")
  if(NOT statut EQUAL 0)
    message(FATAL_ERROR "${locale}: status ${statut}")
  endif()
  if(NOT sortie MATCHES "locale ${locale}\n")
    message(FATAL_ERROR "the locale ${locale} is missing: scripts/make-locale makes it")
  endif()
  if(NOT sortie MATCHES "digest ([0-9a-f]+)")
    message(FATAL_ERROR "${locale}: no digest")
  endif()
  set(${digest} ${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()

essaie(C simple)
essaie(fr_FR.UTF-8 francais)
if(NOT simple STREQUAL francais)
  message(FATAL_ERROR "the locale changes the results: ${simple} and ${francais}")
endif()
