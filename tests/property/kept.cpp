// What may change in a sheet when it is calculated is listed here with a reason each, in words of its own:
// nothing of the program's own recognition of old blocks is used. A line that the list doesn't name must
// stand in the new text.
#include "property/kept.hpp"

#include <algorithm>
#include <string_view>

#include "base/codepage.hpp"
#include "support/program.hpp"

namespace {

using Lignes = std::vector<std::string>;
constexpr auto npos = std::string::npos;

// What stands in front of an old result: the line up to the "=" that isn't its own.
std::string tete(const std::string& ligne) {
    if (ligne.starts_with('!') || ligne.find(", X=") != npos) return ligne;
    const std::string majuscule = capitales(ligne);
    const bool matrice =
        majuscule.size() >= 4 && majuscule[0] == 'M' && majuscule[1] >= 'A' && majuscule[1] <= 'J';
    const bool fonction = !matrice && majuscule.find("DEFFON") != npos;
    std::size_t egal = ligne.find('=', matrice ? 4 : fonction ? 8 : 2);
    if (egal == npos) return ligne;
    if (fonction) --egal;  // the result of a function's line stands after a blank, which goes with it
    return std::string(sans_blancs(std::string_view(ligne).substr(0, egal)));
}

struct Changement {
    const char* raison;
    bool (*permet)(const std::string& avant, const std::string& apres);
};
constexpr Changement kChangements[] = {
    {"blanks at both ends go, so that columns count from the first sign",
     [](const std::string& avant, const std::string& apres) {
         return apres == std::string(sans_blancs(avant));
     }},
    {"an old result goes: everything from the second '=' on, whoever has written it",
     [](const std::string& avant, const std::string& apres) {
         return apres == tete(std::string(sans_blancs(avant)));
     }},
    {"a result comes behind the line, which begins with ' =' or '=='",
     [](const std::string& avant, const std::string& apres) {
         const std::string garde = tete(std::string(sans_blancs(avant)));
         const std::string_view suite = std::string_view(apres).substr(std::min(garde.size(), apres.size()));
         return apres.starts_with(garde) && (suite.starts_with(" =") || suite.starts_with("=="));
     }},
};

bool contient(const std::string& ligne, std::string_view mot) {
    return capitales(ligne).find(mot) != npos;
}

// True for numbers with commas between them, as in the rows of a matrix or of sorted values.
bool est_suite_de_nombres(const std::string& ligne) {
    const std::string majuscule = capitales(ligne);
    return majuscule.find_first_not_of("0123456789.,+-/ ABCDEFPINFNAN") == npos;
}

bool est_resultat_stat(const std::string& ligne) {
    static const Lignes tetes = {
        "N=Effectif total=",   "S=somme des X=",      cp("V=somme des X²="),   "X=moyenne des X=",
        "E=ecart type de X=",  "T=somme des Y=",      cp("U=somme des Y²="),   "Y=moyenne des Y=",
        "F=ecart type de Y=",  "W=somme des XY=",     "A=coefficient directeur", cp("B=ordonnée de"),
        "C=coefficient directeur", cp("D=ordonnée à"), "Q=Variance (",          cp("R=coefficient de corr")};
    return std::any_of(tetes.begin(), tetes.end(),
                       [&](const std::string& t) { return ligne.starts_with(t); });
}

// A kind of block that a pass writes and takes away again.
struct Bloc {
    const char* raison;
    bool (*au_dessus)(const Lignes& lignes, std::size_t premiere);  // what stands above makes such a block
    bool (*premiere)(const std::string& ligne);
    bool (*autre)(const std::string& ligne);
    const char* cloture;  // nullptr: it ends with its last line; both words of a data set count
};

const Bloc kBlocs[] = {
    {"the table of an INC is made anew",
     [](const Lignes& l, std::size_t i) { return i >= 2 && contient(l[i - 2], "INC"); },
     [](const std::string& ligne) { return ligne.starts_with("f(") && ligne.find(") =") != npos; },
     [](const std::string& ligne) { return ligne.starts_with("f(") && ligne.find(") =") != npos; },
     nullptr},
    {"the results of a data set are made anew, in the current layout",
     [](const Lignes&, std::size_t i) { return i >= 1; },
     [](const std::string& ligne) {
         return ligne.starts_with("P=nombre de") ||
                (ligne.starts_with("N=") && ligne.find(", X=") != npos);
     },
     est_resultat_stat, "fin résultat statx"},
    {"sorted values are made anew below the line that carries their number",
     [](const Lignes& l, std::size_t i) {
         return i >= 1 && contient(l[i - 1], "TRISTATX") && l[i - 1].find('=') != npos;
     },
     est_suite_de_nombres, est_suite_de_nombres, "fin résultat TriStatX"},
    {"a matrix in a column is made anew below its '=='",
     [](const Lignes& l, std::size_t i) { return i >= 1 && l[i - 1].find("==") != npos; },
     est_suite_de_nombres, est_suite_de_nombres, "fin résultat matrice"},
};

bool ferme(const Bloc& bloc, const std::string& ligne) {
    if (bloc.cloture == nullptr) return false;
    const std::string mots = cp(bloc.cloture);
    return ligne == mots || (mots.ends_with("statx") && ligne == mots + "y");
}

// Lines of the block that begins at line `i`, from 0; 0 when none does.
std::size_t longueur(const Bloc& bloc, const Lignes& lignes, std::size_t i) {
    if (!bloc.au_dessus(lignes, i)) return 0;
    for (std::size_t j = i; j < lignes.size(); ++j) {
        if (ferme(bloc, lignes[j])) return j - i + 1;
        if (j == i ? !bloc.premiere(lignes[j]) : !bloc.autre(lignes[j]))
            return bloc.cloture == nullptr ? j - i : 0;
    }
    return bloc.cloture == nullptr ? lignes.size() - i : 0;
}

Lignes lignes_nues(const std::string& texte) {
    Lignes lignes = lignes_de(texte);
    for (std::string& l : lignes) l = std::string(sans_blancs(l));
    return lignes;
}

}  // namespace

