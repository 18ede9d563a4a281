// Draws lines and damages them.
#include "verification/typed_lines.hpp"

#include <cstdlib>

#include "property/expressions.hpp"
#include "support/program.hpp"

namespace {

constexpr int kFautesMontrees = 5;

}  // namespace

Tours lis_tours(int argc, char** argv) {
    Tours tours;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        if (option == "--lignes") tours.lignes = std::atoi(argv[i + 1]);
        if (option == "--feuilles") tours.feuilles = std::atoi(argv[i + 1]);
        if (option == "--graine") tours.graine = std::strtoull(argv[i + 1], nullptr, 10);
    }
    return tours;
}

int compte_fautes(const Tours& tours, const std::function<bool(std::uint64_t)>& essaie_ligne,
                  const std::function<bool(std::uint64_t)>& essaie_feuille) {
    programme_neuf();
    int fautes = 0;
    for (int i = 0; i < tours.lignes && fautes < kFautesMontrees; ++i)
        if (!essaie_ligne(tours.graine + static_cast<std::uint64_t>(i))) ++fautes;
    for (int i = 0; i < tours.feuilles && fautes < kFautesMontrees; ++i)
        if (!essaie_feuille(tours.graine + static_cast<std::uint64_t>(i))) ++fautes;
    return fautes;
}

std::string abime(Tirage& t, std::string ligne) {
    static const std::string kSignes = cp(",.,.()()%;:×÷'’!=²+-*/^ 0123456789 AXENMP²³?°\"");
    const int fois = t.entre(1, 3);
    for (int i = 0; i < fois; ++i) {
        const auto place = static_cast<std::size_t>(t.entre(0, static_cast<int>(ligne.size())));
        const char signe = kSignes[static_cast<std::size_t>(t.entre(0, static_cast<int>(kSignes.size()) - 1))];
        const int maniere = t.entre(0, 3);
        if (maniere == 0 && place < ligne.size()) ligne.erase(place, 1);
        else if (maniere == 1 && place < ligne.size()) ligne[place] = signe;
        else ligne.insert(place, 1, signe);
    }
    return ligne;
}

Essai tire_essai(std::uint64_t graine) {
    Tirage t(graine);
    Variables v;
    Essai e;
    for (const char lettre : {'A', 'B', 'X', 'E', 'N'}) {
        Variable& x = v[static_cast<std::size_t>(lettre - 'A' + 1)];
        x = {true, true, static_cast<double>(t.entre(1, 40)), 0};
        (e.entete += lettre) += "=" + std::to_string(static_cast<int>(x.valeur)) + "\r\n";
        ++e.lignes;
    }
    Expressions expressions(t, v);
    e.ligne = expressions.somme(t.entre(0, 2)).texte;
    if (t.une_fois_sur(5)) e.ligne = std::string("C=") + e.ligne;
    if (!t.une_fois_sur(4)) e.ligne = abime(t, e.ligne);
    return e;
}
