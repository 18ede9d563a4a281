// What "Vérifier" promises, on random lines: where it is silent, every character of the formula was read, and
// the formula with brackets around each of its parts gives the same value to the bit; what it calls unread can
// be deleted without a change of the result; and on correct sheets it finds nothing grave.
//   sound [--lignes N] [--feuilles N] [--graine S]     (a seed alone: that line or sheet, shown)
#include <bit>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "platform/stack.hpp"
#include "property/sheets.hpp"
#include "sheet/observer.hpp"
#include "sheet/old_blocks.hpp"
#include "sheet/recalculation.hpp"
#include "state/context.hpp"
#include "verification/check.hpp"
#include "verification/typed_lines.hpp"

namespace {

// What the pass has told of the last line.
struct Derniere {
    RoleLigne role = RoleLigne::copiee;
    std::string entiere, ligne, formule, lue, resultat;
    double valeur = 0;
    bool erreur = false;
    Releve releve;
};
Derniere derniere;
Observation vue;

void prend(const LigneObservee& o) {
    derniere = {o.role, std::string(o.entiere), std::string(o.ligne), std::string(o.formule), std::string(o.lue),
                std::string(o.resultat), o.valeur, o.erreur, vue.releve};
}

// A calculated in a fresh program: what the last line has become.
const Derniere& calcule(const std::string& feuille) {
    reinitialise_calcul();
    derniere = {};
    vue.ligne = prend;
    observation = &vue;
    calcule_feuille(feuille, 0);
    observation = nullptr;
    return derniere;
}

// What was typed of a node's own: an operand, a sign.
std::string texte(const Derniere& d, std::int32_t debut, std::int32_t fin) {
    return d.lue.substr(static_cast<std::size_t>(debut - 1), static_cast<std::size_t>(fin - debut + 1));
}

// The formula with brackets around each operation, written from the tree alone.
std::string entre_parentheses(const Derniere& d) {
    std::vector<std::string> pile;
    for (const Noeud& n : d.releve.noeuds) {
        const auto enfants = pile.end() - n.arite;
        std::string t;
        switch (n.genre) {
            case GenreNoeud::parenthese: t = enfants[0]; break;
            case GenreNoeud::plus_unaire:
            case GenreNoeud::moins_unaire:
            case GenreNoeud::complement: t = "(" + texte(d, n.signe, n.signe) + enfants[0] + ")"; break;
            case GenreNoeud::non: t = "(NOT " + enfants[0] + ")"; break;
            case GenreNoeud::plus_pourcent: t = "(" + enfants[0] + "+" + enfants[1] + "%)"; break;
            case GenreNoeud::moins_pourcent: t = "(" + enfants[0] + "-" + enfants[1] + "%)"; break;
            case GenreNoeud::et: t = "(" + enfants[0] + " AND " + enfants[1] + ")"; break;
            case GenreNoeud::ou: t = "(" + enfants[0] + " OR " + enfants[1] + ")"; break;
            case GenreNoeud::oux: t = "(" + enfants[0] + " XOR " + enfants[1] + ")"; break;
            case GenreNoeud::egale: t = enfants[0] + "=" + enfants[1]; break;
            case GenreNoeud::appel: {
                t = n.signe == 0 ? texte(d, n.debut, n.fin) : texte(d, n.debut, n.signe);
                for (int i = 0; i < n.arite; ++i) t += (i == 0 ? "" : ",") + enfants[i];
                t = n.signe == 0 ? t : "(" + t + "))";   // a call keeps no sum outside: brackets do
                break;
            }
            default: t = n.arite == 2 ? "(" + enfants[0] + texte(d, n.signe, n.signe) + enfants[1] + ")" : texte(d, n.debut, n.fin);
        }
        pile.erase(enfants, pile.end());
        pile.push_back(t);
    }
    return pile.size() == 1 ? pile[0] : std::string();
}

bool memes_bits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (a != a && b != b); }

// The findings of the last line, and the grave ones.
std::vector<Constat> constats_de(int ligne) {
    std::vector<Constat> siens;
    for (const Constat& c : verification.constats)
        if (c.ligne == ligne) siens.push_back(c);
    return siens;
}

bool rate(const Essai& e, const std::string& pourquoi) {
    std::cout << "FAILED: " << pourquoi << "\n" << vers_utf8(e.entete + e.ligne) << "\n---\n";
    return false;
}

