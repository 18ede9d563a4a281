// The comparisons with muParser and bc: the same formulas, each in its own language, and first a
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

// Medians of the passes over one sheet, in seconds. Without bc its times are 0.
struct Temps {
    double ici = 0;
    double muparser = 0;
    double bc = 0;  // less the start-up
    double depart_bc = 0;
};

// Looks at the values once, then times the three programs in turn.
Temps compare_feuille(const FeuilleMixte& f, int repetitions) {
    const bool bc = bc_present();
    temps_passe("mixed sheet", f.texte);
    verifie_muparser(f);
    if (bc) verifie_bc(f);
    std::vector<double> valeurs;
    std::vector<Cas> cas = {[&] { return temps_passe("mixed sheet", f.texte); },
                            [&] { return temps_muparser(f.muparser, valeurs); }};
    if (bc) {
        cas.push_back([&] { return temps_bc(f.bc); });
        cas.push_back([] { return temps_bc(""); });
    }
    const std::vector<double> t = medianes(cas, repetitions);
    if (!bc) return {t[0], t[1], 0, 0};
    return {t[0], t[1], t[2] - t[3], t[3]};
}

// A row of the times a line of this program and of another, which is wanted `fois` times slower; 0:
// the row only informs.
void affiche_rival(const std::string& quoi, double ici, double autre, double fois) {
    Rangee r{quoi, duree(ici / kLignesMaximum), duree(autre / kLignesMaximum), autre / ici, "",
             true};
    if (fois > 0) r.voulu = "at least " + decimal(fois, 0);
    if (fois > 0) r.tenu = autre >= fois * ici;
    affiche(r);
}

void affiche_rivaux(const Temps& t, double fois_muparser, double fois_bc) {
    affiche_rival("muParser, parse and evaluate once a formula", t.ici, t.muparser, fois_muparser);
    if (t.bc > 0)
        affiche_rival("bc -l, without its start-up of " + duree(t.depart_bc), t.ici, t.bc, fois_bc);
    else
        note("bc is not installed: its row is left out");
}

// One function's area beside muParser's; wanted at most `fois` times its time. The shared point of
// two trapezoids has one value: a second row tells what muParser takes when it knows that too.
void compare_aire(const std::string& fonction, const std::string& fonction_mu, double fois,
                  int repetitions) {
    const std::string texte = "AIRX(0,1," + std::to_string(kTrapezes) + ")\r\n" + fonction;
    double aire = 0, aire_une_fois = 0;
    const std::vector<double> t = medianes(
        {[&] { return temps_passe("AIR " + fonction, texte, kRadian); },
         [&] { return temps_aire_muparser(fonction_mu, kTrapezes, Bouts::deux_fois, aire); },
         [&] {
             return temps_aire_muparser(fonction_mu, kTrapezes, Bouts::une_fois, aire_une_fois);
         }},
        repetitions);
    exige_proche("area of " + fonction, feuille.valeur_ligne(1), aire);
    exige_proche("area of " + fonction + " by single points", aire_une_fois, aire);
    affiche({"AIRX(0,1,1000000) over " + fonction, duree(t[0]), duree(t[1]), t[0] / t[1],
             "at most " + decimal(fois, 1), t[0] <= fois * t[1]});
    affiche({"  beside muParser evaluating each point once", duree(t[0]), duree(t[2]), t[0] / t[2],
             "", true});
}

}  // namespace

void compare_feuille_mixte(int repetitions) {
    const FeuilleMixte f = cree_feuille_mixte(kLignesMaximum);
    const Temps t = compare_feuille(f, repetitions);
    titre("A sheet of 32,767 mixed lines, " + milliers(static_cast<int>(f.numero.size())) +
          " of them formulas; times are per line of the sheet; ratio is beside / here");
    // The microsecond belongs to a machine where muParser takes four.
    const double but = t.muparser / 4;
    affiche({"the whole pass", duree(t.ici / kLignesMaximum), "", 0,
             "at most " + duree(but / kLignesMaximum) + " (1 us where muParser takes 4)",
             t.ici <= but});
    affiche_rivaux(t, 4, 40);
}

void compare_feuille_fonctions(int repetitions) {
    const Temps t =
        compare_feuille(cree_feuille_mixte(kLignesMaximum, Melange::fonctions), repetitions);
    titre("The same, but every formula calls a function or uses Pi (to read the ratios above by)");
    affiche_rivaux(t, 0, 0);
}

void compare_aires(int repetitions) {
    titre("Areas in radians beside the same sums over muParser's bytecode; ratio is here / beside");
    compare_aire("3X+SIN(X)/2", "3*X+sin(X)/2", 1.0, repetitions);
    compare_aire("X^2+3X+1", "X^2+3*X+1", 2.0, repetitions);
}
