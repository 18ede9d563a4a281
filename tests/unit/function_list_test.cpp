// What Enter writes for a line of the list of functions.
#include "shell/function_list.hpp"

#include <doctest/doctest.h>

#include <string>

#include "functions/table.hpp"

TEST_CASE("function list: the name with its bracket, alone, or with blanks") {
    CHECK(texte_de_fonction("SQRT (x) racine carree") == "SQRT(");
    CHECK(texte_de_fonction("ANP (n,p) arrangements") == "ANP(");
    CHECK(texte_de_fonction("STATX (x;x)") == "STATX(");
    CHECK(texte_de_fonction("FON (x)") == "FON(");
    CHECK(texte_de_fonction("PI nombre Pi") == "PI");
    CHECK(texte_de_fonction("ALEA nombre") == "ALEA");
    CHECK(texte_de_fonction("TRISTATX range") == "TRISTATX");
    CHECK(texte_de_fonction("INC (a,p,n)") == "INCX(");
    CHECK(texte_de_fonction("AIR (a,b,n)") == "AIRX(");
    CHECK(texte_de_fonction("XOR (a XOR b)") == " XOR ");
    CHECK(texte_de_fonction("NOT (NOT a)") == "NOT ");
    CHECK(texte_de_fonction("+ (a+b) somme") == "+");
    CHECK(texte_de_fonction("mot") == "mot");
    CHECK(texte_de_fonction("").empty());
    CHECK(texte_de_fonction(" SQRT").empty());
}
