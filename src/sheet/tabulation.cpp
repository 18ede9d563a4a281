// Tabulation (INC) and area (AIR) of the function on the line below the heading. Change the tables of
// the two lines, resultat_bloc, the heading's variable and muet_erreur.
#include "sheet/tabulation.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "functions/repetition.hpp"
#include "platform/boxes.hpp"
#include "platform/message.hpp"
#include "platform/patience.hpp"
#include "platform/platform.hpp"
#include "sheet/observer.hpp"
#include "sheet/old_result.hpp"
#include "sheet/rendering.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"
#include "state/noted_data.hpp"
#include "state/sheet.hpp"

namespace {

constexpr int kTrapezesParBip = 1000;
constexpr std::string_view kFonctionNonDefinie = "fonction non définie"_fr;

// Brings the function's line into p_formule. Answers false, with the report that is due, when there
// is no function of that variable.
bool ouvre_fonction(std::int16_t numero, int variable) {
    const auto suivante = static_cast<std::int16_t>(numero + 1);
    const std::string texte(feuille.formule_ligne(suivante));
    const char lettre = static_cast<char>('A' + variable - 1);
    if (capitales(texte).find(lettre) == std::string::npos) {
        montre_boite(mots_fonction_inconnue(lettre));
        return false;
    }
    bool correct = true;
    std::string_view garde = texte;
    effaceEgalite(garde, signes_de(texte), suivante, correct);
    if (!correct) {
        moteur.erreur_formule = true;
        return false;
    }
    feuille.formule_ligne.pose(suivante, sans_blancs(feuille.formule_ligne(suivante)));
    const std::string_view formule = feuille.formule_ligne(suivante);
    if (formule.empty()) return false;
    prepare_formule(formule);
    TestVariable();
    return true;
}

// Reads the three arguments of the heading. Answers false when it can't be calculated.
bool lis_arguments_entete(std::int16_t numero, int variable) {
    if (variable < 1 || variable > 26) {
        montre_boite("erreur de syntaxe"_fr);
        return false;
    }
    if (numero == feuille.nombre_ligne) return false;
    evalue_formule();
    fige_releve();
    return !moteur.erreur_formule;
}

// Neither line has a result of its own.
void vide_resultats(std::int16_t numero) {
    for (int i = numero; i <= numero + 1; ++i) {
        feuille.valeur_ligne(i) = 0;
        feuille.resultat_ligne.pose(i, {});
    }
}

// One row of the table: "f(x) = value", with x in the current number mode too.
void ajoute_rangee(std::int16_t numero, double x) {
    const auto suivante = static_cast<std::int16_t>(numero + 1);
    note_rangee(x, feuille.valeur_ligne(numero));
    affiche_valeur(numero);
    feuille.valeur_ligne(suivante) = x;
    affiche_valeur(suivante);
    std::string& bloc = feuille.resultat_bloc;
    if (!bloc.empty()) bloc += "\r\n";
    const std::string_view texte_x = feuille.resultat_ligne(suivante);
    if (texte_x.size() > 3) (bloc += "f(").append(texte_x, 3);
    else bloc += "f(";
    (bloc += ')') += feuille.resultat_ligne(numero);
}

// Value of the function where the variable is x. Answers false when it has none there.
bool evalue_en(Repetition& fonction, double x, double& valeur) {
    moteur.valeur_variable[static_cast<std::size_t>(fonction.variable)] = x;
    valeur = fonction.evalue();
    return !moteur.erreur_formule;
}

// As many rows as a block takes, at most `nombre`. Leaves x at the last one. False, and nothing done, when one of them
// has to be evaluated alone.
bool remplit_bloc(Repetition& fonction, std::int16_t numero, double& x, double pas, std::size_t nombre) {
    std::array<double, kTailleBloc> points, valeurs;
    points[0] = x;
    for (std::size_t i = 1; i < nombre; ++i) points[i] = points[i - 1] + pas;
    if (!std::isfinite(points[nombre - 1]) || !fonction.evalue_bloc(points.data(), valeurs.data(), nombre)) return false;
    for (std::size_t i = 0; i < nombre; ++i) {
        fonction.note(points[i], valeurs[i]);
        feuille.valeur_ligne(numero) = valeurs[i];
        ajoute_rangee(numero, points[i]);
    }
    x = points[nombre - 1];
    return true;
}

// The rows of a table. False when the function has no value in one of them.
bool remplit_table(Repetition& fonction, std::int16_t numero, double x, double pas, int nombre) {
    bool par_blocs = true;
    for (int i = 1; i <= nombre; ++i) {
        const int suite = std::min(nombre - i + 1, static_cast<int>(kTailleBloc));
        par_blocs = par_blocs && remplit_bloc(fonction, numero, x, pas, static_cast<std::size_t>(suite));
        if (par_blocs) {
            i += suite - 1;
        } else {
            if (!evalue_en(fonction, x, feuille.valeur_ligne(numero))) return false;
            ajoute_rangee(numero, x);
        }
        range(x, x + pas, x, pas);
    }
    return true;
}

// Shows why the function of the line below the heading can't be used: that line is at fault.
void montre_refus(std::string_view texte) {
    note_faute_ligne(texte, static_cast<std::int16_t>(feuille.ligne_courante + 1));
    montre_boite(texte);
}

// Probes an end of the interval, or 0 within it; the box names it when the function has no value there.
// Kept: see the oddities, air-probes.
bool sonde(Repetition& fonction, double x, std::string_view nom) {
    double valeur = 0;
    if (evalue_en(fonction, x, valeur)) return true;
    if (!patience.abandonnee) montre_refus(std::string("f("_fr).append(nom).append(") non défini"_fr));
    return false;
}

bool sonde_intervalle(Repetition& fonction, double x1, double x2) {
    return sonde(fonction, x1, "x1"_fr) && sonde(fonction, x2, "x2"_fr) &&
           (!(x1 < 0 && x2 > 0) || sonde(fonction, 0, "0"_fr));
}

// A sign of life every thousand trapezoids: one beep where k is a multiple of a thousand (beyond 2^53
// k stands still). Answers true when the user gives up waiting.
bool donne_signe(double k, int& tours) {
    if (++tours < kTrapezesParBip) return false;
    tours = 0;
    if (std::fmod(k, kTrapezesParBip) == 0) port.boites.bip();
    return abandonne();
}

// How many trapezoids, of `nombre` from k on, are added before the next sign of life, at most a block: none where k
// no longer counts.
int trapezes_du_bloc(double k, double nombre, int tours) {
    if (nombre > 0x1p53) return 0;
    const int muets = std::min(kTrapezesParBip - 1 - tours, static_cast<int>(kTailleBloc) - 1);
    return static_cast<int>(std::min<double>(muets, nombre - k + 1));
}

// Adds `nombre` trapezoids from k on to the sum, each point evaluated once. False, and nothing done, when one of them
// has to be evaluated alone.
bool ajoute_bloc(Repetition& fonction, double k, int nombre, double x1, double h, double& somme) {
    std::array<double, kTailleBloc> x, y;
    const auto dernier = static_cast<std::size_t>(nombre);
    for (int i = 0; i <= nombre; ++i) x[static_cast<std::size_t>(i)] = (k - 1 + i) * h + x1;
    if (!std::isfinite(x[0]) || !std::isfinite(x[dernier]) || !fonction.evalue_bloc(x.data(), y.data(), dernier + 1))
        return false;
    double total = somme;
    for (std::size_t i = 0; i < dernier; ++i) total += (y[i] + y[i + 1]) / 2 * h;
    if (!std::isfinite(total)) return false;
    somme = total;
    fonction.note_serie(x[dernier - 1], y[dernier - 1], x[dernier], y[dernier], 2 * nombre);
    return true;
}

// Adds one trapezoid, both of whose ends are evaluated. False when the function has no value there.
bool ajoute_trapeze(Repetition& fonction, double k, double x1, double h, double& somme) {
    double a = 0, b = 0, x = 0;
    range(x, (k - 1) * h + x1, h, x1);
    if (!evalue_en(fonction, x, a)) return false;
    range(x, h * k + x1, h, x1);
    if (!evalue_en(fonction, x, b)) return false;
    range(somme, somme + (a + b) / 2 * h, somme, a, b, h);
    return true;
}

// Adds up the trapezoids in valeur_ligne of the heading. Answers false when the sum can't be finished: the
// function has no value, or the user gives up.
bool somme_trapezes(Repetition& fonction, std::int16_t numero, double x1, double h, double nombre) {
    double& somme = feuille.valeur_ligne(numero);
    somme = 0;
    int tours = 0;
    bool par_blocs = true;
    for (double k = 1; k <= nombre;) {
        const int suite = par_blocs ? trapezes_du_bloc(k, nombre, tours) : 0;
        if (suite > 0 && (par_blocs = ajoute_bloc(fonction, k, suite, x1, h, somme))) {
            tours += suite;
            k += suite;
            continue;
        }
        if (donne_signe(k, tours) || !ajoute_trapeze(fonction, k, x1, h, somme)) return false;
        k += 1;
    }
    return true;
}

// Tells why the sum wasn't finished; the rest of the sheet is only copied.
void refuse_somme() {
    if (patience.abandonnee)
        signale_defaillance(kCommande, kAbandon);
    else
        montre_refus(kFonctionNonDefinie);
    moteur.erreur_formule = true;
}

}  // namespace

