// The bytes of one run, the check, and the program that a run begins with.
#include "bytes.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "base/codepage.hpp"
#include "support/program.hpp"

namespace {

constexpr std::size_t kPile = std::size_t{1} << 20;

}  // namespace

int Octets::octet() {
    if (reste_.empty()) return 0;
    const auto premier = static_cast<unsigned char>(reste_.front());
    reste_.remove_prefix(1);
    return premier;
}

std::string Octets::texte(std::size_t maximum) {
    const auto voulu = std::min(static_cast<std::size_t>(octet()), maximum);
    std::string pris(reste_.substr(0, voulu));
    reste_.remove_prefix(pris.size());
    return pris;
}

std::string Octets::reste() { return std::string(std::exchange(reste_, std::string_view())); }

std::string avec_lignes(std::string_view texte) {
    std::string lignes;
    for (const char c : texte) {
        if (c == '\n' && !lignes.ends_with('\r')) lignes += '\r';
        lignes += c;
    }
    return lignes;
}

void verifie(bool tient, std::string_view faute, std::string_view vu) {
    if (tient) return;
    const std::string mots(faute);
    const std::string texte = vers_utf8(vu);
    std::fprintf(stderr, "FAILED: %s\n%s\n", mots.c_str(), texte.c_str());
    std::abort();
}

// Installing the port reads the system's map of the process, which takes longer than a run: once is enough.
void programme_de_fuzz() {
    static const bool installe = (programme_neuf(), true);
    memoire = Memoire{};
    pose_dossier(memoire.dossier_programme);
    reinitialise_tout();
    if (installe)
        port.systeme.limite_pile = static_cast<const char*>(__builtin_frame_address(0)) - kPile;
    memoire.interrompt = true;  // whatever asks whether it is to go on, isn't
}
