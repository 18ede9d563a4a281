// Finds the functions of a sheet and evaluates them through the repeated evaluation. Changes the calculation, which
// stands aside meanwhile.
#include "study/sheet_function.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "engine/grammar.hpp"
#include "engine/identifiers.hpp"
#include "engine/reading.hpp"
#include "functions/table.hpp"
#include "platform/patience.hpp"
#include "sheet/aside.hpp"
#include "sheet/marks.hpp"
#include "sheet/old_result.hpp"
#include "sheet/recalculation.hpp"
#include "sheet/tabulation.hpp"
#include "state/context.hpp"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr long kEntreQuestions = 1024;   // evaluations after which the user is asked
constexpr double kBorneMaxi = 1e300;     // what is reckoned between larger bounds overflows
constexpr double kFinesse = 1e-9;        // beside its bounds: a shorter interval has too few numbers for the study

constexpr Refus kErreurAuDessus = "une ligne au-dessus de la fonction est en erreur"_fr;
constexpr Refus kTropLoin = "la fonction est au-delà de la ligne 32767"_fr;
constexpr Refus kSansBornes = "les bornes ne peuvent pas être calculées"_fr;
constexpr Refus kIntervalleVide = "l'intervalle est vide"_fr;
constexpr Refus kIntervalleTropGrand = "l'intervalle est trop grand"_fr;
constexpr Refus kIntervalleTropPetit = "l'intervalle est trop petit"_fr;
constexpr Refus kHasard = "une fonction avec ALEA n'est jamais deux fois la même"_fr;
constexpr Refus kSansFonction = "la fonction ne peut pas être lue"_fr;

using Sorte = FonctionDeFeuille::Genre;
using Lignes = std::vector<std::string_view>;

Lignes lignes_de(std::string_view texte) {
    Lignes lignes;
    std::size_t debut = 0;
    for (std::size_t fin = 0; fin != npos; debut = fin + 2) {
        fin = texte.find("\r\n", debut);
        lignes.push_back(texte.substr(debut, fin == npos ? npos : fin - debut));
    }
    return lignes;
}

// What is calculated of a line: no old result, no comment, no blanks around.
std::string corps(std::string_view ligne) {
    std::string texte(sans_blancs(ligne));
    if (texte.starts_with('!')) return {};
    if (const std::size_t gardee = fin_gardee(texte); gardee != npos) texte.resize(gardee);
    texte.resize(std::min(texte.find('!'), texte.size()));
    return std::string(sans_blancs(texte));
}

// The variable of a table or an area whose heading this text in capitals is, or 0.
char lettre_d_entete(std::string_view majuscule, Sorte& genre) {
    const bool autre = majuscule.find(kMotStatX.mot) != npos || majuscule.find(kDefFonction.mot) != npos;
    const VariableEntete variable = variable_entete(majuscule);
    if (autre || variable.lettre == 0) return 0;
    genre = variable.inc ? Sorte::inc : Sorte::air;
    return variable.lettre;
}

// Whether the line below a heading has a task of its own: the pass makes no table of it.
bool est_autre_chose(std::string_view majuscule) {
    Sorte genre{};
    return lettre_d_entete(majuscule, genre) != 0 || majuscule.find(kDefFonction.mot) != npos ||
           majuscule.find(kDefM.mot) != npos;
}

// The heading on line `rang` (from 0) with its function below it.
std::optional<FonctionDeFeuille> entete_en(const Lignes& lignes, std::size_t rang) {
    if (rang + 1 >= lignes.size()) return {};
    FonctionDeFeuille f;
    f.entete = corps(lignes[rang]);
    f.texte = corps(lignes[rang + 1]);
    f.lettre = lettre_d_entete(capitales(f.entete), f.genre);
    const std::string fonction = capitales(f.texte);
    if (f.lettre == 0 || fonction.find(f.lettre) == npos || est_autre_chose(fonction)) return {};
    f.ligne_entete = static_cast<std::int32_t>(rang + 1);
    f.ligne = f.ligne_entete + 1;
    return f;
}

