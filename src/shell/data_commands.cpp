// Data from the clipboard or a file to lines of the sheet. One question tells what was found; whatever is
// refused changes nothing and is said in one sentence.
#include "shell/data_commands.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/dialog.hpp"
#include "documents/documents.hpp"
#include "exchange/data_lines.hpp"
#include "exchange/data_reader.hpp"
#include "platform/message.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"

namespace {

constexpr std::string_view kFiltreDonnees =
    "Données (*.csv)|*.csv|Données (*.txt)|*.txt|Données (*.tsv)|*.tsv|tous fichiers (*.*)|*.*"_fr;
constexpr std::string_view kExtensionDonnees = "csv";

void refuse(std::string_view mots) { dit(std::string("rien n'est importé : "_fr).append(mots)); }

// Where the dialog begins: beside the sheet.
std::string dossier_de_la_feuille() {
    const std::string& nom = ligne_courante_ini().nom;
    return nom == reglages.nom_sanstitre ? reglages.nom_repertoire : cheminSeul(nom);
}

// Puts the lines into the sheet, the cursor on the first of them, and says where they stand.
void pose_lignes(std::string_view lignes) {
    std::optional<Insertion> insertion =
        insere_lignes(port.texte.texte(), port.texte.sel_start(), lignes);
    if (!insertion) return refuse("la feuille aurait plus de 32767 lignes"_fr);
    port.texte.pose_texte(std::move(insertion->texte));
    marque_modifie();
    port.texte.pose_selection(insertion->position, 0);
    dit(std::string("données importées, lignes "_fr) + chiffres(static_cast<long long>(insertion->ligne)) +
        std::string(" à "_fr) + chiffres(static_cast<long long>(insertion->derniere)));
}

// Tells what was found and asks for the form. False on Cancel.
bool demande_forme(const DonneesLues& donnees, std::string_view origine, std::string& forme) {
    forme = forme_proposee(donnees, port.texte.texte());
    return port.boites.saisie(std::string(origine).append(mots_donnees(donnees)), std::string(forme), forme);
}

// The data in the form that the user has confirmed.
void importe(const DonneesLues& donnees, std::string_view forme) {
    std::string refus;
    const std::optional<std::string> lignes = lignes_de_feuille(donnees, forme, refus);
    if (!lignes) return refuse(refus);
    pose_lignes(*lignes);
}

// Asks for a file and imports it.
void importe_fichier() {
    std::string nom = dossier_de_la_feuille() + "." + std::string(kExtensionDonnees);
    if (!port.dialogues.ouvre(nom, kFiltreDonnees, kExtensionDonnees)) return;
    std::string octets, refus, forme;
    if (port.fichiers.lit(nom, octets) != 0) return refuse("le fichier ne peut pas être lu"_fr);
    const std::optional<DonneesLues> donnees = lis_donnees(octets, refus);
    if (!donnees) return refuse(refus);
    if (demande_forme(*donnees, "", forme)) importe(*donnees, forme);
}

// True when the clipboard holds more than a number that was copied for another use.
bool est_tableau(const DonneesLues& donnees) { return donnees.rangs.size() * donnees.table.lignes() > 1; }

}  // namespace

void mnuImporterItem() {
    std::string refus, forme;
    const std::optional<DonneesLues> copiees = lis_donnees(port.presse_papiers.lit(), refus);
    if (!copiees || !est_tableau(*copiees)) return importe_fichier();
    if (!demande_forme(*copiees, "Presse-papiers, ou réponse vide pour un fichier : "_fr, forme)) return;
    if (sans_blancs(forme).empty()) return importe_fichier();
    importe(*copiees, forme);
}
