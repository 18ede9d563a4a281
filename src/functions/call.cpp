// Reads a call in the protocol of its function and computes it. Changes the registers of `moteur`.
#include "functions/call.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "engine/notes.hpp"
#include "engine/reader.hpp"
#include "functions/formulas.hpp"
#include "functions/table.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"

namespace {

// Reads the arguments after the first one, which is in l_valeur. False, and reported, when one is missing.
bool lis_autres_arguments(Lecture lecture) {
    switch (lecture) {
        case Lecture::inconnue:
        case Lecture::nom_seul:
        case Lecture::un:
        case Lecture::groupes: return true;
        case Lecture::deux:
        case Lecture::trois: break;
    }
    moteur.l_argument1 = moteur.l_valeur;
    return lis_argument(moteur.l_argument2) &&
           (lecture == Lecture::deux || lis_argument(moteur.l_argument3));
}

// The value of a formula at x, or the refusal of x.
Fin par_formule(const LigneFonction& f, double x, double& resultat) {
    ArithmetiqueSurveillee calcul;
    if (f.domaine.exclut_surveille != nullptr && f.domaine.exclut_surveille(x, calcul)) {
        affiche_erreur_calcul(f.domaine.mots);
        return f.domaine.fin;
    }
    calcul.infini = false;
    Tente(kCompileF, [&] {
        resultat = f.valeur.surveillee(x, calcul);
        if (!std::isfinite(resultat))
            refuse_resultat(resultat, calcul.infini || std::isinf(x), std::isnan(x));
    });
    return Fin::cloture;
}

// The value of a function on its first argument, which is in l_valeur; its name stands at `debut`.
Fin calcule(const LigneFonction& f, std::int16_t debut, double& resultat) {
    const double x = moteur.l_valeur;
    moteur.debut_calcul = debut;
    if (f.valeur.procedure == nullptr) return par_formule(f, x, resultat);
    if (!lis_autres_arguments(f.lecture)) return Fin::immediate;
    moteur.debut_calcul = debut;
    const Fin fin = f.valeur.procedure(x, resultat);
    return f.lecture == Lecture::groupes ? Fin::immediate : fin;   // they have read their own bracket
}

// Reads the brackets and what stands in them, and computes. Leaves the place of the "(" in `parenthese`.
double lis_appel(const LigneFonction& ligne, std::int32_t& parenthese) {
    const std::int16_t debut = moteur.debut_symbole;
    double resultat = 0;
    lis_symbole();
    if (moteur.l_symbole != "(") {
        affiche_erreur_formule("Manque une ("_fr);
        return 0;
    }
    parenthese = place_symbole();
    lis_symbole();
    moteur.l_valeur = Compile_un_argument();
    moteur.type_f = ligne.numero;
    if (calcule(ligne, debut, resultat) == Fin::immediate) return resultat;
    if (moteur.l_symbole == ")")
        lis_symbole();
    else
        affiche_erreur_formule("manque )"_fr);
    return resultat;
}

}  // namespace

double compile_f() noexcept {
    const LigneFonction& ligne = ligne_fonction(moteur.type_f);
    const std::int32_t debut = place_symbole();
    const std::size_t parts = parts_relevees();
    std::int32_t parenthese = 0;
    double resultat = 0;
    if (ligne.lecture == Lecture::nom_seul) {
        ligne.valeur.procedure(0, resultat);
        lis_symbole();
    } else {
        resultat = lis_appel(ligne, parenthese);
    }
    note_appel(ligne.numero, debut, parenthese, parts, resultat);
    return resultat;
}
