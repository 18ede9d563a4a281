// Makes the statements of a pass fail one after the other, each in a run of its own, and looks at
// what the user is left with: a box in the words of the procedure that failed, a pass that has gone
// on to its end, and a text that still holds every line that was typed.
#include <algorithm>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "injection/sheets.hpp"
#include "platform/stack.hpp"
#include "settings/settings.hpp"
#include "shell/calculation.hpp"
#include "state/variables.hpp"
#include "support/program.hpp"

namespace {

// Above this count of statements a run is sampled.
constexpr long kToutes = 3000;

// Without these the pass can't begin: it leaves everything as it was.
constexpr long kOuverture = 2;

// A box, and how many statements had begun when it was shown.
struct Boite {
    std::string texte;
    long a = 0;
};
std::vector<Boite> boites_vues;
void note_boite(std::string_view texte) {
    boites_vues.push_back({vers_utf8(texte), injection.compte});
}

// What a run has left.
struct Course {
    std::vector<Boite> boites;
    std::string texte;
    long compte = 0;
    bool erreur = false;
    std::string reste;  // what stands after the cursor
};

// A fresh program calculates the sheet; statement `echec_a` fails (0: none does).
Course court(const FeuilleEssai& feuille, long echec_a) {
    programme_neuf();
    port.boites.boite = note_boite;
    boites_vues.clear();
    reglages.table_ini(kLigneAffichage).champ1 = feuille.matrice_colonne ? 1 : 0;
    reglages.table_ini(kLigneAffichage).champ2 = feuille.stat_restreint ? 1 : 0;
    pose_feuille(cp(joint(feuille.lignes)));
    injection = {0, echec_a};
    if (feuille.colonne)
        calcul_colonne();
    else
        recalcul();
    const long compte = injection.compte;
    injection = Injection{};
    return {boites_vues, vers_utf8(memoire.texte), compte, formule_en_erreur(),
            memoire.texte.substr(memoire.sel_start)};
}

// The procedure that a box of failure 6 names; nothing when it names none.
const char* procedure_de(const std::string& boite) {
    for (const char* mots : kProcedures)
        if (boite == std::string("6 6") + mots) return mots;
    return boite == std::string(" 6") + kSansReprise ? kSansReprise : nullptr;
}

// The lines from `de` to `a` stand in the text, one after the other, from `ici` on.
bool gardees(const FeuilleEssai& feuille, std::size_t de, std::size_t a, const std::string& texte,
             std::size_t& ici) {
    for (std::size_t i = de; i < a; ++i) {
        const std::size_t trouve = texte.find(feuille.lignes[i], ici);
        if (trouve == std::string::npos) return false;
        ici = trouve + feuille.lignes[i].size();
    }
    return true;
}

// Every line that was typed stands in the text; lines that are held back go with a failed
// calculation of theirs, and with nothing else.
bool lignes_gardees(const FeuilleEssai& feuille, const Course& course, std::string_view procedure) {
    const std::size_t n = feuille.lignes.size();
    std::size_t ici = 0;
    if (gardees(feuille, 0, n, course.texte, ici)) return true;
    if (feuille.retenues_a == 0 || !course.erreur || procedure == " sur recalcul") return false;
    ici = 0;
    return gardees(feuille, 0, feuille.retenues_de, course.texte, ici) &&
           gardees(feuille, feuille.retenues_a, n, course.texte, ici);
}

// A box that the program may show after the one that is due: another failure in a procedure's
// words, or a text of its own, which begins with a letter.
bool boite_connue(const std::string& boite) {
    if (boite.starts_with(" 6")) return boite == std::string(" 6") + kSansReprise;
    const bool lettre = (boite[0] >= 'a' && boite[0] <= 'z') || boite[0] == 'S';
    return lettre || std::any_of(std::begin(kProcedures), std::end(kProcedures),
                                 [&](const char* mots) { return boite.ends_with(mots); });
}

struct Bilan {
    long courses = 0;
    long une_boite = 0;  // runs with exactly one box more
    int fautes = 0;
    std::set<std::string> procedures;
};

bool faute(Bilan& bilan, const FeuilleEssai& feuille, long k, const std::string& quoi,
           const Course& course) {
    ++bilan.fautes;
    std::cout << "FAILED " << feuille.nom << ", statement " << k << ": " << quoi << "\n--- text\n"
              << course.texte << "\n--- boxes\n";
    for (const Boite& boite : course.boites) std::cout << boite.a << ": " << boite.texte << '\n';
    return false;
}

// One run whose statement `k` fails, beside the run in which none did.
bool essaie(Bilan& bilan, const FeuilleEssai& feuille, const Course& saine, long k) {
    const Course course = court(feuille, k);
    ++bilan.courses;
    // Up to the failure nothing differs: the boxes are the same. Then comes the one that is due.
    const auto avant = static_cast<std::size_t>(std::count_if(
        saine.boites.begin(), saine.boites.end(), [k](const Boite& b) { return b.a < k; }));
    if (course.boites.size() <= avant) return faute(bilan, feuille, k, "no box", course);
    for (std::size_t i = 0; i < avant; ++i)
        if (course.boites[i].texte != saine.boites[i].texte)
            return faute(bilan, feuille, k, "another box before", course);
    const Boite& boite = course.boites[avant];
    const char* procedure = procedure_de(boite.texte);
    if (procedure == nullptr || boite.a != k)
        return faute(bilan, feuille, k, "not the box that is due: " + boite.texte, course);
    bilan.procedures.insert(procedure);
    for (const Boite& autre : course.boites)
        if (!boite_connue(autre.texte))
            return faute(bilan, feuille, k, "an unknown box: " + autre.texte, course);
    if (course.boites.size() == saine.boites.size() + 1) ++bilan.une_boite;
    if (!lignes_gardees(feuille, course, procedure))
        return faute(bilan, feuille, k, "a line is lost", course);
    if (course.compte == k && k < saine.compte && k > kOuverture)
        return faute(bilan, feuille, k, "nothing ran behind " + boite.texte, course);
    if (!course.reste.empty() && !course.reste.starts_with("\r\n") && k > kOuverture)
        return faute(bilan, feuille, k, "the cursor is not at the end of a line", course);
    return true;
}

// All statements of a sheet, or a sample of them.
void essaie_feuille(Bilan& bilan, const FeuilleEssai& feuille) {
    const Course saine = court(feuille, 0);
    if (!lignes_gardees(feuille, saine, "")) faute(bilan, feuille, 0, "a line is lost", saine);
    const long pas = saine.compte / kToutes + 1;
    const int avant = bilan.fautes;
    for (long k = 1; k <= saine.compte && bilan.fautes < avant + 5; k += k < 200 ? 1 : pas)
        essaie(bilan, feuille, saine, k);
    std::cout << feuille.nom << ": " << saine.compte << " statements, " << bilan.fautes - avant
              << " failed\n";
}

}  // namespace

int main(int, char** argv) {
    agrandit_pile(argv);
    Bilan bilan;
    for (const FeuilleEssai& feuille : feuilles_essai()) essaie_feuille(bilan, feuille);
    std::vector<std::string> toutes(std::begin(kProcedures), std::end(kProcedures));
    toutes.emplace_back(kSansReprise);
    for (const std::string& mots : toutes)
        if (!bilan.procedures.contains(mots)) {
            ++bilan.fautes;
            std::cout << "FAILED: no statement of \"" << mots << "\" was made to fail\n";
        }
    std::cout << bilan.courses << " runs, " << bilan.une_boite << " with exactly one box more, "
              << bilan.fautes << " failed\n";
    return bilan.fautes == 0 ? 0 : 1;
}
