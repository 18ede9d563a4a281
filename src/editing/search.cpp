// Search and replace. Changes `recherche`, the cursor, the text, and marks the sheet as changed.
#include "editing/search.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/hooks.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"

Recherche recherche;

namespace {

constexpr std::size_t kAbsent = std::string::npos;

constexpr std::size_t kOctetsDits = std::size_t{4} << 20;   // of the lines that one replacement says

// Asks for the text to search and keeps it in capitals. False when there is none to search.
bool demande_recherche() {
    std::string reponse;
    if (!port.boites.saisie("Recherche", recherche.chaine_recherche, reponse) || reponse.empty())
        return false;
    recherche.chaine_recherche = capitales(reponse);
    return true;
}

// Asks for the replacement; an empty one makes the matches go. False when the user cancels: then the text
// searched is `ancienne` again, so that it never meets the replacement of another search.
bool demande_remplacement(const std::string& ancienne) {
    std::string reponse;
    if (!port.boites.saisie("Remplace", recherche.chaine_remplacement, reponse)) {
        recherche.chaine_recherche = ancienne;
        return false;
    }
    recherche.chaine_remplacement = reponse;
    return true;
}

// Puts the cursor at a replacement, where a search would have put it: one character inside. Where nothing
// came and the line ends there, it stays in front of the line's end, not on the line below.
void pose_sur_remplacement(std::size_t octet) {
    const bool finit_ligne = port.texte.texte().compare(octet, 1, "\r") == 0;
    port.texte.pose_selection(finit_ligne ? octet : octet + 1, 0);
}

void dit_ligne_du_curseur() { dit(extraitLigne(port.texte.sel_start())); }

// Position (from 1) of the last match in front of `limite`, or 0. Like a chain of forward searches the walk
// begins a text's length from the start and leaps over each match: a match at the very start that is wider
// than one character is never met. Kept: see the oddities, match-at-the-start.
std::size_t derniere_avant(std::size_t limite) {
    const std::string& chaine = recherche.chaine_recherche;
    if (chaine.empty()) return 0;
    const std::string texte = capitales(port.texte.texte());
    std::size_t meilleure = 0;
    for (std::size_t depart = 0;;) {
        const std::size_t trouve = texte.find(chaine, depart + chaine.size() - 1);
        if (trouve == kAbsent || trouve + 1 >= limite) return meilleure;
        meilleure = depart = trouve + 1;
    }
}

// The replacement of all matches in one walk: the text as it is rebuilt so far, with the rest of
// the old text after it, reads at every moment like the sheet after that many replacements. Bytes
// count from 0.
struct Reconstruction {
    const std::string& ancien;    // the text before the command
    std::size_t reste = 0;        // first byte of `ancien` not yet taken
    std::string nouveau{};        // what stands in front of it
    std::size_t debut_ligne = 0;  // first byte of the last line of `nouveau`
    std::size_t premiere = 0;     // first byte of the first replacement
    std::size_t a_dire = 0;       // a byte of the line of the last replacement, in the new text
    std::size_t dits = 0;         // bytes of the lines that were said
    int compte = 0;               // replacements made
};

// Adds a piece to the rebuilt text. A line feed that opens the whole text starts no line.
void ajoute(Reconstruction& r, std::string_view morceau) {
    const std::size_t saut = morceau.rfind('\n');
    if (saut != kAbsent && r.nouveau.size() + saut > 0) r.debut_ligne = r.nouveau.size() + saut + 1;
    r.nouveau += morceau;
}

// The text from byte `debut` of the current sheet up to the next carriage return.
std::string ligne_a(const Reconstruction& r, std::size_t debut) {
    const std::size_t pris = std::min(debut, r.nouveau.size());
    const std::size_t fin = r.nouveau.find('\r', pris);
    std::string ligne = r.nouveau.substr(pris, fin - pris);
    if (fin != kAbsent) return ligne;
    const std::size_t suite = r.reste + (debut - pris);
    return ligne.append(r.ancien, suite, r.ancien.find('\r', suite) - suite);
}

// Replaces the match at byte `trouve` of the old text and notes the line of its first character. A line
// feed there belongs to the line that it opens.
void remplace_a(Reconstruction& r, std::size_t trouve) {
    const std::string& remplacement = recherche.chaine_remplacement;
    ajoute(r, std::string_view(r.ancien).substr(r.reste, trouve - r.reste));
    const std::size_t place = r.nouveau.size();
    const std::size_t debut = r.debut_ligne;
    if (r.compte++ == 0) r.premiere = place;
    ajoute(r, remplacement);
    r.reste = trouve + recherche.chaine_recherche.size();
    const std::string_view ici = std::string_view(remplacement.empty() ? r.ancien : r.nouveau)
                                     .substr(remplacement.empty() ? r.reste : place, 1);
    r.a_dire = place > 0 && ici == "\n" ? place + 1 : debut;
}

// Says the line of the last replacement, as it reads now.
void dit_remplacement(Reconstruction& r) {
    const std::string ligne = ligne_a(r, r.a_dire);
    r.dits += ligne.size();
    dit(ligne);
}

// Replaces all matches from byte `depart` on and says the line of each. Past what can be heard in a day
// only the last one is said: a long line with a match in every word would have no end.
void remplace_depuis(Reconstruction& r, std::size_t depart) {
    const std::string& chaine = recherche.chaine_recherche;
    const std::string grand = capitales(r.ancien);
    bool dite = true;
    while ((depart = grand.find(chaine, depart)) != kAbsent) {
        remplace_a(r, depart);
        depart = r.reste;
        dite = r.dits < kOctetsDits;
        if (dite) dit_remplacement(r);
    }
    if (!dite) dit_remplacement(r);
}

// Writes the rebuilt text once and puts the cursor at the first replacement.
void ecrit(Reconstruction& r) {
    ajoute(r, std::string_view(r.ancien).substr(r.reste));
    port.texte.pose_texte(std::move(r.nouveau));
    crochets.document_modifie();
    pose_sur_remplacement(r.premiere);
}

}  // namespace

