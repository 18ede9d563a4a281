// The patterns of the messages, and the search for their entries.
#include "shell/explained.hpp"

#include <algorithm>
#include <array>

#include "base/codepage.hpp"
#include "sheet/old_result.hpp"

namespace {

constexpr auto npos = std::string_view::npos;

// "*" stands for any text, an empty one too.
struct Motif {
    std::string_view mots;
    bool derriere_ligne;   // a calculation writes it after a line
};

// What a calculation writes after a line, and the other messages with parts that change.
constexpr auto kMotifs = std::to_array<Motif>({
    {"attend fact: k, var, (: '*"_fr, true},
    {"manque )"_fr, true},
    {"division par 0"_fr, true},
    {"variable * non définie"_fr, true},
    {"variable non reconnue"_fr, true},
    {"constante erronee"_fr, true},
    {"Chaine ambigue"_fr, true},
    {"Manque une ("_fr, true},
    {"Manque une ,"_fr, true},
    {"Argument incorrect"_fr, true},
    {"argument negatif ou nul"_fr, true},
    {"argument négatif"_fr, true},
    {"Erreur de puissance : a^b avec a négatif et b non entier"_fr, true},
    {"Pourcentage que sur + et -"_fr, true},
    {"Fonction inconnue"_fr, true},
    {"manque le ="_fr, true},
    {"variable inconnue"_fr, true},
    {"2 variables *,*"_fr, true},
    {"matrice M* non définie"_fr, true},
    {"matrice de travail vide"_fr, true},
    {"matrice M* non rangée"_fr, true},
    {"addition uniquement entre matrice"_fr, true},
    {"Soustraction uniquement entre matrice"_fr, true},
    {"Matrice incompatible pour l'addition*"_fr, true},
    {"Matrice incompatible pour l'soustraction*"_fr, true},
    {"Matrice incompatible pour la multiplication*"_fr, true},
    {"Matrice incompatible pour la puissance"_fr, true},
    {"exposant de la matrice non entier"_fr, true},
    {"exposant de la matrice < 2"_fr, true},
    {"une seule matrice en puissance"_fr, true},
    {"matrice non carée *"_fr, true},
    {"matrice à inverser non carée *"_fr, true},
    {"déterminant nul"_fr, true},
    {"Nombre de colonnes différents *"_fr, true},
    {"matrice précédente non terminée"_fr, true},
    {"StatX précédente non terminée"_fr, true},
    {"matrice * interdite"_fr, true},
    {"erreur élément *"_fr, true},
    {"effectif négatif"_fr, true},
    {"statx non présent"_fr, true},
    {"statxy non présent"_fr, true},
    {"Nombre des x=* différent des y=*"_fr, false},
    {"code < 32 en colonne *"_fr, false},
    {"fonction de * est inconnue sur la ligne suivante"_fr, false},
    {"manque ) sur *"_fr, false},
    {"et * autres échecs"_fr, false},
    {"caractères *, arrière plan *"_fr, false},
    {"* ne se calcule pas*"_fr, false},
    {"espace dans un nombre*"_fr, false},
    {"caractère refusé *"_fr, false},
    {"* résultats copiés*"_fr, false},
    {"* résultat copié*"_fr, false},
    {"* constat*"_fr, false},
    {"parenthèse fermante colonne * autour de *"_fr, false},
    {"parenthèse ouvrante colonne * autour de *"_fr, false},
    {"rien n'est importé : ligne * : * colonne*"_fr, false},
    {"commentaire *"_fr, false},
    {"ligne de matrice *"_fr, false},
    {"ligne de résultat *"_fr, false},
    {"ligne refusée faute *"_fr, false},
    {"fonction de * égale *"_fr, false},
    {"police * Taille *"_fr, false},
    {"*, puis *"_fr, false},
    {"* du dossier secours n'est pas *"_fr, false},
    {"* du dossier secours ne sont pas *"_fr, false},
    {"* est plus ancienne que sa feuille *"_fr, false},
    {"* sont plus anciennes que leur feuille *"_fr, false},
});

// True when the words are the pattern with some text for each "*": each fixed part at its first place, the last one
// at the end.
bool convient(std::string_view motif, std::string_view mots) {
    std::size_t etoile = motif.find('*');
    if (etoile == npos) return motif == mots;
    if (!mots.starts_with(motif.substr(0, etoile))) return false;
    mots.remove_prefix(etoile);
    for (;;) {
        motif.remove_prefix(etoile + 1);
        etoile = motif.find('*');
        if (etoile == npos) return mots.ends_with(motif);
        const std::size_t place = mots.find(motif.substr(0, etoile));
        if (place == npos) return false;
        mots.remove_prefix(place + etoile);
    }
}

// The pattern of a message, or nullptr.
const Motif* motif_de(std::string_view mots) {
    const auto motif = std::ranges::find_if(kMotifs, [&](const Motif& m) { return convient(m.mots, mots); });
    return motif == kMotifs.end() ? nullptr : &*motif;
}

// The number that a failure's box begins with ("6 6 sur ..."), or that stands alone; nothing for other words.
std::string_view numero_de_panne(std::string_view mots) {
    const std::size_t chiffres = std::min(mots.find_first_not_of("0123456789"), mots.size());
    const std::string_view numero = mots.substr(0, chiffres);
    if (numero.empty() || chiffres == mots.size()) return numero;
    const std::string_view reste = mots.substr(chiffres);
    const bool deux_fois = reste.starts_with(' ') && reste.substr(1).starts_with(numero);
    return deux_fois || reste.starts_with(" sur ") ? numero : std::string_view();
}

constexpr std::string_view kBoite = "Boîte : "_fr;

// The words of an entry's first line, behind "Message : " and the like; nothing for any other line.
std::string_view mots_d_entree(std::string_view ligne) {
    for (const std::string_view genre : {"Message : "_fr, kBoite, "Question : "_fr, "Saisie : "_fr})
        if (ligne.starts_with(genre)) return ligne.substr(genre.size());
    return {};
}

// Where the first line begins that answers; npos when there is none.
template <class Condition>
std::size_t cherche_ligne(std::string_view texte, Condition condition) {
    for (std::size_t debut = 0; debut <= texte.size();) {
        const std::size_t fin = std::min(texte.find("\r\n", debut), texte.size());
        if (condition(texte.substr(debut, fin - debut))) return debut;
        debut = fin + 2;
    }
    return npos;
}

// True for a word of an entry in whose place another may be heard: one with a figure, a quotation, a path, the name
// of a file, a letter alone.
bool mot_variable(std::string_view mot) {
    if (mot.size() == 1) return est_chiffre(mot[0]) || est_lettre(mot[0]);
    const std::size_t point = mot.find('.');
    return mot.find_first_of("0123456789\"\\") != npos || (point != npos && point + 1 < mot.size());
}

// The pattern that the words of an entry make: "*" for what changes, with the mark behind it. "" for an entry
// without such a word, and for one that has little else.
std::string motif_d_entree(std::string_view mots) {
    std::string motif;
    std::ptrdiff_t fixes = 0;
    for (std::size_t debut = 0, fin; debut < mots.size(); debut = fin + 1) {
        fin = std::min(mots.find(' ', debut), mots.size());
        const std::string_view mot = mots.substr(debut, fin - debut);
        const std::size_t coeur = mot.find_last_not_of(",;:.") + 1;
        const bool variable = mot_variable(mot.substr(0, coeur));
        if (!variable) fixes += std::ranges::count_if(mot, est_lettre_de_mot);
        if (variable && motif.ends_with('*')) continue;   // a piece of several words
        if (!motif.empty()) motif += ' ';
        motif.append(variable ? "*" : mot.substr(0, coeur)).append(mot.substr(coeur));
    }
    return fixes < 5 || motif.find('*') == npos ? std::string() : motif;
}

// What a finding of the check is called: "virgule" of "ligne 3, virgule : 1,5 ..."; "" for other words.
std::string_view nom_de_constat(std::string_view mots) {
    constexpr std::string_view kLigne = "ligne ";
    if (!mots.starts_with(kLigne)) return {};
    const std::size_t chiffres = std::min(mots.find_first_not_of("0123456789", kLigne.size()), mots.size());
    const std::size_t fin = mots.find(" : ");
    if (chiffres == kLigne.size() || !mots.substr(chiffres).starts_with(", ") || fin == npos) return {};
    const std::string_view nom = mots.substr(chiffres + 2, fin - chiffres - 2);
    return std::ranges::any_of(nom, est_chiffre) ? std::string_view() : nom;   // "colonne 7" is a place
}

// How many words of the first text stand in the second one, too.
std::ptrdiff_t mots_communs(std::string_view a, std::string_view b) {
    const std::string autre = std::string(" ").append(b) += ' ';
    std::ptrdiff_t communs = 0;
    for (std::size_t debut = 0, fin; debut < a.size(); debut = fin + 1) {
        fin = std::min(a.find(' ', debut), a.size());
        if (autre.find(std::string(" ").append(a.substr(debut, fin - debut)) += ' ') != npos) ++communs;
    }
    return communs;
}

// How well an entry fits a message with parts that change; 0 when it doesn't. Findings of one name differ by their
// other words.
std::ptrdiff_t convenance(std::string_view entree, std::string_view mots, std::string_view constat) {
    if (!constat.empty()) return nom_de_constat(entree) == constat ? mots_communs(entree, mots) : 0;
    const std::string motif = motif_d_entree(entree);
    return !motif.empty() && convient(motif, mots) ? static_cast<std::ptrdiff_t>(motif.size()) : 0;
}

// Where the entry begins that fits best; npos when none does.
std::size_t entree_la_plus_proche(std::string_view guide, std::string_view mots) {
    const std::string_view constat = nom_de_constat(mots);
    std::size_t place = npos;
    std::ptrdiff_t meilleure = 0;
    for (std::size_t debut = 0; debut <= guide.size();) {
        const std::size_t fin = std::min(guide.find("\r\n", debut), guide.size());
        const std::ptrdiff_t c = convenance(mots_d_entree(guide.substr(debut, fin - debut)), mots, constat);
        if (c > meilleure) {
            meilleure = c;
            place = debut;
        }
        debut = fin + 2;
    }
    return place;
}

// True for the words of an error that a calculation writes after a line.
bool est_texte_d_erreur(std::string_view mots) {
    const Motif* const motif = motif_de(mots);
    return motif != nullptr && motif->derriere_ligne;
}

}  // namespace

