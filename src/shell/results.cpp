// The commands on results.
#include "shell/results.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "sheet/matrix_text.hpp"
#include "sheet/spoken_result.hpp"
#include "shell/explained.hpp"
#include "shell/spelling.hpp"
#include "state/modes.hpp"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t kEpeles = 500;   // characters said of several lines before the rest is only counted

// The result of a line without its "=", or the words for why there is none.
struct ResultatNu {
    std::string texte;       // a number, the elements of a matrix
    std::string refus;       // "" when there is a result
};

bool est_minuscule(char c) { return (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0xE0; }

// "N=Effectif total= 3": a letter, words, and the number behind a second "=".
bool est_ligne_de_statistiques(std::string_view ligne) {
    if (ligne.size() < 4 || ligne[1] != '=') return false;
    const std::size_t dernier = ligne.rfind('=');
    return dernier > 2 && (est_minuscule(ligne[2]) || est_minuscule(ligne[3]));
}

// The number that a text begins with, Pi and INF too: what was typed behind it is none of it. "" when there is none.
std::string_view valeur_en_tete(std::string_view texte) {
    texte = sans_blancs(texte);
    const std::string_view mot = texte.substr(0, texte.find_first_of(" !"));
    const bool signes = mot.find_first_not_of("0123456789ABCDEFINPi.+-/") == npos;
    return signes && mot.find_first_of("0123456789ABCDEFNP") != npos ? mot : std::string_view();
}

ResultatNu nombre_ou_refus(std::string_view texte) {
    const std::string_view valeur = valeur_en_tete(texte);
    return {std::string(valeur), valeur.empty() ? std::string(kPasDeResultat) : ""};
}

// A line of a block of results: "X=moyenne des X= 12" and "f(2) = 5" have one number, behind their last "=".
ResultatNu resultat_de_bloc(std::string_view ligne) {
    if (ligne.starts_with("N= ") && ligne.find(", X=") != npos) return {"", std::string(kPlusieursResultats)};
    if (!est_ligne_de_statistiques(ligne) && !ligne.starts_with("f(")) return {"", std::string(kPasDeResultat)};
    return nombre_ou_refus(ligne.substr(ligne.rfind('=') + 1));
}

// The rows of the matrix below its line, when they stand there whole.
ResultatNu matrice_dessous(std::string_view texte, const Etendue& ligne) {
    const std::size_t debut = std::min(ligne.fin + kFinDeLigne.size(), texte.size());
    const std::size_t fin = texte.find(std::string(kFinDeLigne).append(kFinMatrice), debut);
    if (fin == npos || texte.substr(debut, fin - debut).find('=') != npos) return {"", std::string(kPasDeResultat)};
    return {std::string(texte.substr(debut, fin - debut)), ""};
}

// " = 5" is 5; of " =1,2;3,4 =2,2" the last part is the dimensions; " =2,2" alone is those of a definition.
ResultatNu resultat_nu(std::string_view texte, const Etendue& ligne, std::string_view resultat) {
    const std::string_view mots = mots_de(texte, ligne);
    if (const std::string_view erreur = erreur_de_la_ligne(mots); !erreur.empty())
        return {"", std::string(kPasDeResultat).append(erreur == "=" ? "" : " : ").append(erreur == "=" ? "" : erreur)};
    if (resultat.empty()) return resultat_de_bloc(mots);
    if (resultat.starts_with("==")) return matrice_dessous(texte, ligne);
    const std::string_view sans = resultat.substr(std::min(resultat.find('=') + 1, resultat.size()));
    if (sans.starts_with(' ')) return nombre_ou_refus(sans);
    const std::size_t bornes = sans.rfind(" =");
    if (bornes == npos) return {"", std::string(sans.find(',') != npos ? kDefinition : kPasDeResultat)};
    return {std::string(sans.substr(0, bornes)), ""};
}

// The line of the cursor.
ResultatNu resultat_du_curseur() {
    const std::string& texte = port.texte.texte();
    const Etendue ligne = etendue_autour(texte, curseur());
    return resultat_nu(texte, ligne, resultat_sous_curseur(texte, ligne.debut));
}

void copie(const std::string& texte, std::string_view mots) {
    dit(port.presse_papiers.pose(vers_utf8(texte)) ? mots : kPressePapiersRefuse);
}

// The selection, when it is of more than one line.
struct Selection {
    std::size_t debut = curseur(), fin = fin_selection();
    bool de_lignes() const { return fin > etendue_autour(port.texte.texte(), debut).fin; }
};

// Calls `action` with each result of the selected lines and the number of its line; a line at whose start the
// selection ends isn't selected. Returns how many lines have words and no result.
template <class Action>
std::size_t chaque_resultat(const Selection& selection, Action action) {
    const std::string& texte = port.texte.texte();
    std::size_t sans = 0, debut = etendue_autour(texte, selection.debut).debut;
    std::int32_t ligne = numero_de_ligne(texte, debut);
    pour_chaque_resultat(texte, debut, selection.fin - 1, [&](const Etendue& l, std::string_view r) {
        const ResultatNu nu = resultat_nu(texte, l, r);
        if (nu.refus.empty())
            action(ligne, nu.texte);
        else if (!sans_blancs(mots_de(texte, l)).empty())
            ++sans;
        ++ligne;
    });
    return sans;
}

void ajoute_sans(std::string& mots, std::size_t sans) {
    if (sans > 0) mots.append(", ").append(combien(sans, "ligne sans résultat"_fr, "lignes sans résultat"_fr));
}

// The numbers of the selected lines, one a line.
void copie_les_lignes(const Selection& selection) {
    std::string sortie;
    std::size_t copies = 0;
    const std::size_t sans = chaque_resultat(selection, [&](std::int32_t, const std::string& resultat) {
        if (copies++ > 0) sortie += kFinDeLigne;
        sortie += resultat;
    });
    if (copies == 0) return dit(kPasDeResultat);
    std::string mots = combien(copies, "résultat copié"_fr, "résultats copiés"_fr);
    ajoute_sans(mots, sans);
    copie(sortie, mots);
}

// A result character by character, the rows of a matrix one behind the other.
std::string epele_resultat(std::string texte) {
    for (std::size_t i = texte.find(kFinDeLigne); i != npos; i = texte.find(kFinDeLigne, i)) texte.replace(i, 2, ";");
    return epele(texte, modes.mode_nombre == 2);
}

// The numbers of the selected lines, each with its line, as long as that can be listened to; then how many are left.
void epelle_les_lignes(const Selection& selection) {
    std::string mots;
    std::size_t restent = 0;
    const std::size_t sans = chaque_resultat(selection, [&](std::int32_t ligne, const std::string& resultat) {
        if (mots.size() > kEpeles) {
            ++restent;
            return;
        }
        if (!mots.empty()) mots += " ; ";
        ((mots += "ligne ") += chiffres(ligne)).append(" : ").append(epele_resultat(resultat));
    });
    if (mots.empty()) return dit(kPasDeResultat);
    if (restent > 0) mots.append(", et ").append(combien(restent, "autre résultat"_fr, "autres résultats"_fr));
    ajoute_sans(mots, sans);
    dit(mots);
}

}  // namespace

void mnuCopierResultatItem() {
    if (const Selection selection; selection.de_lignes()) return copie_les_lignes(selection);
    const ResultatNu nu = resultat_du_curseur();
    if (!nu.refus.empty()) return dit(nu.refus);
    std::string mots(nu.texte);
    for (std::size_t i = mots.find(kFinDeLigne); i != npos; i = mots.find(kFinDeLigne, i)) mots.replace(i, 2, " ; ");
    copie(nu.texte, std::string("copié : "_fr).append(mots));
}

void mnuEpelerItem() {
    if (const Selection selection; selection.de_lignes()) return epelle_les_lignes(selection);
    const ResultatNu nu = resultat_du_curseur();
    dit(nu.refus.empty() ? epele_resultat(nu.texte) : nu.refus);
}
