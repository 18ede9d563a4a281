// The ten named matrices MA to MJ, the two work matrices, and the copies between them. One
// instance, `matrices`. Both indexes run from 1; a matrix that was never filled has bounds 0.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "base/failure.hpp"

// A two-dimensional table numbered from 1: an access outside its bounds is failure 9. A copy that
// runs out of memory leaves its target as it was; a table that was moved from has bounds 0.
class TableMatrice {
public:
    TableMatrice() = default;
    TableMatrice(int lignes, int colonnes)
        : lignes_(lignes),
          colonnes_(colonnes),
          elements_(static_cast<std::size_t>(lignes) * static_cast<std::size_t>(colonnes)) {}
    TableMatrice(const TableMatrice&) = default;
    TableMatrice(TableMatrice&& autre) noexcept { echange(autre); }
    TableMatrice& operator=(TableMatrice autre) noexcept {
        echange(autre);
        return *this;
    }
    ~TableMatrice() = default;

    int lignes() const { return lignes_; }
    int colonnes() const { return colonnes_; }
    double& operator()(int ligne, int colonne) { return elements_[place(ligne, colonne)]; }
    const double& operator()(int ligne, int colonne) const {
        return elements_[place(ligne, colonne)];
    }
    // All elements, row after row, for loops that know their bounds.
    double* elements() { return elements_.data(); }
    const double* elements() const { return elements_.data(); }

    void echange(TableMatrice& autre) noexcept {
        std::swap(lignes_, autre.lignes_);
        std::swap(colonnes_, autre.colonnes_);
        elements_.swap(autre.elements_);
    }

private:
    std::size_t place(int ligne, int colonne) const {
        if (ligne < 1 || ligne > lignes_ || colonne < 1 || colonne > colonnes_) echoue(kIndice);
        return static_cast<std::size_t>(ligne - 1) * static_cast<std::size_t>(colonnes_) +
               static_cast<std::size_t>(colonne - 1);
    }
    int lignes_ = 0;
    int colonnes_ = 0;
    std::vector<double> elements_;
};

inline constexpr int kNombreMatrices = 10;   // MA to MJ

struct Matrices {
    std::array<TableMatrice, 11> table;   // 1 to 10 for MA to MJ; slot 0 unused
    TableMatrice matrice_travail;         // accumulator of the matrix arithmetic
    TableMatrice matrice_travail2;        // second operand
};
extern Matrices matrices;

inline constexpr std::string_view kLettresMatrices = "ABCDEFGHIJ";

// True when the text is found in these letters; an empty text is.
bool TestCarMatrice(std::string_view lettre);

// The table of that letter, or nullptr for a letter outside A to J.
TableMatrice* table_de(char lettre) noexcept;

// Makes a work matrix a copy of the matrix of that letter. A letter outside A to J does nothing.
void CopieMatriceVersTravail(char lettre) noexcept;
void CopieMatriceVersTravail2(char lettre) noexcept;

// Makes the matrix of that letter a copy of matrice_travail; reports "matrice de travail vide" and
// changes nothing when the work matrix has no elements.
void CopieTravailVersMatrice(char lettre) noexcept;

struct Dimension {
    int lignes;
    int colonnes;
};
// Rows and columns of the matrix of that letter, which is copied to matrice_travail2 on the way.
Dimension DimensionMatrice(char lettre) noexcept;
