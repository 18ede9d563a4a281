// The program starts on a settings file of any bytes, on any working copies and any command line, and is
// used and quitted: it comes up with a sheet, its numbers stay within their bounds, and it leaves a
// settings file that reads back.
#include <string>

#include "bytes.hpp"
#include "documents/open_documents.hpp"
#include "settings/settings.hpp"
#include "shell/events.hpp"
#include "shell/menus.hpp"
#include "shell/window.hpp"
#include "support/memory.hpp"
#include "support/program.hpp"

namespace {

constexpr std::string_view kReglages = "C:\\VOXTAB\\VOXTAB.INI";
constexpr std::size_t kTailleFichier = kLignesIni * kTailleEnregistrement;

// A record of the settings file from few bytes: a name and three numbers.
std::string enregistrement(Octets& octets) {
    static constexpr std::int32_t kNombres[] = {0, 1, 2, 3, 15, -1, 32767, 32768, -32768, 2147483647};
    std::string brut = octets.texte(40);
    brut.resize(kTailleNom, ' ');
    for (int i = 0; i < 3; ++i) {
        const auto n = static_cast<std::uint32_t>(kNombres[octets.parmi(10)]);
        for (unsigned bit = 0; bit < 32; bit += 8) brut += static_cast<char>(n >> bit & 0xFF);
    }
    return brut;
}

// The settings file: records, or raw bytes.
std::string fichier_reglages(Octets& octets) {
    if (octets.octet() % 4 == 0) return octets.texte();
    std::string fichier;
    for (int i = octets.parmi(kLignesIni + 2); i > 0; --i) fichier += enregistrement(octets);
    return fichier + octets.texte(8);
}

void prepare_fichiers(Octets& octets) {
    if (octets.octet() % 8 != 0) pose_fichier(kReglages, fichier_reglages(octets));
    for (int i = octets.parmi(4); i > 0; --i) {
        const std::string nom = octets.texte(24);
        if (nom.empty()) continue;
        if (octets.octet() % 8 == 0)
            pose_dossier("C:\\VOXTAB\\travail\\" + nom);
        else
            pose_fichier(nom.find(':') == 1 ? nom : "C:\\VOXTAB\\travail\\" + nom, octets.texte(64));
    }
    memoire.ligne_commande = octets.texte(40);
    if (octets.octet() % 2 != 0) {
        memoire.echec_operation = 1 + octets.parmi(12);
        memoire.echec_numero = octets.parmi(2) != 0 ? 75 : 53;
    }
}

void verifie_etat() {
    const Documents& d = documents;
    verifie(d.nombre_document >= 1 && d.nombre_document <= kDocumentsMaxi, "count of documents");
    verifie(d.document_courant >= 1 && d.document_courant <= d.nombre_document, "current document");
    verifie(fenetre.txt_couleur >= kCouleurDessin && fenetre.txt_couleur <= 15, "a colour");
    verifie(fenetre.txt_fond >= kCouleurDessin && fenetre.txt_fond <= 15, "a background");
    verifie(memoire.sel_start + memoire.sel_length <= memoire.texte.size(), "a selection outside");
    verifie(fenetre.txt.visible, "no sheet is shown");
}

constexpr std::string_view kCommandes[] = {
    "mnuCalculItem",     "mnuFichierSuivantItem",  "mnuFichierPrecedentItem", "mnuNouveauItem",
    "mnuEnregistrerItem", "mnuFermerItem",         "mnuRechercherSuivantItem", "mnuXYItem",
    "mnuRepereItem",     "MnuParleResultatItem",   "mnuDerniereFeuilleItem",  "mnuHexaItem"};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* debut, std::size_t taille) {
    Octets octets(debut, taille);
    programme_de_fuzz();
    prepare_fichiers(octets);
    evenement_chargement();
    verifie_etat();
    for (int i = octets.parmi(8); i > 0; --i) {
        evenement_menu(kCommandes[octets.parmi(12)]);
        verifie_etat();
    }
    for (int i = 1; i <= 3; ++i) evenement_menu(kNomRecents, octets.parmi(16));
    verifie_etat();
    memoire.echec_operation = 0;
    memoire.reponses.assign(16, "non");
    evenement_menu("mnuQuitterItem");
    if (!fenetre.fermee) return 0;
    const auto ecrit = lit_memoire(kReglages);
    verifie(ecrit && ecrit->size() == kTailleFichier, "no whole settings file was left");
    Table<article> lignes(kLignesIni);
    lit_enregistrements(*ecrit, lignes);
    verifie(enregistrements(lignes) == *ecrit, "the settings file is not read back as it was");
    return 0;
}
