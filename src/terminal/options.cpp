// The options of voxtab-calc. Sets the modes and the settings table.
#include "terminal/options.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include <CLI/CLI.hpp>

#include "settings/settings.hpp"
#include "state/modes.hpp"

namespace {

constexpr const char* kVersion = "voxtab-calc " VOXTAB_VERSION;

// Help in French, in the order in which someone hears it.
class AideFrancaise : public CLI::Formatter {
public:
    AideFrancaise() {
        label("OPTIONS", "options");
        label("TEXT", "TEXTE");
        label("INT", "N");
        column_width(32);
    }
    std::string make_usage(const CLI::App*, std::string) const override {
        return "Usage : voxtab-calc [options] [FEUILLE]...\n";
    }
    std::string make_description(const CLI::App* app) const override {
        return app->get_description() + "\n";
    }
    std::string make_group(std::string groupe, bool positionnel,
                           std::vector<const CLI::Option*> options) const override {
        return CLI::Formatter::make_group(positionnel ? "Argument " : groupe + " ", positionnel, std::move(options));
    }
    std::string make_option_opts(const CLI::Option* option) const override {
        if (option->get_positional()) return "";
        const std::string nom = option->get_type_name();
        return nom.empty() ? "" : " " + nom;
    }
    std::string make_footer(const CLI::App* app) const override {
        return app->get_footer() + "\n";
    }
};

// Refuses what is not one of the choices, in words that name them.
CLI::Validator choix(std::vector<std::string> valeurs) {
    return CLI::Validator(
        [valeurs](std::string& valeur) -> std::string {
            if (std::find(valeurs.begin(), valeurs.end(), valeur) != valeurs.end()) return {};
            std::string mots = "« " + valeur + " » n'est pas une valeur possible :";
            for (const std::string& v : valeurs) mots += (&v == &valeurs.front() ? " " : ", ") + v;
            return mots;
        },
        "");
}

CLI::Validator decimales_possibles() {
    return CLI::Validator(
        [](std::string& valeur) -> std::string {
            const bool figures = !valeur.empty() && valeur.size() <= 3 &&
                                 valeur.find_first_not_of("0123456789") == std::string::npos;
            if (figures && std::stoi(valeur) <= 100) return {};
            return "« " + valeur + " » n'est pas un nombre de décimales de 0 à 100";
        },
        "");
}

CLI::Validator table_possible() {
    return CLI::Validator(
        [](std::string& valeur) -> std::string {
            const bool figures = !valeur.empty() && valeur.size() <= 4 &&
                                 valeur.find_first_not_of("0123456789") == std::string::npos;
            if (figures && std::stoi(valeur) >= 1) return {};
            return "« " + valeur + " » n'est pas un numéro de table de 1 à 9999";
        },
        "");
}

// How a sheet is calculated and shown.
void declare_calcul(CLI::App& app, OptionsCalcul& o) {
    app.add_option("FEUILLE", o.feuilles,
                   "Feuille à calculer ; sans elle, ou avec -, l'entrée standard.\n"
                   "Plusieurs feuilles sont calculées ensemble et écrites dans leur ordre");
    app.add_flag("-i,--en-place", o.en_place,
                 "Récrit la feuille dans son fichier, l'ancienne gardée avec l'extension bak");
    app.add_option("-a,--affichage", o.affichage,
                   "Nombres : entier, flottant, puissance ou hexa (flottant)")
        ->check(choix({"entier", "flottant", "puissance", "hexa"}))
        ->type_name("FORME");
    app.add_option("-d,--decimales", o.decimales, "Nombre de décimales, de 0 à 100 (2)")
        ->check(decimales_possibles())
        ->type_name("N");
    app.add_option("-u,--angle", o.angle, "Unité d'angle : degre, radian ou grade (degre)")
        ->check(choix({"degre", "radian", "grade"}))
        ->type_name("UNITE");
    app.add_option("-m,--matrice", o.matrice, "Matrices en ligne ou en colonne (ligne)")
        ->check(choix({"ligne", "colonne"}))
        ->type_name("SENS");
    app.add_option("-s,--statistiques", o.statistiques,
                   "Résultats statistiques : complet ou restreint (complet)")
        ->check(choix({"complet", "restreint"}))
        ->type_name("TAILLE");
    app.add_flag("-c,--colonne", o.colonne,
                 "Ajoute le total de toutes les lignes, dans une ligne Z=");
}

// What is written beside the sheet, and what comes in.
void declare_fichiers(CLI::App& app, OptionsCalcul& o) {
    app.add_option("--html", o.page, "Écrit aussi la feuille en page HTML dans ce fichier")->type_name("FICHIER");
    app.add_option(
           "--etude", o.etude,
           "Écrit aussi l'étude des fonctions INC et AIR dans ce fichier ;\navec --html, la page la contient aussi")
        ->type_name("FICHIER");
    app.add_option("--son", o.son, "Écrit aussi leurs courbes en son dans ce fichier wav")->type_name("FICHIER");
    auto* const importer = app.add_option("--importer", o.importe,
                   "Met devant la feuille les nombres de ce fichier (csv, tsv, txt) ; sans FEUILLE, eux seuls")
        ->type_name("FICHIER");
    app.add_option("--forme", o.forme,
                   "Ce qu'ils deviennent : STATX, STATXY, DEFMA..., avec des numéros de colonnes")
        ->needs(importer)
        ->type_name("FORME");
    auto* const donnees =
        app.add_option("--donnees", o.donnees, "Écrit aussi une table de la feuille en CSV dans ce fichier")
            ->type_name("FICHIER");
    app.add_option("--table", o.table, "Laquelle, quand la feuille en a plusieurs, de 1 à 9999")
        ->check(table_possible())
        ->needs(donnees)
        ->type_name("N");
    app.add_flag("--point", o.point,
                 "En CSV : point décimal et virgules, au lieu de virgule décimale et points-virgules")
        ->needs(donnees);
}

// What is only told, and how texts are encoded.
void declare_textes(CLI::App& app, OptionsCalcul& o) {
    auto* const verifier = app.add_flag("-V,--verifier", o.verifier,
                 "Dit ce qui n'est pas lu comme il y paraît, une ligne par constat, sans écrire la feuille");
    app.add_flag("-j,--json", o.json, "Avec --verifier, un objet JSON par constat")->needs(verifier);
    app.add_option("--codage", o.codage,
                   "Codage du texte : utf-8 ou windows-1252 (utf-8 ; pour un fichier, le sien)")
        ->check(choix({"utf-8", "windows-1252"}))
        ->type_name("CODAGE");
}

// What stands after the last ": " of the library's words, up to a blank; or all of them.
std::string fin_des_mots(const std::string& texte) {
    const std::size_t deux_points = texte.rfind(": ");
    const std::string fin = deux_points == std::string::npos ? texte : texte.substr(deux_points + 2);
    return fin.substr(0, fin.find(' '));
}

// A word that no option and no sheet has taken. "-c=3" arrives as "-=3": the user is told what was
// typed.
std::string mots_de_trop(const std::string& texte, const std::vector<std::string>& mots) {
    const std::string mot = fin_des_mots(texte);
    if (mot.starts_with("-="))
        for (const std::string& tape : mots)
            if (tape.ends_with(mot.substr(1))) return tape + " ne prend pas de valeur";
    return "option inconnue : " + mot;
}

// One French line for what is wrong with the command line.
std::string mots_erreur(const CLI::ParseError& e, const std::vector<std::string>& mots) {
    const std::string texte = e.what();
    const std::string option = texte.substr(0, texte.find(": "));
    if (dynamic_cast<const CLI::ValidationError*>(&e) != nullptr) {
        const std::size_t debut = texte.find("\xC2\xAB");   // the words of a validator
        if (debut != std::string::npos) return texte.substr(debut);
    }
    if (dynamic_cast<const CLI::ExtrasError*>(&e) != nullptr) return mots_de_trop(texte, mots);
    if (dynamic_cast<const CLI::ConversionError*>(&e) != nullptr)
        return fin_des_mots(texte) + " ne prend pas de valeur";
    if (dynamic_cast<const CLI::RequiresError*>(&e) != nullptr)
        return texte.substr(0, texte.find(' ')) + " demande " + texte.substr(texte.rfind(' ') + 1);
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&e) != nullptr)
        return option + (texte.find("received") != std::string::npos &&
                                 texte.find("received 0") == std::string::npos
                             ? " est donnée deux fois"
                             : " : il manque sa valeur");
    return "ligne de commande incorrecte";
}

