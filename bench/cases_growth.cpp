// The cases that stand beside themselves on more of the same: how time and memory grow with lines,
// with the order of a matrix, with the values of a data set and with the rows of a table.
#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "cases.hpp"
#include "measure.hpp"
#include "mixed_sheet.hpp"
#include "program.hpp"
#include "report.hpp"
#include "settings/tool_options.hpp"
#include "shell/calculation.hpp"
#include "state/sheet.hpp"
#include "support/memory.hpp"

namespace {

// A row whose time grows from `petit` to `grand`.
void affiche_croissance(const std::string& quoi, double grand, double petit,
                        const std::string& voulu, bool tenu) {
    affiche({quoi, duree(grand), duree(petit), grand / petit, voulu, tenu});
}

// Twice as much of the same takes twice the time.
void affiche_double(const std::string& quoi, double grand, double petit) {
    affiche_croissance(quoi, grand, petit, "at most 2.3", grand <= 2.3 * petit);
}

// ---- Matrices

using Matrice = std::vector<std::vector<double>>;

// Elements with one decimal; the diagonal is large enough for a determinant far from 0.
Matrice cree_matrice(int n) {
    std::mt19937 hasard(static_cast<unsigned>(n));
    Matrice m(static_cast<std::size_t>(n), std::vector<double>(static_cast<std::size_t>(n)));
    for (std::size_t i = 0; i < m.size(); ++i)
        for (std::size_t j = 0; j < m.size(); ++j)
            m[i][j] = (static_cast<double>(hasard() % 21) - 10) / 10 + (i == j ? 3 : 0);
    return m;
}

std::string bloc_matrice(const Matrice& m) {
    std::string texte = "DEFMA\r\n";
    for (const std::vector<double>& rangee : m) {
        for (std::size_t j = 0; j < rangee.size(); ++j)
            texte += (j > 0 ? "," : "") + decimal(rangee[j], 1);
        texte += "\r\n";
    }
    return texte + "FIN";
}

// The determinant by elimination, to compare with.
double determinant(Matrice m) {
    double produit = 1;
    for (std::size_t k = 0; k < m.size(); ++k) {
        std::size_t pivot = k;
        for (std::size_t i = k + 1; i < m.size(); ++i)
            if (std::fabs(m[i][k]) > std::fabs(m[pivot][k])) pivot = i;
        if (pivot != k) produit = -produit;
        std::swap(m[pivot], m[k]);
        produit *= m[k][k];
        for (std::size_t i = k + 1; i < m.size(); ++i) {
            const double facteur = m[i][k] / m[k][k];
            for (std::size_t j = k; j < m.size(); ++j) m[i][j] -= facteur * m[k][j];
        }
    }
    return produit;
}

std::string repete(const std::string& ligne, int fois) {
    std::string texte;
    for (int i = 0; i < fois; ++i) texte += "\r\n" + ligne;
    return texte;
}

// What a matrix operation is, and the line that costs the same but for the operation itself.
struct Operation {
    std::string nom;
    std::string ligne;
    std::string temoin;
    double (*produits)(double n);  // products that its mathematics asks for
};

const Operation kDeterminant{"determinant", "DETMAT(MA)", "1",
                             [](double n) { return n * std::exp2(n); }};
// The minors without one row are a table of their own for each row.
const Operation kInverse{"inverse", "MB=INVMAT(MA)", "MB=MA",
                         [](double n) { return n * (n + 1) * std::exp2(n); }};

// Both operations give what elimination gives.
void verifie_matrice(int n) {
    const Matrice m = cree_matrice(n);
    const double d = determinant(m);
    temps_passe("matrix",
                bloc_matrice(m) + "\r\nA=DETMAT(MA)\r\nMB=INVMAT(MA)\r\nB=DETMAT(MB)\r\nC=A*B");
    exige_proche("DETMAT", valeur_de('A') / d, 1);
    exige_proche("DETMAT of INVMAT", valeur_de('B') * d, 1);
}

// Seconds of one operation of order n: many of them in a sheet, less the same sheet without them.
double temps_operation(const Operation& operation, int n, int repetitions) {
    const int fois = std::max(1, static_cast<int>(3e7 / operation.produits(n)));
    const std::string bloc = bloc_matrice(cree_matrice(n));
    const std::string feuille_pleine = bloc + repete(operation.ligne, fois);
    const std::string feuille_temoin = bloc + repete(operation.temoin, fois);
    const std::vector<double> t =
        medianes({[&] { return temps_passe(operation.nom, feuille_pleine); },
                  [&] { return temps_passe(operation.nom, feuille_temoin); }},
                 repetitions);
    return (t[0] - t[1]) / fois;
}

void mesure_operation(const Operation& operation, int n, int repetitions) {
    const double suivant = temps_operation(operation, n + 1, repetitions);
    const double temps = temps_operation(operation, n, repetitions);
    const double attendu = operation.produits(n + 1) / operation.produits(n);
    affiche_croissance(
        operation.nom + ", order " + std::to_string(n + 1) + " beside " + std::to_string(n),
        suivant, temps, "about " + decimal(attendu, 2), suivant <= 1.2 * attendu * temps);
}

// ---- Data sets

// `nombre` values of one digit, so that as many as possible fit in a formula, after each other.
std::string chiffres_au_hasard(int nombre, const std::string& separateur, unsigned graine) {
    std::mt19937 hasard(graine);
    std::string texte;
    for (int i = 0; i < nombre; ++i)
        texte += (i > 0 ? separateur : "") + std::to_string(hasard() % 10);
    return texte;
}

std::string feuille_couples(int nombre) {
    return "STATXY\r\n" + chiffres_au_hasard(nombre, ",", 1) + "\r\n" +
           chiffres_au_hasard(nombre, ",", 2);
}

// A block with ten values a line.
std::string feuille_statx(int nombre, const std::string& suite) {
    std::string texte = "STATX\r\n";
    for (int i = 0; i < nombre; i += 10)
        texte += chiffres_au_hasard(10, ",", static_cast<unsigned>(i)) + "\r\n";
    return texte + "FIN" + suite;
}

// A call in which each value counts four times.
std::string feuille_effectifs(int nombre, const std::string& suite) {
    return "STATX(" + chiffres_au_hasard(nombre / 4, ",4;", 3) + ",4)" + suite;
}

// Times of a sheet of `nombre` values and of half of them; N must be their number afterwards.
template <class Fabrique>
void mesure_double(const std::string& quoi, int nombre, int repetitions, Fabrique&& fabrique) {
    const std::string grande = fabrique(nombre), petite = fabrique(nombre / 2);
    const std::vector<double> t = medianes(
        {[&] { return temps_passe(quoi, petite); }, [&] { return temps_passe(quoi, grande); }},
        repetitions);
    exige_proche(quoi, valeur_de('N'), nombre, 0);
    affiche_double(quoi + ", " + milliers(nombre) + " beside " + milliers(nombre / 2), t[1], t[0]);
}

}  // namespace

