// Lines and cursor in the text of the port. SurNumero and find change the cursor.
#include "editing/lines.hpp"

#include <algorithm>

#include "base/codepage.hpp"
#include "base/count.hpp"
#include "base/number.hpp"
#include "platform/platform.hpp"

namespace {

// Nearest position at or in front of `position` (from 1) that holds a line feed, or 1.
std::size_t saut_avant(const std::string& texte, std::size_t position) {
    if (texte.empty() || position < 2) return 1;
    const std::size_t saut = texte.rfind('\n', position - 1);
    return saut == std::string::npos ? 1 : saut + 1;
}

// First carriage return from `position` (from 1) on, or the length + 1.
std::size_t retour_apres(const std::string& texte, std::size_t position) {
    return std::min(texte.find('\r', position - 1), texte.size()) + 1;
}

// First character of the line (from 0), found by pairs of carriage return and line feed; 0 for line
// 1 and for a line that doesn't exist.
std::size_t debut_ligne(std::string_view texte, std::int32_t numero) {
    std::size_t debut = 0;
    for (std::int32_t ligne = 1; ligne < numero; ++ligne) {
        const std::size_t paire = texte.find("\r\n", debut);
        if (paire == std::string_view::npos) return 0;
        debut = paire + 2;
    }
    return debut;
}

// The next pair of carriage return and line feed from `debut` (from 0) on, or npos.
std::size_t prochaine_paire(std::string_view texte, std::size_t debut) {
    std::size_t retour = texte.find('\r', debut);
    while (retour != std::string_view::npos && (retour + 1 == texte.size() || texte[retour + 1] != '\n'))
        retour = texte.find('\r', retour + 1);
    return retour;
}

// A position (from 0) between the two characters of a line end, where SurNumero leaves the cursor, is the
// first column of the line below for every command and for typing.
std::size_t sur_sa_ligne(std::size_t position) {
    const std::string& texte = port.texte.texte();
    const bool dans_fin = position > 0 && position < texte.size() &&
                          texte[position - 1] == '\r' && texte[position] == '\n';
    return dans_fin ? position + 1 : position;
}

}  // namespace

std::size_t curseur() { return sur_sa_ligne(port.texte.sel_start()); }

std::size_t fin_selection() {
    return sur_sa_ligne(port.texte.sel_start() + port.texte.sel_length());
}

std::size_t Debutligne() {
    return saut_avant(port.texte.texte(), std::max<std::size_t>(curseur(), 1));
}

std::size_t FinLigne() {
    return retour_apres(port.texte.texte(), std::max<std::size_t>(curseur(), 1));
}

std::size_t WhereX() {
    const std::string& texte = port.texte.texte();
    const std::size_t sel = curseur();
    if (texte.find('\r') >= sel) return sel + 1;
    if (sel <= texte.size() && texte[sel - 1] == '\n') return 1;
    return sel - saut_avant(texte, sel) + 1;
}

std::string extraitLigne(std::size_t position) {
    const std::string& texte = port.texte.texte();
    std::size_t debut = saut_avant(texte, position);
    if (debut > 1) ++debut;
    const std::size_t fin = retour_apres(texte, debut);
    return fin > debut ? texte.substr(debut - 1, fin - debut) : std::string();
}

std::int32_t numero_de_ligne(std::string_view texte, std::size_t position) {
    return static_cast<std::int32_t>(compte_octets(texte.substr(0, position), '\r')) + 1;
}

std::int16_t NumeroTxt(std::string_view texte, std::size_t position) {
    return vers_16_tronque(numero_de_ligne(texte, position));
}

Etendue etendue_ligne(std::string_view texte, std::int32_t numero) {
    const std::size_t debut = debut_ligne(texte, numero);
    return {debut, std::min(texte.find("\r\n", debut), texte.size())};
}

Etendue etendue_ligne(std::int32_t numero) { return etendue_ligne(port.texte.texte(), numero); }

bool est_fin_de_ligne(std::string_view texte, std::size_t position) {
    return position == texte.size() || texte.substr(position).starts_with("\r\n");
}

Etendue etendue_autour(std::string_view texte, std::size_t position) {
    const std::size_t paire = position == 0 ? std::string_view::npos : texte.rfind("\r\n", position - 1);
    const std::size_t debut = paire == std::string_view::npos ? 0 : paire + 2;
    return {debut, std::min(texte.find("\r\n", debut), texte.size())};
}

void SurNumero(std::int32_t numero) {
    const std::size_t debut = debut_ligne(port.texte.texte(), numero);
    if (debut > 0) port.texte.pose_selection(debut - 1, 0);
}

void LireLigne(std::string_view& ligne, std::string_view texte, std::size_t& position, bool& fin,
               bool& trouve) {
    const std::size_t longueur = texte.size();
    trouve = position <= longueur;
    ligne = {};
    if (!trouve) return;
    if (position == longueur) {
        const char c = texte.back();
        if (c != '\r' && c != '\n') ligne = texte.substr(longueur - 1);
        fin = true;
        ++position;
        return;
    }
    const std::size_t paire = prochaine_paire(texte, position - 1);
    fin = paire == std::string_view::npos;
    const std::size_t borne = fin ? longueur : paire;
    ligne = texte.substr(position - 1, borne - position + 1);
    // After the pair that closes the text one empty line is still to be read.
    position = fin ? longueur + 1 : std::min(paire + 3, longueur);
}

std::ptrdiff_t find(std::string_view chaine, std::size_t debut) {
    const std::string& texte = port.texte.texte();
    debut = std::max<std::size_t>(debut, 1);
    if (debut > texte.size()) return -1;
    const auto trouve = std::search(
        texte.begin() + static_cast<std::ptrdiff_t>(debut - 1), texte.end(), chaine.begin(),
        chaine.end(), [](char t, char c) { return capitale(t) == c; });
    if (trouve == texte.end() && !chaine.empty()) return -1;
    const std::ptrdiff_t position = trouve - texte.begin() + 1;
    port.texte.pose_selection(static_cast<std::size_t>(position), 0);
    return position;
}