// The heading that the line belongs to: its own, that of the function, or that of the table of f(x) around it.
std::optional<FonctionDeFeuille> autour(const Lignes& lignes, std::size_t rang) {
    while (rang > 0 && lignes[rang].starts_with("f(")) --rang;
    if (auto f = entete_en(lignes, rang)) return f;
    return rang > 0 ? entete_en(lignes, rang - 1) : std::nullopt;
}

std::optional<FonctionDeFeuille> deffon_en(const Lignes& lignes, std::size_t rang) {
    FonctionDeFeuille f;
    const std::string texte = corps(lignes[rang]);
    const std::size_t egal = texte.find('=');
    if (capitales(texte).find(kDefFonction.mot) == npos || egal == npos) return {};
    f.genre = Sorte::deffon;
    f.ligne = f.ligne_entete = static_cast<std::int32_t>(rang + 1);
    f.texte = std::string(sans_blancs(std::string_view(texte).substr(egal + 1)));
    return f;
}

// Calls `action` with each word of letters that is no function's name, with its place.
template <class Action>
void chaque_lettre(std::string_view majuscule, Action action) {
    for (std::size_t i = 0; i < majuscule.size();) {
        std::size_t fin = i;
        while (fin < majuscule.size() && est_lettre(majuscule[fin])) ++fin;
        const bool chiffre_avant = i > 0 && est_chiffre(majuscule[i - 1]);
        const bool exposant = majuscule.substr(i, fin - i) == "E" && chiffre_avant;
        if (fin == i + 1 && !exposant) action(i);
        i = std::max(fin, i + 1);
    }
}

// A line that is a formula in X, or in the letter that a "Y=" line holds alone.
std::optional<FonctionDeFeuille> formule_en(const Lignes& lignes, std::size_t rang) {
    FonctionDeFeuille f;
    f.texte = corps(lignes[rang]);
    const std::string majuscule = capitales(f.texte);
    const std::size_t tete = majuscule.size() > 1 && majuscule[1] == '=' ? 2 : 0;
    bool trouvee = false;
    chaque_lettre(std::string_view(majuscule).substr(tete),
                  [&](std::size_t i) { trouvee = trouvee || majuscule[tete + i] == 'X'; });
    if (!trouvee) return {};
    f.ligne = f.ligne_entete = static_cast<std::int32_t>(rang + 1);
    return f;
}

// The lines above line `numero`, calculated; what one of them is refused for, or that they are too many.
Refus calcule_au_dessus(std::string_view texte, std::int32_t numero) {
    std::size_t fin = 0;
    for (std::int32_t i = 1; i < numero && fin < texte.size(); ++i) {
        const std::size_t bout = texte.find("\r\n", fin);
        fin = bout == npos ? texte.size() : bout + 2;
    }
    const std::string dessus = fin == 0 ? "\r\n" : std::string(texte.substr(0, fin));
    const Calcul calcul = calcule_feuille(dessus, 0);
    boites_tues();
    if (numero > std::numeric_limits<std::int16_t>::max()) return kTropLoin;
    return calcul.issue != Issue::refusee && !calcul.erreur ? Refus() : kErreurAuDessus;
}

// Puts the text into p_formule as a line's formula.
void lis_formule(const std::string& texte) {
    prepare_formule(texte);
    TestVariable();
}

// The value of a text that is read to its end, or not a number: of "0,5;3" the bounds would be 0 and 5.
double valeur_de(std::string_view texte) {
    const FormuleRelevee lue = lit_formule(texte);
    const bool entiere = lue.releve.arret > static_cast<std::int32_t>(lue.formule.size()) &&
                         !lue.releve.a(kTraitRemplace | kTraitPartiel);
    return lue.erreur || !entiere || !std::isfinite(lue.valeur) ? std::numeric_limits<double>::quiet_NaN() : lue.valeur;
}

