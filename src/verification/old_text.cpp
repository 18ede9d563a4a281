// Tells a pass's results from what a user typed, by their forms.
#include "verification/old_text.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "engine/reading.hpp"
#include "sheet/old_blocks.hpp"
#include "state/matrices.hpp"
#include "verification/problem.hpp"

namespace {

constexpr auto npos = std::string_view::npos;

// How the texts of errors begin that a pass writes behind a line.
constexpr auto kErreurs = std::to_array<std::string_view>({
    "attend fact"_fr, "manque"_fr, "Manque"_fr, "division par 0"_fr, "Erreur de puissance"_fr,
    "une seule matrice"_fr, "Pourcentage que"_fr, "addition uniquement"_fr, "Soustraction uniquement"_fr,
    "matrice "_fr, "variable "_fr, "Argument incorrect"_fr, "argument "_fr, "Chaine ambigue"_fr,
    "constante erronee"_fr, "Nombre de"_fr, "erreur élément"_fr, "statx"_fr, "fonction "_fr, "Fonction "_fr,
    "effectif négatif"_fr, "2 variables"_fr, "StatX précédente"_fr, "multiplication"_fr, "calcul interrompu"_fr,
});

bool est_erreur(std::string_view texte) {
    return std::ranges::any_of(kErreurs, [&](std::string_view debut) { return texte.starts_with(debut); });
}

// True for the elements or the bounds of a matrix as a result has them.
bool est_matrice(std::string_view texte) {
    return texte.find(',') != npos && texte.find_first_not_of("0123456789ABCDEFINPi/.,;+- ") == npos;
}

// Where the result ends with which what was cut begins; npos when it begins with none.
std::size_t fin_du_resultat(std::string_view queue) {
    const bool matrice = queue.starts_with("==");
    if (!matrice && !queue.starts_with(" =")) return npos;
    const std::string_view corps = queue.substr(2);
    const std::size_t debut = std::min(corps.find_first_not_of(' '), corps.size());
    const std::string_view mots = corps.substr(debut);
    if (mots.empty()) return matrice ? npos : queue.size();
    const bool chiffre = mots[0] == '-' || est_chiffre(mots[0]);
    if (chiffre && debut == 1 && !matrice && mots.find_first_of(" ,") == npos) return est_valeur(mots) ? queue.size() : npos;
    if (est_erreur(mots)) return queue.size();
    const std::size_t egal = mots.find(" =");
    if (egal != npos && est_matrice(mots.substr(0, egal)) && est_matrice(mots.substr(egal + 2))) return queue.size();
    const std::string_view mot = mots.substr(0, mots.find(' '));
    if (debut == 0 && !matrice && !est_matrice(mot)) return npos;   // a number has a blank in front
    if (est_matrice(mots)) return queue.size();
    return est_valeur(mot) ? 2 + debut + mot.size() : npos;
}

// The formula, or nothing where it isn't read as it stands.
std::string si_lisible(std::string formule) {
    const FormuleRelevee lue = lit_formule(formule);
    const std::vector<std::size_t> places = places_dans_le_texte(formule, lue.formule);
    if (lue.erreur || premier_probleme({formule, lue.formule, lue.releve, false, places})) return {};
    return formule;
}

}  // namespace

bool est_resultat_de(const LigneObservee& o) {
    const std::string_view queue = o.entiere.substr(o.ligne.size());
    if (o.erreur || o.resultat.size() < 4 || queue.size() < 4 || queue[0] != ' ' || queue[1] != '=' || queue[2] != ' ') return false;
    const std::size_t debut = queue[3] == '-' ? 4 : 3;
    bool figures = debut < queue.size() && queue[debut] != '.';
    for (const char c : queue.substr(debut)) figures &= est_chiffre(c) || c == '.';
    return figures;
}

bool est_mot(std::string_view texte) {
    return !texte.empty() && std::ranges::all_of(texte, est_lettre_de_mot);
}

