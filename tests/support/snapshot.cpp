// The parts of the state, each written as one text.
#include "state/modes.hpp"
#include "state/variables.hpp"
#include "support/snapshot.hpp"

#include <cstddef>

#include "base/codepage.hpp"
#include "documents/open_documents.hpp"
#include "documents/recovery.hpp"
#include "editing/search.hpp"
#include "platform/message.hpp"
#include "settings/settings.hpp"
#include "shell/colours.hpp"
#include "shell/help_mode.hpp"
#include "shell/key_codes.hpp"
#include "shell/menus.hpp"
#include "shell/window.hpp"
#include "support/memory.hpp"

namespace {

// Adds a value and a separator.
void ajoute(std::string& part, const std::string& valeur) { (part += valeur) += ';'; }

template <class Nombre>
void ajoute(std::string& part, Nombre valeur) {
    ajoute(part, std::to_string(valeur));
}

std::string lignes_reglages() {
    std::string part;
    for (const article& ligne : reglages.table_ini) {
        ajoute(part, ligne.nom);
        for (const auto champ : {ligne.champ1, ligne.champ2, ligne.champ3}) ajoute(part, champ);
        part += '\n';
    }
    ajoute(part, reglages.nom_sanstitre);
    return part;
}

// All but the recovery files, which follow the changed mark and have tests of their own.
std::string tous_fichiers() {
    const std::string secours = dossier_secours();
    std::string part;
    for (const auto& [chemin, fichier] : memoire.fichiers) {
        if ((chemin + "\\").starts_with(secours)) continue;
        ajoute(part, chemin);
        ajoute(part, fichier.dossier);
        part += fichier.contenu + "\n";
    }
    return part;
}

std::string tous_modes() {
    std::string part;
    for (const int mode :
         {modes.mode_nombre, modes.nombre_decimal, modes.mode_affichage, modes.unite_angle})
        ajoute(part, mode);
    return part;
}

std::string tous_documents() {
    std::string part;
    ajoute(part, documents.document_courant);
    ajoute(part, documents.nombre_document);
    ajoute(part, documents.liste_fonction_active);
    for (const std::string& copie : documents.nom_copie) ajoute(part, copie);
    return part;
}

std::string tous_modifies() {
    std::string part;
    for (const char modifie : documents.document_modifie) ajoute(part, static_cast<int>(modifie));
    return part;
}

std::string tous_controles() {
    std::string part = fenetre.titre + "\n";
    for (const Controle* c : controles()) {
        for (const std::string& mot : {std::string(c->nom), c->texte, c->police.nom})
            ajoute(part, mot);
        ajoute(part, c->police.taille);
        for (const bool etat : {c->visible, c->actif}) ajoute(part, etat);
        part += '\n';
    }
    for (const std::string& ligne : fenetre.lignes_liste) ajoute(part, ligne);
    for (const std::string& panneau : fenetre.panneaux) ajoute(part, panneau);
    for (const int nombre :
         {fenetre.index_liste, fenetre.option_angle, fenetre.txt_couleur, fenetre.txt_fond,
          static_cast<int>(fenetre.txt_lecture_seule), static_cast<int>(fenetre.fermee)})
        ajoute(part, nombre);
    ajoute(part, std::string(fenetre.focus));
    ajoute(part, couleurs.choix_premier_plan);
    ajoute(part, couleurs.choix_arriere_plan);
    return part;
}

std::string tous_items() {
    std::string part;
    const auto ajoute_item = [&](const EtatItem& item) {
        ajoute(part, item.libelle);
        for (const bool etat : {item.coche, item.actif, item.visible}) ajoute(part, etat);
        part += '\n';
    };
    for (const EtatItem& item : menus.recents) ajoute_item(item);
    for (const EtatItem& item : menus.items) ajoute_item(item);
    return part;
}

std::string toutes_variables() {
    std::string part;
    for (std::size_t i = 1; i <= 26; ++i) {
        const bool definie = variable_definie(i);
        ajoute(part, definie);
        if (definie) ajoute(part, valeur_variable(i));
    }
    return part;
}

}  // namespace

std::string tout_entendu() {
    std::string part;
    for (const Entendu& e : memoire.journal) {
        part += vers_utf8(e.genre) + (e.texte.empty() ? "" : " " + vers_utf8(e.texte));
        part += (e.propose.empty() ? "" : "|" + vers_utf8(e.propose)) + "\n";
    }
    return part;
}

Instantane prend_instantane() {
    Instantane tout;
    tout["texte"] = memoire.texte;
    tout["curseur"] = std::to_string(memoire.sel_start) + " " + std::to_string(memoire.sel_length);
    tout["reglages"] = lignes_reglages();
    tout["fichiers"] = tous_fichiers();
    tout["modes"] = tous_modes();
    tout["documents"] = tous_documents();
    tout["modifies"] = tous_modifies();
    tout["controles"] = tous_controles();
    tout["menus"] = tous_items();
    tout["message"] = ligne_message.LblMessage;
    tout["entendu"] = tout_entendu();
    tout["recherche"] = recherche.chaine_recherche + ";" + recherche.chaine_remplacement;
    tout["variables"] = toutes_variables();
    tout["aide"] = std::to_string(aide.aide_touche);
    tout["traitee"] = std::to_string(aide.aide_touche_traitee);
    return tout;
}

std::vector<std::string> differences(const Instantane& avant, const Instantane& apres) {
    std::vector<std::string> noms;
    for (const auto& [nom, valeur] : avant)
        if (apres.at(nom) != valeur) noms.push_back(nom);
    return noms;
}

void oublie_entendu() {
    memoire.journal.clear();
    memoire.messages.clear();
    memoire.boites.clear();
    ligne_message = LigneMessage{};
}