// The comma between two bounds, outside brackets.
std::size_t virgule(std::string_view bornes) {
    int profondeur = 0;
    for (std::size_t i = 0; i < bornes.size(); ++i) {
        profondeur += bornes[i] == '(' ? 1 : bornes[i] == ')' ? -1 : 0;
        if (profondeur == 0 && (bornes[i] == ',' || bornes[i] == ';')) return i;
    }
    return npos;
}

Refus bornes_donnees(std::string_view bornes, FonctionOuverte& o) {
    const std::size_t milieu = virgule(bornes);
    if (milieu == npos) return kSansBornes;
    o.debut = valeur_de(bornes.substr(0, milieu));
    o.fin = valeur_de(bornes.substr(milieu + 1));
    return std::isnan(o.debut) || std::isnan(o.fin) ? kSansBornes : Refus();
}

// The interval of a heading: from the first row of the table to its last, or between the ends of the area.
Refus bornes_d_entete(const FonctionDeFeuille& f, FonctionOuverte& o) {
    prepare_formule(f.entete);
    evalue_formule();
    if (moteur.erreur_formule || boites_tues() > 0) return kSansBornes;
    o.debut = moteur.l_argument1;
    o.fin = moteur.l_argument2;
    if (f.genre == Sorte::inc) {
        o.pas = moteur.l_argument2;
        o.fin = o.debut + o.pas * (std::nearbyint(moteur.l_argument3) - 1);
    }
    return std::isfinite(o.debut) && std::isfinite(o.fin) ? Refus() : kSansBornes;
}

// Puts the bounds in their order; refuses those between which no curve can be followed.
Refus range_bornes(FonctionOuverte& o) {
    if (o.fin < o.debut) std::swap(o.debut, o.fin);
    if (o.debut == o.fin) return kIntervalleVide;
    const double taille = std::max(std::fabs(o.debut), std::fabs(o.fin));
    if (taille > kBorneMaxi) return kIntervalleTropGrand;
    return o.fin - o.debut < kFinesse * taille ? kIntervalleTropPetit : Refus();
}

// Leaves in `o` the formula and the letter.
Refus lis_fonction(const FonctionDeFeuille& f, FonctionOuverte& o) {
    o.lettre = f.lettre;
    if (f.genre == Sorte::deffon) {
        if (moteur.fonction_active == 0) return kSansFonction;
        o.lettre = static_cast<char>('A' + moteur.fonction_active - 1);
        lis_formule(moteur.nom_fonction);
    } else {
        lis_formule(f.texte);
    }
    std::string formule = moteur.p_formule;
    if (formule.size() > 1 && formule[1] == '=') formule.erase(0, 2);   // the value is all that is looked at
    if (formule.find("ALEA") != npos) return kHasard;
    o.prend_formule(std::move(formule));
    return {};
}

}  // namespace

std::vector<FonctionDeFeuille> fonctions_de_feuille(std::string_view texte) {
    std::vector<FonctionDeFeuille> fonctions;
    const Lignes lignes = lignes_de(texte);
    for (std::size_t rang = 0; rang < lignes.size(); ++rang)
        if (auto f = entete_en(lignes, rang)) {
            fonctions.push_back(std::move(*f));
            ++rang;
        }
    return fonctions;
}

std::optional<FonctionDeFeuille> fonction_au_curseur(std::string_view texte, std::int32_t numero) {
    const Lignes lignes = lignes_de(texte);
    if (numero < 1 || static_cast<std::size_t>(numero) > lignes.size()) return {};
    const auto rang = static_cast<std::size_t>(numero - 1);
    for (const auto cherche : {autour, deffon_en, formule_en})
        if (auto f = cherche(lignes, rang)) return f;
    std::optional<FonctionDeFeuille> proche;
    for (FonctionDeFeuille& f : fonctions_de_feuille(texte)) {
        if (proche && f.ligne > numero) break;
        proche = std::move(f);
    }
    return proche;
}

