// Single procedures under Google Benchmark: where the time of a line goes.
#include <benchmark/benchmark.h>

#include <string>

#include "base/codepage.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "engine/number_text.hpp"
#include "mixed_sheet.hpp"
#include "program.hpp"
#include "sheet/old_result.hpp"
#include "shell/calculation.hpp"
#include "state/context.hpp"
#include "state/sheet.hpp"

namespace {

// A program whose variables A to Z have values.
void prepare_variables() {
    std::string texte;
    for (char lettre = 'A'; lettre <= 'Z'; ++lettre) (texte += lettre) += "=12.5\r\n";
    temps_passe("variables", texte);
}

void evalue(benchmark::State& etat, const std::string& formule) {
    prepare_variables();
    for (auto _ : etat) {
        moteur.p_formule = formule;  // each evaluation adds its end mark
        benchmark::DoNotOptimize(evalue_formule());
    }
    if (moteur.erreur_formule) etat.SkipWithError("the formula failed");
}
BENCHMARK_CAPTURE(evalue, nombre, "12.5");
BENCHMARK_CAPTURE(evalue, somme, "A+B");
BENCHMARK_CAPTURE(evalue, affectation, "A=B/2+12.5");
BENCHMARK_CAPTURE(evalue, polynome, "X^2+3*X+1");
BENCHMARK_CAPTURE(evalue, parentheses, "((A-B)/(12.5+1)+3)*(7+C)");
BENCHMARK_CAPTURE(evalue, fonctions, "SIN(30)+COS(A)");
BENCHMARK_CAPTURE(evalue, longue, "1.5+2.25+3+A+B+C+4.75+5+6.5+D+E+F");

void test_variable(benchmark::State& etat, const std::string& formule) {
    prepare_variables();
    for (auto _ : etat) {
        moteur.p_formule = formule;
        TestVariable();
        benchmark::DoNotOptimize(moteur.p_formule.data());
    }
}
BENCHMARK_CAPTURE(test_variable, inchangee, "A=B/2+12.5");
BENCHMARK_CAPTURE(test_variable, produit, "3X+2Y");

void format_nombre(benchmark::State& etat, double x) {
    prepare_variables();
    for (auto _ : etat) benchmark::DoNotOptimize(FormatNombre(x));
}
BENCHMARK_CAPTURE(format_nombre, entier, 1250.0);
BENCHMARK_CAPTURE(format_nombre, decimales, 149.9);
BENCHMARK_CAPTURE(format_nombre, irrationnel, 2.0 / 3);
BENCHMARK_CAPTURE(format_nombre, grand, 1.5e250);

void efface_egalite(benchmark::State& etat, std::string_view texte) {
    prepare_variables();
    bool correct = false;
    for (auto _ : etat) {
        std::string_view ligne = texte;
        effaceEgalite(ligne, signes_de(texte), 1, correct);
        benchmark::DoNotOptimize(ligne.data());
    }
    if (!correct) etat.SkipWithError("the line was refused");
}
BENCHMARK_CAPTURE(efface_egalite, sans_resultat, "A=B/2+12.5"_fr);
BENCHMARK_CAPTURE(efface_egalite, resultat, "A=B/2+12.5 = 18.75"_fr);
BENCHMARK_CAPTURE(efface_egalite, commentaire, "A=B/2+12.5 ! moyenne des notes = 18.75"_fr);

void passe(benchmark::State& etat) {
    const std::string texte = cree_feuille_mixte(static_cast<int>(etat.range(0))).texte;
    for (auto _ : etat) etat.SetIterationTime(temps_passe("mixed sheet", texte));
    etat.SetItemsProcessed(etat.iterations() * etat.range(0));
}
BENCHMARK(passe)->Arg(100)->Arg(1000)->Arg(32767)->UseManualTime();

// The pass over what a pass has written: every line carries its old result.
void passe_repetee(benchmark::State& etat) {
    temps_passe("mixed sheet", cree_feuille_mixte(static_cast<int>(etat.range(0))).texte);
    for (auto _ : etat) recalcul();
    exige_reussite("repeated pass");
    etat.SetItemsProcessed(etat.iterations() * etat.range(0));
}
BENCHMARK(passe_repetee)->Arg(100)->Arg(1000)->Arg(32767);

}  // namespace

BENCHMARK_MAIN();
