// Which loops run, and the functions that have none. Changes `jeu_de_boucles` at the start.
#include "functions/block.hpp"

#include "functions/formulas.hpp"
#include "functions/table.hpp"

bool jeu_present(Jeu jeu) {
#if defined(__x86_64__)
    return jeu == Jeu::commun || __builtin_cpu_supports("avx2");
#else
    return jeu == Jeu::commun;
#endif
}

Jeu jeu_de_boucles = jeu_present(Jeu::avx2) ? Jeu::avx2 : Jeu::commun;

bool calcule_bloc(const Operation* operations, std::size_t nombre, double* cases, std::size_t n) {
#if defined(__x86_64__)
    if (jeu_de_boucles == Jeu::avx2) return calcule_bloc_avx2(operations, nombre, cases, n);
#endif
    return calcule_bloc_commun(operations, nombre, cases, n);
}

bool applique_fonction(int rang, const double* x, double* y, std::size_t n) {
    const LigneFonction& f = ligne_fonction(rang);
    ArithmetiqueSimple calcul;
    for (std::size_t i = 0; i < n; ++i) {
        if (f.domaine.exclut_simple != nullptr && f.domaine.exclut_simple(x[i], calcul)) return false;
        y[i] = f.valeur.simple(x[i], calcul);
    }
    return true;
}
