// The one user function of a sheet: a text with one variable. A call binds the variable, which keeps
// its value, and evaluates the text again. Changes `moteur`.
#include "functions/user_function.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "platform/platform.hpp"
#include "state/context.hpp"
#include "state/formula_error.hpp"
#include "state/pass_result.hpp"

namespace {

// How deep calls may come: always the same, so that a sheet gives the same on every system. The stack
// that the program gives itself holds as many, with fifty kilobytes for each.
constexpr int kAppelsMaxi = 10000;

// Room for one more call, where the system gave less stack or a call needs more, so that a function
// without end is stopped here and not in a bracket of it.
constexpr std::size_t kReserveAppel = 1u << 20;

// The flag stays as it was: only the box tells of a failure here.
constexpr Procedure kMotsFon{"sur fon"_fr, false};

// Writes a refusal of the definition after the line in calculation.
void refuse_definition(std::string_view texte) {
    Tente(kCalculChaine, [&] { pose_resultat_courant(texte); });
    moteur.erreur_formule = true;
}

// A function that calls itself goes on until it comes too deep: that call shows the box and gives 0,
// and so do without a word the calls that those around it have still to make, which would be countless.
bool appels_finis() noexcept {
    if (moteur.appels_epuises) return true;
    moteur.appels_epuises = !Tente(kMotsFon, [] {
        if (moteur.appels_fon >= kAppelsMaxi || !reste_pile(kReserveAppel)) echoue(kPile);
    });
    return moteur.appels_epuises;
}

}  // namespace

void DefFon() noexcept {
    const std::size_t egal = moteur.p_formule.find('=');
    if (egal == std::string::npos) {
        refuse_definition(" = manque le ="_fr);
        return;
    }
    moteur.fonction_active = 0;   // a new definition replaces the old one
    moteur.definition_fonction_active = true;
    Tente(kCalculChaine, [&] {
        moteur.p_formule = sans_blancs(std::string(moteur.p_formule, egal + 1));
        moteur.nom_fonction = moteur.p_formule;
    });
    // The scan only looks for the variable: its value is thrown away, and errors are silent.
    evalue_formule();
    moteur.definition_fonction_active = false;
    if (moteur.fonction_active == 0) {
        refuse_definition(" = variable inconnue"_fr);
        moteur.nom_fonction.clear();
    }
}

void fon(double valeur, double& resultat) noexcept {
    resultat = 0;
    if (moteur.nom_fonction.empty()) {
        affiche_erreur_calcul("Fonction inconnue"_fr);
        return;
    }
    const auto rang = static_cast<std::size_t>(moteur.fonction_active);
    moteur.valeur_variable[rang] = valeur;
    moteur.variable_definie[rang] = true;
    if (appels_finis()) return;
    const bool deja_fautif = moteur.faute.notee;
    Registres& registres = moteur;
    Registres appelant = std::move(registres);
    Releve* const releve = std::exchange(moteur.releve, nullptr);   // the record is that of the line
    ++moteur.appels_fon;
    Tente(kMotsFon, [] {
        moteur.p_formule = moteur.nom_fonction;
        TestVariable();
    });
    resultat = evalue_formule();
    registres = std::move(appelant);
    if (!deja_fautif) place_faute_a_l_appel();
    moteur.releve = releve;
    if (--moteur.appels_fon == 0) moteur.appels_epuises = false;
}
