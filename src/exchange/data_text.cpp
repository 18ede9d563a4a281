// From the bytes of a file to cells. Changes no state.
#include "exchange/data_text.hpp"

#include <algorithm>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "base/typed_text.hpp"
#include "base/utf16.hpp"

namespace {

constexpr std::size_t kOctetsDonnees = 4'000'000;   // more than the lines and formulas of a sheet can hold
// What the files of the common office programs begin with: an archive, the older form, a printed page.
constexpr std::string_view kArchive = "PK\x03\x04";
constexpr std::string_view kAncienClasseur = "\xD0\xCF\x11\xE0";
constexpr std::string_view kPageImprimee = "%PDF-";

std::string chiffres_de(std::size_t n) { return chiffres(static_cast<long long>(n)); }

// Where a byte stands: "ligne 3, colonne 5".
std::string lieu(std::string_view octets, std::size_t place) {
    const std::string_view avant = octets.substr(0, place);
    const auto lignes = std::count(avant.begin(), avant.end(), '\n');
    const std::size_t fin = avant.rfind('\n');
    const std::size_t colonne = fin == std::string_view::npos ? place + 1 : place - fin;
    return "ligne " + chiffres_de(static_cast<std::size_t>(lignes) + 1) + ", colonne " + chiffres_de(colonne);
}

// The sentence for bytes that are no text of data, or "" when they may be one.
std::string mots_refus_octets(std::string_view octets) {
    if (octets.size() > kOctetsDonnees)
        return std::string("fichier trop grand : "_fr) + chiffres_de(octets.size() / 1'000'000) +
               std::string(" millions d'octets, 4 au plus"_fr);
    if (octets.starts_with(kArchive) || octets.starts_with(kAncienClasseur))
        return std::string("c'est un classeur ou une archive : dans le tableur, enregistrez au format CSV"_fr);
    if (octets.starts_with(kPageImprimee)) return std::string("c'est un document PDF, pas un fichier de données"_fr);
    return "";
}

// Blanks that other programs write between thousands, in UTF-8: a plain blank in their place would part cells.
std::string avec_milliers(std::string_view utf8) {
    std::string sortie;
    for (std::size_t i = 0; i < utf8.size();) {
        std::size_t taille = 0;
        for (const std::string_view blanc : {"\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89", "\xE2\x80\x87"})
            if (utf8.substr(i).starts_with(blanc)) taille = blanc.size();
        sortie += taille == 0 ? utf8[i] : '\'';
        i += std::max<std::size_t>(taille, 1);
        // Elsewhere it is a blank like others.
        const bool entre =
            sortie.size() > 1 && i < utf8.size() && est_chiffre(sortie[sortie.size() - 2]) && est_chiffre(utf8[i]);
        if (taille > 0 && !entre) sortie.back() = ' ';
    }
    return sortie;
}

// A control character that no text has.
bool est_controle(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 32 && code != '\t' && code != '\n' && code != '\r' && code != '\f';
}

std::string_view sans_bords(std::string_view cellule) {
    const auto bord = [](char c) { return c == ' ' || c == '\t' || c == '\xA0' || c == '\r' || c == '\f'; };
    while (!cellule.empty() && bord(cellule.front())) cellule.remove_prefix(1);
    while (!cellule.empty() && bord(cellule.back())) cellule.remove_suffix(1);
    return cellule;
}

// The text with one quote for each two.
std::string guillemets_simples(std::string_view cellule) {
    std::string simple;
    for (std::size_t i = 0; i < cellule.size(); ++i) {
        simple += cellule[i];
        if (cellule.substr(i).starts_with("\"\"")) ++i;
    }
    return simple;
}

// Reads cell after cell.
struct Coupeur {
    std::string_view texte;
    char separateur;
    RangeesLues& lues;
    std::size_t place = 0;
    std::size_t ligne = 1;

