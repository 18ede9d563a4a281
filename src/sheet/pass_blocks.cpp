// Writing to the rebuilt text, and the blocks of results that lines write below themselves, each in the place
// of the old block there. Changes the pass's state and the rebuilt text of `feuille`.
#include <cstddef>
#include <string>
#include <string_view>

#include "base/failure.hpp"
#include "platform/hooks.hpp"
#include "settings/settings.hpp"
#include "sheet/data_definition.hpp"
#include "sheet/pass.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"
#include "state/variables.hpp"

namespace {

// Appends a block below the last line written. When the cursor stood in the old block, it goes to the line of
// the same rank in this one, if there is such a line.
void ajoute_bloc(Passe& p, std::string_view bloc, int anciennes) {
    const std::size_t dessus = feuille.colonne_resultat.size();
    fin_de_ligne(p);
    ajoute(p, bloc);
    garde(p, [&] {
        feuille.colonne_resultat.resize(feuille.colonne_resultat.size() + lignes_closes(bloc));
    });
    const int rang = p.ligne_curseur - p.numero;
    if (p.curseur_pris || rang < 1 || rang > anciennes) return;
    const std::size_t place = dessus + static_cast<std::size_t>(rang);
    if (place <= feuille.colonne_resultat.size()) p.curseur_ecrit = place;
}

// The lines of an old block are not read.
void saute(Passe& p, const AncienBloc& ancien) {
    if (ancien.lignes == 0) return;
    p.numero = static_cast<std::int16_t>(p.numero + ancien.lignes);
    p.position = ancien.position;
    p.fin = ancien.fin;
}

// The old block below the line; none below the last one.
AncienBloc ancien_dessous(const Passe& p, GenreBloc genre) {
    return p.fin ? AncienBloc{} : ancien_bloc(genre, p.source, p.position);
}

// True when the line's result is a matrix that stands in a column below it.
bool resultat_en_colonne(const Passe& p) {
    const char lettre = capitale(p.ligne[1]);
    return capitale(p.ligne[0]) == 'M' && TestCarMatrice(std::string_view(&lettre, 1)) &&
           (reglages.table_ini(kLigneAffichage).champ1 == 1 ||
            p.ligne_avant.find("==") != std::string_view::npos);
}

// Takes two lines, with the line end between them, from the beginning of a text; false when it doesn't begin
// with them.
bool retire_debut(std::string_view& texte, std::string_view premiere, std::string_view seconde) {
    std::string_view reste = texte;
    for (const std::string_view morceau : {premiere, kFinDeLigne, seconde}) {
        if (!reste.starts_with(morceau)) return false;
        reste.remove_prefix(morceau.size());
    }
    texte = reste;
    return true;
}

// The line of a data set: its block. The two lists of a bare STATXY come first.
Suite retient_stat(Passe& p) {
    const AncienBloc ancien = ancien_dessous(p, GenreBloc::statistiques);
    if (ancien.lignes > 0 || p.fin || !p.contient(kMotStatXY) ||
        p.ligne.find('(') != std::string_view::npos)
        return pose_bloc(p, feuille.resultat_bloc, ancien);
    p.listes_attendues = 2;
    p.ligne_statx = p.numero;
    p.ligne_donnees = feuille.colonne_resultat.size();
    return ligne_suivante(p);
}

}  // namespace

void ajoute(Passe& p, std::string_view texte) {
    garde(p, [&] { feuille.texte_reconstruit += texte; });
}

void commence_ligne(Passe& p, std::int16_t numero, std::string_view texte) {
    if (!p.curseur_pris && numero == p.ligne_curseur) p.curseur_ecrit = feuille.colonne_resultat.size();
    ajoute(p, texte);
}

void ajoute_resultat(Passe& p, std::int16_t numero) {
    garde(p, [&] {
        const std::string_view resultat = feuille.resultat_ligne(numero);
        if (resultat.empty()) return;
        const std::size_t colonne = feuille.texte_reconstruit.size() - p.debut_ligne;
        feuille.texte_reconstruit += resultat;
        feuille.colonne_resultat.back() = static_cast<std::int32_t>(colonne);
    });
}

void fin_de_ligne(Passe& p) {
    garde(p, [&] {
        for (const char c : kFinDeLigne) feuille.texte_reconstruit.push_back(c);   // quicker than a copy of two
        feuille.colonne_resultat.push_back(0);
        p.debut_ligne = feuille.texte_reconstruit.size();
    });
}

// The end of a line that is done: the line end follows, unless it is the last.
Suite ligne_suivante(Passe& p) {
    if (!p.fin) fin_de_ligne(p);
    return Suite::finie;
}

void prend_curseur(Passe& p) {
    p.curseur_pris = true;
    p.ligne_curseur = p.numero;
    p.curseur_ecrit = feuille.colonne_resultat.size();
}

Suite pose_bloc(Passe& p, std::string_view bloc, const AncienBloc& ancien) {
    ajoute_bloc(p, bloc, ancien.lignes);
    saute(p, ancien);
    return ligne_suivante(p);
}

Suite pose_bloc(Passe& p, GenreBloc genre) {
    return pose_bloc(p, feuille.resultat_bloc, ancien_dessous(p, genre));
}

// The two lists stand in the text as they are read; after the second one the pairs are calculated. A block
// adds to what resultat_bloc holds, which is these lists first.
Suite prend_liste(Passe& p) {
    commence_ligne(p, p.numero, p.ligne);
    if (--p.listes_attendues > 0) {
        garde(p, [&] {
            p.premiere_liste = p.ligne;
            feuille.resultat_bloc = p.ligne;
        });
        return ligne_suivante(p);
    }
    garde(p, [&] { (feuille.resultat_bloc += kFinDeLigne) += p.ligne; });
    rangeStatxy(p.premiere_liste, p.ligne, p.ligne_statx);
    crochets.ligne_calculee(p.ligne_statx);
    if (formule_en_erreur()) return ligne_suivante(p);
    feuille.colonne_resultat[p.ligne_donnees - 1] = -p.ligne_statx;
    const AncienBloc ancien = ancien_dessous(p, GenreBloc::statistiques);
    std::string_view bloc = feuille.resultat_bloc;
    if (!retire_debut(bloc, p.premiere_liste, p.ligne)) return pose_bloc(p, bloc, ancien);
    if (retire_debut(bloc, "", "")) return pose_bloc(p, bloc, ancien);
    saute(p, ancien);   // the lists gave nothing
    return ligne_suivante(p);
}

// What follows a calculated line: the block that it has made. The "==" of a matrix and the count of a sorted
// data set tell that an old block may stand below.
Suite retient_blocs(Passe& p) {
    const bool tri = p.contient(kMotTriStatX);
    // The word counts in a comment too. Kept: see the oddities, statx-in-a-comment.
    if (p.contient(kMotStatX) && !tri) return retient_stat(p);
    if (tri) {
        if (!est_compte_de_tri(p.ligne_avant)) return pose_bloc(p, feuille.resultat_bloc, AncienBloc{});
        return pose_bloc(p, GenreBloc::tri);
    }
    if (p.ligne.size() < 4 || !resultat_en_colonne(p)) return ligne_suivante(p);
    if (p.ligne_avant.find("==") == std::string_view::npos)
        return pose_bloc(p, feuille.resultat_bloc, AncienBloc{});
    return pose_bloc(p, GenreBloc::matrice);
}
