// The command line of voxtab-calc: what each option sets, and the French words of every refusal.
#include "state/modes.hpp"
#include "terminal/options.hpp"

#include <doctest/doctest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "settings/settings.hpp"

namespace {

using Mots = std::vector<std::string>;

struct Refus {
    Mots mots;
    const char* texte;
};

// Words of the parser's own English, none of which may reach the user.
constexpr const char* kMotsAnglais[] = {"required",  "argument", "could not", "expected",
                                        "following", "option ",  "invalid",   "value",
                                        "unable",    "requires", "exclude"};

bool parle_anglais(std::string texte) {
    std::transform(texte.begin(), texte.end(), texte.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (texte.starts_with("option inconnue")) texte.erase(0, 6);
    return std::any_of(std::begin(kMotsAnglais), std::end(kMotsAnglais),
                       [&](const char* mot) { return texte.find(mot) != std::string::npos; });
}

}  // namespace

TEST_CASE("options: without words everything is as it starts") {
    const LectureOptions lu = lis_options({});
    CHECK_FALSE(lu.statut.has_value());
    CHECK(lu.options.affichage == "flottant");
    CHECK(lu.options.decimales == 2);
    CHECK(lu.options.angle == "degre");
    CHECK(lu.options.matrice == "ligne");
    CHECK(lu.options.statistiques == "complet");
    CHECK_FALSE(lu.options.colonne);
    CHECK_FALSE(lu.options.en_place);
    CHECK(lu.options.codage.empty());
    CHECK(lu.options.feuille.empty());
}

TEST_CASE("options: long names, short names and values joined by an equals sign") {
    const Mots commandes[] = {
        {"--affichage", "puissance", "--decimales", "3", "--angle", "radian", "--matrice",
         "colonne", "--statistiques", "restreint", "--colonne", "--en-place", "--codage", "utf-8",
         "f.vxt"},
        {"f.vxt", "-a", "puissance", "-d", "3", "-u", "radian", "-m", "colonne", "-s", "restreint",
         "-c", "-i", "--codage", "utf-8"},
        {"--affichage=puissance", "--decimales=3", "--angle=radian", "--matrice=colonne",
         "--statistiques=restreint", "-ci", "--codage=utf-8", "f.vxt"}};
    for (const Mots& mots : commandes) {
        const LectureOptions lu = lis_options(mots);
        CHECK(lu.erreur == "");
        CHECK_FALSE(lu.statut.has_value());
        CHECK(lu.options.affichage == "puissance");
        CHECK(lu.options.decimales == 3);
        CHECK(lu.options.angle == "radian");
        CHECK(lu.options.matrice == "colonne");
        CHECK(lu.options.statistiques == "restreint");
        CHECK(lu.options.colonne);
        CHECK(lu.options.en_place);
        CHECK(lu.options.codage == "utf-8");
        CHECK(lu.options.feuille == "f.vxt");
    }
}

TEST_CASE("options: a sheet may be named by a dash, and by any name behind two dashes") {
    CHECK(lis_options({"-"}).options.feuille == "-");
    const LectureOptions lu = lis_options({"--", "--colonne"});
    CHECK_FALSE(lu.statut.has_value());
    CHECK(lu.options.feuille == "--colonne");
    CHECK_FALSE(lu.options.colonne);
    CHECK(lis_options({"feuille d'été.vxt"}).options.feuille == "feuille d'été.vxt");
}

TEST_CASE("options: several sheets are in the order of the command line") {
    const LectureOptions lu = lis_options({"b.vxt", "-c", "a.vxt", "--", "-i"});
    CHECK_FALSE(lu.statut.has_value());
    CHECK(lu.options.feuilles == std::vector<std::string>{"b.vxt", "a.vxt", "-i"});
    CHECK(lu.options.feuille.empty());
    CHECK(lu.options.colonne);
    CHECK_FALSE(lu.options.en_place);
    CHECK(lis_options({"a.vxt"}).options.feuilles.empty());
}

TEST_CASE("options: words of every refusal") {
    const Refus refus[] = {
        {{"--affichage", "romain"},
         "« romain » n'est pas une valeur possible : entier, flottant, puissance, hexa"},
        {{"-a", ""}, "«  » n'est pas une valeur possible : entier, flottant, puissance, hexa"},
        {{"--affichage", "Flottant"},
         "« Flottant » n'est pas une valeur possible : entier, flottant, puissance, hexa"},
        {{"--angle", "degré"}, "« degré » n'est pas une valeur possible : degre, radian, grade"},
        {{"--matrice", "x"}, "« x » n'est pas une valeur possible : ligne, colonne"},
        {{"--statistiques", "tout"}, "« tout » n'est pas une valeur possible : complet, restreint"},
        {{"--codage", "latin1"}, "« latin1 » n'est pas une valeur possible : utf-8, windows-1252"},
        {{"--decimales", "101"}, "« 101 » n'est pas un nombre de décimales de 0 à 100"},
        {{"--decimales", "x"}, "« x » n'est pas un nombre de décimales de 0 à 100"},
        {{"--decimales", "2.5"}, "« 2.5 » n'est pas un nombre de décimales de 0 à 100"},
        {{"--decimales=-1"}, "« -1 » n'est pas un nombre de décimales de 0 à 100"},
        {{"--decimales", "99999999999"},
         "« 99999999999 » n'est pas un nombre de décimales de 0 à 100"},
        {{"--couleur"}, "option inconnue : --couleur"},
        {{"-z"}, "option inconnue : -z"},
        {{"a", "--couleur"}, "option inconnue : --couleur"},
        {{"--colonne", "--couleur", "f.vxt"}, "option inconnue : --couleur"},
        {{"a.vxt", "-"}, "l'entrée standard (-) ne se calcule que seule"},
        {{"--decimales"}, "--decimales : il manque sa valeur"},
        {{"a.vxt", "--angle"}, "--angle : il manque sa valeur"},
        {{"-a"}, "--affichage : il manque sa valeur"},
        {{"--json", "a"}, "--json demande --verifier"},
        {{"--forme", "STATX", "a"}, "--forme demande --importer"},
        {{"--table", "2", "a"}, "--table demande --donnees"},
        {{"--point", "a"}, "--point demande --donnees"},
        {{"-V", "-i", "a"}, "--verifier n'écrit rien : sans --en-place, --html, --donnees, --etude ni --son"},
        {{"--html", "p", "--verifier", "a"},
         "--verifier n'écrit rien : sans --en-place, --html, --donnees, --etude ni --son"}};
    for (const Refus& r : refus) {
        CAPTURE(r.texte);
        const LectureOptions lu = lis_options(r.mots);
        CHECK(lu.statut == 2);
        CHECK(lu.erreur == r.texte);
        CHECK(lu.sortie.empty());
    }
}

TEST_CASE("options: no refusal speaks English, names its option wrongly or takes two lines") {
    const Mots commandes[] = {{"--decimales", "3", "--decimales", "4"},
                              {"-d", "3", "-d", "4"},
                              {"--angle", "grade", "--angle", "radian"},
                              {"--colonne=x"},
                              {"--en-place=peut-être"},
                              {"-c=3"},
                              {"--colonne", "--couleur", "rouge"},
                              {"-xyz"},
                              {"--decimales", "--colonne"},
                              {"--=3"},
                              {"-d"},
                              {"a", "-", "c"}};
    for (const Mots& mots : commandes) {
        std::string commande;
        for (const std::string& mot : mots) commande += mot + " ";
        CAPTURE(commande);
        const LectureOptions lu = lis_options(mots);
        CHECK(lu.statut == 2);
        CHECK_FALSE(lu.erreur.empty());
        CHECK_FALSE(parle_anglais(lu.erreur));
        CHECK(lu.erreur.find('\n') == std::string::npos);
    }
}

TEST_CASE("options: a refusal names what the user typed") {
    struct Rangee {
        Mots mots;
        const char* nom;
    };
    for (const Rangee& r :
         {Rangee{{"-xyz"}, "-xyz"}, Rangee{{"--couleur=rouge"}, "--couleur=rouge"},
          Rangee{{"-cz", "f"}, "-z"}, Rangee{{"-c=3"}, "-c"},
          Rangee{{"--colonne=x"}, "--colonne"}}) {
        const std::string erreur = lis_options(r.mots).erreur;
        CAPTURE(erreur);
        CHECK(erreur.find(r.nom) != std::string::npos);
    }
}

TEST_CASE("options: an option given twice isn't said to lack its value") {
    const LectureOptions lu = lis_options({"--decimales", "3", "--decimales", "4"});
    CHECK(lu.statut == 2);
    CHECK(lu.erreur != "--decimales : il manque sa valeur");
}

TEST_CASE("options: the cursor is for tests alone") {
    CHECK(lis_options({"--curseur", "7"}, true).options.curseur == 7);
    CHECK(lis_options({"--curseur", "7"}).erreur == "option inconnue : --curseur");
}

TEST_CASE("options: help and version end the program well") {
    for (const char* mot : {"--aide", "-h", "--help"}) {
        const LectureOptions lu = lis_options({mot});
        CHECK(lu.statut == 0);
        CHECK(lu.erreur.empty());
        CHECK(lu.sortie.starts_with("voxtab-calc calcule des feuilles"));
        for (const char* option :
             {"--affichage", "--decimales", "--angle", "--matrice", "--colonne", "--statistiques",
              "--en-place", "--codage", "--aide", "--version",
              "Usage : voxtab-calc [options] [FEUILLE]", "Statut : 0"})
            CHECK(lu.sortie.find(option) != std::string::npos);
        CHECK_FALSE(lu.sortie.find("--curseur") != std::string::npos);
    }
    const LectureOptions lu = lis_options({"-v"});
    CHECK(lu.statut == 0);
    CHECK(lu.sortie.starts_with("voxtab-calc "));
    CHECK(lu.sortie.ends_with("\n"));
}

TEST_CASE("options: each value sets its mode") {
    struct Rangee {
        const char *affichage, *angle;
        int mode_nombre, mode_affichage, unite_angle;
    };
    const Rangee rangees[] = {{"entier", "degre", 1, 1, 1},
                              {"flottant", "radian", 1, 2, 2},
                              {"puissance", "grade", 1, 3, 3},
                              {"hexa", "degre", 2, 2, 1}};
    for (const Rangee& r : rangees) {
        CAPTURE(r.affichage);
        OptionsCalcul options;
        options.affichage = r.affichage;
        options.angle = r.angle;
        options.decimales = 7;
        applique_options(options);
        CHECK(modes.mode_nombre == r.mode_nombre);
        CHECK(modes.mode_affichage == r.mode_affichage);
        CHECK(modes.unite_angle == r.unite_angle);
        CHECK(modes.nombre_decimal == 7);
    }
}

TEST_CASE("options: layouts of matrices and statistics go to the settings") {
    OptionsCalcul options;
    options.matrice = "colonne";
    options.statistiques = "restreint";
    applique_options(options);
    CHECK(reglages.table_ini(kLigneAffichage).champ1 == 1);
    CHECK(reglages.table_ini(kLigneAffichage).champ2 == 1);
    applique_options(OptionsCalcul{});
    CHECK(reglages.table_ini(kLigneAffichage).champ1 == 0);
    CHECK(reglages.table_ini(kLigneAffichage).champ2 == 0);
}
