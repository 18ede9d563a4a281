// Printing: the text of the sheet with its margin, in the printer font of the settings.
#include "documents/printing.hpp"

#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "platform/file_failures.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"

namespace {

constexpr std::string_view kMarge = "     ";

// The text with a margin of five blanks and a form feed at its end.
std::string texte_imprime(std::string_view texte) {
    std::string sortie(kMarge);
    for (const char c : texte) {
        sortie += c;
        if (c == '\n') sortie += kMarge;
    }
    sortie += '\f';
    return sortie;
}

}  // namespace

void mnuImprimer() {
    const std::string texte = texte_imprime(port.texte.texte());
    const std::string police(sans_blancs(reglages.table_ini(kLignePoliceImprimante).nom));
    const double taille = prefixe_numerique(reglages.table_ini(kLigneTailleImprimante).nom);
    reussit(port.imprimante.imprime(texte, police, taille));
}

void mnuParametreImprimer() {
    port.dialogues.imprimante();
}