void mesure_doublement(int repetitions) {
    std::vector<std::string> textes;
    std::vector<Cas> cas;
    for (const int lignes : {8000, 16000, 32000})
        textes.push_back(cree_feuille_mixte(lignes).texte);
    for (const std::string& texte : textes)
        cas.push_back([&texte] { return temps_passe("doubled sheet", texte); });
    const std::vector<double> t = medianes(cas, repetitions);
    titre("The mixed sheet with twice the lines; ratio is here / beside");
    for (std::size_t i = 1; i < t.size(); ++i) {
        const double rapport = t[i] / t[i - 1];
        affiche_croissance(i == 1 ? "16,000 lines beside 8,000" : "32,000 lines beside 16,000",
                           t[i], t[i - 1], "1.8 to 2.3", rapport >= 1.8 && rapport <= 2.3);
    }
}

void mesure_surveillance(int repetitions) {
    const std::string texte = cree_feuille_mixte(32767).texte;
    const auto passe = [&texte](bool surveillee) {
        prepare_programme(texte);
        outils.attention = surveillee;
        const double debut = temps_processeur();
        recalcul();
        const double secondes = temps_processeur() - debut;
        exige_reussite("watched sheet");
        return secondes;
    };
    const std::vector<double> t = medianes({[&] { return passe(true); }, [&] { return passe(false); }}, repetitions);
    titre("32,767 mixed lines, judged line by line as they are calculated; ratio is watched / not watched");
    affiche({"a watched pass", duree(t[0]), duree(t[1]), t[0] / t[1], "at most 1.3", t[0] <= 1.3 * t[1]});
}

