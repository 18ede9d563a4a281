// The repeated evaluation of one formula. A formula of plain arithmetic on defined variables is read
// once into steps; any other, and any value that needs a report, goes through the text itself. The
// results are the same bit for bit: the steps mirror the grammar, its shared cells included.
#include "functions/repetition.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <cmath>
#include <initializer_list>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "base/failure.hpp"
#include "base/maths.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "engine/number_text.hpp"
#include "engine/reader.hpp"
#include "functions/formulas.hpp"
#include "functions/table.hpp"
#include "state/context.hpp"

namespace {

constexpr int kProfondeurMaxi = 40;           // brackets and calls one in the other
constexpr std::size_t kFormuleMaxi = 20'000;  // characters; longer ones are read each time
constexpr std::size_t kHauteurPile = 64;             // values; deeper formulas are read each time
constexpr long kMarquesMaxi = 1 << 20;        // end marks that a formula can show to anyone

// Reads p_formule into steps. What it doesn't know makes it give up: `refuse`.
class Lecteur {
public:
    explicit Lecteur(int variable) : variable_(variable) {}

    // The steps, or none; `cible` becomes the variable that the formula assigns.
    std::vector<Instruction> lis(int& cible) {
        if (moteur.p_formule.size() > kFormuleMaxi || moteur.p_formule.find('@') != std::string::npos)
            return {};
        moteur.p_position = 1;
        moteur.lecture_finie = false;
        suivant();
        lis_cible(cible);
        expression();
        if (!moteur.l_symbole.empty()) refuse_ = true;   // something is left behind the expression
        if (cible != 0 && lues_[static_cast<std::size_t>(cible)]) refuse_ = true;
        return refuse_ || hauteur_maxi_ > static_cast<int>(kHauteurPile) ? std::vector<Instruction>()
                                                                  : std::move(programme_);
    }

private:
    void suivant() {
        p_lis_symbole();
        fonction_ = test_fonction();
    }
    char premier() const { return moteur.l_symbole.empty() ? '\0' : moteur.l_symbole.front(); }
    bool est(const char* symbole) const { return moteur.l_symbole == symbole; }

    void pose(Pas pas, int rang = 0, double valeur = 0, int hausse = 0) {
        programme_.push_back({pas, static_cast<std::int16_t>(rang), valeur});
        hauteur_ += hausse;
        hauteur_maxi_ = std::max(hauteur_maxi_, hauteur_);
    }

    // "Y=" in front of the formula.
    void lis_cible(int& cible) {
        const std::string& formule = moteur.p_formule;
        if (formule.size() < 2 || formule[1] != '=' || formule[0] < 'A' || formule[0] > 'Z') return;
        cible = rang_lettre(formule[0]);
        if (cible == variable_) refuse_ = true;
        suivant();
        suivant();
    }

    void expression() {
        if (++profondeur_ > kProfondeurMaxi) refuse_ = true;
        const char signe = premier();
        if (signe == '+' || signe == '-') suivant();
        terme();
        pose(signe == '-' ? Pas::oppose : Pas::somme, 0, 0, -1);
        while (!refuse_ && (premier() == '+' || premier() == '-')) {
            const bool plus = premier() == '+';
            suivant();
            terme();
            pose(plus ? Pas::ajoute : Pas::retranche, 0, 0, -1);
        }
        --profondeur_;
    }

    void terme() {
        puissance();
        while (!refuse_ && (premier() == '*' || premier() == '/')) {
            const bool produit = premier() == '*';
            suivant();
            puissance();
            pose(produit ? Pas::multiplie : Pas::divise, 0, 0, -1);
        }
    }

    void puissance() {
        facteur();
        while (!refuse_ && premier() == '^') {
            suivant();
            facteur();
            pose(Pas::eleve, 0, 0, -1);
        }
    }

    // A factor, and behind it an operator, a closing bracket or the end: two operands in a row mean
    // something else.
    void facteur() {
        if (refuse_) return;
        const char c = premier();
        if (fonction_)
            appel();
        else if ((c >= '0' && c <= '9') || c == '$' || c == '#')
            litteral();
        else if (c >= 'A' && c <= 'Z' && moteur.l_symbole.size() == 1)
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
        const std::string& s = moteur.l_symbole;
        if (s.front() != '$' && s.back() == 'E') refuse_ = true;
        try {
            const std::string_view reste = std::string_view(s).substr(1);
            pose(Pas::constante, 0,
                 s.front() == '$'   ? valhexa(reste)
                 : s.front() == '#' ? prefixe_numerique(reste)
                                    : prefixe_numerique(s),
                 1);
        } catch (const Defaillance&) {
            refuse_ = true;   // too large: the text reports it
        }
        suivant();
    }

