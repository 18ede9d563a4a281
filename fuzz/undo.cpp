// A user who types, deletes, pastes, calculates, takes back and makes again: undone to the end the sheet
// is what it was at first, made again to the end it is what it was at last, step by step the same.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "bytes.hpp"
#include "documents/open_documents.hpp"
#include "documents/undo.hpp"
#include "shell/events.hpp"
#include "support/memory.hpp"
#include "support/program.hpp"

namespace {

constexpr int kEvenements = 40;

// The user's own change of the text, as the control reports it.
void remplace(std::size_t place, std::size_t longueur, const std::string& mis) {
    evenement_avant_changement();
    place = std::min(place, memoire.texte.size());
    memoire.texte.replace(place, longueur, mis);
    memoire.sel_start = place + mis.size();
    memoire.sel_length = 0;
    evenement_texte_change();
}

// One character typed or deleted at the cursor, or a piece of text in place of another.
void change(Octets& octets) {
    const std::size_t ici = memoire.sel_start;
    switch (octets.parmi(5)) {
        case 0: return remplace(ici, 0, std::string(1, static_cast<char>(octets.octet())));
        case 1: return remplace(ici == 0 ? 0 : ici - 1, ici == 0 ? 0 : 1, "");
        case 2: return remplace(ici, 1, "");
        case 3: return remplace(ici, 0, "\r\n");
        default: break;
    }
    const auto place = static_cast<std::size_t>(octets.octet());
    const auto longueur = static_cast<std::size_t>(octets.parmi(16));
    remplace(place, longueur, octets.texte(16));
}

// Presses the key until nothing is left for it; the texts on the way.
std::vector<std::string> jusqu_au_bout(const FrappeTouche& touche, std::string_view rien) {
    std::vector<std::string> textes{memoire.texte};
    for (;;) {
        memoire.messages.clear();
        evenement_enfonce("txt", touche);
        const std::string_view dit = sans_blancs(memoire.messages.back());
        if (dit == rien && memoire.texte == textes.back()) return textes;
        textes.push_back(memoire.texte);
        verifie(textes.size() < 10000, "undo has no end", memoire.texte);
    }
}

constexpr FrappeTouche kAnnule{'Z', false, true, false}, kRetablit{'Z', true, true, false};

std::vector<std::string> recule() { return jusqu_au_bout(kAnnule, "rien à annuler"_fr); }
std::vector<std::string> avance() { return jusqu_au_bout(kRetablit, "rien à rétablir"_fr); }

void evenement_suivant(Octets& octets) {
    switch (octets.parmi(8)) {
        case 0: evenement_enfonce("txt", kAnnule); break;
        case 1: evenement_enfonce("txt", kRetablit); break;
        case 2: evenement_menu("mnuCalculItem"); break;
        case 3: evenement_menu("mnuEffaceMotItem"); break;
        case 4: port.texte.pose_selection(static_cast<std::size_t>(octets.octet()), 0); break;
        default: change(octets);
    }
    memoire.journal.clear();
    memoire.boites.clear();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* debut, std::size_t taille) {
    Octets octets(debut, taille);
    programme_de_fuzz();
    pose_feuille(avec_lignes(octets.texte(64)));
    const std::string premier = memoire.texte;
    evenement_avant_changement();
    for (int i = 0; i < kEvenements && !octets.vide(); ++i) evenement_suivant(octets);
    avance();
    const std::string dernier = memoire.texte;
    const std::vector<std::string> recul = recule();
    verifie(memoire.texte == premier, "undone to the end, not the first text",
            memoire.texte + "\n---\n" + premier);
    std::vector<std::string> retour = avance();
    verifie(memoire.texte == dernier, "made again to the end, not the last text",
            memoire.texte + "\n---\n" + dernier);
    std::reverse(retour.begin(), retour.end());
    verifie(retour == recul, "another way forward than back", dernier);
    return 0;
}
