// Findings as lines of a terminal. Changes nothing.
#include "terminal/findings_output.hpp"

#include <nlohmann/json.hpp>

#include "base/codepage.hpp"

namespace {

std::string en_json(const Constat& c) {
    nlohmann::ordered_json objet;
    objet["ligne"] = c.ligne;
    objet["colonne"] = c.colonne;
    objet["genre"] = std::string(nom_constat(c.genre));
    objet["gravite"] = vers_utf8(nom_gravite(gravite(c.genre)));
    objet["morceau"] = vers_utf8(c.morceau);
    objet["lu"] = vers_utf8(c.lu);
    objet["valeur"] = vers_utf8(c.valeur);
    objet["propose"] = vers_utf8(c.propose);
    objet["phrase"] = vers_utf8(phrase(c));
    return objet.dump();
}

}  // namespace

std::string texte_constats(const std::vector<Constat>& constats, bool json) {
    std::string texte;
    for (const Constat& c : constats) (texte += json ? en_json(c) : vers_utf8(phrase(c))) += '\n';
    return texte;
}
