// Any text as a formula of X, evaluated again and again by the repeated evaluation and by its text:
// the same bits, errors and boxes, and the same context after it.
#include <bit>
#include <cstdint>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "bytes.hpp"
#include "support/memory.hpp"
#include "support/program.hpp"
#include "support/repeated.hpp"

namespace {

constexpr double kValeurs[] = {0,     0.5,  1,      1.5,  2,      3,       -1,  -2,
                               1e308, -1e308, 1e-310, 90,  45,     30,      0.1, 0.7};

// At most four values of X, each from half a byte.
std::vector<double> lit_points(Octets& octets) {
    const int nombre = 1 + octets.parmi(4);
    std::vector<double> points;
    for (int i = 0; i < nombre; ++i) points.push_back(kValeurs[octets.parmi(16)]);
    return points;
}

// A formula without the characters that end a line; what the sheet does to it first is done.
std::string lit_formule(Octets& octets) {
    std::string formule;
    for (const char c : capitales(octets.reste()))
        if (static_cast<unsigned char>(c) >= ' ' && c != '!') formule += c;
    return std::string(sans_blancs(formule));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* debut, std::size_t taille) {
    Octets octets(debut, taille);
    const int unite = 1 + octets.parmi(3);
    const std::vector<double> points = lit_points(octets);
    const std::string formule = lit_formule(octets);
    static const bool pret = (programme_de_fuzz(), true);
    const Trace attendu = pret ? par_le_texte(formule, unite, points) : Trace{};
    verifie(attendu == par_repetition(formule, unite, points),
            "the repeated evaluation leaves something else than the text", formule);
    for (const Jeu jeu : {Jeu::commun, Jeu::avx2})
        if (jeu_present(jeu))
            verifie(attendu == par_blocs(formule, unite, points, jeu), "a block leaves something else than the text",
                    formule);
    return 0;
}
