// The functions of a sheet: which line holds one, over which interval, and its values, as the lines above it make
// them. Finding one changes nothing; its values are asked for while the calculation stands aside (sheet/aside.hpp).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "functions/repetition.hpp"

// Where a function stands in the sheet.
struct FonctionDeFeuille {
    enum class Genre { inc, air, deffon, formule };
    Genre genre = Genre::formule;
    std::int32_t ligne_entete = 0;   // line of INC or AIR, from 1; that of the function for the other kinds
    std::int32_t ligne = 0;          // line of the function, from 1
    std::string entete;              // the heading as written, without result and comment; "" for the other kinds
    std::string texte;               // the function as written, without result and comment, Windows-1252
    char lettre = 'X';               // its variable; known for DEFFON once it is opened
};

// The functions under INC and AIR headings, in the order of the sheet.
std::vector<FonctionDeFeuille> fonctions_de_feuille(std::string_view texte);

// The function that the line `numero` of the sheet belongs to: its INC or AIR with the function and the table below
// it, its DEFFON, a formula in a letter; otherwise the INC or AIR nearest above, or below.
std::optional<FonctionDeFeuille> fonction_au_curseur(std::string_view texte, std::int32_t numero);

// Whether both are written the same; and the function that is written so in the sheet, at the same line if it can.
bool meme_fonction(const FonctionDeFeuille& f, const FonctionDeFeuille& g);
std::optional<FonctionDeFeuille> retrouve_fonction(std::string_view texte, const FonctionDeFeuille& f);

// Why the line `numero` has no function, where a heading of INC or AIR asks for one: words for the user, or "".
std::string mots_sans_fonction(std::string_view texte, std::int32_t numero);

// Why a function can't be studied: words for the user, Windows-1252, "" when it can.
using Refus = std::string_view;

// A function that is ready to be evaluated. It must end before the calculation comes back.
class FonctionOuverte {
public:
    char lettre = 'X';
    std::string formule;             // as the engine reads it
    double debut = 0, fin = 0;       // the heading's interval, from left to right
    double pas = 0;                  // of an INC; 0 otherwise

    // Value at x, not a number where there is none or the user has given up.
    double operator()(double x);

    // Takes another formula of the same letter.
    void prend_formule(std::string nouvelle);

private:
    std::unique_ptr<Repetition> repetition_;
    long comptees_ = 0;
};

// Calculates the lines above the function and opens it. The interval is that of its heading, for other kinds what
// `bornes` says ("-1,2*PI"). The calculation must stand aside.
Refus ouvre_fonction(std::string_view texte, const FonctionDeFeuille& f, std::string_view bornes,
                     FonctionOuverte& ouverte);

// Reads a function where the calculation stands now, without its interval. False when it can't be.
bool relit_fonction(const FonctionDeFeuille& f, FonctionOuverte& ouverte);

// The formula of `f` less that of `g`, both opened at one place, in the letter of `f`.
std::string difference(const FonctionOuverte& f, const FonctionOuverte& g);