std::string affectation_voulue(std::string_view mot, std::string_view queue) {
    const std::string_view valeur = sans_blancs(queue.substr(queue.find('=') + 1));
    const bool matrice = mot.size() == 2 && capitale(mot[0]) == 'M' && TestCarMatrice(capitales(mot.substr(1)));
    std::string texte = std::string(mot.substr(0, matrice ? 2 : 1)) + "=" + std::string(valeur);
    return si_lisible(std::move(texte));
}

namespace {

// What the user has typed from the "=" on, behind a formula, a word or a comment.
TexteEfface tape(const LigneObservee& o, std::string_view queue) {
    TexteEfface efface{.genre = GenreConstat::texte_efface, .place = o.ligne.size() + queue.find('='), .morceau = {}, .propose = {}};
    efface.morceau = sans_blancs(queue);
    if (efface.morceau == "=") return {};   // typed as on a calculator: nothing is lost with it
    if (o.formule.find('=') != npos && o.formule.size() == o.ligne.size()) {
        efface.genre = GenreConstat::deux_egal;
        efface.morceau = o.entiere;
    }
    if (o.role == RoleLigne::fonction && o.formule.find('=') == npos)
        efface.propose = "DEFFON" + std::string(sans_blancs(queue.substr(queue.find('='))));
    if (o.role == RoleLigne::fonction || !est_mot(o.ligne)) return efface;
    efface.genre = GenreConstat::affectation_perdue;
    efface.morceau = o.entiere;
    efface.propose = affectation_voulue(o.ligne, queue);
    return efface;
}

// Where the operand in front of `fin` begins: brackets with the name of their function, or figures and letters.
std::size_t debut_operande(std::string_view texte, std::size_t fin) {
    const auto mot = [&](std::size_t i) {
        while (i > 0 && (est_chiffre(texte[i - 1]) || texte[i - 1] == '.' || est_lettre_de_mot(texte[i - 1]))) --i;
        return i;
    };
    if (fin == 0 || texte[fin - 1] != ')') return mot(fin);
    int profondeur = 0;
    for (std::size_t i = fin; i-- > 0;) {
        if (texte[i] == ')') ++profondeur;
        if (texte[i] == '(' && --profondeur == 0) return mot(i);
    }
    return fin;
}

}  // namespace

TexteEfface texte_efface(const LigneObservee& o) {
    const std::string_view queue = o.entiere.substr(o.ligne.size());
    if (est_resultat_de(o)) return {};
    if (queue.find('=') == npos || sans_blancs(queue) == sans_blancs(o.resultat)) return {};
    // Behind the very result that the pass writes again, errors too.
    const bool encore = !o.resultat.empty() && queue.starts_with(o.resultat) && queue.substr(o.resultat.size()).starts_with(' ');
    const std::size_t fin = encore ? o.resultat.size() : fin_du_resultat(queue);
    if (fin == npos) return tape(o, queue);
    const std::string_view reste = sans_blancs(queue.substr(fin));
    // "A = 1 + 1" goes on calculating behind what could be a result of a word alone.
    if (!encore && est_mot(o.ligne) && reste.find_first_of("+-*/^") == 0) return tape(o, queue);
    if (!reste.empty())
        return {.genre = GenreConstat::texte_efface, .place = static_cast<std::size_t>(reste.data() - o.entiere.data()),
                .morceau = std::string(reste), .propose = {}};
    // "A = 5" is no result where A has none.
    const std::string_view valeur = sans_blancs(queue.substr(std::min<std::size_t>(2, queue.size())));
    if (o.erreur && o.ligne.size() == 1 && est_mot(o.ligne) && !valeur.empty() && est_valeur(valeur)) return tape(o, queue);
    return {};
}

std::string avec_factorielles(std::string_view ligne) {
    std::string texte(ligne);
    for (std::size_t i = texte.find('!'); i != npos; i = texte.find('!')) {
        std::size_t fin = i;
        while (fin > 0 && texte[fin - 1] == ' ') --fin;
        const std::size_t debut = debut_operande(texte, fin);
        if (debut == fin) return {};
        const std::string operande = texte.substr(debut, fin - debut);
        const std::string appel = operande.front() == '(' ? "FACT" + operande : "FACT(" + operande + ")";
        texte.replace(debut, i + 1 - debut, appel);
    }
    return si_lisible(std::move(texte));
}
