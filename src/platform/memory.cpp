// The filler memory: text, selection, messages, boxes and prepared answers. Changes `memoire`.
#include "platform/memory.hpp"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/platform.hpp"
#include "platform/stack.hpp"

Memoire memoire;

namespace {

const std::string& lit_texte() { return memoire.texte; }

void pose_texte(std::string&& texte) {
    memoire.texte = std::move(texte);
    memoire.sel_start = memoire.sel_length = 0;
}

std::size_t lit_sel_start() { return memoire.sel_start; }
std::size_t lit_sel_length() { return memoire.sel_length; }

void pose_selection(std::size_t debut, std::size_t longueur) {
    memoire.sel_start = std::min(debut, memoire.texte.size());
    memoire.sel_length = std::min(longueur, memoire.texte.size() - memoire.sel_start);
}

void note_boite(std::string_view texte) { memoire.boites.emplace_back(texte); }

bool repond(std::string_view invite, std::string_view propose, std::string& reponse) {
    memoire.saisies.push_back({std::string(invite), std::string(propose)});
    if (memoire.reponses.empty()) return false;
    std::optional<std::string> prete = std::move(memoire.reponses.front());
    memoire.reponses.pop_front();
    if (!prete) return false;
    reponse = std::move(*prete);
    return true;
}

void note_bip() { ++memoire.bips; }
void note_message(std::string_view texte) { memoire.messages.emplace_back(texte); }

std::uint64_t graine_horloge() {
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

bool interrompt() { return memoire.interrompt; }

}  // namespace

void installe_port_memoire() {
    memoire = Memoire{};
    port = Port{{lit_texte, pose_texte, lit_sel_start, lit_sel_length, pose_selection},
                {note_boite, repond, note_bip},
                {note_message},
                {graine_horloge, interrompt, limite_pile()}};
}
