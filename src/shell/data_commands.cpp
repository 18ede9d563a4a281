// Data from the clipboard or a file to lines of the sheet, and from the sheet to files. One question tells what
// was found; whatever is refused changes nothing and is said in one sentence. Changes the text and files.
#include "shell/data_commands.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/documents.hpp"
#include "documents/saving.hpp"
#include "exchange/data_file.hpp"
#include "exchange/data_lines.hpp"
#include "exchange/data_reader.hpp"
#include "exchange/page.hpp"
#include "exchange/sheet_report.hpp"
#include "platform/message.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"

namespace {

constexpr std::string_view kFiltreDonnees =
    "Données (*.csv)|*.csv|Données (*.txt)|*.txt|Données (*.tsv)|*.tsv|tous fichiers (*.*)|*.*"_fr;
constexpr std::string_view kFiltrePage = "Page HTML (*.html)|*.html|tous fichiers (*.*)|*.*"_fr;
constexpr std::size_t kDonneesCitees = 12;   // that one question can tell

void refuse(std::string_view mots) { dit(std::string("rien n'est importé : "_fr).append(mots)); }

// The caption of an item as it is read, for its dialog.
std::string titre_de(std::string_view libelle) {
    std::string titre(libelle);
    std::erase(titre, '&');
    return titre;
}

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
    const bool une = insertion->ligne == insertion->derniere;
    std::string mots(une ? "données importées, ligne "_fr : "données importées, lignes "_fr);
    mots += chiffres(static_cast<long long>(insertion->ligne));
    if (!une) mots.append(" à "_fr) += chiffres(static_cast<long long>(insertion->derniere));
    dit(mots);
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
    std::string nom = dossier_de_la_feuille() + ".csv";
    const std::string titre = titre_de(kLibelleImporter);
    if (!port.dialogues.ouvre(nom, {kFiltreDonnees, "csv", titre})) return;
    std::string octets, refus, forme;
    if (port.fichiers.lit(nom, octets) != 0) return refuse("le fichier ne peut pas être lu"_fr);
    const std::optional<DonneesLues> donnees = lis_donnees(octets, refus);
    if (!donnees) return refuse(refus);
    if (demande_forme(*donnees, "", forme)) importe(*donnees, forme);
}

// The path proposed for a file beside the sheet: the sheet's name with another extension.
std::string nom_propose(std::string_view extension) {
    const std::string nom = NomFichSeul(ligne_courante_ini().nom);
    const std::size_t point = nom.find('.');
    return dossier_de_la_feuille() + nom.substr(0, point) + "." + std::string(extension);
}

// Asks where the file of the item of that caption goes; "" on Cancel, and, told in words, for a place of the
// program's or of a sheet.
std::string demande_nom(std::string_view libelle, std::string_view filtre, std::string_view extension) {
    std::string nom = nom_propose(extension);
    const std::string titre = titre_de(libelle);
    if (!port.dialogues.enregistre(nom, {filtre, extension, titre})) return "";
    const bool feuille = rang_ouvert(nom) != 0 || capitales(nom).ends_with(".VXT");
    if (!reserve(nom) && !feuille) return nom;
    dit("rien n'est exporté : ce nom est celui d'une feuille ou du programme"_fr);
    return "";
}

// Writes the file; what hinders it is said.
bool ecrit(const std::string& nom, const std::string& octets) {
    if (port.fichiers.remplace(nom, octets) == 0) return true;
    dit("rien n'est exporté : le fichier ne peut pas être écrit"_fr);
    return false;
}

// What the user wants of the sheet's data.
struct Choix {
    std::size_t rang = 0;                            // which of them, from 0
    Convention convention = Convention::virgule;
};

// Reads "2 point", "2, point" or "2": a number up to `nombre`, then one of the two words or its beginning, or nothing.
bool lis_choix(std::string_view reponse, std::size_t nombre, Choix& choix) {
    reponse = sans_blancs(reponse);
    const std::size_t figures = std::min(reponse.find_first_not_of("0123456789"), reponse.size());
    const double rang = figures > 0 && figures < 10 ? prefixe_numerique(reponse.substr(0, figures)) : 0;
    std::string_view mot = reponse.substr(figures);
    mot = mot.substr(std::min(mot.find_first_not_of(" ,;"), mot.size()));
    if (rang < 1 || rang > static_cast<double>(nombre)) return false;
    if (!std::string_view("VIRGULE").starts_with(mot) && !std::string_view("POINT").starts_with(mot)) return false;
    choix = {static_cast<std::size_t>(rang) - 1, mot.starts_with('P') ? Convention::point : Convention::virgule};
    return true;
}

