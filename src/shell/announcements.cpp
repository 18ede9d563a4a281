// Which texts of an event a screen reader is told. Changes `annonces`.
#include "shell/announcements.hpp"

#include <utility>

#include "base/codepage.hpp"

Annonces annonces;

namespace {

constexpr std::size_t kAuPlus = 2;                           // texts told after one event
constexpr std::string_view kLigneVide = "ligne vide";

// True for a byte of a word: a letter, a digit, a part of a character beyond ASCII.
bool dans_un_mot(char c) {
    return static_cast<unsigned char>(c) >= 0x80 || est_chiffre(c) || est_lettre(capitale(c));
}

// True when `texte` ends with these words, whole: "pi" doesn't end with "i". Any text ends with none.
bool finit_par(std::string_view texte, std::string_view mots) {
    if (!texte.ends_with(mots)) return false;
    const std::size_t reste = texte.size() - mots.size();
    return reste == 0 || mots.empty() || !dans_un_mot(mots.front()) || !dans_un_mot(texte[reste - 1]);
}

// True when the reader reads these words, which aren't empty, by itself.
bool lu_de_toute_facon(std::string_view mots, const Lecture& lecture) {
    return mots == sans_blancs(lecture.lu) || finit_par(lecture.titre, mots);
}

}  // namespace

void retient_annonce(std::vector<std::string>& attente, std::string_view texte) {
    const std::string_view mots = sans_blancs(texte);
    while (!attente.empty() && finit_par(mots, sans_blancs(attente.back()))) attente.pop_back();
    attente.emplace_back(texte);
    if (attente.size() > kAuPlus) attente.erase(attente.begin());
}

void note_annonce(std::string_view utf8) { retient_annonce(annonces.attente, utf8); }

std::vector<std::string> prend_annonces(const Lecture& lecture) {
    std::vector<std::string> dites;
    for (std::string& texte : std::exchange(annonces.attente, {})) {
        const std::string_view mots = sans_blancs(texte);
        if (mots.empty() && sans_blancs(lecture.ligne).empty())
            dites.emplace_back(kLigneVide);
        else if (!mots.empty() && !lu_de_toute_facon(mots, lecture))
            dites.push_back(std::move(texte));
    }
    return dites;
}