void CalculInc(std::int16_t numero, int variable) {
    if (!lis_arguments_entete(numero, variable)) return;
    const std::int16_t nombre = vers_16_arrondi(moteur.l_argument3);
    if (nombre < 1) {
        montre_boite("nombre d'incrément < = 0"_fr);
        return;
    }
    const double debut = moteur.l_argument1, pas = moteur.l_argument2;
    if (!ouvre_fonction(numero, variable)) return;
    moteur.variable_definie[static_cast<std::size_t>(variable)] = true;
    feuille.resultat_bloc.clear();
    note_intervalle(variable, debut, debut + pas * (nombre - 1), false);
    moteur.muet_erreur = true;
    Repetition fonction(variable);
    if (!remplit_table(fonction, numero, debut, pas, nombre)) {
        if (!patience.abandonnee) {
            note_faute_ligne(kFonctionNonDefinie, static_cast<std::int16_t>(numero + 1));
            dit(kFonctionNonDefinie);
        }
        feuille.resultat_bloc.clear();
    }
    fonction.termine();
    moteur.muet_erreur = false;
    vide_resultats(numero);
}

void Calculair(std::int16_t numero, int variable) {
    if (!lis_arguments_entete(numero, variable)) return;
    const double x1 = moteur.l_argument1, x2 = moteur.l_argument2, nombre = moteur.l_argument3;
    if (nombre < 1) {
        montre_boite("nombre de trapèze < = 0"_fr);
        return;
    }
    if (!ouvre_fonction(numero, variable)) return;
    double h = 0;
    range(h, (x2 - x1) / nombre, x2, x1, nombre);
    moteur.variable_definie[static_cast<std::size_t>(variable)] = true;
    note_intervalle(variable, x1, x2, true);
    moteur.muet_erreur = true;
    Repetition fonction(variable);
    if (sonde_intervalle(fonction, x1, x2)) {
        const bool finie = somme_trapezes(fonction, numero, x1, h, nombre);
        fonction.termine();
        if (finie) {
            moteur.muet_erreur = false;
            affiche_valeur(numero);
            return;
        }
        refuse_somme();
    }
    moteur.muet_erreur = false;
}

std::string mots_fonction_inconnue(char lettre) {
    return std::string("fonction de "_fr).append(1, lettre).append(" est inconnue sur la ligne suivante"_fr);
}
