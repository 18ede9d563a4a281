// Random sheets that must not change once they have been calculated: lines of every form, with old
// results left behind, comments, blocks, and at most one line that fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "property/choice.hpp"
#include "property/expressions.hpp"

// The modes and options under which a sheet is calculated.
struct Reglage {
    std::int16_t mode_nombre = 1;
    std::int16_t mode_affichage = 2;
    std::int16_t nombre_decimal = 2;
    std::int16_t unite_angle = 1;
    int matrice_colonne = 0;
    int stat_restreint = 0;
};
Reglage tire_reglage(Tirage& t);
// Puts it into the modes and the settings.
void pose_reglage(const Reglage& reglage);

// What must stand in the sheet after the pass: at the head of a line, or as a whole line.
struct LigneGardee {
    std::string texte;
    bool entiere = false;  // a comment or a line that is never calculated
    bool connue = false;   // the result after it shows `valeur`
    double valeur = 0;
};

struct FeuilleTiree {
    Reglage reglage;
    std::string texte;  // Windows-1252, CR LF
    std::size_t curseur = 0;
    std::size_t ligne_en_erreur = 0;   // number of the line that fails, 0 for none
    std::vector<LigneGardee> gardees;  // in their order
    int lignes_de_bloc = 0;            // lines that results may add, at most
    bool saine = true;                 // no line fails
    Variables attendues;               // variables after the pass
};

// The sheet of a seed.
FeuilleTiree tire_feuille(std::uint64_t graine);
// The same without what nobody means: lines with a rule of their own, letters FIN in a formula's comment, old
// results that no pass wrote, lines that fail.
FeuilleTiree tire_feuille_soignee(std::uint64_t graine);

// Writes a sheet line by line; each procedure adds one piece of it.
class Redaction {
public:
    explicit Redaction(Tirage& tirage, const Reglage& r, bool avec_soin = false)
        : t(tirage), reglage(r), soignee(avec_soin) {}

    void morceau();       // any piece that calculates well
    void ligne_simple();  // one line that calculates well, or a comment; it leaves no block
    void erreur();        // a line that fails, and does so at every pass
    void fin_ouverte();   // a definition that nothing closes
    FeuilleTiree acheve();

private:
    // A line of the user's: blanks around it, perhaps an old result after it.
    void ligne(const std::string& texte, std::string_view ancien = {}, bool entiere = false);
    void ligne_a_resultat(const std::string& texte);
    void ligne_de_formule(const std::string& texte, const Formule& f);
    void vieille(const std::string& texte);   // a line of an old result
    void pose(int lettre, const Formule& f);  // an assignment of the sheet
    void pose_valeur(char lettre, double valeur);
    void pose_inconnue(char lettre);
    std::string commentaire();
    std::string lettre_de(int numero) const;
    void bloc(int nombre) { feuille.lignes_de_bloc += nombre; }

    void calcul();
    void affectation();
    void ligne_commentee();
    void singularite();
    void ligne_inerte();
    void monnaie();
    void fonction();
    void tabulation();
    void aire();
    std::string corps_de_fonction(const std::string& x);
    void definition_matrice();
    void ligne_matrice();
    void determinant();
    void stat_appel();
    void stat_bloc();
    void stat_couples();
    void stat_deux_listes();
    void suite_stat(bool couples);
    void tri();
    void cloture();
    void ancien_bloc_stat(bool couples);
    void pose_stat_x(const std::vector<int>& x, const std::vector<int>& effectifs);
    void pose_stat_xy(const std::vector<int>& x, const std::vector<int>& y);
    std::vector<int> valeurs();

    struct Matrice {
        int lignes = 0, colonnes = 0;  // 0: not defined in this sheet
        int produits = 0;              // products after it: few, so that nothing overflows
    };
    std::string operation_matrice(int cible, Matrice& resultat);
    int matrice_comme(const Matrice& modele, int sauf);
    void pose_ancienne_matrice(const std::string& texte, const Matrice& m);

    Tirage& t;
    Reglage reglage;
    bool soignee;   // see tire_feuille_soignee
    FeuilleTiree feuille;
    std::vector<std::string> lignes;
    Variables variables;                                             // as the engine has them here
    Matrice matrices[11];                                            // 1 to 10 for MA to MJ
    bool statx_vu = false, statxy_vu = false, fonction_vue = false;  // what the sheet has so far
    bool bloc_plein = false;      // resultat_bloc holds a block: a data set would add to it
    bool bloc_attend = false;     // a data set's block waits for the next line
    bool definition_vue = false;  // a data set came from a block
    bool ouverte = false;         // the end of the sheet leaves a definition open
    bool echouee = false;         // a line above has failed: the rest is only copied
};
