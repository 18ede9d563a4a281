// The settings table and its file. Rows 1 to 15 are the list of open and recent documents, rows 16 to
// 22 the settings. One instance, `reglages`; options change it, start-up reads the file and quitting
// writes it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/table.hpp"

struct article {
    std::string nom;             // path of a document, or a text of the row; Windows-1252
    std::int32_t champ1 = 0;     // meaning by row, see below
    std::int32_t champ2 = 0;
    std::int32_t champ3 = 0;
};

inline constexpr int kLignesIni = 22;
inline constexpr int kDocumentsMaxi = 15;    // rows 1 to 15: champ1 selection start, champ2 its length,
                                             // champ3 bookmark
inline constexpr int kLigneNombres = 16;     // nom last search; champ1 mode_nombre, champ2
                                             // nombre_decimal, champ3 mode_affichage
inline constexpr int kLigneAngle = 17;       // champ1 unite_angle, champ2 1: last sheet at start-up
inline constexpr int kLigneAffichage = 18;   // nom last replacement; champ1 1: matrices in a column,
                                             // champ2 1: statistics restricted
inline constexpr int kLignePolice = 19;      // nom screen font; champ1 characters, champ2 background
inline constexpr int kLigneTaille = 20;      // nom size of the screen font
inline constexpr int kLignePoliceImprimante = 21;
inline constexpr int kLigneTailleImprimante = 22;

// Files of the program, beside one another in its folder.
inline constexpr const char* kFichierReglages = "VOXTAB.INI";
inline constexpr const char* kFichierOutils = "outils.txt";          // the options of the menu Outils
inline constexpr const char* kFichierInstallation = "verjaws.ini";   // mark of a new installation

inline constexpr std::size_t kTailleNom = 255;             // bytes of `nom` in the file
inline constexpr std::size_t kTailleEnregistrement = 267;  // bytes of a record

struct Reglages {
    Table<article> table_ini{kLignesIni};    // rows 1 to 22
    article article_vide;                    // {nom_sanstitre, 0, 0, 1}: a free row
    article article_courant;                 // scratch row, argument of insert_nomdoc
    std::string nom_sanstitre;               // "SANSTITRE.VXT"; New may pad it. Kept: see the oddities,
                                             // padded-untitled-name
    std::string dossier_programme;           // with its final separator
    std::string dossier_travail;             // working folder, with its final separator
    std::string fichier_travail;             // named at start-up, neither written nor read
    std::string fichier_ini;                 // the settings file
    std::string nom_repertoire;              // folder of the file chosen at start-up, in capitals
};
extern Reglages reglages;

// The values of a start without a settings file.
void reglages_par_defaut();

// The 22 records as they stand in the file, and back. What is missing of a short file stays as it was
// in `table`; what is after the 22 records is not looked at.
std::string enregistrements(const Table<article>& table);
void lit_enregistrements(std::string_view octets, Table<article>& table);

// The table as the settings file keeps it: named documents first, then free rows, then the settings.
Table<article> lignes_a_garder();

int rang_du_nom(std::string_view nomfic);    // first of the rows 1 to 15 with that path, 0: none
void efface_nomdoc(int rang);                // rows after `rang` move up, row 15 becomes free
void insert_nomdoc(int rang);                // rows from `rang` on move down, article_courant goes in
