// Sheets of words thrown together. Nothing is known of what they give, except what holds for every
// sheet: where the cursor stands, what is said, and that nothing of another sheet shows.
#include "property/words.hpp"

#include <iostream>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "platform/message.hpp"
#include "property/checks.hpp"
#include "property/kept.hpp"
#include "support/program.hpp"

namespace {

constexpr std::string_view kMots[] = {"1"_fr,          "2"_fr,
                                      "0"_fr,          "7.5"_fr,
                                      "12"_fr,         "A"_fr,
                                      "B"_fr,          "X"_fr,
                                      "Y"_fr,          "E"_fr,
                                      "N"_fr,          "A="_fr,
                                      "X="_fr,         "B = "_fr,
                                      "+"_fr,          "-"_fr,
                                      "*"_fr,          "/"_fr,
                                      "^"_fr,          "%"_fr,
                                      "("_fr,          "("_fr,
                                      ")"_fr,          ")"_fr,
                                      ","_fr,          ","_fr,
                                      ";"_fr,          "="_fr,
                                      "=="_fr,         " "_fr,
                                      " "_fr,          "!"_fr,
                                      "."_fr,          "@"_fr,
                                      "$F"_fr,         "#"_fr,
                                      "œ"_fr,          "²"_fr,
                                      "é"_fr,          "E+2"_fr,
                                      " AND "_fr,      " OR "_fr,
                                      " XOR "_fr,      "NOT "_fr,
                                      "SIN("_fr,       "LN("_fr,
                                      "FACT("_fr,      "CNP("_fr,
                                      "PI"_fr,         "ALEA"_fr,
                                      "STATX"_fr,      "STATX("_fr,
                                      "STATXY"_fr,     "STATXY("_fr,
                                      "TRISTATX"_fr,   "RESXY("_fr,
                                      "DEFMA"_fr,      "DEFMB"_fr,
                                      "DEFM"_fr,       "MA"_fr,
                                      "MB"_fr,         "MC="_fr,
                                      "MK"_fr,         "FON("_fr,
                                      "DEFFON="_fr,    "INCX("_fr,
                                      "INC"_fr,        "AIRX("_fr,
                                      "FIN"_fr,        "fin"_fr,
                                      "f(1) = 2"_fr,   "nombre de"_fr,
                                      ", X="_fr,       "fin résultat matrice"_fr,
                                      "FRANCEURO("_fr, "\t"_fr};

constexpr std::string_view kLignes[] = {
    "",         "1,2",         "1,2,3",       "X",          "X^2",    "A=2",
    "FIN",      "INCX(1,1,2)", "AIRX(0,2,2)", "STATX(1;2)", "STATX",  "STATXY",
    "TRISTATX", "DEFMA",       "MB=MA+MA",    "2+2",        "! note", "DEFFON=X+1"};

std::string tire_ligne(Tirage& t) {
    if (t.une_fois_sur(2)) return std::string(t.un_de(kLignes));
    std::string ligne;
    for (int i = t.entre(1, 9); i > 0; --i) ligne += t.un_de(kMots);
    // A function that calls itself ends with the stack, which takes its time: not here.
    if (capitales(ligne).find("DEFFON") != std::string::npos)
        while (ligne.find("FON(") != std::string::npos)
            ligne.replace(ligne.find("FON("), 4, "SIN(");
    return ligne;
}

std::string tire_texte(Tirage& t) {
    std::string texte = tire_ligne(t);
    for (int i = t.entre(0, 11); i > 0; --i) texte += "\r\n" + tire_ligne(t);
    return texte;
}

bool meme_vue(const Vue& a, const Vue& b) {
    return a.texte == b.texte && a.boites == b.boites && a.sel_start == b.sel_start &&
           a.erreur == b.erreur && memes_valeurs(a, b);
}

Vue calcule_neuf(const Reglage& reglage, const std::string& texte, std::size_t curseur) {
    prepare(reglage);
    memoire.interrompt = true;  // an area of many trapezoids is given up
    return calcule(texte, curseur);
}

// True when the word stands elsewhere than at the head of a line.
bool au_milieu(const std::string& texte, std::string_view mot) {
    for (std::size_t i = texte.find(mot, 1); i != std::string::npos; i = texte.find(mot, i + 1))
        if (texte[i - 1] != '\n') return true;
    return false;
}

// What one sheet may leave to the next: the contents of the work matrices, the value that an
// operator word takes where a number is due, the next random number, arguments that a heading
// doesn't read itself, and the formula that a refused letter quotes.
bool laisse_des_traces(const std::string& texte) {
    if (memoire.texte.find("interdite") != std::string::npos) return true;
    const std::string majuscule = capitales(texte);
    for (const char* mot : {"MA", "MB", "OR", "AND", "NOT", "ALEA"})
        if (majuscule.find(mot) != std::string::npos) return true;
    return au_milieu(majuscule, "INC") || au_milieu(majuscule, "AIR");
}

Defaut verifie_soupe(const Soupe& soupe) {
    const auto& [reglage, texte, curseur] = soupe;
    const Vue une = calcule_neuf(reglage, texte, curseur);
    Defaut d = verifie_curseur(une);
    if (d.empty()) d = verifie_message(texte, une, "");
    if (d.empty()) d = verifie_lignes_gardees(texte, une.texte);
    if (!d.empty()) return d;
    if (!meme_vue(une, calcule_neuf(reglage, texte, curseur))) return "not the same twice";
    const std::string dit = ligne_message.dernier_message;
    const bool traces = laisse_des_traces(texte);
    const Vue deux = passe();
    d = verifie_curseur(deux);
    if (d.empty()) d = verifie_message(une.texte, deux, dit);
    if (!d.empty() || traces || une.texte.empty()) return d;
    const Vue rouverte = calcule_neuf(reglage, une.texte, une.sel_start);
    return meme_vue(deux, rouverte) ? ""
                                    : "not the same when it is opened again:\n" + deux.texte +
                                          "\n--- and\n" + rouverte.texte;
}

}  // namespace

Soupe tire_soupe(std::uint64_t graine) {
    Tirage t(graine + 2'000'000);
    Soupe soupe;
    soupe.texte = tire_texte(t);
    soupe.reglage = tire_reglage(t);
    soupe.curseur = static_cast<std::size_t>(t.entre(0, static_cast<int>(soupe.texte.size())));
    return soupe;
}

int essaie_soupes(int nombre) {
    int fautes = 0;
    for (int i = 1; i <= nombre && fautes < 3; ++i) {
        const Soupe soupe = tire_soupe(static_cast<std::uint64_t>(i));
        const Defaut defaut = verifie_soupe(soupe);
        if (defaut.empty()) continue;
        std::cout << "FAILED words, seed " << i << ": " << vers_utf8(defaut) << "\n--- sheet\n"
                  << vers_utf8(soupe.texte) << "\n---\n";
        ++fautes;
    }
    return fautes;
}
