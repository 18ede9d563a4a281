// Replacing on the whole text and searching backwards: how their time grows with the text.
#include <cstddef>
#include <string>
#include <vector>

#include "cases.hpp"
#include "editing/search.hpp"
#include "measure.hpp"
#include "platform/platform.hpp"
#include "program.hpp"
#include "report.hpp"
#include "shell/commands.hpp"
#include "support/memory.hpp"

namespace {

constexpr int kLignes = 30'000;
constexpr int kOccurrences = 100'000;  // ten in three lines
constexpr int kRecherches = 20;        // searches in one measure

// Lines with three or four times "abc" each, ten in three lines.
std::string cree_texte(int lignes) {
    std::string texte;
    for (int i = 0; i < lignes; ++i) {
        texte += "! prix 12,50 abc + 3 abc; abc";
        texte += i % 3 == 0 ? " abc\r\n" : "\r\n";
    }
    return texte;
}

// Seconds of one replacement of all occurrences, whose number is checked.
double temps_remplacement(const std::string& texte, const std::string& par, int occurrences) {
    prepare_programme(texte);
    recherche.chaine_recherche = "ABC";
    recherche.chaine_remplacement = par;
    const double debut = temps_processeur();
    Remplacer();
    const double secondes = temps_processeur() - debut;
    exige_proche("messages", static_cast<double>(memoire.messages.size()), occurrences + 1, 0);
    const double taille =
        static_cast<double>(texte.size()) + occurrences * (static_cast<double>(par.size()) - 3);
    exige_proche("bytes", static_cast<double>(memoire.texte.size()), taille, 0);
    return secondes;
}

// Seconds of a search backwards from the end of the text, which meets every occurrence on its way;
// `trouve` is where the cursor must come to.
double temps_arriere(const std::string& texte, const std::string& chaine, std::size_t trouve) {
    prepare_programme(texte);
    recherche.chaine_recherche = chaine;
    const double debut = temps_processeur();
    for (int i = 0; i < kRecherches; ++i) {
        port.texte.pose_selection(texte.size(), 0);
        execute_commande("mnuRechercherPrecedentItem");
    }
    const double secondes = (temps_processeur() - debut) / kRecherches;
    exige_proche("cursor", static_cast<double>(memoire.sel_start), static_cast<double>(trouve), 0);
    return secondes;
}

// A row: the text beside its half. `mesure_lignes` answers the seconds for a text of that many
// lines.
template <class Mesure>
void affiche_moitie(const std::string& quoi, int repetitions, Mesure&& mesure_lignes) {
    const std::vector<double> t = medianes(
        {[&] { return mesure_lignes(kLignes / 2); }, [&] { return mesure_lignes(kLignes); }},
        repetitions);
    affiche({quoi, duree(t[1]), duree(t[0]), t[1] / t[0], "at most 2.3", t[1] <= 2.3 * t[0]});
}

// A row of the replacement of all occurrences by `par`.
void mesure_remplacement(const std::string& quoi, const std::string& par, int repetitions) {
    affiche_moitie(quoi, repetitions, [&](int lignes) {
        return temps_remplacement(cree_texte(lignes), par, kOccurrences / (kLignes / lignes));
    });
}

}  // namespace

void mesure_edition(int repetitions) {
    titre("Editing 30,000 lines with 100,000 occurrences, beside half; ratio is here / beside");
    mesure_remplacement("replace all, longer", "abcabc", repetitions);
    mesure_remplacement("replace all, same length", "xyz", repetitions);
    mesure_remplacement("replace all, by nothing", "", repetitions);
    affiche_moitie("search backwards, 100,000 met", repetitions, [](int lignes) {
        const std::string texte = cree_texte(lignes);
        return temps_arriere(texte, "ABC", texte.rfind("abc") + 1);
    });
    affiche_moitie("search backwards, none met", repetitions, [](int lignes) {
        const std::string texte = cree_texte(lignes);
        return temps_arriere(texte, "INTROUVABLE", texte.size());
    });
}