void mesure_memoire_passe() {
    const std::string texte = cree_feuille_mixte(32767).texte;
    const MemoirePasse m = mesure_memoire(
        [&] {
            prepare_programme(texte);
            feuille = Feuille{};   // the memory that other parts of the bench left would be the pass's
            return memoire.texte.size();
        },
        [] {
            recalcul();
            exige_reussite("memory");
        });
    const double mega = 1 << 20;
    const double texte_mega = static_cast<double>(m.texte) / mega;
    const double croissance = static_cast<double>(m.croissance) / mega;
    const double but = 12 * texte_mega + 20;
    titre("Resident memory of the pass over 32,767 lines; here is the peak, beside the text");
    affiche({"growth during the pass", decimal(croissance, 2) + " MB",
             decimal(texte_mega, 2) + " MB", croissance / texte_mega,
             "at most 12 x text + 20 MB = " + decimal(but, 1) + " MB", croissance <= but});
}

void mesure_matrices(int repetitions) {
    titre("Matrices: one operation of order n + 1 beside order n; ratio is here / beside");
    for (const int n : {8, 12, 16}) verifie_matrice(n);
    for (const Operation* operation : {&kDeterminant, &kInverse})
        for (const int n : {8, 12, 16}) mesure_operation(*operation, n, repetitions);
}

void mesure_statistiques(int repetitions) {
    titre("Statistics: a whole sheet beside the one with half the values; ratio is here / beside");
    mesure_double("STATXY and two lists", 5400, repetitions, feuille_couples);
    note("10,000 pairs make a call of 60,000 characters and more; a formula has at most 32,767");
    mesure_double("STATX block", 8000, repetitions, [](int n) { return feuille_statx(n, ""); });
    mesure_double("STATX block, TRISTATX", 8000, repetitions,
                  [](int n) { return feuille_statx(n, "\r\nTRISTATX"); });
    note("30,000 values of a block make a call of 120,000 characters and more: 8,000 fit");
    const std::string tri = "\r\nTRISTATX";
    // The words of the values are short, but each counts four times.
    mesure_double("STATX with frequencies, TRISTATX", 30000, repetitions,
                  [&](int n) { return feuille_effectifs(n, tri); });
}

void mesure_tabulation(int repetitions) {
    const auto texte = [](int rangees) {
        return "INCX(0,0.01," + std::to_string(rangees) + ")\r\nX^2+3X+1";
    };
    const std::string grand = texte(32000), petit = texte(16000);
    const std::vector<double> t = medianes(
        {[&] { return temps_passe("INC", petit); }, [&] { return temps_passe("INC", grand); }},
        repetitions);
    const auto fins = std::count(memoire.texte.begin(), memoire.texte.end(), '\n');
    exige_proche("lines of INC", static_cast<double>(fins), 32001, 0);
    titre("The table of a function, X^2+3X+1; ratio is here / beside");
    affiche_double("INC of 32,000 rows beside 16,000", t[1], t[0]);
}
