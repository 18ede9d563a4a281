// Commands of words, tabulations, lines and the selection. Change the cursor and the text; columns
// count from 1.
#include "editing/words.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/hooks.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"

Caracteres caracteres;

namespace {

constexpr std::size_t kPasTabulation = 10;

// True when a character of the set stands in that column of the line.
bool dans(std::string_view jeu, std::string_view ligne, std::size_t x) {
    return x >= 1 && x <= ligne.size() && jeu.find(ligne[x - 1]) != std::string_view::npos;
}

bool sur_mot(std::string_view ligne, std::size_t x) {
    return dans(caracteres.caracteres_identificateur, ligne, x);
}

// To the left until column 1 or a character that is in no word.
void surblancGauche(std::size_t& x, std::string_view ligne) {
    while (x > 1 && sur_mot(ligne, --x)) {
    }
}

// To the right until the line's last column or a character that is in no word.
void surBlancDroite(std::size_t& x, std::string_view ligne) {
    while (x < ligne.size() && sur_mot(ligne, ++x)) {
    }
}

// Moves the cursor from one column of its line to another.
void va_a_colonne(std::size_t de, std::size_t vers) {
    port.texte.pose_selection(curseur() + vers - de, 0);
}

void dit_nombre(std::size_t n) { dit(forme_blanc(static_cast<double>(n))); }

// Column of the last character of the word on the left of column x, or 0.
std::size_t fin_mot_gauche(std::size_t x, std::string_view ligne) {
    if (sur_mot(ligne, x)) surblancGauche(x, ligne);
    if (x < 2) return 0;
    while (x > 1 && !sur_mot(ligne, x)) --x;
    return sur_mot(ligne, x) ? x : 0;
}

// Column of the first character of the word on the right of column x, or 0.
std::size_t debut_mot_droite(std::size_t x, std::string_view ligne) {
    if (sur_mot(ligne, x)) surBlancDroite(x, ligne);
    if (x >= ligne.size()) return 0;
    do ++x;
    while (x < ligne.size() && !sur_mot(ligne, x));
    return sur_mot(ligne, x) ? x : 0;
}

// Column after the run of characters of the set that begins in column x.
std::size_t fin_serie(std::string_view jeu, std::string_view ligne, std::size_t x) {
    while (dans(jeu, ligne, x)) ++x;
    return x;
}

// The line of a sheet of `compte` lines that `numero` asks for, at most the last. A number of more than 16 bits ends
// the command with its failure, but for a sheet that has such lines.
std::int32_t ligne_demandee(double numero, std::int32_t compte) {
    if (compte <= std::numeric_limits<std::int16_t>::max())
        return std::min<std::int32_t>(vers_16_arrondi(numero), compte);
    return static_cast<std::int32_t>(std::clamp<double>(std::nearbyint(numero), 0, compte));
}

// Takes the columns `de` to `vers` - 1 out of the line at the cursor. The cursor and the sheet's
// mark follow even when nothing goes.
void enleve(std::size_t longueur_ligne, std::size_t de, std::size_t vers) {
    const std::size_t sel = port.texte.sel_start();
    const std::size_t borne = Debutligne();
    // After the line feed that ends the line above; on the first line there is none.
    const std::size_t debut = borne > 1 ? borne : 0;
    std::string texte = port.texte.texte();
    if (de <= longueur_ligne) texte.erase(debut + de - 1, vers - de);
    port.texte.pose_texte(std::move(texte));
    port.texte.pose_selection(sel, 0);
    crochets.document_modifie();
}

}  // namespace

void dit_ligne_sous_curseur() { dit(extraitLigne(port.texte.sel_start() + 1)); }

void batit_caracteres() {
    caracteres = Caracteres{};
    for (int code = 33; code <= 255; ++code) {
        const char c = static_cast<char>(code);
        caracteres.caracteres_visibles += c;
        if (est_chiffre(c) || est_lettre(capitale(c)) || c == '_' || code >= 128)
            caracteres.caracteres_identificateur += c;
        if (est_lettre(c)) caracteres.lettres_majuscules += c;
    }
}