std::string_view erreur_de_la_ligne(std::string_view ligne) {
    const std::string texte(sans_blancs(ligne));
    const std::size_t coupe = fin_gardee(texte);
    if (coupe == npos || texte.starts_with('!')) return {};
    const std::string_view resultat = sans_blancs(ligne).substr(coupe);
    const std::size_t egal = resultat.find('=');
    if (egal == npos) return {};
    const std::string_view mots = sans_blancs(resultat.substr(egal + 1));
    if (mots.empty()) return ligne.ends_with(" = ") ? resultat.substr(egal) : std::string_view();
    return est_texte_d_erreur(mots) ? mots : std::string_view();
}

std::size_t entree_du_guide(std::string_view guide, std::string_view mots, bool boite) {
    if (mots.empty()) return npos;
    if (const std::string_view numero = numero_de_panne(mots); !numero.empty())
        return cherche_ligne(guide, [tete = std::string("Panne ").append(numero) += " :"](std::string_view ligne) {
            return ligne.starts_with(tete);
        });
    if (boite) {
        const std::string entiere = std::string(kBoite).append(mots);
        if (const std::size_t place = cherche_ligne(guide, [&](std::string_view l) { return l == entiere; });
            place != npos)
            return place;
    }
    const std::size_t meme = cherche_ligne(guide, [&](std::string_view l) { return mots_d_entree(l) == mots; });
    if (meme != npos) return meme;
    if (const std::size_t proche = entree_la_plus_proche(guide, mots); proche != npos) return proche;
    const Motif* const motif = motif_de(mots);
    if (motif == nullptr) return npos;
    return cherche_ligne(guide, [&](std::string_view l) { return convient(motif->mots, mots_d_entree(l)); });
}
