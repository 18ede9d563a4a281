// The comparisons with muParser, LuaJIT, Lua and bc: the same formulas, each in its own language, and first a
// look at the values, which must be the same.
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "cases.hpp"
#include "measure.hpp"
#include "mixed_sheet.hpp"
#include "program.hpp"
#include "report.hpp"
#include "rivals.hpp"
#include "state/sheet.hpp"

namespace {

constexpr int kLignesMaximum = 32767;
constexpr int kTrapezes = 1000000;

// Every line gives the value that muParser gives.
void verifie_muparser(const FeuilleMixte& f) {
    std::vector<double> valeurs;
    temps_muparser(f.muparser, valeurs);
    for (std::size_t i = 0; i < valeurs.size(); ++i) {
        if (!std::isfinite(valeurs[i])) throw std::runtime_error(f.muparser[i] + " is not finite");
        exige_proche("line " + std::to_string(f.numero[i]) + ", " + f.muparser[i],
                     feuille.valeur_ligne(f.numero[i]), valeurs[i]);
    }
}

// Every line that bc prints has the line's value. bc breaks long numbers with a backslash: none is
// that long here.
void verifie_bc(const FeuilleMixte& f) {
    std::istringstream sortie(sortie_bc(f.bc));
    std::string texte;
    for (std::size_t i = 0; i < f.numero.size(); ++i) {
        if (f.affectation[i]) continue;
        if (!std::getline(sortie, texte)) throw std::runtime_error("bc printed too little");
        exige_proche("bc, line " + std::to_string(f.numero[i]), std::strtod(texte.c_str(), nullptr),
                     feuille.valeur_ligne(f.numero[i]));
    }
    if (std::getline(sortie, texte)) throw std::runtime_error("bc printed too much");
}

// Every formula has the value that a Lua gives.
void verifie_lua(const std::string& nom, const FeuilleMixte& f) {
    std::vector<double> valeurs;
    temps_lua(nom, f.muparser, valeurs);
    for (std::size_t i = 0; i < valeurs.size(); ++i)
        exige_proche(nom + ", " + f.muparser[i], feuille.valeur_ligne(f.numero[i]), valeurs[i]);
}

// How many times slower each program is wanted than this one, a line; 0: its row only informs.
struct Voulu {
    double muparser = 0, luajit = 0, bc = 0;
};

// A row of the times a line of this program and of another, which is wanted `fois` times slower.
void affiche_rival(const std::string& quoi, double ici, double autre, double fois) {
    Rangee r{quoi, duree(ici / kLignesMaximum), duree(autre / kLignesMaximum), autre / ici, "",
             true};
    if (fois > 0) r.voulu = "at least " + decimal(fois, 0);
    if (fois > 0) r.tenu = autre >= fois * ici;
    affiche(r);
}

void note_absent(const std::string& nom) { note(nom + " is not installed: its row is left out"); }

// A pass whose tables get memory that was not in use before.
double temps_premiere_passe(const FeuilleMixte& f) {
    feuille = Feuille{};
    return temps_passe("mixed sheet", f.texte);
}

// Looks at the values once, times the programs in turn and prints a row for each.
void compare_feuille(const FeuilleMixte& f, const Voulu& voulu, int repetitions) {
    const bool bc = bc_present(), luajit = lua_present("luajit"), lua = lua_present("lua5.4");
    temps_passe("mixed sheet", f.texte);
    verifie_muparser(f);
    if (bc) verifie_bc(f);
    if (luajit) verifie_lua("luajit", f);
    if (lua) verifie_lua("lua5.4", f);
    std::vector<double> valeurs;
    std::vector<Cas> cas = {[&] { return temps_passe("mixed sheet", f.texte); },
                            [&] { return temps_muparser(f.muparser, valeurs); },
                            [&] { return luajit ? temps_lua("luajit", f.muparser, valeurs) : 0; },
                            [&] { return lua ? temps_lua("lua5.4", f.muparser, valeurs) : 0; },
                            [&] { return bc ? temps_bc(f.bc) : 0; },
                            [&] { return bc ? temps_bc("") : 0; },
                            [&] { return temps_premiere_passe(f); }};
    const std::vector<double> t = medianes(cas, repetitions);
    affiche_rival("muParser, parse and evaluate once a formula", t[0], t[1], voulu.muparser);
    luajit ? affiche_rival("LuaJIT, load and run each line, two decimals", t[0], t[2], voulu.luajit)
           : note_absent("luajit");
    lua ? affiche_rival("Lua 5.4, the same", t[0], t[3], 0) : note_absent("lua5.4");
    bc ? affiche_rival("bc -l, without its start-up of " + duree(t[5]), t[0], t[4] - t[5], voulu.bc) : note_absent("bc");
    note("a first pass, whose tables take new memory, costs " + duree(t[6] / kLignesMaximum) + " a line");
    if (voulu.muparser > 0 && t[1] < voulu.muparser * t[0])
        note("a line is read character by character: branches that can't be foretold are two fifths of its time");
    if (voulu.bc > 0 && t[4] - t[5] < voulu.bc * t[0])
        note("bc reads a line of plain arithmetic in half a microsecond and needs 6 to 45 for a function: its ratio is that of the mix");
}

// A function whose area is compared: its texts, where the area begins (it is one wide), the part of muParser's time that is
// wanted at most, and of LuaJIT's; 0: that row only informs.
struct Aire {
    std::string fonction, en_muparser;
    double debut, muparser, luajit;
};

void affiche_aire(const std::string& quoi, double ici, double autre, double part) {
    Rangee r{quoi, duree(ici), duree(autre), ici / autre, "", true};
    if (part > 0) r.voulu = "at most " + decimal(part, 1);
    if (part > 0) r.tenu = ici <= part * autre;
    affiche(r);
}

// One function's area beside those of the others. The shared point of two trapezoids has one value: a row tells what
// muParser takes when it knows that too.
void compare_aire(const Aire& a, int repetitions) {
    const std::string texte = "AIRX(" + decimal(a.debut, 0) + "," + decimal(a.debut + 1, 0) + "," +
                              std::to_string(kTrapezes) + ")\r\n" + a.fonction;
    const bool luajit = lua_present("luajit"), lua = lua_present("lua5.4");
    double aire = 0, une_fois = 0, en_luajit = 0, en_lua = 0;
    const auto en = [&](const char* nom, bool present, double& valeur) {
        return present ? temps_aire_lua(nom, a.en_muparser, a.debut, kTrapezes, valeur) : 0;
    };
    const std::vector<double> t = medianes(
        {[&] { return temps_passe("AIR " + a.fonction, texte, kRadian); },
         [&] { return temps_aire_muparser(a.en_muparser, a.debut, kTrapezes, Bouts::deux_fois, aire); },
         [&] { return temps_aire_muparser(a.en_muparser, a.debut, kTrapezes, Bouts::une_fois, une_fois); },
         [&] { return en("luajit", luajit, en_luajit); }, [&] { return en("lua5.4", lua, en_lua); }},
        repetitions);
    for (const double autre : {aire, une_fois, luajit ? en_luajit : aire, lua ? en_lua : aire})
        exige_proche("area of " + a.fonction, feuille.valeur_ligne(1), autre);
    affiche_aire("a million trapezoids over " + a.fonction + ", muParser", t[0], t[1], a.muparser);
    affiche_aire("  muParser evaluating each point once", t[0], t[2], 0);
    luajit ? affiche_aire("  LuaJIT", t[0], t[3], a.luajit) : note_absent("luajit");
    lua ? affiche_aire("  Lua 5.4", t[0], t[4], 0) : note_absent("lua5.4");
}

}  // namespace

