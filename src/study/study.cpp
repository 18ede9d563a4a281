// The study of a function: its pieces, and on each its zeros, extremes, variations and signs.
#include "study/study.hpp"

#include <utility>

#include "study/variations.hpp"
#include "study/zeros.hpp"

namespace {

// Studies one piece; a pole that the grid shows as an extreme cuts it in two, and each is studied for itself.
void etudie_morceau(const Grille& grille, Morceau morceau, std::vector<Partie>& parties) {
    Partie p;
    p.morceau = std::move(morceau);
    if (p.morceau.x.empty()) return;
    cherche_zeros(grille, p);
    cherche_paliers(grille, p);
    if (const auto pole = cherche_extremes(grille, p)) {
        for (Morceau& cote : coupe_au_pole(grille, p.morceau, *pole)) etudie_morceau(grille, std::move(cote), parties);
        return;
    }
    decrit_variations(p);
    decrit_signes(p);
    parties.push_back(std::move(p));
}

}  // namespace

Etude etudie(const Courbe& f, double debut, double fin) {
    const Grille grille = pose_grille(f, debut, fin);
    Etude etude{debut, fin, {}, grille.x, grille.y, grille.maille};
    for (Morceau& morceau : decoupe(grille)) etudie_morceau(grille, std::move(morceau), etude.parties);
    return etude;
}

std::vector<Zero> zeros_de(const Etude& etude) {
    std::vector<Zero> zeros;
    for (const Partie& partie : etude.parties) zeros.insert(zeros.end(), partie.zeros.begin(), partie.zeros.end());
    return zeros;
}
