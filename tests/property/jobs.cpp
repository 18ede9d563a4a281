// Writes random sheets as jobs of the probe, one a line, so that two builds of the probe can be given
// the same sheets and their answers compared: the sheets of the other property tests, sheets of words
// thrown together, and sheets that are all functions with many digits.
//   property_jobs [--feuilles N]      (N of each kind)
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include <nlohmann/json.hpp>

#include "base/codepage.hpp"
#include "property/sheets.hpp"
#include "property/words.hpp"
#include "support/program.hpp"

namespace {

using nlohmann::json;

json tache(const std::string& id, const Reglage& r, const std::string& texte, std::size_t curseur) {
    return {{"id", id},
            {"text", vers_utf8(texte)},
            {"selstart", curseur},
            {"mode_nombre", r.mode_nombre},
            {"mode_affichage", r.mode_affichage},
            {"nombre_decimal", r.nombre_decimal},
            {"unite_angle", r.unite_angle},
            {"matrice_colonne", r.matrice_colonne},
            {"stat_restreint", r.stat_restreint}};
}

constexpr int kTailles[] = {9, 999, 99999};
constexpr const char* kHyperboliques[] = {"SH(", "CH(", "TH(", "ASH(", "ACH(", "ATH("};

// A number of up to seventeen digits, of any size that a sheet is likely to hold.
std::string nombre(Tirage& t) {
    std::string texte = std::to_string(t.entre(0, t.un_de(kTailles)));
    if (t.une_fois_sur(4)) return texte;
    texte += '.';
    for (int i = t.entre(1, 12); i > 0; --i) texte += static_cast<char>('0' + t.entre(0, 9));
    return texte;
}

std::string fraction(Tirage& t) {
    return "0." + std::to_string(t.entre(1, 999'999'999));
}

// A formula whose value comes from the elementary functions and lies in their domain.
std::string formule(Tirage& t) {
    const std::string x = nombre(t), signe = t.une_fois_sur(2) ? "-" : "";
    switch (t.entre(1, 11)) {
        case 1: return "SIN(" + signe + x + ")";
        case 2: return "COS(" + signe + x + ")";
        case 3: return "TAN(" + signe + fraction(t) + "+" + x + ")";
        case 4: return "ATAN(" + signe + x + ")";
        case 5: return (t.une_fois_sur(2) ? "ASIN(" : "ACOS(") + signe + fraction(t) + ")";
        case 6: return "EXP(" + signe + x + "/9999)";
        case 7: return (t.une_fois_sur(2) ? "LN(1+" : "LOG(1/3+") + x + ")";
        case 8: return "(" + x + "+1)^(" + signe + fraction(t) + ")";
        case 9: return "SQR3(" + signe + x + ")";
        case 10:
            return t.un_de(kHyperboliques) + signe + std::to_string(t.entre(0, 30)) + "+" +
                   fraction(t) + ")";
        default:
            return (t.une_fois_sur(2) ? "SERIEG(" : "SUITEG(") + x + "," +
                   std::to_string(t.entre(1, 40)) + ",1+" + fraction(t) + ")";
    }
}

// Ten functions: five shown, five left in variables, which the answer holds with all their bits.
json feuille_de_fonctions(std::uint64_t graine) {
    Tirage t(graine + 5'000'000);
    Reglage r = tire_reglage(t);
    r.mode_nombre = 1;
    r.mode_affichage = static_cast<std::int16_t>(t.entre(2, 3));
    r.nombre_decimal = static_cast<std::int16_t>(t.entre(10, 16));
    std::string texte;
    for (int i = 0; i < 10; ++i) {
        if (i % 2 == 1) texte += static_cast<char>('A' + i / 2), texte += '=';
        texte += formule(t) + "\r\n";
    }
    return tache("functions " + std::to_string(graine), r, texte, 0);
}

// Areas are left out: the probe would compute millions of trapezoids.
void ecrit_soupe(std::uint64_t graine) {
    const Soupe soupe = tire_soupe(graine);
    if (capitales(soupe.texte).find("AIR") != std::string::npos) return;
    std::cout << tache("words " + std::to_string(graine), soupe.reglage, soupe.texte, soupe.curseur)
              << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    std::uint64_t nombre_de_feuilles = 20000;
    for (int i = 1; i + 1 < argc; i += 2)
        if (std::string(argv[i]) == "--feuilles")
            nombre_de_feuilles = std::strtoull(argv[i + 1], nullptr, 10);
    for (std::uint64_t graine = 1; graine <= nombre_de_feuilles; ++graine) {
        const FeuilleTiree f = tire_feuille(graine);
        std::cout << tache("sheet " + std::to_string(graine), f.reglage, f.texte, f.curseur) << '\n';
        ecrit_soupe(graine);
        std::cout << feuille_de_fonctions(graine) << '\n';
    }
    return std::cout ? 0 : 1;
}