bool meme_fonction(const FonctionDeFeuille& f, const FonctionDeFeuille& g) {
    return f.genre == g.genre && f.entete == g.entete && f.texte == g.texte;
}

std::optional<FonctionDeFeuille> retrouve_fonction(std::string_view texte, const FonctionDeFeuille& f) {
    const Lignes lignes = lignes_de(texte);
    const auto en = f.genre == Sorte::deffon ? deffon_en : f.genre == Sorte::formule ? formule_en : entete_en;
    const auto ici = [&](std::size_t rang) {
        auto g = en(lignes, rang);
        return g && meme_fonction(*g, f) ? g : std::nullopt;
    };
    const auto avant = static_cast<std::size_t>(std::max(f.ligne_entete, 1)) - 1;
    if (avant < lignes.size())
        if (auto g = ici(avant)) return g;
    for (std::size_t rang = 0; rang < lignes.size(); ++rang)
        if (auto g = ici(rang)) return g;
    return {};
}

std::string mots_sans_fonction(std::string_view texte, std::int32_t numero) {
    const Lignes lignes = lignes_de(texte);
    for (std::int32_t rang = numero - 1; rang >= std::max(numero - 2, 0); --rang) {
        Sorte genre{};
        if (static_cast<std::size_t>(rang) >= lignes.size()) continue;
        const std::string entete = corps(lignes[static_cast<std::size_t>(rang)]);
        const char lettre = lettre_d_entete(capitales(entete), genre);
        if (lettre != 0) return mots_fonction_inconnue(lettre);
    }
    return {};
}

double FonctionOuverte::operator()(double x) {
    constexpr double kAucune = std::numeric_limits<double>::quiet_NaN();
    if (++comptees_ % kEntreQuestions == 0 && abandonne()) return kAucune;
    if (patience.abandonnee) return kAucune;
    if (!repetition_) prend_formule(formule);
    boites_tues();
    moteur.valeur_variable[static_cast<std::size_t>(repetition_->variable)] = x;
    const double y = repetition_->evalue();
    const bool bonne = !moteur.erreur_formule && boites_tues() == 0 && std::isfinite(y);
    if (!bonne) repetition_.reset();   // its steps have ended: the next value reads the formula again
    return bonne ? y : kAucune;
}

void FonctionOuverte::prend_formule(std::string nouvelle) {
    repetition_.reset();
    formule = std::move(nouvelle);
    const int rang = rang_lettre(lettre);
    moteur.variable_definie[static_cast<std::size_t>(rang)] = true;
    moteur.muet_erreur = true;
    moteur.p_formule = formule;
    repetition_ = std::make_unique<Repetition>(rang);
}

Refus ouvre_fonction(std::string_view texte, const FonctionDeFeuille& f, std::string_view bornes,
                     FonctionOuverte& ouverte) {
    // The user function exists below its line only.
    if (const Refus refus = calcule_au_dessus(texte, f.ligne_entete + (f.genre == Sorte::deffon ? 1 : 0));
        !refus.empty())
        return refus;
    const bool entete = !f.entete.empty();
    if (const Refus refus = entete ? bornes_d_entete(f, ouverte) : bornes_donnees(bornes, ouverte); !refus.empty())
        return refus;
    if (const Refus refus = range_bornes(ouverte); !refus.empty()) return refus;
    return lis_fonction(f, ouverte);
}

bool relit_fonction(const FonctionDeFeuille& f, FonctionOuverte& ouverte) {
    return lis_fonction(f, ouverte).empty();
}

std::string difference(const FonctionOuverte& f, const FonctionOuverte& g) {
    std::string autre = g.formule;
    chaque_lettre(g.formule, [&](std::size_t i) {
        if (autre[i] == g.lettre) autre[i] = f.lettre;
    });
    return "(" + f.formule + ")-(" + autre + ")";
}
