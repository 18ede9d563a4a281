// The operation "programme" of the development probe. Changes every subsystem.
#include "support/job_program.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "settings/settings.hpp"
#include "shell/menus.hpp"
#include "shell/key_codes.hpp"
#include "shell/window.hpp"
#include "support/job_text.hpp"
#include "support/memory.hpp"
#include "support/script.hpp"
#include "support/script_words.hpp"

namespace {

using nlohmann::json;

json utf8(std::string_view texte) { return vers_utf8(texte); }

template <class Liste>
json textes(const Liste& liste) {
    json sortie = json::array();
    for (const std::string& texte : liste) sortie.push_back(utf8(texte));
    return sortie;
}

json controle_en_json(const Controle& c) {
    return {{"gauche", c.gauche},
            {"haut", c.haut},
            {"largeur", c.largeur},
            {"hauteur", c.hauteur},
            {"ordre_tab", c.ordre_tab},
            {"texte", utf8(c.texte)},
            {"visible", c.visible},
            {"actif", c.actif},
            {"police",
             {{"nom", utf8(c.police.nom)}, {"taille", c.police.taille}, {"gras", c.police.gras}}}};
}

json tous_les_controles() {
    json sortie = json::object();
    for (const Controle* c : controles()) sortie[std::string(c->nom)] = controle_en_json(*c);
    sortie["txt"]["lecture_seule"] = fenetre.txt_lecture_seule;
    sortie["txt"]["couleurs"] = {fenetre.txt_couleur, fenetre.txt_fond};
    sortie["LblMessage"]["couleur"] = fenetre.LblMessage_couleur;
    sortie["FrameAngle"]["option"] = fenetre.option_angle;
    return sortie;
}

json item_en_json(const EtatItem& item) {
    return {{"nom", std::string(item.nom)}, {"index", item.index}, {"libelle", utf8(item.libelle)},
            {"coche", item.coche},          {"actif", item.actif}, {"visible", item.visible}};
}

// The recent files first, as in the File menu.
json tous_les_items() {
    json sortie = json::array();
    for (std::size_t i = 1; i < menus.recents.size(); ++i)
        sortie.push_back(item_en_json(menus.recents[i]));
    for (const EtatItem& item : menus.items) sortie.push_back(item_en_json(item));
    return sortie;
}

json etat_documents() {
    json copies = json::array(), modifies = json::array();
    for (int i = 1; i <= documents.nombre_document; ++i) {
        copies.push_back(utf8(documents.nom_copie(i)));
        modifies.push_back(documents.document_modifie(i) != 0);
    }
    return {{"document_courant", documents.document_courant},
            {"nombre_document", documents.nombre_document},
            {"copies", copies},
            {"modifies", modifies}};
}

json table_en_json() {
    json sortie = json::array();
    for (const article& ligne : reglages.table_ini)
        sortie.push_back({{"nom", utf8(ligne.nom)},
                          {"champ1", ligne.champ1},
                          {"champ2", ligne.champ2},
                          {"champ3", ligne.champ3}});
    return sortie;
}

json journal_en_json() {
    json sortie = json::array();
    for (const Entendu& e : memoire.journal)
        sortie.push_back(
            {{"genre", e.genre}, {"texte", utf8(e.texte)}, {"propose", utf8(e.propose)}});
    return sortie;
}

json fichiers_en_json() {
    json sortie = json::object();
    for (const auto& [chemin, fichier] : memoire.fichiers)
        if (!fichier.dossier) sortie[vers_utf8(chemin)] = utf8(fichier.contenu);
    return sortie;
}

// The failed steps in one text.
std::string mots_echecs() {
    std::string mots;
    for (const EchecEtape& e : script.echecs)
        mots += (mots.empty() ? "" : " ; ") + std::string("étape ") + std::to_string(e.ligne) +
                ", " + e.etape + " : attendu " + e.attendu + ", obtenu " + e.obtenu;
    return mots;
}

// The program starts by itself unless an event says when.
bool demarre_lui_meme(const std::vector<std::string>& evenements) {
    return std::none_of(evenements.begin(), evenements.end(), [](const std::string& evenement) {
        const std::size_t debut = evenement.find_first_not_of(' ');
        return debut != std::string::npos && evenement.compare(debut, 8, "démarre") == 0;
    });
}

}  // namespace

void execute_programme(const json& tache) {
    nouveau_script(false);
    prepare_reponses(tache);
    const json rien = json::object();
    const json& fichiers = tache.contains("fichiers") ? tache.at("fichiers") : rien;
    for (const auto& [chemin, contenu] : fichiers.items())
        pose_fichier(texte_tache(chemin), texte_tache(contenu));
    const auto evenements = tache.value("evenements", std::vector<std::string>());
    const std::string commande = texte_tache(tache.value("ligne_commande", json("")));
    if (demarre_lui_meme(evenements)) execute_etape(0, "démarre " + cite(commande));
    int rang = 0;
    for (const std::string& evenement : evenements) execute_etape(++rang, evenement);
}

void ajoute_etat_programme(json& resultat) {
    resultat["controles"] = tous_les_controles();
    resultat["menus"] = tous_les_items();
    resultat["documents"] = etat_documents();
    resultat["table_ini"] = table_en_json();
    resultat["journal"] = journal_en_json();
    resultat["fichiers"] = fichiers_en_json();
    resultat["titre"] = utf8(fenetre.titre);
    resultat["panneaux"] = textes(fenetre.panneaux);
    resultat["liste"] = {{"lignes", textes(fenetre.lignes_liste)}, {"index", fenetre.index_liste}};
    resultat["focus"] = std::string(fenetre.focus);
    resultat["ferme"] = script.commence && !programme_en_marche();
    if (!script.echecs.empty()) resultat["erreur"] = mots_echecs();
}
