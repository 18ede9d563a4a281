// Fills in the table of procedures that the grammar calls. Changes `operations`.
#include "functions/install.hpp"

#include "engine/operations.hpp"
#include "functions/call.hpp"
#include "functions/matrix_arithmetic.hpp"
#include "functions/table.hpp"

void installe_fonctions() {
    operations = {.fonction_nommee = fonction_nommee,
                  .appelle_fonction = compile_f,
                  .addition = additionMatrice,
                  .soustraction = SoustractionMatrice,
                  .multiplication = MultiplicationMatrice,
                  .produit_par_nombre = MultiplicationNombreMatrice,
                  .puissance = PuissanceMatrice};
}