    bool fin_de_cellule() const {
        return place >= texte.size() || texte[place] == '\n' || texte[place] == separateur;
    }
    // A cell in quotes, from the quote on; a line end may stand in it. False when it isn't closed.
    bool prend_guillemets(RangeeLue& rangee) {
        const std::size_t debut = ++place;
        const std::size_t premiere = ligne;
        bool double_ = false;
        for (; place < texte.size(); ++place) {
            if (texte[place] == '\n') ++ligne;
            if (texte[place] != '"') continue;
            if (place + 1 >= texte.size() || texte[place + 1] != '"') break;
            double_ = true;
            ++place;
        }
        if (place >= texte.size()) {
            lues.refus = "ligne " + chiffres_de(premiere) + ", colonne " +
                         chiffres_de(rangee.cellules.size() + 1) + std::string(" : guillemet non fermé"_fr);
            return false;
        }
        std::string_view cellule = texte.substr(debut, place++ - debut);
        if (double_) cellule = lues.sans_guillemets.emplace_back(guillemets_simples(cellule));
        const std::size_t derriere = place;
        while (!fin_de_cellule()) ++place;
        // What stands behind the quotes belongs to the cell, which is no number then.
        if (!sans_bords(texte.substr(derriere, place - derriere)).empty())
            cellule = texte.substr(debut - 1, place - debut + 1);
        rangee.cellules.push_back(sans_bords(cellule));
        return true;
    }
    // The cell at `place`; false when its quote isn't closed.
    bool prend_cellule(RangeeLue& rangee) {
        std::size_t debut = place;
        while (debut < texte.size() && texte[debut] == ' ' && separateur != kBlancs) ++debut;
        if (separateur != kBlancs && debut < texte.size() && texte[debut] == '"') {
            place = debut;
            return prend_guillemets(rangee);
        }
        debut = place;
        while (!fin_de_cellule() && !(separateur == kBlancs && texte[place] == '\t')) ++place;
        rangee.cellules.push_back(sans_bords(texte.substr(debut, place - debut)));
        return true;
    }
    // Passes what parts two cells; false at the end of the line.
    bool passe_separateur() {
        if (place >= texte.size() || texte[place] == '\n') return false;
        if (separateur != kBlancs) {
            ++place;
            return true;
        }
        while (place < texte.size() && (texte[place] == ' ' || texte[place] == '\t' || texte[place] == '\r')) ++place;
        return place < texte.size() && texte[place] != '\n';
    }
    // One line; false when a quote isn't closed.
    bool prend_rangee() {
        RangeeLue rangee{ligne, texte.substr(place), {}};
        const std::size_t debut = place;
        if (separateur == kBlancs)
            while (place < texte.size() && (texte[place] == ' ' || texte[place] == '\t')) ++place;
        do {
            if (!prend_cellule(rangee)) return false;
        } while (passe_separateur());
        rangee.entiere = sans_bords(texte.substr(debut, place - debut));
        while (!rangee.cellules.empty() && rangee.cellules.back().empty()) rangee.cellules.pop_back();
        if (!rangee.cellules.empty()) lues.rangees.push_back(std::move(rangee));
        ++ligne;
        ++place;
        return true;
    }
};

}  // namespace

std::optional<std::string> texte_des_donnees(std::string_view octets, std::string& refus) {
    refus = mots_refus_octets(octets);
    if (!refus.empty()) return std::nullopt;
    std::string converti;
    if (est_utf16(octets)) octets = converti = utf8_depuis_utf16(octets);
    if (octets.starts_with(kMarqueUtf8)) octets.remove_prefix(kMarqueUtf8.size());
    const auto controle = std::find_if(octets.begin(), octets.end(), est_controle);
    if (controle != octets.end()) {
        refus = std::string("ce n'est pas un texte : code "_fr) + chiffres_de(static_cast<unsigned char>(*controle)) +
                ", " + lieu(octets, static_cast<std::size_t>(controle - octets.begin()));
        return std::nullopt;
    }
    std::string texte = est_utf8(octets) ? amene_en_page(avec_milliers(octets)).texte : std::string(octets);
    if (texte.find('\n') == std::string::npos) std::replace(texte.begin(), texte.end(), '\r', '\n');
    if (sans_bords(texte).find_first_not_of("\r\n \t;,") != std::string_view::npos) return texte;
    refus = "aucun nombre : le fichier est vide"_fr;
    return std::nullopt;
}

RangeesLues coupe_en_cellules(std::string_view texte, char separateur) {
    RangeesLues lues;
    Coupeur coupeur{texte, separateur, lues};
    while (coupeur.place < texte.size())
        if (!coupeur.prend_rangee()) break;
    return lues;
}