    void lettre() {
        const auto rang = static_cast<std::size_t>(rang_lettre(premier()));
        if (!moteur.variable_definie[rang]) refuse_ = true;
        lues_[rang] = true;
        pose(Pas::variable, static_cast<int>(rang), 0, 1);
        suivant();
    }

    void parenthese() {
        suivant();
        pose(Pas::ouvre, 0, 0, 1);
        expression();
        if (!est(")")) refuse_ = true;
        pose(Pas::ferme);
        suivant();
    }

    void appel() {
        const int rang = moteur.type_f;
        suivant();
        if (rang == kPi) {
            pose(Pas::constante, 0, moteur.pi_valeur, 1);
            return;
        }
        if (ligne_fonction(rang).valeur.simple == nullptr || !est("(")) {
            refuse_ = true;
            return;
        }
        suivant();
        pose(Pas::sauve);
        expression();
        pose(Pas::argument, 0, 0, 1);
        if (!est(")")) refuse_ = true;
        pose(Pas::fonction, rang);
        suivant();
    }

    int variable_;
    bool refuse_ = false;
    bool fonction_ = false;              // the current symbol is a function name
    int profondeur_ = 0;
    int hauteur_ = 0, hauteur_maxi_ = 0;   // of the pile of values
    std::array<bool, 27> lues_{};        // variables that the formula reads
    std::vector<Instruction> programme_;
};

// True when the steps from `i` on are those.
bool suite_est(const std::vector<Instruction>& p, std::size_t i, std::initializer_list<Pas> pas) {
    return p.size() - i >= pas.size() &&
           std::equal(pas.begin(), pas.end(), p.begin() + static_cast<std::ptrdiff_t>(i),
                      [](Pas attendu, const Instruction& x) { return x.pas == attendu; });
}

// The one step that stands for the sequence at `i`, and the length of that sequence; a length of 1
// leaves the step as it is.
std::size_t resserre_ici(const std::vector<Instruction>& p, std::size_t i, Instruction& pas) {
    using enum Pas;
    pas = p[i];
    if (suite_est(p, i, {constante, variable, multiplie})) {
        pas = {produit, p[i + 1].rang, p[i].valeur};
        return 3;
    }
    if (suite_est(p, i, {variable, constante, eleve})) {
        pas = {puissance, p[i].rang, p[i + 1].valeur};
        return 3;
    }
    if (suite_est(p, i, {sauve, variable, somme, argument})) {
        pas = {argument_variable, p[i + 1].rang, 0};
        return 4;
    }
    if (suite_est(p, i, {constante, divise}) && p[i].valeur != 0) {
        pas = {divise_par, 0, p[i].valeur};
        return 2;
    }
    if (suite_est(p, i, {constante, ajoute})) {
        pas = {ajoute_constante, 0, p[i].valeur};
        return 2;
    }
    return 1;
}

// The same steps with the frequent sequences drawn together.
std::vector<Instruction> resserre(const std::vector<Instruction>& p) {
    std::vector<Instruction> sortie;
    for (std::size_t i = 0; i < p.size();) {
        Instruction pas{};
        i += resserre_ici(p, i, pas);
        sortie.push_back(pas);
    }
    return sortie;
}

// A value that needs no report.
bool simple(double x) { return std::fabs(x) <= DBL_MAX; }

// p to the power e as the grammar does it; false when that needs a report.
bool puissance_de(double& p, double e) {
    if (p == 0) return e != -1;
    const double r = maths::exp(maths::log(std::fabs(p)) * e);
    if (p > 0) {
        p = r;
        return simple(r);
    }
    if (e != std::trunc(e) || std::fabs(e) > 2147483647.0) return false;
    p = odd(static_cast<std::int32_t>(e)) ? -r : r;
    return simple(r);
}

}  // namespace

Repetition::Repetition(int letter) : variable(letter) {
    try {
        programme_ = resserre(Lecteur(letter).lis(cible_));
    } catch (const std::bad_alloc&) {
        programme_.clear();
    }
}

double Repetition::valeur_variable() const {
    return moteur.valeur_variable[static_cast<std::size_t>(variable)];
}

bool Repetition::meme_valeur(double x) const {
    return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(dernier_x_);
}

