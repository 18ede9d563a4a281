// What a script looks at. Changes no state.
#include "state/variables.hpp"
#include "support/script_look.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/open_documents.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/help_mode.hpp"
#include "shell/key_codes.hpp"
#include "shell/menus.hpp"
#include "support/memory.hpp"
#include "support/script.hpp"
#include "support/script_recovery.hpp"

namespace {

constexpr double kEcartValeur = 1e-12;  // relative above 1, absolute below

void compare_entiers(long attendu, long obtenu) {
    exige(attendu == obtenu, std::to_string(attendu), std::to_string(obtenu));
}

// A step that ends in "oui" or "non".
void compare_oui_non(Etape& etape, bool obtenu) {
    const std::string mot = prend_mot(etape);
    exige(mot == "oui" || mot == "non", "oui ou non", mot);
    exige((mot == "oui") == obtenu, mot, obtenu ? "oui" : "non");
}

// --- The text and the window --------------------------------------------------------------------

void voit_texte(Etape& etape) { compare(prend_texte(etape), port.texte.texte()); }

void voit_curseur(Etape& etape) {
    const long debut = prend_entier(etape), longueur = suit_mot(etape) ? prend_entier(etape) : 0;
    const auto ecrit = [](auto d, auto l) { return std::to_string(d) + " " + std::to_string(l); };
    const std::string attendu = ecrit(debut, longueur);
    const std::string obtenu = ecrit(port.texte.sel_start(), port.texte.sel_length());
    exige(attendu == obtenu, attendu, obtenu);
}

void voit_titre(Etape& etape) { compare(prend_texte(etape), fenetre.titre); }
void voit_etiquette(Etape& etape) { compare(prend_texte(etape), ligne_message.LblMessage); }

void voit_panneau(Etape& etape) {
    const auto rang = static_cast<std::size_t>(prend_rang(etape, 1, 4));
    compare(prend_texte(etape), fenetre.panneaux[rang - 1]);
}

void voit_focus(Etape& etape) {
    const std::string nom(controle_nomme(prend_mot(etape)).nom);
    exige(nom == fenetre.focus, nom, std::string(fenetre.focus));
}

void voit_legende(Etape& etape) {
    const Controle& c = controle_nomme(prend_mot(etape));
    compare(prend_texte(etape), c.texte);
}

void voit_liste(Etape& etape) {
    const auto rang = static_cast<std::size_t>(prend_rang(etape, 0, 1'000'000));
    const auto& lignes = fenetre.lignes_liste;
    const std::string attendu = prend_texte(etape);
    exige(rang < lignes.size(), cite(attendu), std::to_string(lignes.size()) + " lignes");
    compare(attendu, lignes[rang]);
}

void voit_lignes(Etape& etape) {
    compare_entiers(prend_entier(etape), static_cast<long>(fenetre.lignes_liste.size()));
}

void voit_index(Etape& etape) { compare_entiers(prend_entier(etape), fenetre.index_liste); }
void voit_option(Etape& etape) { compare_entiers(prend_entier(etape), fenetre.option_angle); }

void voit_couleurs(Etape& etape) {
    compare_entiers(prend_entier(etape), fenetre.txt_couleur);
    compare_entiers(prend_entier(etape), fenetre.txt_fond);
}

void voit_police(Etape& etape) {
    const Controle& c = controle_nomme(prend_mot(etape));
    compare(prend_texte(etape), c.police.nom);
    compare(prend_nombre(etape), c.police.taille);
}

void voit_lecture_seule(Etape& etape) { compare_oui_non(etape, fenetre.txt_lecture_seule); }

// --- States in words ----------------------------------------------------------------------------

// What a word says of a state, and whether the thing is so.
struct Etat {
    bool visible, actif, coche;
};
bool mot_vrai(const std::string& mot, const Etat& etat) {
    const std::array<std::pair<std::string_view, bool>, 6> mots = {{{"visible", etat.visible},
                                                                    {"caché", !etat.visible},
                                                                    {"actif", etat.actif},
                                                                    {"inactif", !etat.actif},
                                                                    {"coché", etat.coche},
                                                                    {"décoché", !etat.coche}}};
    const auto* const vu =
        std::find_if(mots.begin(), mots.end(), [&](const auto& m) { return m.first == mot; });
    exige(vu != mots.end(), "visible, caché, actif, inactif, coché ou décoché", mot);
    return vu->second;
}

// All the words to the end of the step must hold; there is at least one.
void compare_etat(Etape& etape, const Etat& etat) {
    do {
        const std::string mot = prend_mot(etape);
        exige(mot_vrai(mot, etat), mot,
              std::string(etat.visible ? "visible" : "caché") +
                  (etat.actif ? " actif" : " inactif") + (etat.coche ? " coché" : " décoché"));
    } while (suit_mot(etape));
}

const EtatItem& item_nomme(const std::string& nom) {
    const EtatItem* const item = etat_item(nom);
    exige(item != nullptr, "un article de menu", nom);
    return *item;
}

void voit_item(Etape& etape) {
    const EtatItem& item = item_nomme(prend_mot(etape));
    compare_etat(etape, {item.visible, item.actif, item.coche});
}

void voit_libelle(Etape& etape) {
    const EtatItem& item = item_nomme(prend_mot(etape));
    compare(prend_texte(etape), item.libelle);
}

// A recent file: its caption while it is shown, or words on its state.
void voit_recent(Etape& etape) {
    const auto rang = static_cast<std::size_t>(prend_rang(etape, 1, kItemsRecents));
    const EtatItem& item = menus.recents[rang];
    if (!suit_texte(etape)) return compare_etat(etape, {item.visible, item.actif, item.coche});
    const std::string attendu = prend_texte(etape);
    exige(item.visible, cite(attendu), "caché");
    compare(attendu, item.libelle);
    if (suit_mot(etape)) compare_etat(etape, {item.visible, item.actif, item.coche});
}

// --- Files --------------------------------------------------------------------------------------

std::string contenu_fichier(const std::string& chemin) {
    const auto contenu = lit_memoire(chemin);
    exige(contenu.has_value(), "le fichier " + cite(chemin), "absent");
    return *contenu;
}

bool existe(const std::string& chemin) {
    return lit_memoire(chemin).has_value() || dossier_memoire(chemin);
}

void voit_fichier(Etape& etape) {
    const std::string contenu = contenu_fichier(prend_texte(etape));
    compare(prend_texte(etape), contenu);
}

void voit_taille(Etape& etape) {
    const std::string contenu = contenu_fichier(prend_texte(etape));
    compare_entiers(prend_entier(etape), static_cast<long>(contenu.size()));
}

void voit_presse_papiers(Etape& etape) { compare(prend_texte(etape), depuis_utf8(memoire.presse_papiers).value_or("")); }
void voit_absent(Etape& etape) { exige(!existe(prend_texte(etape)), "absent", "présent"); }
void voit_present(Etape& etape) { exige(existe(prend_texte(etape)), "présent", "absent"); }

// --- Documents, settings, calculation -----------------------------------------------------------

void voit_document(Etape& etape) {
    compare_entiers(prend_entier(etape), documents.document_courant);
}
void voit_documents(Etape& etape) {
    compare_entiers(prend_entier(etape), documents.nombre_document);
}

void voit_copie(Etape& etape) {
    const long rang = prend_rang(etape, 1, kDocumentsMaxi);
    compare(prend_texte(etape), documents.nom_copie(rang));
}

void voit_modifie(Etape& etape) {
    const long rang = prend_rang(etape, 1, kDocumentsMaxi);
    compare_oui_non(etape, documents.document_modifie(rang) != 0);
}

// A row of the settings; the fields that the step leaves out aren't compared.
void voit_ligne_ini(Etape& etape) {
    const article& rangee = reglages.table_ini(prend_rang(etape, 1, kLignesIni));
    compare(prend_texte(etape), rangee.nom);
    for (const std::int32_t champ : {rangee.champ1, rangee.champ2, rangee.champ3})
        if (suit_mot(etape)) compare_entiers(prend_entier(etape), champ);
}

void voit_aide(Etape& etape) { compare_oui_non(etape, aide.aide_touche); }

std::size_t rang_variable(const std::string& mot) {
    exige(mot.size() == 1 && mot[0] >= 'A' && mot[0] <= 'Z', "une lettre de A à Z", mot);
    return static_cast<std::size_t>(rang_lettre(mot[0]));
}

void voit_valeur(Etape& etape) {
    const std::size_t rang = rang_variable(prend_mot(etape));
    const double attendu = prend_nombre(etape), obtenu = valeur_variable(rang);
    exige(variable_definie(rang), texte_general(attendu), "indéfinie");
    const double ecart = kEcartValeur * std::fmax(1, std::fabs(attendu));
    if (!(std::fabs(attendu - obtenu) <= ecart)) compare(attendu, obtenu);
}

void voit_indefinie(Etape& etape) {
    const std::size_t rang = rang_variable(prend_mot(etape));
    exige(!variable_definie(rang), "indéfinie", texte_general(valeur_variable(rang)));
}

void voit_ferme(Etape& etape) { compare_oui_non(etape, script.commence && !programme_en_marche()); }

struct Regard {
    std::string_view nom;  // UTF-8
    void (*execute)(Etape&);
};
constexpr std::array kRegards = {
    Regard{"texte", voit_texte},
    Regard{"curseur", voit_curseur},
    Regard{"titre", voit_titre},
    Regard{"étiquette", voit_etiquette},
    Regard{"panneau", voit_panneau},
    Regard{"focus", voit_focus},
    Regard{"légende", voit_legende},
    Regard{"item", voit_item},
    Regard{"libellé", voit_libelle},
    Regard{"récent", voit_recent},
    Regard{"liste", voit_liste},
    Regard{"lignes", voit_lignes},
    Regard{"index", voit_index},
    Regard{"option", voit_option},
    Regard{"couleurs", voit_couleurs},
    Regard{"police", voit_police},
    Regard{"lecture_seule", voit_lecture_seule},
    Regard{"fichier", voit_fichier},
    Regard{"taille", voit_taille},
    Regard{"presse_papiers", voit_presse_papiers},
    Regard{"absent", voit_absent},
    Regard{"présent", voit_present},
    Regard{"secours", voit_secours},
    Regard{"combien_secours", voit_combien},
    Regard{"document", voit_document},
    Regard{"documents", voit_documents},
    Regard{"copie", voit_copie},
    Regard{"modifié", voit_modifie},
    Regard{"ligne_ini", voit_ligne_ini},
    Regard{"aide", voit_aide},
    Regard{"valeur", voit_valeur},
    Regard{"indéfinie", voit_indefinie},
    Regard{"fermé", voit_ferme},
};

// The frame that holds the options and the button of the angle view, nullptr for other controls.
const Controle* cadre(const Controle& c) {
    const bool dedans = c.nom.starts_with("Option") || c.nom == "CmdAngle";
    return dedans ? &fenetre.FrameAngle : nullptr;
}

}  // namespace

bool est_montre(const Controle& c) { return c.visible && (!cadre(c) || cadre(c)->visible); }

bool est_actif(const Controle& c) {
    return est_montre(c) && c.actif && (!cadre(c) || cadre(c)->actif);
}

const Controle& controle_nomme(const std::string& nom) {
    const Controle* const c = controle(nom);
    exige(c != nullptr, "un contrôle", nom);
    return *c;
}

void voit(Etape& etape) {
    const std::string nom = prend_mot(etape);
    const auto* const regard = std::find_if(kRegards.begin(), kRegards.end(),
                                            [&](const Regard& r) { return r.nom == nom; });
    if (regard != kRegards.end()) return regard->execute(etape);
    const Controle& c = controle_nomme(nom);
    compare_etat(etape, {est_montre(c), c.actif && (!cadre(c) || cadre(c)->actif), false});
}