bool est_la_ligne(const std::string& avant, const std::string& apres) {
    return std::any_of(std::begin(kChangements), std::end(kChangements),
                       [&](const Changement& c) { return c.permet(avant, apres); });
}

std::vector<bool> lignes_a_remplacer(const std::vector<std::string>& lignes) {
    std::vector<bool> sortie(lignes.size(), false);
    for (const Bloc& bloc : kBlocs)
        for (std::size_t i = 0; i < lignes.size(); ++i) {
            const std::size_t n = longueur(bloc, lignes, i);
            std::fill_n(sortie.begin() + static_cast<std::ptrdiff_t>(i), n, true);
        }
    // A single carriage return or line feed in the place of the last line is none.
    if (!lignes.empty() && (lignes.back() == "\r" || lignes.back() == "\n")) sortie.back() = true;
    return sortie;
}

Defaut verifie_lignes_gardees(const std::string& avant, const std::string& apres) {
    if (apres == avant) return {};  // a pass that can't write a line of the user leaves them all
    const Lignes anciennes = lignes_nues(avant), nouvelles = lignes_de(apres);
    const std::vector<bool> libres = lignes_a_remplacer(anciennes);
    auto ici = nouvelles.begin();
    for (std::size_t i = 0; i < anciennes.size(); ++i) {
        if (libres[i]) continue;
        ici = std::find_if(ici, nouvelles.end(),
                           [&](const std::string& l) { return est_la_ligne(anciennes[i], l); });
        if (ici == nouvelles.end())
            return "lost line " + std::to_string(i + 1) + ", \"" + anciennes[i] + "\", of\n" + avant +
                   "\n--- in\n" + apres;
        ++ici;
    }
    return {};
}
