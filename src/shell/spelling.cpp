// The characters of a result in words.
#include "shell/spelling.hpp"

#include <algorithm>
#include <cstddef>

#include "base/codepage.hpp"
#include "verification/sign_words.hpp"

namespace {

constexpr std::size_t kGroupe = 3;   // digits of a group

bool est_chiffre_hexa(char c) { return est_chiffre(c) || (c >= 'A' && c <= 'F'); }

// The digits with a blank between two, and a comma between two groups. Decimals are grouped from the point on, all
// other digits from the end.
std::string en_groupes(std::string_view chiffres, bool decimales) {
    const std::size_t premier = decimales ? kGroupe : (chiffres.size() - 1) % kGroupe + 1;
    std::string mots;
    for (std::size_t i = 0; i < chiffres.size(); ++i) {
        const bool groupe = i >= premier && (i - premier) % kGroupe == 0;
        if (i > 0) mots += groupe ? ", " : " ";
        mots += chiffres[i];
    }
    return mots;
}

// What is read of a text, piece by piece.
class Epellation {
public:
    Epellation(std::string_view texte, bool hexadecimal) : reste_(texte), hexadecimal_(hexadecimal) {}

    std::string mots() {
        while (!reste_.empty()) morceau();
        return mots_;
    }

private:
    bool chiffre(char c) const { return hexadecimal_ ? est_chiffre_hexa(c) : est_chiffre(c); }

    // The piece of so many characters, which is behind the rest then.
    std::string_view prend(std::size_t taille) {
        const std::string_view pris = reste_.substr(0, taille);
        reste_.remove_prefix(pris.size());
        return pris;
    }

    // An E between a digit and an exponent.
    bool puissance() const {
        return !hexadecimal_ && dans_un_nombre_ && reste_.size() > 1 && reste_[0] == 'E' &&
               (est_chiffre(reste_[1]) || reste_[1] == '-' || reste_[1] == '+');
    }

    void chiffres() {
        const auto fin = std::ranges::find_if_not(reste_, [&](char c) { return chiffre(c); });
        const std::string_view pris = prend(static_cast<std::size_t>(fin - reste_.begin()));
        ajoute_mots(mots_, en_groupes(pris, decimales_));
        dans_un_nombre_ = true;
    }

    // The point of a number, and what stands behind it.
    void point() {
        prend(1);
        ajoute_mots(mots_, "point");
        decimales_ = dans_un_nombre_ = true;
    }

    // A sign, or a word.
    void autre() {
        const auto fin = std::ranges::find_if_not(reste_, [](char c) { return est_lettre(capitale(c)); });
        const std::string_view pris = prend(std::max<std::size_t>(static_cast<std::size_t>(fin - reste_.begin()), 1));
        ajoute_mots(mots_, pris == "INF" ? "infini" : pris == "NAN" ? "pas un nombre" : signes_en_mots(pris));
        decimales_ = dans_un_nombre_ = false;
    }

    void morceau() {
        if (puissance()) {
            prend(1);
            ajoute_mots(mots_, "fois 10 puissance");
            decimales_ = dans_un_nombre_ = false;
        } else if (chiffre(reste_[0])) {
            chiffres();
        } else if (reste_[0] == '.') {
            point();
        } else {
            autre();
        }
    }

    std::string_view reste_;
    bool hexadecimal_;
    bool decimales_ = false;         // behind the point of a number
    bool dans_un_nombre_ = false;    // behind a digit or the point
    std::string mots_;
};

}  // namespace

std::string epele(std::string_view texte, bool hexadecimal) { return Epellation(texte, hexadecimal).mots(); }
