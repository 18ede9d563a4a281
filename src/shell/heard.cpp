// The messages that the user has heard, and their repetition. Changes `entendus`; the message line through
// what is said.
#include "shell/heard.hpp"

#include <algorithm>
#include <utility>

#include "platform/message.hpp"
#include "shell/announcements.hpp"
#include "shell/key_codes.hpp"
#include "shell/menus.hpp"

Entendus entendus;

namespace {

// Says words that no repetition will say.
void dit_hors_liste(std::string_view texte) {
    dit(texte);
    ligne_message.dits.clear();
}

// Moves what was told between two boxes into the list.
void range(std::vector<std::string>& dites) {
    for (std::string& texte : std::exchange(dites, {}))
        if (!texte.empty()) entendus.messages.push_back({std::move(texte)});
}

}  // namespace

void prend_entendus() {
    if (ligne_message.dits.empty()) return;
    std::vector<std::string> dites;
    for (const Dit& entendu : std::exchange(ligne_message.dits, {})) {
        if (!entendu.boite) {
            retient_annonce(dites, sans_blancs(entendu.texte));
            continue;
        }
        range(dites);
        entendus.messages.push_back({std::string(sans_blancs(entendu.texte)), true});
    }
    range(dites);
    const std::size_t nombre = entendus.messages.size();
    const std::size_t trop = nombre - std::min(nombre, kEntendusMaxi);
    const auto premier = entendus.messages.begin();
    entendus.messages.erase(premier, premier + static_cast<std::ptrdiff_t>(trop));
    entendus.rang = 0;
    entendus.frais = true;
}

void note_touche_entendus(int touche, std::string_view item) {
    const bool modificateur = touche == kToucheMaj || touche == kToucheCtrl || touche == kToucheAlt;
    if (modificateur || item == kItemRepeter || item == kItemExpliquer) return;
    entendus.rang = 0;
    entendus.frais = false;
}

Dit dernier_entendu() {
    const std::size_t nombre = entendus.messages.size();
    return nombre == 0 ? Dit() : entendus.messages[nombre - std::max<std::size_t>(entendus.rang, 1)];
}

void mnuRepeterItem() {
    prend_entendus();
    const std::size_t nombre = entendus.messages.size();
    if (nombre == 0) return dit_hors_liste(kAucunMessage);
    if (entendus.rang == nombre) return dit_hors_liste(kAucunPlusAncien);
    ++entendus.rang;
    entendus.frais = true;
    dit_hors_liste(entendus.messages[nombre - entendus.rang].texte);
}
