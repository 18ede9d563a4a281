// One job of the development probe. Resets every subsystem, installs the memory filler and runs the
// operations of the job on it.
#include "tools/job.hpp"

#include <cmath>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "documents/settings.hpp"
#include "engine/context.hpp"
#include "platform/memory.hpp"
#include "platform/platform.hpp"
#include "shell/commands.hpp"
#include "shell/help_mode.hpp"
#include "shell/reset.hpp"

namespace {

using nlohmann::json;

// A text of the job in the sheet's code page. Refuses what the code page lacks.
std::string texte_tache(const json& valeur) {
    RefusTexte refus{};
    const auto texte = depuis_utf8(valeur.get_ref<const std::string&>(), &refus);
    if (!texte)
        throw std::invalid_argument("caractère hors de Windows-1252 à l'octet " +
                                    std::to_string(refus.octet));
    return *texte;
}

std::int16_t entier_16(const json& tache, const char* nom, std::int16_t defaut) {
    return tache.contains(nom) ? tache.at(nom).get<std::int16_t>() : defaut;
}

// Prepares the program that the job describes.
void prepare(const json& tache) {
    installe_port_memoire();
    reinitialise_tout();
    modes.mode_nombre = entier_16(tache, "mode_nombre", 1);
    modes.mode_affichage = entier_16(tache, "mode_affichage", 2);
    modes.nombre_decimal = entier_16(tache, "nombre_decimal", 2);
    modes.unite_angle = entier_16(tache, "unite_angle", 1);
    article& affichage = reglages.table_ini(kLigneAffichage);
    affichage.champ1 = tache.value("matrice_colonne", 0);
    affichage.champ2 = tache.value("stat_restreint", 0);
    aide.aide_touche = tache.value("aide_touche", false);
    if (tache.contains("reponses"))
        for (const json& reponse : tache.at("reponses"))
            memoire.reponses.push_back(reponse.is_null()
                                           ? std::nullopt
                                           : std::optional<std::string>(texte_tache(reponse)));
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
        if (moteur.variable_definie[i])
            sortie[std::string(1, static_cast<char>('A' + i - 1))] =
                nombre(moteur.valeur_variable[i]);
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
            {"erreur_formule", moteur.erreur_formule},
            {"valeurs", valeurs()},
            {"modifie", documents.document(documents.document_courant).document_modifie}};
}

}  // namespace

json traite_tache(const json& tache) noexcept {
    json sortie;
    try {
        prepare(tache);
        execute(tache);
        sortie = resultat();
    } catch (const std::exception& e) {
        sortie = {{"erreur", e.what()}};
    } catch (const Defaillance& d) {
        sortie = {{"erreur", "défaillance " + std::to_string(d.numero)}};
    }
    if (tache.is_object() && tache.contains("id")) sortie["id"] = tache["id"];
    return sortie;
}
