// The message line. Changes `ligne_message` and calls the port's label once per message.
#include "platform/message.hpp"

#include <cstddef>

#include "base/codepage.hpp"
#include "platform/platform.hpp"

LigneMessage ligne_message;

namespace {

constexpr std::size_t kDitsMaxi = 8;   // of one event, no more than two are told

// Keeps a text for who asks what was said. Without memory for it, it is said all the same.
void retient(std::string_view texte, bool boite = false) noexcept {
    try {
        std::vector<Dit>& dits = ligne_message.dits;
        if (dits.size() >= kDitsMaxi) dits.erase(dits.begin());
        dits.push_back({std::string(texte), boite});
    } catch (...) {
        ligne_message.dits.clear();
    }
}

}  // namespace

void message(std::string& p_message) {
    std::string& dernier = ligne_message.dernier_message;
    if (dernier.ends_with(' ')) dernier += ' ';
    p_message = std::string(sans_blancs(p_message));
    if (dernier == p_message) p_message = " " + p_message + "  ";
    dernier = p_message;
    ligne_message.LblMessage = p_message;
    retient(p_message);
    port.message.etiquette(p_message);
}

void dit(std::string_view texte) {
    std::string copie(texte);
    message(copie);
}

void souffle(std::string_view texte) {
    retient(texte);
    port.message.annonce(texte);
}

void note_boite_montree(std::string_view texte) noexcept { retient(texte, true); }
