// Sheets that were calculated and then changed by hand, and sheets with an error that is corrected.
#include "property/changed.hpp"

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "property/kept.hpp"
#include "property/words.hpp"
#include "support/program.hpp"

namespace {

using Lignes = std::vector<std::string>;

// Results that somebody types, or that stand after another line since.
constexpr std::string_view kResultats[] = {" = 5"_fr,
                                           "=5"_fr,
                                           " =statx non présent"_fr,
                                           "== 2,2"_fr,
                                           " == 1,2"_fr,
                                           " = variable Q non définie"_fr,
                                           " = 3 ! note"_fr,
                                           " =1,2;3,4 =2,2"_fr,
                                           " ! fin"_fr,
                                           " ! statx"_fr};
// Lines that hold the marks of the pass, or that look like lines of a block.
constexpr std::string_view kLignes[] = {
    "! nombre de pieces"_fr,  "! TRISTATX = 3"_fr,         "! fin"_fr,       "! a == b"_fr,
    "! f(1) = 2"_fr,          "N= 2, X= 3, E= 1"_fr,       "f(1) = 2"_fr,    "f(x) croissante"_fr,
    "P=nombre de valeurs = 3"_fr, "fin résultat statx"_fr, "1, 2"_fr,        "12"_fr,
    "fin résultat TriStatX"_fr,   "fin résultat matrice"_fr, "FIN"_fr,       "TRISTATX = 2"_fr,
    "STATXY"_fr,              "STATX(1;2)"_fr,             "STATX"_fr,       "MB=MA== 1,2"_fr,
    "INCX(1,1,2)"_fr,         "INCX(-1,1,3)"_fr,           "SQRT(X)"_fr,     "PAIR=3"_fr,
    "AIRX(0,2,2) = 3"_fr,     "X\t1"_fr,                   "1,2,3"_fr,       "A=1/0"_fr,
    "DEFMA"_fr,               "N=Effectif total= 9"_fr,    "2+2 ! STATXY"_fr, ""_fr};

// A place in the sheet, from 0 to its number of lines.
std::ptrdiff_t place(Tirage& t, const Lignes& lignes) {
    return t.entre(0, static_cast<int>(lignes.size()));
}

// One change by hand.
void change(Tirage& t, Lignes& lignes) {
    if (lignes.empty()) lignes.emplace_back();
    const std::ptrdiff_t i = t.entre(0, static_cast<int>(lignes.size()) - 1);
    std::string& ligne = lignes[static_cast<std::size_t>(i)];
    switch (t.entre(0, 9)) {
        case 0: ligne += t.un_de(kResultats); break;
        case 1: ligne = "! " + ligne; break;
        case 2: ligne.insert(ligne.size() / 2, t.une_fois_sur(2) ? "x" : "7"); break;
        case 3: lignes.erase(lignes.begin() + i); break;
        case 4: lignes.insert(lignes.begin() + i, std::string(ligne)); break;
        case 5: {
            const std::string prise = ligne;
            lignes.erase(lignes.begin() + i);
            lignes.insert(lignes.begin() + place(t, lignes), prise);
            break;
        }
        case 6: std::swap(ligne, lignes[lignes.size() / 2]); break;
        default: lignes.insert(lignes.begin() + place(t, lignes), std::string(t.un_de(kLignes)));
    }
}

std::string autre_feuille(Tirage& t, std::uint64_t graine) {
    return t.une_fois_sur(3) ? tire_soupe(graine).texte : tire_feuille(graine).texte;
}

// The sheet of a seed, calculated, changed in a few places, perhaps with another one below it.
std::string tire_changee(Tirage& t, const Reglage& reglage, std::uint64_t graine) {
    prepare(reglage);
    memoire.interrompt = true;
    Lignes lignes = lignes_de(calcule(autre_feuille(t, graine)).texte);
    if (t.une_fois_sur(4))
        for (const std::string& l : lignes_de(calcule(autre_feuille(t, graine + 1)).texte))
            lignes.push_back(l);
    for (int i = t.entre(1, 4); i > 0; --i) change(t, lignes);
    std::string texte = joint(lignes);
    if (t.une_fois_sur(4)) texte += "\r\n";
    if (t.une_fois_sur(30)) texte += t.une_fois_sur(2) ? "\r" : "\n";
    return texte;
}

Defaut verifie_changee(std::uint64_t graine) {
    Tirage t(graine + 7'000'000);
    const Reglage reglage = tire_reglage(t);
    std::string texte = tire_changee(t, reglage, graine);
    prepare(reglage);
    memoire.interrompt = true;
    std::size_t curseur = static_cast<std::size_t>(t.entre(0, static_cast<int>(texte.size())));
    for (int i = 1; i <= 3; ++i) {
        pose_feuille(texte, curseur);
        const Vue vue = passe();
        Defaut d = verifie_lignes_gardees(texte, vue.texte);
        if (d.empty()) d = verifie_curseur(vue);
        if (!d.empty()) return "pass " + std::to_string(i) + ": " + d;
        texte = vue.texte;
        curseur = vue.sel_start;
    }
    return {};
}

// A line that fails since a name in it stands for nothing, and what fixes it.
struct Erreur {
    std::string ligne;
    std::string mots;    // that the pass writes after it
    Lignes definition;   // the lines above it that define the name
    std::string juste;   // the line without the name
};

Erreur tire_erreur(Tirage& t, const Vue& vue) {
    char lettre = 'A';
    while (lettre < 'Z' && vue.definie[static_cast<std::size_t>(lettre - 'A' + 1)]) ++lettre;
    const std::string nom(1, lettre), n = std::to_string(t.entre(1, 9));
    if (lettre == 'Z' || t.une_fois_sur(4))
        return {"MJ+" + n, cp("matrice MJ non définie"), {"DEFMJ", n, "FIN"}, "7+" + n};
    const std::string formules[] = {nom + "+1", n + nom, "SIN(" + nom + ")", "Z=1+" + nom + "^2",
                                    nom + " ! " + n + " fois"};
    return {t.un_de(formules), "variable " + nom + cp(" non définie"), {nom + "=" + n}, "7*" + n};
}

Lignes ensemble(std::initializer_list<Lignes> parties) {
    Lignes toutes;
    for (const Lignes& partie : parties) toutes.insert(toutes.end(), partie.begin(), partie.end());
    return toutes;
}

Defaut compare(const char* quoi, const std::string& obtenu, const std::string& attendu) {
    if (obtenu == attendu) return {};
    return std::string(quoi) + "\n--- obtained\n" + obtenu + "\n--- expected\n" + attendu;
}

Vue neuf(const Reglage& reglage, const Lignes& lignes) {
    prepare(reglage);
    return calcule(joint(lignes));
}

// An error stands at each pass as it did at the first one; what fixes it counts at once, whether the name is
// defined above the line or the line itself is changed.
Defaut verifie_correction(std::uint64_t graine) {
    Tirage t(graine + 9'000'000);
    const Reglage reglage = tire_reglage(t);
    Redaction dessus(t, reglage), dessous(t, reglage);
    for (int i = t.entre(1, 4); i > 0; --i) dessus.morceau();
    for (int i = t.entre(0, 3); i > 0; --i) dessous.ligne_simple();
    const Lignes tete = lignes_de(dessus.acheve().texte), queue = lignes_de(dessous.acheve().texte);
    const Vue avant = neuf(reglage, tete);
    if (joint(tete).find("DEFMJ") != std::string::npos || capitales(joint(tete)).find("MJ") != std::string::npos)
        return {};
    const Erreur erreur = tire_erreur(t, avant);
    const Vue une = neuf(reglage, ensemble({tete, {erreur.ligne}, queue}));
    if (!une.erreur) return "no line failed in\n" + une.texte;
    for (int i = 2; i <= 3; ++i)
        if (Defaut d = compare("another pass", passe().texte, une.texte); !d.empty()) return d;
    Lignes lignes = lignes_de(une.texte);
    const std::string fausse = erreur.ligne + " = " + erreur.mots;
    const auto ici = std::find(lignes.begin(), lignes.end(), fausse);
    if (ici == lignes.end()) return "no line \"" + fausse + "\" in\n" + une.texte;
    const std::string attendu =
        neuf(reglage, ensemble({tete, erreur.definition, {erreur.ligne}, queue})).texte;
    Lignes definie = lignes, corrigee = lignes;
    definie.insert(definie.begin() + (ici - lignes.begin()), erreur.definition.begin(),
                   erreur.definition.end());
    if (Defaut d = compare("name defined", neuf(reglage, definie).texte, attendu); !d.empty()) return d;
    corrigee[static_cast<std::size_t>(ici - lignes.begin())] = erreur.juste + " = " + erreur.mots;
    return compare("line corrected", neuf(reglage, corrigee).texte,
                   neuf(reglage, ensemble({tete, {erreur.juste}, queue})).texte);
}

int essaie(int nombre, const char* quoi, Defaut (*verifie)(std::uint64_t)) {
    int fautes = 0;
    for (int i = 1; i <= nombre && fautes < 3; ++i) {
        const Defaut defaut = verifie(static_cast<std::uint64_t>(i));
        if (defaut.empty()) continue;
        std::cout << "FAILED " << quoi << ", seed " << i << ": " << vers_utf8(defaut) << '\n';
        ++fautes;
    }
    return fautes;
}

}  // namespace

int essaie_lignes_gardees(int nombre) { return essaie(nombre, "lines kept", verifie_changee); }
int essaie_corrections(int nombre) { return essaie(nombre, "corrected error", verifie_correction); }
