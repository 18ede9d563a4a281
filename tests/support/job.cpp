// One job of the development probe. Resets every subsystem, installs the in-memory port and runs the
// operations of the job on it, or the whole program.
#include "state/modes.hpp"
#include "state/variables.hpp"
#include "support/job.hpp"

#include <cmath>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "documents/dialog.hpp"
#include "documents/open_documents.hpp"
#include "editing/search.hpp"
#include "editing/words.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/commands.hpp"
#include "shell/help_mode.hpp"
#include "shell/reset.hpp"
#include "support/job_program.hpp"
#include "support/job_text.hpp"
#include "support/memory.hpp"

namespace {

using nlohmann::json;

std::int16_t entier_16(const json& tache, const char* nom, std::int16_t defaut) {
    return tache.contains(nom) ? tache.at(nom).get<std::int16_t>() : defaut;
}

// One untitled sheet, as the program has it after a start without files, and its working folder.
void prepare_documents(const json& tache) {
    reglages.nom_sanstitre = "SANSTITRE.VXT";
    reglages.article_vide = {reglages.nom_sanstitre, 0, 0, 1};
    reglages.dossier_programme = memoire.dossier_programme + "\\";
    reglages.dossier_travail = reglages.dossier_programme + "travail\\";
    reglages.fichier_ini = reglages.dossier_programme + kFichierReglages;
    pose_dossier(reglages.dossier_travail);
    reglages_par_defaut();
    reglages.table_ini(1).champ3 = tache.value("repere", 1);
    documents.nom_copie(1) = reglages.dossier_travail + reglages.nom_sanstitre;
    donne_identite(1);
    InitNomRepertoire();
    dlg.extension = "VXT";
    batit_caracteres();
}

// Modes, options and texts of the job, in the settings table too.
void prepare_options(const json& tache) {
    modes.mode_nombre = entier_16(tache, "mode_nombre", 1);
    modes.mode_affichage = entier_16(tache, "mode_affichage", 2);
    modes.nombre_decimal = entier_16(tache, "nombre_decimal", 2);
    modes.unite_angle = entier_16(tache, "unite_angle", 1);
    reglages.table_ini(kLigneNombres) = {"", modes.mode_nombre, modes.nombre_decimal,
                                         modes.mode_affichage};
    reglages.table_ini(kLigneAngle).champ1 = modes.unite_angle;
    article& affichage = reglages.table_ini(kLigneAffichage);
    affichage.champ1 = tache.value("matrice_colonne", 0);
    affichage.champ2 = tache.value("stat_restreint", 0);
    aide.aide_touche = tache.value("aide_touche", false);
    recherche.chaine_recherche = texte_tache(tache.value("chaine_recherche", json("")));
    recherche.chaine_remplacement = texte_tache(tache.value("chaine_remplacement", json("")));
}

// Prepares the program that the job describes, without a whole start-up.
void prepare(const json& tache) {
    installe_port_memoire();
    reinitialise_tout();
    prepare_documents(tache);
    prepare_options(tache);
    prepare_reponses(tache);
    port.texte.pose_texte(texte_tache(tache.at("text")));
    port.texte.pose_selection(tache.value("selstart", std::size_t{0}),
                              tache.value("sellength", std::size_t{0}));
}

// The operations of the job, in their order.
std::vector<std::string> operations(const json& tache) {
    if (!tache.contains("op")) return {"recalcul"};
    const json& op = tache.at("op");
    if (op.is_string()) return {op.get<std::string>()};
    return op.get<std::vector<std::string>>();
}

void execute(const json& tache) {
    const std::vector<std::string> liste = operations(tache);
    const int fois = tache.value("repeat", 1);
    for (int i = 0; i < fois; ++i)
        for (const std::string& op : liste)
            if (!execute_commande(op)) throw std::invalid_argument("opération inconnue : " + op);
}

json nombre(double x) {
    if (std::isnan(x)) return "nan";
    if (std::isinf(x)) return x < 0 ? "-inf" : "inf";
    return x;
}

json textes(const std::vector<std::string>& liste) {
    json sortie = json::array();
    for (const std::string& texte : liste) sortie.push_back(vers_utf8(texte));
    return sortie;
}

json valeurs() {
    json sortie = json::object();
    for (std::size_t i = 1; i <= 26; ++i)
        if (variable_definie(i))
            sortie[std::string(1, static_cast<char>('A' + i - 1))] =
                nombre(valeur_variable(i));
    return sortie;
}

json saisies() {
    json sortie = json::array();
    for (const Saisie& saisie : memoire.saisies)
        sortie.push_back(json::array({vers_utf8(saisie.invite), vers_utf8(saisie.propose)}));
    return sortie;
}

json resultat() {
    return {{"text", vers_utf8(memoire.texte)},
            {"selstart", memoire.sel_start},
            {"sellength", memoire.sel_length},
            {"messages", textes(memoire.messages)},
            {"boites", textes(memoire.boites)},
            {"saisies", saisies()},
            {"bips", memoire.bips},
            {"erreur_formule", formule_en_erreur()},
            {"valeurs", valeurs()},
            {"modifie", documents.document_modifie(documents.document_courant) != 0}};
}

// The whole program for the operation "programme", the named commands for the others.
json execute_tache(const json& tache) {
    if (tache.contains("op") && tache.at("op") == "programme") {
        execute_programme(tache);
        json sortie = resultat();
        ajoute_etat_programme(sortie);
        return sortie;
    }
    prepare(tache);
    execute(tache);
    return resultat();
}

}  // namespace

std::string texte_tache(const json& valeur) {
    RefusTexte refus{};
    const auto texte = depuis_utf8(valeur.get_ref<const std::string&>(), &refus);
    if (!texte)
        throw std::invalid_argument("caractère hors de Windows-1252 à l'octet " +
                                    std::to_string(refus.octet));
    return *texte;
}

void prepare_reponses(const json& tache) {
    const json aucune = json::array();
    for (const json& reponse : tache.contains("reponses") ? tache.at("reponses") : aucune)
        memoire.reponses.push_back(
            reponse.is_null() ? std::nullopt : std::optional<std::string>(texte_tache(reponse)));
}

json traite_tache(const json& tache) noexcept {
    json sortie;
    try {
        sortie = execute_tache(tache);
    } catch (const std::exception& e) {
        sortie = {{"erreur", e.what()}};
    } catch (const Defaillance& d) {
        sortie = {{"erreur", "défaillance " + std::to_string(d.numero)}};
    }
    if (tache.is_object() && tache.contains("id")) sortie["id"] = tache["id"];
    return sortie;
}
