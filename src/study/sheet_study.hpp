// The study of a function of the sheet, from the sheet's text to lines that can be read. The program's calculation
// stays as it is. Hold no state.
#pragma once

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

// The last study that was shown, for who writes it elsewhere. One instance.
extern std::optional<EtudeDeFeuille> etude_gardee;

// Said where there is no function, and when the user has given up.
inline constexpr Refus kSansFonctionIci = "aucune fonction dans la feuille"_fr;
inline constexpr Refus kEtudeInterrompue = "étude interrompue"_fr;
