// The rules of plain arithmetic, read into operations. Changes p_position, l_symbole and type_f of `moteur`.
#include "functions/repetition_reader.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "engine/reader.hpp"
#include "functions/angles.hpp"
#include "functions/table.hpp"
#include "state/context.hpp"

namespace {

constexpr int kProfondeurMaxi = 40;           // brackets and calls one in the other
constexpr std::size_t kFormuleMaxi = 20'000;  // characters; longer ones are read each time

// A rule "operand { operator operand }" of the grammar: its operators and their operations. Its operands are
// what the next rule reads, those of the last one are factors. The first rule adds up into the running sum.
struct Regle {
    std::string_view operateurs;
    std::array<Genre, 2> genres;
};
constexpr std::array<Regle, 3> kRegles = {{{"+-", {Genre::ajoute, Genre::retranche}},
                                           {"*/", {Genre::multiplie, Genre::divise}},
                                           {"^", {Genre::eleve, Genre::eleve}}}};

// The functions that have a loop of their own; what they refuse gives an infinite or undefined value. A test
// compares each with its row of the table.
struct Boucle {
    Fonction fonction;
    Genre genre;
    bool angle;   // the argument is an angle
};
constexpr std::array<Boucle, 6> kBoucles = {{{kExp, Genre::exponentielle, false},
                                             {kLn, Genre::logarithme, false},
                                             {kSin, Genre::sinus, true},
                                             {kCos, Genre::cosinus, true},
                                             {kSqrt, Genre::racine, false},
                                             {kAbs, Genre::absolue, false}}};

class Lecteur {
public:
    explicit Lecteur(int variable) : variable_(variable) {}

    // The steps, or none.
    FormuleLue lis() {
        const std::string& formule = moteur.p_formule;
        if (formule.size() > kFormuleMaxi || formule.find('@') != std::string::npos) return {};
        commence_lecture();
        suivant();
        lis_cible();
        expression();
        if (!moteur.l_symbole.empty()) refuse_ = true;   // something is left after the expression
        if (lue_.cible != 0 && lues_[static_cast<std::size_t>(lue_.cible)]) refuse_ = true;
        if (!refuse_) lue_.programme = assembleur_.finis();
        return std::move(lue_);
    }

private:
    void suivant() {
        p_lis_symbole();
        fonction_ = test_fonction();
    }
    char premier() const { return tete_symbole(); }

    // "Y=" in front of the formula.
    void lis_cible() {
        const std::string& formule = moteur.p_formule;
        if (formule.size() < 2 || formule[1] != '=' || formule[0] < 'A' || formule[0] > 'Z') return;
        lue_.cible = rang_lettre(formule[0]);
        if (lue_.cible == variable_) refuse_ = true;
        suivant();
        suivant();
    }

    // The operators of a rule after its first operand, each with the operand on its right.
    void operateurs(std::size_t regle) {
        while (!refuse_) {
            const std::size_t rang = kRegles[regle].operateurs.find(premier());
            if (rang == std::string_view::npos) return;
            suivant();
            operande(regle);
            if (refuse_) return;
            const Genre genre = kRegles[regle].genres[rang];
            regle == 0 ? assembleur_.cumule(genre) : assembleur_.deux(genre);
        }
    }

    // An operand of a rule.
    void operande(std::size_t regle) {
        if (regle + 1 == kRegles.size()) return facteur();
        operande(regle + 1);
        operateurs(regle + 1);
    }

    void expression() {
        if (++profondeur_ > kProfondeurMaxi) refuse_ = true;
        const char signe = premier();
        if (signe == '+' || signe == '-') suivant();
        operande(0);
        if (!refuse_) assembleur_.commence_somme(signe == '-');
        operateurs(0);
        --profondeur_;
    }

    // A factor, and after it an operator, a closing bracket or the end: two operands in a row mean
    // something else.
    void facteur() {
        if (refuse_) return;
        const char c = premier();
        if (fonction_)
            appel();
        else if (est_chiffre(c) || c == '$' || c == '#')
            litteral();
        else if (est_lettre(c) && moteur.l_symbole.size() == 1)
            lettre();
        else if (c == '(')
            parenthese();
        else
            refuse_ = true;
        const bool fin = moteur.l_symbole.empty();
        if (!fin && std::string_view("+-*/^)").find(premier()) == std::string_view::npos)
            refuse_ = true;
    }

    void litteral() {
        const Symbole& s = moteur.l_symbole;
        if (s.front() != '$' && s.back() == 'E') refuse_ = true;
        try {
            assembleur_.constante(valeur_litteral(s));
        } catch (const Defaillance&) {
            refuse_ = true;   // too large: the text reports it
        }
        suivant();
    }

    void lettre() {
        const auto rang = static_cast<std::size_t>(rang_lettre(premier()));
        if (!moteur.variable_definie[rang]) refuse_ = true;
        lues_[rang] = true;
        if (rang_lettre(premier()) == variable_)
            assembleur_.variable();
        else
            assembleur_.constante(moteur.valeur_variable[rang]);
        suivant();
    }

    void parenthese() {
        suivant();
        assembleur_.ouvre();
        expression();
        if (!symbole_est(")")) refuse_ = true;
        if (refuse_) return;
        assembleur_.ferme();
        suivant();
    }

    void appel() {
        const int rang = moteur.type_f;
        suivant();
        if (rang == kPi) {
            assembleur_.constante(moteur.pi_valeur);
            return;
        }
        if (ligne_fonction(rang).valeur.simple == nullptr || !symbole_est("(")) {
            refuse_ = true;
            return;
        }
        suivant();
        assembleur_.sauve();
        expression();
        if (!symbole_est(")")) refuse_ = true;
        if (refuse_) return;
        assembleur_.argument();
        applique(rang);
        suivant();
    }

    // The function of the argument, by its own loop where it has one.
    void applique(int rang) {
        const auto boucle = std::find_if(kBoucles.begin(), kBoucles.end(),
                                         [&](const Boucle& b) { return b.fonction == rang; });
        if (boucle == kBoucles.end()) return assembleur_.un(Genre::fonction, rang);
        if (boucle->angle && !en_radians()) assembleur_.un(Genre::radians, 0, demi_tour(), moteur.pi_valeur);
        assembleur_.un(boucle->genre);
    }

    int variable_;
    FormuleLue lue_;
    Assembleur assembleur_;
    bool refuse_ = false;
    bool fonction_ = false;                // the current symbol is a function name
    int profondeur_ = 0;
    std::array<bool, 27> lues_{};          // variables that the formula reads
};

}  // namespace

FormuleLue lis_repetition(int variable) { return Lecteur(variable).lis(); }
