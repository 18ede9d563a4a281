# A function that is left half done doesn't compile: each variant changes a copy of the table of functions
# as somebody would who forgets a part, and the compiler must refuse it with the words of that part. The
# table as it is must pass.   cmake -DCOMPILER=... -DSOURCE=<root> -DFOLDER=<scratch> -P half_done.cmake
file(READ ${SOURCE}/src/functions/table.hpp entete)
file(READ ${SOURCE}/src/functions/table.cpp rangees)
string(REPLACE ";" "<point-virgule>" entete "${entete}")
string(REPLACE ";" "<point-virgule>" rangees "${rangees}")
set(fin "    kApresFonctions ")
set(fin_rangees "}}<point-virgule>\n\nconstexpr bool dans_l_ordre")
set(formule "formule([](double x, auto&) { return x<point-virgule> })")

# Compiles the table with `nombre` more in the enumeration and `rangee` more at its end; `mots` must be told,
# nothing at all when there are none.
function(essaie nom nombre rangee mots)
  foreach(cherche "${fin}" "${fin_rangees}")
    string(FIND "${entete}${rangees}" "${cherche}" place)
    if(place EQUAL -1)
      message(FATAL_ERROR "the table has lost the form that this test changes: ${cherche}")
    endif()
  endforeach()
  string(REPLACE "${fin}" "${nombre}${fin}" e "${entete}")
  string(REPLACE "${fin_rangees}" "${rangee}${fin_rangees}" r "${rangees}")
  string(REPLACE "<point-virgule>" ";" e "${e}")
  string(REPLACE "<point-virgule>" ";" r "${r}")
  file(WRITE ${FOLDER}/${nom}/functions/table.hpp "${e}")
  file(WRITE ${FOLDER}/${nom}/table.cpp "${r}")
  execute_process(COMMAND ${COMPILER} -std=c++20 -fsyntax-only -I${FOLDER}/${nom} -I${SOURCE}/src
                          ${FOLDER}/${nom}/table.cpp RESULT_VARIABLE code ERROR_VARIABLE dit)
  if("${mots}" STREQUAL "")
    if(NOT code EQUAL 0)
      message(FATAL_ERROR "${nom}: must compile:\n${dit}")
    endif()
  elseif(code EQUAL 0 OR NOT "${dit}" MATCHES "${mots}")
    message(FATAL_ERROR "${nom}: must be refused with \"${mots}\", and was told (status ${code}):\n${dit}")
  endif()
  message(STATUS "${nom}: as it must be")
endfunction()

essaie(as_it_is "" "" "")
essaie(whole "    kEssai,\n" "    {kEssai, \"ESSAI\", Lecture::un, ${formule}},\n" "")
essaie(no_row "    kEssai,\n" "" "each number of Fonction has its row")
essaie(no_number "" "    {kFon, \"ESSAI\", Lecture::un, ${formule}},\n" "too many initializers|excess elements")
essaie(other_number "    kEssai,\n" "    {kFon, \"ESSAI\", Lecture::un, ${formule}},\n" "each number of Fonction has its row")
essaie(no_name "    kEssai,\n" "    {kEssai, \"\", Lecture::un, ${formule}},\n" "each function has a name of its own")
essaie(name_of_another "    kEssai,\n" "    {kEssai, \"FON\", Lecture::un, ${formule}},\n" "each function has a name of its own")
essaie(not_read "    kEssai,\n" "    {kEssai, \"ESSAI\", {}, ${formule}},\n" "each function says how its call is read")
essaie(no_value "    kEssai,\n" "    {kEssai, \"ESSAI\", Lecture::un},\n" "a formula of one argument or a procedure")
essaie(formula_of_two "    kEssai,\n" "    {kEssai, \"ESSAI\", Lecture::deux, ${formule}},\n"
       "a formula of one argument or a procedure")
essaie(refusal_without_words "    kEssai,\n"
       "    {kEssai, \"ESSAI\", Lecture::un, ${formule}, exclut(kPositifSeulement, {})},\n"
       "a formula that refuses arguments says so in words")
