// Whatever looks into a sheet (check, words of a line, report, study, curve) leaves the calculation as it was, and
// gives the same when it is asked again: of every golden sheet and every example.
#include "state/reading.hpp"   // in front of the matrices, whose name one of its own hides

#include <doctest/doctest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "exchange/page.hpp"
#include "platform/boxes.hpp"
#include "platform/hooks.hpp"
#include "platform/patience.hpp"
#include "sheet/matrix_definition.hpp"
#include "sheet/observer.hpp"
#include "shell/calculation.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "state/noted_data.hpp"
#include "state/sheet.hpp"
#include "study/curve.hpp"
#include "study/sheet_study.hpp"
#include "support/program.hpp"
#include "support/snapshot.hpp"
#include "unit/helpers.hpp"
#include "verification/check.hpp"
#include "verification/line_words.hpp"

namespace {

namespace fs = std::filesystem;

void ajoute(std::ostringstream& s, double x) { s << std::hex << std::bit_cast<std::uint64_t>(x) << ';'; }

void ajoute(std::ostringstream& s, const TableMatrice& m) {
    s << m.lignes() << 'x' << m.colonnes() << ':';
    for (int i = 0; i < m.lignes() * m.colonnes(); ++i) ajoute(s, m.elements()[i]);
}

void ajoute_moteur(std::ostringstream& s) {
    const Moteur& m = moteur;
    s << m.p_formule << '|' << m.p_position << '|' << std::string_view(m.l_symbole) << '|' << m.type_f << '|' << m.l_var << '|' << m.l_matrice << '|'
      << m.erreur_formule << m.muet_erreur << m.definition_fonction_active << m.appels_epuises << m.flag_travail << m.flag_travail2
      << '|' << m.fonction_active << '|' << m.nom_fonction << '|' << m.l_texte_erreur << '|' << m.appels_fon << '|'
      << m.faute.notee << m.faute.mots << '|' << m.faute.formule << '|' << m.faute.debut << '|' << m.faute.fin << '|'
      << m.faute.ligne << '|' << (m.releve == nullptr) << '\n' << m.generateur << '\n';
    for (const double x : {m.l_valeur, m.l_argument1, m.l_argument2, m.l_argument3}) ajoute(s, x);
    for (const double x : m.valeur_variable) ajoute(s, x);
    for (const bool definie : m.variable_definie) s << definie;
    for (const bool definie : m.matrice_definie) s << definie;
}

void ajoute_feuille(std::ostringstream& s) {
    s << '\n' << feuille.nombre_ligne << '|' << feuille.ligne_courante << '|' << feuille.statx_present << feuille.statxy_present
      << feuille.passe_refusee << feuille.calcul_en_colonne << '|' << feuille.passes << '|' << feuille.resultat_bloc << '|'
      << feuille.texte_ecrit << '|' << feuille.faute.ligne << '|' << feuille.faute.colonne << '|' << feuille.faute.longueur << '|'
      << feuille.faute.mots << '\n';
    for (const double x : feuille.valeur_ligne) ajoute(s, x);
    for (const TextesDeLignes* textes : {&feuille.formule_ligne, &feuille.resultat_ligne})
        for (std::size_t i = 1; i <= textes->taille(); ++i) s << (*textes)(static_cast<std::ptrdiff_t>(i)) << '|';
    for (const std::int32_t colonne : feuille.colonne_resultat) s << colonne << '|';
}

// All that a calculation leaves, and what would be called by the next one.
std::string etat() {
    std::ostringstream s;
    ajoute_moteur(s);
    ajoute_feuille(s);
    for (const TableMatrice& m : matrices.table) ajoute(s, m);
    ajoute(s, matrices.matrice_travail);
    ajoute(s, matrices.matrice_travail2);
    s << '\n' << statistiques.definition_statx << statistiques.statx_trie << '|' << statistiques.texte_definition_statx << '|';
    for (const TableRepetee* table : {&statistiques.table_x, &statistiques.table_y})
        for (const TableRepetee::Plage& plage : table->plages()) ajoute(s, plage.valeur), s << plage.fin << ';';
    s << '\n' << definition_de_matrice.definition_matrice << definition_de_matrice.texte_definition_matrice << '|'
      << boites_de_passe.ouverte << boites_de_passe.montrees << '|' << boites_de_passe.derniere << '|' << patience.abandonnee
      << '|' << (observation == nullptr) << (notees == nullptr) << '|' << reinterpret_cast<std::uintptr_t>(crochets.ligne_calculee)
      << '|' << reinterpret_cast<std::uintptr_t>(port.boites.boite) << '|' << reinterpret_cast<std::uintptr_t>(port.message.etiquette);
    return s.str();
}

// What all of them make of the sheet.
std::string regarde(const std::string& texte) {
    std::string vu;
    verifie_feuille(texte);
    for (const Constat& c : verification.constats) vu += phrase(c) + "\n";
    const auto lignes = static_cast<int>(std::count(texte.begin(), texte.end(), '\n')) + 1;
    for (int i = 1; i <= std::min(lignes, 40); ++i) vu += dit_ligne(texte, i).mots + "\n";
    for (const FonctionDeFeuille& f : fonctions_de_feuille(texte)) {
        EtudeDeFeuille etude;
        vu += etudie_fonction(texte, f, "", etude);
        for (const std::string& ligne : lignes_d_etude(etude)) vu += ligne + "\n";
        CourbeDeFeuille courbe;
        vu += lis_courbe(texte, f, "", courbe);
    }
    return vu + page_html(rapport_de(texte, true), "page", etudie_tout(texte));
}

}  // namespace

TEST_CASE("looking into a sheet changes nothing of its calculation, and shows the same again") {
    int feuilles = 0;
    for (const fs::path dossier : {VOXTAB_TESTS "/sheets", VOXTAB_TESTS "/../examples"})
        for (const fs::directory_entry& entree : fs::recursive_directory_iterator(dossier)) {
            const std::string nom = entree.path().filename().string();
            if (entree.path().extension() != ".VXT" || nom.find("attendu") != std::string::npos) continue;
            std::ifstream fichier(entree.path(), std::ios::binary);
            const std::string octets{std::istreambuf_iterator<char>(fichier), {}};
            CAPTURE(nom);
            programme_neuf();
            port.texte.pose_texte(depuis_utf8(octets).value_or(std::string(octets)));
            recalcul();
            oublie_entendu();
            const std::string avant = etat(), texte = port.texte.texte();
            const Instantane autour = prend_instantane();
            const std::string vu = regarde(texte);
            CHECK(etat() == avant);
            CHECK(differences(autour, prend_instantane()) == Textes{});
            CHECK(regarde(texte) == vu);
            ++feuilles;
        }
    CHECK(feuilles > 150);
}