// A check prints what it finds, and nothing else: who asks for a file besides must not wait for it in vain.
void refuse_avec_verifier(LectureOptions& lecture) {
    const OptionsCalcul& o = lecture.options;
    const bool ecrit = o.en_place || !o.page.empty() || !o.donnees.empty() || !o.etude.empty() || !o.son.empty();
    if (!o.verifier || !ecrit) return;
    lecture.statut = kImpossible;
    lecture.erreur = "--verifier n'écrit rien : sans --en-place, --html, --donnees, --etude ni --son";
}

// One sheet stands alone; several are files.
void range_feuilles(LectureOptions& lecture) {
    std::vector<std::string>& feuilles = lecture.options.feuilles;
    if (feuilles.size() > 1) {
        const OptionsCalcul& o = lecture.options;
        if (!o.page.empty() || !o.importe.empty() || !o.donnees.empty() || !o.etude.empty() || !o.son.empty()) {
            lecture.statut = kImpossible;
            lecture.erreur = "--html, --importer, --donnees, --etude et --son demandent une seule feuille";
            return;
        }
        if (std::find(feuilles.begin(), feuilles.end(), "-") == feuilles.end()) return;
        lecture.statut = kImpossible;
        lecture.erreur = "l'entrée standard (-) ne se calcule que seule";
        return;
    }
    if (!feuilles.empty()) lecture.options.feuille = std::move(feuilles.front());
    feuilles.clear();
}

}  // namespace

