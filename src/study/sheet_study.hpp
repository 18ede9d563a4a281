// The study of a function of the sheet, from the sheet's text to lines that can be read. The program's calculation
// stays as it is. One instance, `etudes_gardees`: what has been studied.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "study/sheet_function.hpp"
#include "study/study.hpp"

// Where the function meets another one of the sheet.
struct Rencontre {
    FonctionDeFeuille autre;
    bool comparable = true;          // false: a variable that they read changes between their lines
    std::vector<Zero> lieux;
    std::vector<double> y;           // the value at each place
    std::vector<Palier> confondues;  // stretches on which they are the same
};

struct EtudeDeFeuille {
    FonctionDeFeuille fonction;
    std::string non_lu;              // the end of its text that the engine doesn't read
    bool autrement = false;          // inside it something isn't read as it is written
    Etude etude;
    std::vector<Rencontre> rencontres;
};

// Studies the function over its heading's interval or, for one without a heading, over `bornes`. The result is "",
// or why there is no study.
Refus etudie_fonction(std::string_view texte, const FonctionDeFeuille& fonction, std::string_view bornes,
                      EtudeDeFeuille& resultat);

// The study as lines, Windows-1252, one fact a line, with the table of variations at the end.
std::vector<std::string> lignes_d_etude(const EtudeDeFeuille& etude);

// The same lines in front of the table, the title first.
std::vector<std::string> faits_d_etude(const EtudeDeFeuille& etude);

// A column of the table of variations: a place, the value there, how f goes on; the last one of a piece has no `suite`.
struct ColonneDeVariations {
    std::string lieu, valeur, suite;
};
using Tableau = std::vector<ColonneDeVariations>;

// The table; empty where the function oscillates too fast for one.
Tableau tableau_de_variations(const EtudeDeFeuille& etude);

// The functions that were studied, for the page of the sheet: they are studied again there, as the sheet is then. One
// instance, `etudes_gardees`.
struct EtudesGardees {
    struct Etudiee {
        FonctionDeFeuille fonction;
        std::string bornes;          // that were asked for
    };
    std::vector<Etudiee> fonctions;  // each one once
};
extern EtudesGardees etudes_gardees;

void garde_etude(const FonctionDeFeuille& fonction, std::string_view bornes);

// The studies of those of them that the sheet has now, and that can be made, in its order; nothing when the user gave
// up.
std::optional<std::vector<EtudeDeFeuille>> refais_etudes(std::string_view texte);

// The studies of all functions of the sheet under INC and AIR that can be made.
std::vector<EtudeDeFeuille> etudie_tout(std::string_view texte);

// Opens the function aside, leaves in `trouvee` which one it is with its letter, and runs `instruction` with it. The
// answer is why it can't be opened, or that the user has given up.
Refus avec_fonction(std::string_view texte, const FonctionDeFeuille& fonction, std::string_view bornes,
                    FonctionDeFeuille& trouvee, const std::function<void(FonctionOuverte&)>& instruction);

// Said where there is no function, and when the user has given up.
inline constexpr Refus kSansFonctionIci = "aucune fonction dans la feuille"_fr;
inline constexpr Refus kEtudeInterrompue = "étude interrompue"_fr;
