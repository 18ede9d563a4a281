// The form of a recovery file: lines of words and numbers, an empty line, the text. The sum covers every
// byte but its own line, so that a file that was cut or changed anywhere is recognised.
#include "documents/recovery_file.hpp"

#include <charconv>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"

namespace {

constexpr std::string_view kMarque = "VOXTAB REPRISE 2\r\n";
constexpr std::string_view kMarque1 = "VOXTAB REPRISE 1\r\n";   // does without the sum of the sheet's file
constexpr std::string_view kFamille = "VOXTAB REPRISE ";   // of this version and of others
constexpr std::size_t kChiffresSomme = 16;

// The sum goes on over more bytes (FNV-1a, 64 bits).
constexpr std::uint64_t kSommeVide = 0xCBF29CE484222325;
std::uint64_t somme(std::uint64_t depart, std::string_view octets) {
    for (const char c : octets)
        depart = (depart ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return depart;
}

std::string hexadecimal(std::uint64_t n) {
    std::string sortie(kChiffresSomme, '0');
    for (std::size_t i = kChiffresSomme; i > 0; --i, n >>= 4) sortie[i - 1] = "0123456789abcdef"[n & 15];
    return sortie;
}

std::string nombre(std::uint64_t n) { return chiffres(static_cast<long long>(n)); }

// Takes a word, which must stand there. False when it doesn't.
bool prend(std::string_view& reste, std::string_view mot) {
    if (!reste.starts_with(mot)) return false;
    reste.remove_prefix(mot.size());
    return true;
}

// Takes plain figures without a sign.
template <class Entier>
bool prend_nombre(std::string_view& reste, Entier& n) {
    const auto lu = std::from_chars(reste.data(), reste.data() + reste.size(), n);
    if (lu.ec != std::errc{} || reste.front() == '-') return false;
    reste.remove_prefix(static_cast<std::size_t>(lu.ptr - reste.data()));
    return true;
}

// Takes sixteen hexadecimal figures.
bool prend_somme(std::string_view& reste, std::optional<std::uint64_t>& n) {
    const std::string_view figures = reste.substr(0, kChiffresSomme);
    std::uint64_t lu = 0;
    std::from_chars(figures.data(), figures.data() + figures.size(), lu, 16);
    if (hexadecimal(lu) != figures) return false;
    n = lu;
    reste.remove_prefix(kChiffresSomme);
    return true;
}

// Takes the name, whose length stands in front of it: any character may be in it.
bool prend_nom(std::string_view& reste, std::string& nom) {
    std::size_t taille = 0;
    if (!prend(reste, "nom ") || !prend_nombre(reste, taille) || !prend(reste, " ") ||
        reste.size() < taille)
        return false;
    nom = reste.substr(0, taille);
    reste.remove_prefix(taille);
    return prend(reste, kFinDeLigne);
}

// Takes the lines between the mark and the sum.
bool prend_fiche(std::string_view& reste, FicheReprise& fiche, std::size_t& taille) {
    int modifie = 0;
    const bool ancienne = prend(reste, kMarque1);
    if (!ancienne && !prend(reste, kMarque)) return false;
    if (!prend_nom(reste, fiche.nom) || !prend(reste, "rang ") || !prend_nombre(reste, fiche.rang) ||
        !prend(reste, "\r\ncurseur ") ||
        !prend_nombre(reste, fiche.curseur) || !prend(reste, " ") ||
        !prend_nombre(reste, fiche.longueur) || !prend(reste, "\r\nmodifie ") ||
        !prend_nombre(reste, modifie) || !prend(reste, "\r\nnumero ") ||
        !prend_nombre(reste, fiche.numero) ||
        (!ancienne && (!prend(reste, "\r\nfichier ") || !prend_somme(reste, fiche.base))) ||
        !prend(reste, "\r\noctets ") ||
        !prend_nombre(reste, taille) || !prend(reste, kFinDeLigne))
        return false;
    fiche.modifie = modifie != 0;
    return true;
}

std::string ligne_somme(std::string_view entete, std::string_view texte) {
    return "somme " + hexadecimal(somme(somme(kSommeVide, entete), texte)) + "\r\n\r\n";
}

}  // namespace

std::uint64_t somme_octets(std::string_view octets) { return somme(kSommeVide, octets); }

std::string forme_reprise(const FicheReprise& fiche, std::string_view texte) {
    std::string octets(fiche.base ? kMarque : kMarque1);
    octets += "nom " + nombre(fiche.nom.size()) + " " + fiche.nom;
    octets += "\r\nrang " + nombre(fiche.rang);
    octets += "\r\ncurseur " + nombre(fiche.curseur) + " " + nombre(fiche.longueur);
    octets += fiche.modifie ? "\r\nmodifie 1" : "\r\nmodifie 0";
    octets += "\r\nnumero " + nombre(fiche.numero);
    if (fiche.base) octets += "\r\nfichier " + hexadecimal(*fiche.base);
    octets += "\r\noctets " + nombre(texte.size()) + "\r\n";
    const std::string derniere = ligne_somme(octets, texte);
    octets.reserve(octets.size() + derniere.size() + texte.size());
    return octets.append(derniere).append(texte);
}

bool est_reprise(std::string_view octets) { return octets.starts_with(kFamille); }

EtatReprise lit_reprise(std::string_view octets, FicheReprise& fiche, std::string& texte) {
    if (octets.empty()) return EtatReprise::vide;
    // The start of a file that was cut in its first line is one of ours all the same.
    if (!est_reprise(octets) && !kFamille.starts_with(octets)) return EtatReprise::etrangere;
    std::string_view reste = octets;
    FicheReprise lue;
    std::size_t taille = 0;
    if (!prend_fiche(reste, lue, taille)) return EtatReprise::abimee;
    const std::string_view entete = octets.substr(0, octets.size() - reste.size());
    const std::size_t longueur_somme = ligne_somme("", "").size();
    if (reste.size() < longueur_somme || reste.size() - longueur_somme != taille)
        return EtatReprise::abimee;
    const std::string_view lu = reste.substr(longueur_somme);
    if (reste.substr(0, longueur_somme) != ligne_somme(entete, lu)) return EtatReprise::abimee;
    fiche = std::move(lue);
    texte = lu;
    return EtatReprise::bonne;
}