LectureOptions lis_options(const std::vector<std::string>& mots, bool pour_tests) {
    LectureOptions lecture;
    CLI::App app("voxtab-calc calcule des feuilles : chaque résultat est écrit derrière sa ligne.");
    app.formatter(std::make_shared<AideFrancaise>());
    app.set_help_flag("-h,--aide,--help", "Affiche cette aide");
    app.set_version_flag("-v,--version", kVersion, "Affiche la version");
    app.footer(
        "Les messages et les boîtes vont sur la sortie d'erreur, un par ligne.\n"
        "Statut : 0 toutes les lignes sont calculées, 1 une ligne est en erreur,\n"
        "2 commande incorrecte ou fichier qui ne peut pas être lu ou écrit,\n"
        "3 avec --verifier, une valeur est probablement fausse.");
    declare_calcul(app, lecture.options);
    declare_fichiers(app, lecture.options);
    declare_textes(app, lecture.options);
    if (pour_tests) app.add_option("--curseur", lecture.options.curseur, "");
    try {
        std::vector<std::string> envers(mots.rbegin(), mots.rend());
        app.parse(envers);
        range_feuilles(lecture);
        if (!lecture.statut) refuse_avec_verifier(lecture);
    } catch (const CLI::CallForHelp&) {
        lecture.statut = kReussite;
        lecture.sortie = app.help();
    } catch (const CLI::CallForVersion&) {
        lecture.statut = kReussite;
        lecture.sortie = std::string(kVersion) + "\n";
    } catch (const CLI::ParseError& e) {
        lecture.statut = kImpossible;
        lecture.erreur = mots_erreur(e, mots);
    }
    return lecture;
}

void applique_options(const OptionsCalcul& options) {
    constexpr std::array<std::string_view, 3> kAffichages = {"entier", "flottant", "puissance"};
    constexpr std::array<std::string_view, 3> kAngles = {"degre", "radian", "grade"};
    const auto rang = [](const auto& noms, const std::string& nom) {
        return static_cast<std::int16_t>(std::find(noms.begin(), noms.end(), nom) - noms.begin() + 1);
    };
    modes.mode_nombre = options.affichage == "hexa" ? 2 : 1;
    modes.mode_affichage = modes.mode_nombre == 2 ? std::int16_t{2} : rang(kAffichages, options.affichage);
    modes.nombre_decimal = static_cast<std::int16_t>(options.decimales);
    modes.unite_angle = rang(kAngles, options.angle);
    reglages.table_ini(kLigneAffichage).champ1 = options.matrice == "colonne" ? 1 : 0;
    reglages.table_ini(kLigneAffichage).champ2 = options.statistiques == "restreint" ? 1 : 0;
}
