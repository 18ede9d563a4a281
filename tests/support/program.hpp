// A fresh program on the in-memory port, for the tests that drive the core directly, and short ways
// to put a sheet in it and to look at what the user has. Changes every subsystem.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "platform/platform.hpp"
#include "shell/commands.hpp"
#include "shell/reset.hpp"
#include "support/memory.hpp"

// The random numbers are the same in every run.
inline std::uint64_t graine_de_test() { return 20260101; }

// The program as it starts: nothing in the text, nothing said, every subsystem at its beginning.
inline void programme_neuf() {
    installe_port_memoire();
    port.systeme.graine = graine_de_test;
    reinitialise_tout();
}

// A text written in the tests (UTF-8) in the sheet's code page.
inline std::string cp(std::string_view texte) {
    RefusTexte refus{};
    auto converti = depuis_utf8(texte, &refus);
    if (!converti) throw std::invalid_argument("not in the code page: " + std::string(texte));
    return std::move(*converti);
}

// Lines joined by CR LF.
inline std::string joint(const std::vector<std::string>& lignes) {
    std::string texte;
    for (const std::string& ligne : lignes) {
        if (&ligne != &lignes.front()) texte += "\r\n";
        texte += ligne;
    }
    return texte;
}

// Lines of a text; one more than it has pairs of CR LF.
inline std::vector<std::string> lignes_de(std::string_view texte) {
    std::vector<std::string> lignes;
    for (;;) {
        const std::size_t fin = texte.find("\r\n");
        lignes.emplace_back(texte.substr(0, fin));
        if (fin == std::string_view::npos) return lignes;
        texte.remove_prefix(fin + 2);
    }
}

inline void pose_feuille(std::string texte, std::size_t curseur = 0) {
    port.texte.pose_texte(std::move(texte));
    port.texte.pose_selection(curseur, 0);
}

// A fresh program calculates the sheet (bytes of the code page); the new text.
inline std::string calcule_neuf(std::string texte) {
    programme_neuf();
    pose_feuille(std::move(texte));
    execute_commande("recalcul");
    return memoire.texte;
}