void compare_feuille_mixte(int repetitions) {
    const FeuilleMixte f = cree_feuille_mixte(kLignesMaximum);
    titre("A sheet of 32,767 mixed lines, " + milliers(static_cast<int>(f.numero.size())) +
          " of them formulas; times are per line of the sheet; ratio is beside / here");
    compare_feuille(f, {.muparser = 20, .luajit = 4, .bc = 30}, repetitions);
}

void compare_feuille_fonctions(int repetitions) {
    const FeuilleMixte f = cree_feuille_mixte(kLignesMaximum, Melange::fonctions);
    titre("The same, but every formula calls a function or uses Pi");
    compare_feuille(f, {.bc = 80}, repetitions);
}

void compare_aires(int repetitions) {
    titre("Areas in radians beside the same sums of others; ratio is here / beside");
    compare_aire({"3X+SIN(X)/2", "3*X+sin(X)/2", 0, 1.0, 1.0}, repetitions);
    compare_aire({"X^2+3X+1", "X^2+3*X+1", 0, 0.8, 0}, repetitions);
    note("LuaJIT multiplies; a power here goes through logarithm and exponential, which is part of its digits");
    compare_aire({"SIN(X)*EXP(-X)+LN(X)", "sin(X)*exp(-X)+ln(X)", 1, 1.0, 1.0}, repetitions);
}
