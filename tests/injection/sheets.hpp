// The sheets whose statements are made to fail, and the words of the procedures that must be seen.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct FeuilleEssai {
    const char* nom;
    std::vector<std::string> lignes;  // UTF-8, as typed: no old results
    bool matrice_colonne = false;
    bool stat_restreint = false;
    bool colonne = false;  // the column total
    // Lines of `lignes`, from 0, that a pass holds back and does not write when their calculation
    // fails: the two lists of a bare STATXY.
    std::size_t retenues_de = 0, retenues_a = 0;
};
std::vector<FeuilleEssai> feuilles_essai();

// The procedures that go on after a failure, in the words of their boxes.
inline constexpr const char* kProcedures[] = {" sur p_lis_symbole",
                                              " sur lis_symbole",
                                              " sur lis_identificateur",
                                              " sur conv_a_r",
                                              " sur conv_r_a",
                                              " sur factoriel",
                                              " sur Compile_un_argument",
                                              " sur compile_f",
                                              " sur compile_facteur",
                                              " sur compile_not",
                                              " sur compile_exposant",
                                              " sur compile_terme",
                                              " sur compile_expression",
                                              " sur carré",
                                              " sur c_intx",
                                              " sur intx",
                                              " sur odd",
                                              " sur frac",
                                              "sur arrondi",
                                              "sur r_franc_euro",
                                              " sur recalcul",
                                              " sur calcul_chaine",
                                              " sur effaceEgalite",
                                              " sur Affiche_valeur",
                                              " sur Affiche_valeur_nombre",
                                              " sur AffichePi",
                                              "sur TestMatrice",
                                              "sur FinDefinitionMatrice",
                                              "sur RangeDefinitionMatrice",
                                              "sur RangeChiffreMatrice",
                                              "sur CopieMatriceVersTravail",
                                              "sur CopieMatriceVersTravail2",
                                              "sur CopietravailVersMatrice",
                                              "sur DimensionMatrice",
                                              "sur AdditionMatrice",
                                              "sur SoustractionMatrice",
                                              "sur MultiplicationMatrice",
                                              "sur MultiplicationNombreMatrice",
                                              "sur PuissanceMatrice",
                                              "sur DeterminantMatrice",
                                              "sur InversionMatrice",
                                              "sur ChaineMatriceLigne",
                                              "sur ChaineMatriceColonne",
                                              "sur TestStatX",
                                              "sur FinDefinitionStatX",
                                              "sur RangeChiffreStatX",
                                              " sur RangeStatxy",
                                              " sur statx",
                                              " sur statxy",
                                              " sur Resxy",
                                              "sur TriStatX",
                                              " sur triTable_x",
                                              "sur fon"};

// The one procedure that ends after a failure; its box has the number once.
inline constexpr const char* kSansReprise = " sur evalue_formule";
