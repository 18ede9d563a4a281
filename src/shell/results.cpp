// The commands on results.
#include "shell/results.hpp"

#include <algorithm>
#include <cstddef>

#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "sheet/spoken_result.hpp"
#include "shell/explained.hpp"
#include "shell/spelling.hpp"
#include "state/modes.hpp"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view kFinDeLigne = "\r\n";
constexpr std::string_view kFinMatrice = "fin résultat matrice"_fr;

// The result of a line without its "=", or the words for why there is none.
struct ResultatNu {
    std::string texte;       // a number, the elements of a matrix
    std::string refus;       // "" when there is a result
};

std::string_view mots_de(std::string_view texte, const Etendue& ligne) {
    return texte.substr(ligne.debut, ligne.fin - ligne.debut);
}

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

// A count with its words in the singular and the plural.
std::string compte(std::size_t nombre, std::string_view un, std::string_view plusieurs) {
    return chiffres(static_cast<long long>(nombre)).append(nombre == 1 ? un : plusieurs);
}

// The numbers of the selected lines, one a line; a line at whose start the selection ends isn't selected.
void copie_les_lignes(std::size_t debut, std::size_t fin) {
    const std::string& texte = port.texte.texte();
    std::string sortie;
    std::size_t copies = 0, sans = 0;
    pour_chaque_resultat(texte, etendue_autour(texte, debut).debut, fin - 1, [&](const Etendue& l, std::string_view r) {
        const ResultatNu nu = resultat_nu(texte, l, r);
        if (!nu.refus.empty()) {
            if (!sans_blancs(mots_de(texte, l)).empty()) ++sans;
            return;
        }
        if (copies++ > 0) sortie += kFinDeLigne;
        sortie += nu.texte;
    });
    if (copies == 0) return dit(kPasDeResultat);
    std::string mots = compte(copies, " résultat copié"_fr, " résultats copiés"_fr);
    if (sans > 0) mots.append(", ").append(compte(sans, " ligne sans résultat"_fr, " lignes sans résultat"_fr));
    copie(sortie, mots);
}

}  // namespace

void mnuCopierResultatItem() {
    const std::string& texte = port.texte.texte();
    const std::size_t debut = curseur(), fin = fin_selection();
    if (fin > etendue_autour(texte, debut).fin) return copie_les_lignes(debut, fin);
    const ResultatNu nu = resultat_du_curseur();
    if (!nu.refus.empty()) return dit(nu.refus);
    std::string mots(nu.texte);
    for (std::size_t i = mots.find(kFinDeLigne); i != npos; i = mots.find(kFinDeLigne, i)) mots.replace(i, 2, " ; ");
    copie(nu.texte, std::string("copié : "_fr).append(mots));
}

void mnuEpelerItem() {
    const ResultatNu nu = resultat_du_curseur();
    if (!nu.refus.empty()) return dit(nu.refus);
    std::string texte(nu.texte);
    for (std::size_t i = texte.find(kFinDeLigne); i != npos; i = texte.find(kFinDeLigne, i)) texte.replace(i, 2, ";");
    dit(epele(texte, modes.mode_nombre == 2));
}
