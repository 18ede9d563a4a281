// From a number to the result of its line, in the current number mode. Changes resultat_ligne of `feuille`.
#include "sheet/number_result.hpp"

#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/number_text.hpp"
#include "functions/functions.hpp"
#include "state/modes.hpp"
#include "state/sheet.hpp"
#include "state/variables.hpp"

namespace {

constexpr Procedure kAfficheValeurNombre{" sur Affiche_valeur_nombre"_fr, false};
constexpr Procedure kAffichePi{" sur AffichePi"_fr, false};

// The positive multiples of Pi that have a notation, in the order in which they are compared; each
// value is computed from pi_valeur as its text says. The negative ones mirror them.
struct MultiplePi {
    double facteur, diviseur;
    std::string_view texte;
};
constexpr std::array<MultiplePi, 6> kMultiplesPi = {{{1, 4, "Pi/4"},
                                                     {1, 2, "Pi/2"},
                                                     {3, 4, "3Pi/4"},
                                                     {1, 1, "Pi"},
                                                     {3, 2, "3Pi/2"},
                                                     {2, 1, "2Pi"}}};

// Text of a listed multiple of Pi without its sign, or an empty text. No tolerance: a value that
// differs in its last bit is no multiple.
std::string_view multiple_pi(double absolu) {
    const double pi = pi_valeur();
    if (absolu < pi / 4 || absolu > 2 * pi) return {};
    for (const MultiplePi& m : kMultiplesPi)
        if (absolu == m.facteur * pi / m.diviseur) return m.texte;
    return {};
}

// Adds the number in the present number mode; adds nothing where it fails.
void ajoute_texte_du_mode(std::string& sortie, double x) {
    if (modes.mode_nombre == 2)
        sortie += texte_hexa(x);
    else if (modes.mode_affichage == 2)
        ajoute_texte_court(sortie, x, modes.nombre_decimal);
    else
        sortie += modes.mode_affichage == 3 ? FormatPuissance(x) : c_intx(x);
}

}  // namespace

std::string texte_du_mode(double x) {
    std::string texte;
    ajoute_texte_du_mode(texte, x);
    return texte;
}

bool formule_contient(std::int16_t numero, const Marque& marque) {
    const std::string_view formule = feuille.formule_ligne(numero);
    if (!marque.possible(signes_de(formule))) return false;
    return capitales(formule).find(marque.mot) != std::string::npos;
}

void Affiche_valeur_nombre(std::int16_t numero) noexcept {
    bool pi = false;
    if (modes.mode_nombre == 1) AffichePi(numero, pi);
    if (pi) return;
    std::string texte(" = ");
    Tente(kAfficheValeurNombre, [&] { ajoute_texte_du_mode(texte, feuille.valeur_ligne(numero)); });
    Tente(kAfficheValeurNombre, [&] { feuille.resultat_ligne.pose(numero, texte); });
}

void AffichePi(std::int16_t numero, bool& trouve) noexcept {
    trouve = false;
    Tente(kAffichePi, [&] {
        const double x = feuille.valeur_ligne(numero);
        const std::string_view texte = multiple_pi(std::fabs(x));
        // Who wrote Pi into the line wants digits.
        if (texte.empty() || formule_contient(numero, kMotPi)) return;
        feuille.resultat_ligne.pose(numero, std::string(x < 0 ? " = -" : " = ").append(texte));
        trouve = true;
    });
}
