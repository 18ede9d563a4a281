// The blocks of results of the pass: they wait until the old ones below their line are dropped.
// Changes the pass's state and the rebuilt text of `feuille`.
#include <cstddef>
#include <string>
#include <string_view>

#include "base/failure.hpp"
#include "documents/settings.hpp"
#include "matrix/store.hpp"
#include "sheet/pass.hpp"
#include "sheet/sheet.hpp"
#include "stats/definition.hpp"

namespace {

// The waiting block below the last line written.
void ajoute_bloc(Passe& p) {
    ajoute(p, kFinDeLigne);
    ajoute(p, feuille.resultat_bloc);
}

// The table of an INC waits: the rows of the old one are dropped, any other line ends it.
Suite attend_table_inc(Passe& p) {
    if (!p.bloc_inc || !p.saut_ancien) return Suite::continuer;
    if (p.ligne.starts_with("f(")) return bloc_en_attente(p);
    ajoute_bloc(p);
    ajoute(p, kFinDeLigne);
    p.saut_ancien = p.bloc_inc = false;
    return Suite::continuer;
}

// The two lists of a bare STATXY: behind the second one the pairs are calculated.
Suite prend_liste(Passe& p) {
    if (p.numero == p.ligne_statx + 1) {
        garde(p, [&] {
            p.premiere_liste = p.ligne;
            feuille.resultat_bloc = p.ligne;
        });
        return Suite::finie;
    }
    p.paire_statxy = false;
    garde(p, [&] { (feuille.resultat_bloc += kFinDeLigne) += p.ligne; });
    rangeStatxy(p.premiere_liste, p.ligne, p.ligne_statx);
    return bloc_en_attente(p);
}

// A statistics result waits: an old one below is dropped down to its line with FIN.
Suite attend_bloc_stat(Passe& p) {
    if (!p.bloc_stat) return Suite::continuer;
    if (p.saut_ancien) {
        if (!p.majuscule_contient(kFin)) return Suite::finie;
        p.bloc_stat = p.saut_ancien = false;
        ajoute_bloc(p);
        return ligne_suivante(p);
    }
    if (p.ligne.find("nombre de") != std::string::npos ||
        p.ligne.find(", X=") != std::string::npos) {
        p.saut_ancien = true;
        return Suite::finie;
    }
    if (p.paire_statxy) return prend_liste(p);
    p.bloc_stat = false;
    ajoute_bloc(p);
    ajoute(p, kFinDeLigne);
    return Suite::continuer;
}

// A block that waits behind `attente` (matrix in column form, sorted data set): the old one is
// dropped down to its line with FIN when its mark was seen, otherwise the block comes first.
Suite attend_bloc(Passe& p, bool& attente) {
    if (!attente) return Suite::continuer;
    if (p.saut_ancien) {
        if (!p.majuscule_contient(kFin)) return Suite::finie;
        attente = p.saut_ancien = false;
        ajoute_bloc(p);
        return ligne_suivante(p);
    }
    attente = false;
    ajoute_bloc(p);
    ajoute(p, kFinDeLigne);
    return Suite::continuer;
}

// True when the line's result is a matrix that stands in a column below it.
bool resultat_en_colonne(const Passe& p) {
    return p.majuscule[0] == 'M' && TestCarMatrice(std::string_view(p.majuscule).substr(1, 1)) &&
           (reglages.table_ini(kLigneAffichage).champ1 == 1 ||
            p.ligne_avant.find("==") != std::string::npos);
}

}  // namespace

// Appends to the rebuilt text.
void ajoute(Passe& p, std::string_view texte) {
    garde(p, [&] { feuille.texte_reconstruit += texte; });
}

// The end of a line that is done: the line end follows, unless it is the last.
Suite ligne_suivante(Passe& p) {
    if (!p.fin) ajoute(p, kFinDeLigne);
    return Suite::finie;
}

void ajoute_resultat(Passe& p, std::int16_t numero) {
    garde(p, [&] { feuille.texte_reconstruit += feuille.resultat_ligne(numero); });
}

// A waiting block is written at once where the sheet ends.
Suite bloc_en_attente(Passe& p) {
    if (p.fin) ajoute_bloc(p);
    return Suite::finie;
}

// The lines below a block that waits, or below an old one.
Suite blocs_en_attente(Passe& p) {
    if (attend_table_inc(p) == Suite::finie || attend_bloc_stat(p) == Suite::finie ||
        attend_bloc(p, p.bloc_matrice) == Suite::finie)
        return Suite::finie;
    // A sorted line that carries a result has an old block below it.
    if (p.majuscule_contient(kMotTriStatX) && p.ligne.find('=') != std::string::npos)
        p.saut_ancien = true;
    return attend_bloc(p, p.bloc_tri);
}

// What follows a calculated line: the blocks that it has made wait for the next line.
Suite retient_blocs(Passe& p) {
    const bool tri = p.majuscule_contient(kMotTriStatX);
    if (p.majuscule_contient(kMotStatX) && !tri) {
        p.bloc_stat = true;
        p.paire_statxy = p.paire_statxy || (p.majuscule_contient(kMotStatXY) &&
                                            p.ligne.find('(') == std::string::npos);
        p.ligne_statx = p.numero;
        return bloc_en_attente(p);
    }
    if (tri) {
        p.bloc_tri = true;
        return bloc_en_attente(p);
    }
    if (p.ligne.size() < 4 || !resultat_en_colonne(p)) return ligne_suivante(p);
    p.bloc_matrice = true;
    if (p.ligne_avant.find("==") != std::string::npos) p.saut_ancien = true;
    return bloc_en_attente(p);
}