// Tells what there is and asks which, and in which form. False on Cancel and for an answer that means nothing.
bool demande_choix(const std::vector<DonneesDeFeuille>& toutes, Choix& choix) {
    std::string invite, reponse;
    for (std::size_t i = 0; i < toutes.size() && i < kDonneesCitees; ++i)
        invite += (i == 0 ? "" : "; ") + chiffres(static_cast<long long>(i + 1)) + " " + toutes[i].nom;
    if (toutes.size() > kDonneesCitees)
        invite.append("; et d'autres, jusqu'au numéro "_fr) += chiffres(static_cast<long long>(toutes.size()));
    invite += ". Numéro, puis virgule ou point"_fr;
    if (!port.boites.saisie(invite, "1 virgule"_fr, reponse)) return false;
    if (lis_choix(capitales(reponse), toutes.size(), choix)) return true;
    dit(std::string("rien n'est exporté : tapez un numéro de 1 à "_fr) +
        chiffres(static_cast<long long>(toutes.size())) + std::string(", avec virgule ou point"_fr));
    return false;
}

// True when the clipboard holds more than a number that was copied for another use.
bool est_tableau(const DonneesLues& donnees) { return donnees.rangs.size() * donnees.table.lignes() > 1; }

// True when cells of a spreadsheet stand in the clipboard, with a fault in one of them.
bool est_tableau_fautif(std::string_view copie, std::string_view refus) {
    const std::size_t tabulation = copie.find('\t'), suite = copie.find('\n', std::min(tabulation, copie.size()));
    return refus.starts_with("ligne ") && suite != std::string_view::npos &&
           copie.find('\t', suite) != std::string_view::npos;
}

// Tells what is wrong with the table in the clipboard, and asks whether a file is wanted.
bool veut_un_fichier(std::string_view refus) {
    return port.boites.oui_non(std::string("Presse-papiers : "_fr).append(refus).append(". Importer un fichier ?"_fr));
}

}  // namespace

void mnuExporterPageItem() {
    if (sans_blancs(port.texte.texte()).empty()) return dit("rien à exporter : la feuille est vide"_fr);
    const std::string nom = demande_nom(kLibelleExporterPage, kFiltrePage, "html");
    if (nom.empty()) return;
    const Rapport rapport = rapport_de(port.texte.texte(), true);
    if (!rapport.complet) return dit("rien n'est exporté : la feuille n'a pas été calculée en entier"_fr);
    const auto etudes = refais_etudes(rapport.texte);
    if (!etudes) return dit("rien n'est exporté : étude interrompue"_fr);
    if (!ecrit(nom, page_html(rapport, NomFichSeul(ligne_courante_ini().nom), *etudes))) return;
    const bool autre = rapport.texte != port.texte.texte();
    std::string mots("page exportée : "_fr);
    mots.append(NomFichSeul(nom)).append(autre ? ", avec les résultats d'un nouveau calcul"_fr : ""_fr);
    if (!etudes->empty()) mots.append(", études : "_fr).append(chiffres(static_cast<long long>(etudes->size())));
    dit(mots);
}

void mnuExporterDonneesItem() {
    const Rapport rapport = rapport_de(port.texte.texte(), false);
    if (!rapport.complet) return dit("rien n'est exporté : la feuille n'a pas été calculée en entier"_fr);
    const std::vector<DonneesDeFeuille> toutes = donnees_de(rapport);
    if (toutes.empty()) return dit("rien à exporter : la feuille n'a ni table, ni série, ni matrice"_fr);
    Choix choix;
    if (!demande_choix(toutes, choix)) return;
    const std::string nom = demande_nom(kLibelleExporterDonnees, kFiltreDonnees, "csv");
    if (nom.empty()) return;
    const TableDonnees& table = toutes[choix.rang].table;
    if (!ecrit(nom, fichier_de_donnees(table, choix.convention))) return;
    dit(std::string("données exportées : "_fr).append(NomFichSeul(nom)).append(", lignes : "_fr)
            .append(chiffres(static_cast<long long>(table.lignes()))).append(", colonnes : "_fr)
            .append(chiffres(static_cast<long long>(table.colonnes.size()))));
}

void mnuImporterItem() {
    std::string refus, forme;
    const std::string copie = port.presse_papiers.lit();
    const std::optional<DonneesLues> copiees = lis_donnees(copie, refus);
    if (!copiees && est_tableau_fautif(copie, refus) && !veut_un_fichier(refus)) return;
    if (!copiees || !est_tableau(*copiees)) return importe_fichier();
    if (!demande_forme(*copiees, "Presse-papiers, ou réponse vide pour un fichier : "_fr, forme)) return;
    if (sans_blancs(forme).empty()) return importe_fichier();
    importe(*copiees, forme);
}