double Repetition::evalue_programme(double x) {
    double resultat = 0;
    if (!calcule(resultat)) {
        // The text reports what is wrong here, behind the traces of the values before.
        moteur.valeur_variable[static_cast<std::size_t>(variable)] = dernier_x_;
        termine();
        moteur.valeur_variable[static_cast<std::size_t>(variable)] = x;
        programme_.clear();
        return evalue_texte();
    }
    range_cible(resultat);
    ++en_attente_;
    avant_derniere_ = derniere_;
    avant_connue_ = connue_;
    connue_ = true;
    dernier_x_ = x;
    derniere_ = resultat;
    moteur.erreur_formule = false;
    return resultat;
}

double Repetition::evalue_texte() {
    // The end marks that pile up behind the formula stop where nobody can see them any more.
    if (moteur.p_formule.size() > static_cast<std::size_t>(kMarquesMaxi) + 65536 &&
        moteur.p_formule.ends_with("@@"))
        moteur.p_formule.pop_back();
    return evalue_formule();
}

void Repetition::termine() noexcept {
    if (en_attente_ == 0) return;
    try {
        moteur.p_formule.append(static_cast<std::size_t>(std::min(en_attente_ - 1, kMarquesMaxi)),
                                '@');
    } catch (const std::bad_alloc&) {
        // The marks show to nobody but a refused matrix letter; the last evaluation adds its own.
    }
    en_attente_ = 0;
    connue_ = false;
    // The running sum and the assigned variable still hold the values before: a first argument puts
    // them aside.
    if (avant_connue_) moteur.l_valeur_expression = avant_derniere_;
    if (cible_ != 0) moteur.valeur_variable[static_cast<std::size_t>(cible_)] = avant_cible_;
    evalue_formule();
}

bool Repetition::calcule(double& resultat) const {
    std::array<double, kHauteurPile + 2> pile;
    double* haut = pile.data();   // top of the pile; its first place is never read
    double somme = 0, sauve = 0;
    ArithmetiqueSimple simple_calcul;
    for (const Instruction& i : programme_) {
        switch (i.pas) {
            case Pas::constante: *++haut = i.valeur; continue;
            case Pas::variable:
                *++haut = moteur.valeur_variable[static_cast<std::size_t>(i.rang)];
                continue;
            case Pas::multiplie: {
                const double b = *haut--;
                *haut *= b;
                break;
            }
            case Pas::divise: {
                const double b = *haut--;
                if (b == 0) return false;
                *haut /= b;
                break;
            }
            case Pas::eleve: {
                const double e = *haut--;
                if (!puissance_de(*haut, e)) return false;
                continue;
            }
            case Pas::somme: somme = *haut--; continue;
            case Pas::oppose: somme = -*haut--; continue;
            case Pas::ajoute:
                somme += *haut--;
                if (!simple(somme)) return false;
                continue;
            case Pas::retranche:
                somme -= *haut--;
                if (!simple(somme)) return false;
                continue;
            case Pas::ouvre: *++haut = somme; continue;
            case Pas::ferme: std::swap(somme, *haut); continue;
            case Pas::sauve: sauve = somme; continue;
            case Pas::argument:
                *++haut = somme;
                somme = sauve;
                continue;
            case Pas::argument_variable:
                sauve = somme;
                *++haut = moteur.valeur_variable[static_cast<std::size_t>(i.rang)];
                continue;
            case Pas::ajoute_constante:
                somme += i.valeur;
                if (!simple(somme)) return false;
                continue;
            case Pas::divise_par: *haut /= i.valeur; break;
            case Pas::produit:
                *++haut = i.valeur * moteur.valeur_variable[static_cast<std::size_t>(i.rang)];
                break;
            case Pas::puissance:
                *++haut = moteur.valeur_variable[static_cast<std::size_t>(i.rang)];
                if (!puissance_de(*haut, i.valeur)) return false;
                continue;
            case Pas::fonction: {
                const LigneFonction& f = ligne_fonction(i.rang);
                if (f.domaine.exclut_simple != nullptr && f.domaine.exclut_simple(*haut, simple_calcul))
                    return false;
                *haut = f.valeur.simple(*haut, simple_calcul);
                break;
            }
        }
        if (!simple(*haut)) return false;
    }
    resultat = somme;
    return true;
}

void Repetition::range_cible(double valeur) {
    if (cible_ == 0) return;
    const auto rang = static_cast<std::size_t>(cible_);
    avant_cible_ = moteur.valeur_variable[rang];
    moteur.valeur_variable[rang] = valeur;
    moteur.variable_definie[rang] = true;
}