void chaineGAUCHE() {
    const std::size_t x = WhereX();
    std::string ligne = extraitLigne(curseur());
    if (x == 1) {
        bips(2);
        if (!ligne.empty()) dit(std::string_view(ligne).substr(0, 1));
        return;
    }
    // A cursor past the end stands on a blank.
    if (ligne.size() < x) ligne.resize(x, ' ');
    const std::size_t fin = fin_mot_gauche(x, ligne);
    if (fin == 0) return bips(2);
    std::size_t debut = fin;
    surblancGauche(debut, ligne);
    if (!sur_mot(ligne, debut)) ++debut;
    va_a_colonne(x, debut);
    dit(std::string_view(ligne).substr(debut - 1, fin - debut + 1));
}

void chainedroite() {
    const std::size_t x0 = WhereX();
    const std::string ligne = extraitLigne(curseur());
    const std::size_t debut = debut_mot_droite(x0, ligne);
    if (debut == 0) return bips(2);
    std::size_t fin = debut;
    surBlancDroite(fin, ligne);
    // The line's last character is said with the word, even when it belongs to none. Kept: see the
    // oddities, last-character-of-the-line.
    if (fin == ligne.size()) ++fin;
    va_a_colonne(x0, debut);
    dit(std::string_view(ligne).substr(debut - 1, fin - debut));
}

void mnuEffaceMotItem() {
    const std::size_t x = WhereX();
    const std::string ligne = extraitLigne(curseur());
    const bool mot = !dans(" ", ligne, x);
    const std::size_t fin =
        fin_serie(mot ? std::string_view(caracteres.caracteres_identificateur) : " ", ligne, x);
    // A character that is in no word stays, and the blanks after it go.
    const std::size_t debut = mot && fin == x ? x + 1 : x;
    // A word takes the blanks after it along; they aren't said.
    const std::size_t apres = mot ? fin_serie(" ", ligne, std::max(debut, fin)) : fin;
    enleve(ligne.size(), debut, apres);
    const std::string enleves = fin > x ? ligne.substr(x - 1, fin - x) : std::string();
    dit(enleves + std::string(" enlevé"_fr));
}

void mnuChaineGaucheItem() { chaineGAUCHE(); }
void mnuChaineDroiteItem() { chainedroite(); }

void mnuTabulationAvantItem() {
    const std::size_t fin = FinLigne() - 1;
    const std::size_t x = WhereX();
    const std::size_t arret = (x / kPasTabulation + 1) * kPasTabulation;
    if (arret > port.texte.texte().size()) return;
    // The stop is added, not the distance to it: near the end of the line the cursor goes to the end early.
    // Kept: see the oddities, tab-stop-early.
    if (curseur() + arret <= fin) {
        va_a_colonne(x, arret);
        return dit_nombre(arret);
    }
    port.texte.pose_selection(fin, 0);
    dit_nombre(WhereX());
}

void mnuTabulationArriereItem() {
    const std::size_t x = WhereX();
    std::size_t arret = x / kPasTabulation * kPasTabulation;
    if (arret == x) arret -= kPasTabulation;
    // Backwards the first stop is column 1, where forwards it is column 10.
    arret = std::max<std::size_t>(arret, 1);
    va_a_colonne(x, arret);
    dit_nombre(arret);
}

void mnuXYItem() {
    const std::int32_t ligne = numero_de_ligne(port.texte.texte(), curseur());
    dit("colonne" + forme_blanc(static_cast<double>(WhereX())) + " ligne" + forme_blanc(ligne));
}

void mnuNumeroLigneItem() {
    const std::string& texte = port.texte.texte();
    const std::int32_t compte = numero_de_ligne(texte, texte.size());
    std::string reponse;
    if (!port.boites.saisie("Numéro de ligne"_fr, forme_blanc(compte), reponse) || reponse.empty())
        return;
    SurNumero(ligne_demandee(prefixe_numerique(reponse), compte));
    dit_ligne_sous_curseur();
}

void mnuSelectionToutItem() {
    port.texte.pose_selection(0, port.texte.texte().size());
}
