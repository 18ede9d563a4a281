// Undo and redo. Changes `historique`, the text and the cursor, and marks the sheet as changed.
#include "documents/undo.hpp"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "documents/documents.hpp"
#include "documents/working_copies.hpp"
#include "editing/words.hpp"
#include "platform/platform.hpp"

Historique historique;

namespace {

std::size_t empreinte(std::string_view texte) { return std::hash<std::string_view>{}(texte); }

std::size_t poids(const Changement& c) {
    return sizeof(Changement) + c.enleve.size() + c.mis.size();
}

void vide(HistoireFeuille& h) noexcept {
    h.faits.clear();
    h.defaits.clear();
    h.octets = h.empreinte = 0;
}

std::uint64_t identite_courante() { return documents.identite(documents.document_courant); }

HistoireFeuille& courante() { return historique.feuilles[identite_courante()]; }

Selection selection_actuelle() { return {port.texte.sel_start(), port.texte.sel_length()}; }

// What makes the new text of the old one, without what they have in common at both ends.
Changement difference(std::string_view ancien, std::string_view nouveau) {
    const std::size_t court = std::min(ancien.size(), nouveau.size());
    std::size_t tete = 0;
    while (tete < court && ancien[tete] == nouveau[tete]) ++tete;
    std::size_t queue = 0;
    while (queue < court - tete &&
           ancien[ancien.size() - 1 - queue] == nouveau[nouveau.size() - 1 - queue])
        ++queue;
    Changement c;
    c.place = tete;
    c.enleve = ancien.substr(tete, ancien.size() - tete - queue);
    c.mis = nouveau.substr(tete, nouveau.size() - tete - queue);
    return c;
}

bool blanc(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// A word takes the blanks after it along; the character after these begins another one.
bool meme_mot(char gauche, char droite) { return !blanc(gauche) || blanc(droite); }

// A key typed or deleted one character, and no line end.
bool une_touche(const Changement& c) {
    const std::string& seul = c.mis.empty() ? c.enleve : c.mis;
    return seul.size() == 1 && seul != "\r" && seul != "\n";
}

// Joins the work of one key to the change before it, when both are of one word. True when it did.
bool joint(Changement& dernier, const Changement& neuf) {
    if (!dernier.ouvert || !neuf.ouvert) return false;
    if (neuf.enleve.empty() && !dernier.mis.empty()) {
        if (neuf.place != dernier.place + dernier.mis.size() ||
            !meme_mot(dernier.mis.back(), neuf.mis.front()))
            return false;
        dernier.mis += neuf.mis;
    } else if (neuf.mis.empty() && dernier.mis.empty() && neuf.place + 1 == dernier.place) {
        if (!meme_mot(neuf.enleve.front(), dernier.enleve.front())) return false;
        dernier.enleve.insert(0, neuf.enleve);
        dernier.place = neuf.place;
    } else if (neuf.mis.empty() && dernier.mis.empty() && neuf.place == dernier.place) {
        if (!meme_mot(dernier.enleve.back(), neuf.enleve.front())) return false;
        dernier.enleve += neuf.enleve;
    } else {
        return false;
    }
    dernier.apres = neuf.apres;
    return true;
}

// The oldest changes go when the list holds too much.
void allege(HistoireFeuille& h) {
    while (h.octets > kOctetsHistorique && h.faits.size() > 1) {
        h.octets -= poids(h.faits.front());
        h.faits.pop_front();
    }
}

// A new change: what was taken back before it can't be made again.
void range(HistoireFeuille& h, Changement&& neuf) {
    for (const Changement& c : h.defaits) h.octets -= poids(c);
    h.defaits.clear();
    const std::size_t ajout = neuf.enleve.size() + neuf.mis.size();
    if (!h.faits.empty() && joint(h.faits.back(), neuf)) {
        h.octets += ajout;
    } else {
        h.faits.push_back(std::move(neuf));
        h.octets += ajout + sizeof(Changement);
    }
    allege(h);
}

// Another document is shown. Its list is only good for the text that it was made on.
void prend_document(const std::string& texte) {
    if (historique.document)
        historique.feuilles[*historique.document].empreinte = empreinte(historique.texte);
    historique.document.reset();
    HistoireFeuille& h = courante();
    if (h.empreinte != empreinte(texte)) vide(h);
    historique.texte = texte;
    historique.document = identite_courante();
}

void note(bool frappe) {
    const std::string& texte = port.texte.texte();
    const Selection selection = selection_actuelle();
    if (historique.document != identite_courante()) {
        prend_document(texte);
    } else if (texte != historique.texte) {
        Changement neuf = difference(historique.texte, texte);
        neuf.avant = historique.selection;
        neuf.apres = selection;
        neuf.ouvert = frappe && une_touche(neuf);
        range(courante(), std::move(neuf));
        historique.texte = texte;
    }
    historique.selection = selection;
}

// Without the memory to note a change nothing before it can be taken back; the sheet is untouched.
void note_ou_oublie(bool frappe) noexcept {
    if (!feuille_montree()) return;
    try {
        note(frappe);
    } catch (...) {
        historique.feuilles.clear();
        historique.document.reset();
    }
}

// Takes the last change of one list to the other and shows the text without it, or with it again,
// and the cursor as it was; says the line. What can fail comes before anything is changed. The
// sheet counts as changed whichever text it comes back to: it must never pass for its file while it
// differs.
template <class Depart, class Arrivee>
void deplace(Depart& depart, Arrivee& arrivee, bool avance) {
    Changement& c = depart.back();
    std::string texte = historique.texte;
    texte.replace(c.place, (avance ? c.enleve : c.mis).size(), avance ? c.mis : c.enleve);
    std::string vu = texte;
    arrivee.push_back(std::move(c));
    depart.pop_back();
    const Selection selection = avance ? arrivee.back().apres : arrivee.back().avant;
    historique.texte = std::move(vu);
    historique.selection = selection;
    port.texte.pose_texte(std::move(texte));
    port.texte.pose_selection(selection.debut, selection.longueur);
    marque_modifie();
    dit_ligne_sous_curseur();
}

// True when the sheet is shown and a change of that list is there for it.
template <class Liste>
bool possible(const Liste& liste) {
    return feuille_montree() && historique.document == identite_courante() && !liste.empty();
}

}  // namespace

void note_frappe() noexcept { note_ou_oublie(true); }
void note_commande() noexcept { note_ou_oublie(false); }

void oublie_changements() noexcept {
    ferme_changements(documents.document_courant);
}

void ferme_changements(int rang) noexcept {
    if (rang < 1 || rang > kDocumentsMaxi) return;
    const std::uint64_t identite = documents.identite(rang);
    historique.feuilles.erase(identite);
    if (historique.document == identite) historique.document.reset();
}

bool defait_changement() {
    note_frappe();
    HistoireFeuille& h = courante();
    if (!possible(h.faits)) return false;
    deplace(h.faits, h.defaits, false);
    // What is typed from here on is a change of its own.
    if (!h.faits.empty()) h.faits.back().ouvert = false;
    return true;
}

bool refait_changement() {
    note_frappe();
    HistoireFeuille& h = courante();
    if (!possible(h.defaits)) return false;
    deplace(h.defaits, h.faits, true);
    h.faits.back().ouvert = false;
    return true;
}
