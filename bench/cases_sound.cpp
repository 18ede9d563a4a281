// The sound of a curve beside what its listener waits for: the samples alone, and all that lies between the key and
// the first of them.
#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "cases.hpp"
#include "measure.hpp"
#include "program.hpp"
#include "report.hpp"
#include "study/curve.hpp"
#include "study/sheet_function.hpp"
#include "study/sound.hpp"

namespace {

constexpr double kBut = 0.020;   // seconds of the processor for three seconds of sound

// A sheet with one function, with what makes its sound dear.
struct Entendue {
    const char* quoi;
    std::string feuille;
};

CourbeDeFeuille lis(const std::string& feuille) {
    CourbeDeFeuille c;
    const auto fonction = fonction_au_curseur(feuille, 1);
    if (!fonction || !lis_courbe(feuille, *fonction, "", c).empty()) throw std::runtime_error("no curve: " + feuille);
    return c;
}

// Seconds of `action`, whose samples are those of three seconds and more.
template <class Action>
double temps_echantillons(Action&& action) {
    const double debut = temps_processeur();
    const Echantillons son = action();
    const double secondes = temps_processeur() - debut;
    if (son.size() < static_cast<std::size_t>(2 * 3 * kCadence)) throw std::runtime_error("the sound is too short");
    return secondes;
}

}  // namespace

void mesure_son(int repetitions) {
    const Entendue feuilles[] = {{"a parabola", "INCX(-2,0.5,9)\r\nX^2-1"},
                                 {"zeros, extremes and units", "INCX(0,60,121)\r\nSIN(X)"},
                                 {"a pole and no value", "INCX(-4,0.5,17)\r\nSQRT(X)+1/(X-1)"}};
    titre("Three seconds of a curve's sound; beside: the curve read from the sheet, and its samples");
    for (const Entendue& e : feuilles) {
        prepare_programme("");
        const CourbeDeFeuille lue = lis(e.feuille);
        const auto rendus = [&] { return temps_echantillons([&] { return joue_courbe(lue.courbe, {}); }); };
        const auto tout = [&] { return temps_echantillons([&] { return joue_courbe(lis(e.feuille).courbe, {}); }); };
        const std::vector<double> t = medianes({rendus, tout}, repetitions);
        affiche({e.quoi, duree(t[0]), duree(t[1]), 0, "at most " + duree(kBut), t[0] <= kBut});
    }
}