// True for what a pass may have written behind the line, whatever values the letters had then.
bool est_resultat(const std::string& coupe) {
    return sans_blancs(coupe) == "=" || (coupe.starts_with(" = ") && est_valeur(coupe.substr(3)));
}

// A silent line: all was read, and the tree is what was computed.
bool essaie_silence(const Essai& e, const Derniere& d) {
    if (d.releve.arret <= static_cast<std::int32_t>(d.lue.size())) return rate(e, "silent, and something was not read");
    for (const Noeud& n : d.releve.noeuds)
        if (n.utile != 0 && n.utile < n.fin) return rate(e, "silent, and a number was read in part");
    if (d.entiere.size() > d.ligne.size() && !est_resultat(d.entiere.substr(d.ligne.size())))
        return rate(e, "silent, and text was cut");
    const std::string forme = entre_parentheses(d);
    if (forme.empty()) return rate(e, "silent, and no tree");
    const double valeur = d.valeur;
    const Derniere& autre = calcule(e.entete + forme);
    if (autre.erreur || !memes_bits(autre.valeur, valeur))
        return rate(e, "silent, and " + vers_utf8(forme) + " gives something else");
    return true;
}

bool est_non_lu(GenreConstat genre) {
    switch (genre) {
        case GenreConstat::virgule_decimale: case GenreConstat::signe_manquant: case GenreConstat::parentheses_vides:
        case GenreConstat::fermante_en_trop: case GenreConstat::pourcentage: case GenreConstat::signe_inconnu:
        case GenreConstat::milliers: case GenreConstat::nombre_partiel: case GenreConstat::texte_non_lu: return true;
        default: return false;
    }
}

// What is called unread can go.
bool essaie_non_lu(const Essai& e, const Derniere& d, const Constat& c) {
    const double valeur = d.valeur;
    const Derniere& autre = calcule(e.entete + c.lu);
    if (autre.erreur || !memes_bits(autre.valeur, valeur)) return rate(e, "without the unread: " + vers_utf8(c.lu) + " gives something else");
    return true;
}

struct Comptes {
    long silences = 0, non_lus = 0, autres = 0;
};

bool essaie_ligne(std::uint64_t graine, Comptes& comptes) {
    const Essai e = tire_essai(graine);
    verifie_feuille(e.entete + e.ligne);
    const std::vector<Constat> constats = constats_de(e.lignes + 1);
    const Derniere d = calcule(e.entete + e.ligne);
    if (d.role != RoleLigne::formule || d.erreur) return ++comptes.autres, true;
    // What is right and surprising says nothing against the reading.
    const bool silence = faux_probables(constats) == 0;
    if (silence) return ++comptes.silences, essaie_silence(e, d);
    if (est_non_lu(constats[0].genre) && !d.releve.a(kTraitRemplace)) return ++comptes.non_lus, essaie_non_lu(e, d, constats[0]);
    return ++comptes.autres, true;
}

// A correct sheet in degrees: whoever works in radians may well mean the sine of 30.
bool essaie_feuille(std::uint64_t graine) {
    const FeuilleTiree feuille = tire_feuille_soignee(graine);
    if (!feuille.saine) return true;
    reinitialise_calcul();
    Reglage reglage = feuille.reglage;
    reglage.unite_angle = 1;   // degrees
    pose_reglage(reglage);
    verifie_feuille(feuille.texte);
    for (const Constat& c : verification.constats)
        // Rates that are products without brackets are drawn too; whoever takes care writes none.
        if (c.genre != GenreConstat::pourcentage_du_terme && gravite(c.genre) == Gravite::faux_probable) {
            std::cout << "FAILED seed " << graine << ": " << vers_utf8(phrase(c)) << "\n" << vers_utf8(feuille.texte) << "\n---\n";
            return false;
        }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    const Tours tours = lis_tours(argc, argv);
    Comptes comptes;
    const int fautes =
        compte_fautes(tours, [&](std::uint64_t graine) { return essaie_ligne(graine, comptes); }, essaie_feuille);
    std::cout << tours.lignes << " lines: " << comptes.silences << " silent, " << comptes.non_lus << " with unread text, "
              << comptes.autres << " others; " << tours.feuilles << " sheets; " << fautes << " faults\n";
    // A run in which nothing was silent or unread would prove nothing.
    return fautes == 0 && (tours.lignes == 0 || (comptes.silences > 0 && comptes.non_lus > 0)) ? 0 : 1;
}