void EntreeRecherche(std::string_view mode) {
    if (!demande_recherche()) return;
    recherche.mode_recherche = vers_16_arrondi(prefixe_numerique(mode));
    switch (recherche.mode_recherche) {
        case 1: rechercher(curseur() + recherche.chaine_recherche.size() + 1); break;
        case 2: rechercher(1); break;
        case 3: AppelRechercheArriere(); break;
        default: break;
    }
}

void rechercher(std::size_t debut) {
    if (find(recherche.chaine_recherche, debut) != -1) return dit_ligne_du_curseur();
    bips(1);
    dit("introuvable"_fr);
}

void AppelRechercheArriere() {
    const std::size_t trouve = derniere_avant(curseur());
    port.texte.pose_selection(trouve > 0 ? trouve : port.texte.sel_start(), 0);
    if (trouve > 0) return dit_ligne_du_curseur();
    bips(2);
    // Another word than that of the forward search. Kept: see the oddities, two-words-of-failure.
    dit("inconnu"_fr);
}

void modifligne(bool avec_dialogue) {
    const std::string ancienne = recherche.chaine_recherche;
    if (avec_dialogue && !demande_recherche()) return;
    std::string texte = port.texte.texte();
    // The character in front of the cursor counts: a search leaves the cursor inside its match.
    const std::size_t debut = std::max<std::size_t>(curseur(), 1) - 1;
    const std::size_t longueur = std::min(texte.find('\r', debut), texte.size()) - debut;
    const std::size_t trouve =
        capitales(std::string_view(texte).substr(debut, longueur)).find(recherche.chaine_recherche);
    if (trouve == kAbsent) return dit("introuvable"_fr);
    if (avec_dialogue && !demande_remplacement(ancienne)) return;
    texte.replace(debut + trouve, recherche.chaine_recherche.size(), recherche.chaine_remplacement);
    port.texte.pose_texte(std::move(texte));
    pose_sur_remplacement(debut + trouve);
    dit_ligne_du_curseur();
    crochets.document_modifie();
}

void modifTexte() {
    const std::string ancienne = recherche.chaine_recherche;
    if (!demande_recherche() || !demande_remplacement(ancienne)) return;
    Remplacer();
}

void Remplacer() {
    const std::string ancien = port.texte.texte();
    Reconstruction r{ancien};
    // An empty text would be found for ever: there is nothing to replace.
    if (!recherche.chaine_recherche.empty())
        remplace_depuis(r, std::max<std::size_t>(curseur(), 1) - 1);
    if (r.compte == 0) return dit("introuvable"_fr);
    ecrit(r);
    dit(forme_blanc(r.compte) + " remplacement");
}

void mnuRechercherCurseurItem() { EntreeRecherche("1"); }
void mnuRechercherDebutItem() { EntreeRecherche("2"); }
void mnuRechercherArriereItem() { EntreeRecherche("3"); }

void mnuRechercherPrecedentItem() { AppelRechercheArriere(); }

void mnuRechercherSuivantItem() {
    // The text's length is leapt over even when the cursor doesn't come from a search. Kept: see the
    // oddities, search-leaps.
    const std::string& chaine = recherche.chaine_recherche;
    if (find(chaine, curseur() + chaine.size()) != -1) return dit_ligne_du_curseur();
    bips(2);
    dit("introuvable"_fr);
}

void mnumodifLigneItem() { modifligne(true); }
void mnumodifLigneSansDialItem() { modifligne(false); }
void mnumodifTexteItem() { modifTexte(); }
