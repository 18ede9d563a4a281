// The settings table: its default values, its records in the file, and the moves of its rows.
#include "settings/settings.hpp"

#include <array>
#include <utility>

#include "base/codepage.hpp"
#include "platform/paths.hpp"

Reglages reglages;

namespace {

constexpr std::string_view kSansTitre = "SANSTITRE.VXT";

// Place of the three numbers in a record.
constexpr std::array<std::size_t, 3> kPlaces = {kTailleNom, kTailleNom + 4, kTailleNom + 8};

// Signed 32-bit integers, least significant byte first.
std::int32_t lit_entier(std::string_view octets) {
    std::uint32_t n = 0;
    for (std::size_t i = 4; i > 0; --i) n = n << 8 | static_cast<unsigned char>(octets[i - 1]);
    return static_cast<std::int32_t>(n);
}

void ecrit_entier(std::string& octets, std::int32_t valeur) {
    auto n = static_cast<std::uint32_t>(valeur);
    for (int i = 0; i < 4; ++i, n >>= 8) octets += static_cast<char>(n & 0xFF);
}

// One of the first rows has that name.
bool est_dans(const Table<article>& lignes, int nombre, const std::string& nom) {
    for (int rang = 1; rang <= nombre; ++rang)
        if (meme_chemin(lignes(rang).nom, nom)) return true;
    return false;
}

// The name that the file keeps of a document after those kept already. A dot early in the path cuts it
// short, unless the list would then have that name twice. Kept: see the oddities, early-dot-in-the-list.
// The file has room for so much of it.
std::string nom_garde(const std::string& nom, const Table<article>& gardees, int nombre) {
    constexpr std::size_t kLongueurCoupee = 16;
    const std::size_t point = premier_point(nom);
    if (point == std::string::npos || point + 4 >= kLongueurCoupee) return nom.substr(0, kTailleNom);
    const std::string coupe = nom.substr(0, point + 4);
    const bool seul = rang_du_nom(coupe) == 0 && !est_dans(gardees, nombre, coupe);
    return (seul ? coupe : nom).substr(0, kTailleNom);
}

article ligne_libre(std::int32_t debut) { return {reglages.nom_sanstitre, debut, 0, 1}; }

}  // namespace

void reglages_par_defaut() {
    auto& table = reglages.table_ini;
    for (int rang = 1; rang <= kDocumentsMaxi; ++rang)
        table(rang) = {std::string(kSansTitre), 0, 0, 1};
    table(kLigneNombres) = {"", 1, 2, 2};
    table(kLigneAngle) = {"", 1, 0, 0};
    table(kLigneAffichage) = {};
    table(kLignePolice) = {"Courier", 15, 0, 0};
    table(kLigneTaille) = {"15", 0, 0, 0};
    table(kLignePoliceImprimante) = {"Arial", 0, 0, 0};
    table(kLigneTailleImprimante) = {"16", 0, 0, 0};
}

std::string enregistrements(const Table<article>& table) {
    std::string octets;
    octets.reserve(table.taille() * kTailleEnregistrement);
    for (const article& ligne : table) {
        std::string nom = ligne.nom;
        nom.resize(kTailleNom, ' ');
        octets += nom;
        for (const std::int32_t champ : {ligne.champ1, ligne.champ2, ligne.champ3})
            ecrit_entier(octets, champ);
    }
    return octets;
}

void lit_enregistrements(std::string_view octets, Table<article>& table) {
    for (article& ligne : table) {
        if (octets.size() < kTailleEnregistrement) return;
        ligne.nom = sans_blancs(octets.substr(0, kTailleNom));
        ligne.champ1 = lit_entier(octets.substr(kPlaces[0]));
        ligne.champ2 = lit_entier(octets.substr(kPlaces[1]));
        ligne.champ3 = lit_entier(octets.substr(kPlaces[2]));
        octets.remove_prefix(kTailleEnregistrement);
    }
}

Table<article> lignes_a_garder() {
    Table<article> gardees = reglages.table_ini;
    int n = 0;
    for (int rang = 1; rang <= kDocumentsMaxi; ++rang) {
        const article& ligne = reglages.table_ini(rang);
        if (ligne.nom == reglages.nom_sanstitre) continue;
        const std::string nom = nom_garde(ligne.nom, gardees, n);
        if (est_dans(gardees, n, nom)) continue;   // two long paths that begin alike
        gardees(++n) = {nom, ligne.champ1, ligne.champ2, ligne.champ3};
    }
    // A free row of the file has its selection start at 1. Kept: see the oddities, free-rows-from-one.
    while (n < kDocumentsMaxi) gardees(++n) = ligne_libre(1);
    return gardees;
}

int rang_du_nom(std::string_view nomfic) {
    for (int rang = 1; rang <= kDocumentsMaxi; ++rang)
        if (meme_chemin(reglages.table_ini(rang).nom, nomfic)) return rang;
    return 0;
}

void efface_nomdoc(int rang) {
    article libre = reglages.article_vide;
    libre.nom = reglages.nom_sanstitre;
    auto& table = reglages.table_ini;
    for (int i = rang; i < kDocumentsMaxi; ++i) table(i) = std::move(table(i + 1));
    table(kDocumentsMaxi) = std::move(libre);
}

void insert_nomdoc(int rang) {
    article neuve = reglages.article_courant;
    auto& table = reglages.table_ini;
    for (int i = kDocumentsMaxi; i > rang; --i) table(i) = std::move(table(i - 1));
    table(rang) = std::move(neuve);
}
