// A sheet and its modes, calculated twice: the pass ends, the cursor stands where it must, and a
// sheet without a failing line is the same text the second time, opened again too.
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "bytes.hpp"
#include "property/checks.hpp"
#include "state/context.hpp"
#include "support/program.hpp"

namespace {

Reglage lit_reglage(Octets& octets) {
    const int bits = octets.octet();
    Reglage r;
    r.mode_nombre = static_cast<std::int16_t>(1 + bits % 2);
    r.mode_affichage = static_cast<std::int16_t>(1 + bits / 2 % 3);
    r.unite_angle = static_cast<std::int16_t>(1 + bits / 6 % 3);
    r.matrice_colonne = bits / 18 % 2;
    r.stat_restreint = bits / 36 % 2;
    r.nombre_decimal = static_cast<std::int16_t>(octets.parmi(23) - 1);
    return r;
}

// Thousands of rows of a table, or thousands of steps, are slow and show nothing that ten don't.
bool trop_long(std::string_view majuscules) {
    int chiffres = 0;
    for (const char c : majuscules) {
        chiffres = c >= '0' && c <= '9' ? chiffres + 1 : 0;
        if (chiffres == 4) return true;
    }
    return false;
}

// What may change a sheet at its second pass: random numbers, and forms whose own text is read again.
bool peut_changer(std::string_view majuscules) {
    for (const std::string_view mot :
         {std::string_view("ALEA"), std::string_view("FIN"), std::string_view("STATX"),
          std::string_view("INC"), std::string_view("AIR"), std::string_view("DEF"),
          std::string_view("M"), std::string_view("="), std::string_view("OR"),
          std::string_view("AND"), std::string_view("NOT"), std::string_view("\r\n\r\n")})
        if (majuscules.find(mot) != std::string_view::npos) return true;
    return false;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* debut, std::size_t taille) {
    Octets octets(debut, taille);
    const Reglage reglage = lit_reglage(octets);
    const auto curseur = static_cast<std::size_t>(octets.octet());
    const std::string texte = avec_lignes(octets.reste());
    const std::string majuscules = capitales(texte);
    if (trop_long(majuscules)) return -1;
    programme_de_fuzz();
    prepare(reglage);
    memoire.interrompt = true;
    const Vue une = calcule(texte, curseur);
    verifie(verifie_curseur(une).empty(), "the cursor is not at the end of a line", une.texte);
    const Vue deux = passe();
    verifie(verifie_curseur(deux).empty(), "the cursor is not at the end of a line", deux.texte);
    if (une.erreur || !une.boites.empty() || peut_changer(majuscules)) return 0;
    verifie(une.texte == deux.texte, "another text at the second pass",
            une.texte + "\n---\n" + deux.texte);
    verifie(memes_valeurs(une, deux), "other values at the second pass", une.texte);
    return 0;
}
