// The start after a stop: the question, the sheets opened at rows of their own, or set aside in the folder
// "reprise". A recovery file goes only when its sheet is saved, closed or set aside: what can't be read
// or opened is told and stays. One whose sheet has gone on without it never takes the sheet's place.
#include "documents/recovery_start.hpp"

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/open_documents.hpp"
#include "documents/opened_file.hpp"
#include "documents/recovery.hpp"
#include "documents/saving.hpp"
#include "documents/working_copies.hpp"
#include "platform/file_failures.hpp"
#include "platform/paths.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"

namespace {

constexpr std::size_t kNomsDits = 3;         // names that a box tells
constexpr std::size_t kNomGarde = 60;        // bytes of a sheet's name that the file set aside keeps
constexpr std::size_t kTailleDate = 10;      // "2026-01-31"
constexpr std::string_view kExtension = ".VXT";

// A recovery file that was found.
struct Trouvee {
    std::string chemin;
    FicheReprise fiche;
    std::string texte;
};

struct Trouvailles {
    std::vector<Trouvee> feuilles;           // in the order of their rows
    std::vector<Trouvee> depassees;          // older than their sheet's file, or than another one of it
    std::vector<std::string> illisibles;     // names of the others
};

// Names in a folder that may not be there. Hidden ones are the system's, or halves of a file.
std::vector<std::string> noms_du_dossier(const std::string& dossier) {
    std::vector<std::string> noms;
    if (!port.fichiers.existe_dossier(Sansbackslash(dossier))) return noms;
    reussit(port.fichiers.liste_fichiers(dossier, noms));
    std::erase_if(noms, [](const std::string& nom) { return nom.starts_with('.'); });
    return noms;
}

Trouvailles cherche_feuilles() {
    Trouvailles t;
    const std::string dossier = dossier_secours();
    for (const std::string& nom : noms_du_dossier(dossier)) {
        Trouvee trouvee{dossier + nom, {}, {}};
        std::string octets;
        const bool lue = port.fichiers.lit(trouvee.chemin, octets) == 0;
        if (lue && lit_reprise(octets, trouvee.fiche, trouvee.texte) == EtatReprise::bonne)
            t.feuilles.push_back(std::move(trouvee));
        else
            t.illisibles.push_back(nom);
    }
    std::stable_sort(t.feuilles.begin(), t.feuilles.end(), [](const Trouvee& a, const Trouvee& b) {
        return std::pair(a.fiche.rang, a.fiche.numero) < std::pair(b.fiche.rang, b.fiche.numero);
    });
    return t;
}

// What has become of a sheet's own file since the recovery file was written.
enum class Fichier { comme_avant, a_ce_texte, autre };

// A file that can't be read counts as another one: its sheet must not be saved over it unseen.
Fichier son_fichier(const Trouvee& t) {
    if (t.fiche.nom.empty() || !FichierExistant(t.fiche.nom)) return Fichier::comme_avant;
    std::string octets;
    if (port.fichiers.lit(t.fiche.nom, octets) != 0) return Fichier::autre;
    // What the program overwrites by itself keeps no text.
    if (!reserve(t.fiche.nom) && octets == octets_du_fichier(t.texte + "\r\n")) return Fichier::a_ce_texte;
    return !t.fiche.base || *t.fiche.base == somme_octets(octets) ? Fichier::comme_avant : Fichier::autre;
}

// Another recovery file of the same sheet was written later.
bool a_une_suite(const Trouvee& t, const std::vector<Trouvee>& toutes) {
    return std::any_of(toutes.begin(), toutes.end(), [&](const Trouvee& autre) {
        return autre.fiche.numero > t.fiche.numero && !t.fiche.nom.empty() &&
               meme_document(autre.fiche.nom, t.fiche.nom);
    });
}

// Leaves the sheets that can be offered. One whose file has its text isn't: its recovery file goes. The
// files of this run are numbered after all that are there.
void separe_depassees(Trouvailles& t) {
    std::vector<Trouvee> offertes;
    for (const Trouvee& feuille : t.feuilles) {
        reprise.numero = std::max(reprise.numero, feuille.fiche.numero);
        const Fichier fichier = son_fichier(feuille);
        if (fichier == Fichier::a_ce_texte)
            port.fichiers.efface(feuille.chemin);
        else if (fichier == Fichier::autre || a_une_suite(feuille, t.feuilles))
            t.depassees.push_back(feuille);
        else
            offertes.push_back(feuille);
    }
    t.feuilles = std::move(offertes);
}

std::string nombre(std::size_t n) { return chiffres(static_cast<long long>(n)); }

// ---- Oui

// The row after the open ones that has this name, or 0.
int rang_recent(const std::string& nom) {
    for (int rang = documents.nombre_document + 1; rang <= kDocumentsMaxi; ++rang)
        if (meme_chemin(reglages.table_ini(rang).nom, nom)) return rang;
    return 0;
}

// The start has opened an untitled sheet because it had to open something.
bool premiere_vide() {
    return documents.nombre_document == 1 && documents.document_modifie(1) == 0 &&
           reglages.table_ini(1).nom == reglages.nom_sanstitre && port.texte.texte().empty();
}

// The row for a sheet: its own where its file is open already, that of the empty first sheet, a new one.
// 0 where it would take another one's place.
int choisit_rang(const std::string& nom) {
    if (const int rang = rang_ouvert(nom); rang != 0 && !(nom == reglages.nom_sanstitre && premiere_vide()))
        return documents.document_modifie(rang) == 0 ? rang : 0;
    if (premiere_vide()) return 1;
    return documents.nombre_document == kDocumentsMaxi ? 0 : documents.nombre_document + 1;
}

// The row takes the sheet's name and cursor, and the bookmark of the recent file of that name.
void prend_ligne(int rang, const std::string& nom, const FicheReprise& fiche) {
    article ligne = reglages.article_vide;
    ligne.nom = nom;
    if (rang_ouvert(nom) == rang) ligne.champ3 = reglages.table_ini(rang).champ3;
    if (const int recent = nom == reglages.nom_sanstitre ? 0 : rang_recent(nom); recent != 0) {
        ligne.champ3 = reglages.table_ini(recent).champ3;
        efface_nomdoc(recent);
    }
    ligne.champ1 = vers_32_tronque(static_cast<double>(fiche.curseur));
    ligne.champ2 = vers_32_tronque(static_cast<double>(fiche.longueur));
    if (rang > documents.nombre_document) {
        ++documents.nombre_document;
        reglages.article_courant = ligne;
        insert_nomdoc(rang);
    }
    reglages.table_ini(rang) = ligne;
}

// Opens a sheet at that row. Its text is in memory: a copy that can't be written costs nothing.
void ouvre_a(int rang, const Trouvee& t, const std::string& nom) {
    prend_ligne(rang, nom, t.fiche);
    rangenomcopie(nom, rang);
    documents.texte(rang) = t.texte;
    documents.copie_a_jour(rang) = 0;
    EssaieEnSilence([&] { ecrit_copie(rang); });
    donne_identite(rang);
    documents.document_modifie(rang) = 1;
    documents.a_son_fichier(rang) = !t.fiche.nom.empty();
    documents.base(rang) = t.fiche.base;
    FeuilleReprise& f = reprise.feuilles[documents.identite(rang)];
    f = {t.chemin, t.fiche, std::make_shared<const std::string>(t.texte), false};
}

// Opens a sheet, or leaves everything as it was. The row, or 0.
int ouvre(const Trouvee& t) {
    const std::string nom = t.fiche.nom.empty() ? reglages.nom_sanstitre : t.fiche.nom;
    const int rang = choisit_rang(nom);
    if (rang == 0) return 0;
    Documents avant = documents;
    Table<article> lignes = reglages.table_ini;
    if (EssaieEnSilence([&] { ouvre_a(rang, t, nom); })) return rang;
    std::swap(documents, avant);
    std::swap(reglages.table_ini, lignes);
    return 0;
}

void montre(int rang, const Trouvee& t) {
    documents.document_courant = static_cast<std::int16_t>(rang);
    montre_feuille(t.texte);
    reprise.montree = documents.identite(rang);
}

// Opens what can be opened. The sheet shown is the one that was shown last, unless the user has named
// another. The number of sheets left in their files.
std::size_t ouvre_toutes(const std::vector<Trouvee>& feuilles, bool donnee, bool& ouvertes) {
    std::size_t restent = 0;
    std::uint64_t plus_haut = 0;
    for (const Trouvee& t : feuilles) {
        const int rang = ouvre(t);
        if (rang == 0) {
            ++restent;
            continue;
        }
        if (donnee ? rang == 1 : !ouvertes || t.fiche.numero > plus_haut) montre(rang, t);
        plus_haut = std::max(plus_haut, t.fiche.numero);
        ouvertes = true;
    }
    return restent;
}

// ---- Non

std::string date(std::int64_t secondes) {
    const std::chrono::sys_seconds moment{std::chrono::seconds{secondes}};
    const std::chrono::year_month_day jour{std::chrono::floor<std::chrono::days>(moment)};
    const auto deux = [](unsigned n) { return (n < 10 ? "0" : "") + chiffres(n); };
    return chiffres(static_cast<int>(jour.year())) + "-" + deux(static_cast<unsigned>(jour.month())) +
           "-" + deux(static_cast<unsigned>(jour.day()));
}

// A name for the sheet in the folder "reprise": its own, the day, and a number from the second on.
std::string nom_de_cote(const Trouvee& t) {
    const std::string nom = NomFichSeul(t.fiche.nom);
    std::string debut(sans_blancs(std::string_view(nom).substr(0, nom.find('.')).substr(0, kNomGarde)));
    if (debut.empty()) debut = "sans titre";
    (debut += ' ') += date(port.reprise.maintenant());
    std::string essai = dossier_reprise() + debut;
    for (std::size_t n = 2; port.fichiers.existe(essai + std::string(kExtension)); ++n)
        essai = dossier_reprise() + debut + " " + nombre(n);
    return essai.append(kExtension);
}

// Moves each sheet aside, as it is, and adds the names that they have there. The number of those that
// stay where they are.
std::size_t met_de_cote(const std::vector<Trouvee>& feuilles, std::vector<std::string>& noms) {
    const std::string dossier = Sansbackslash(dossier_reprise());
    if (!feuilles.empty() && !port.fichiers.existe_dossier(dossier)) port.fichiers.cree_dossier(dossier);
    std::size_t restent = 0;
    for (const Trouvee& t : feuilles) {
        const std::string nom = nom_de_cote(t);
        if (port.fichiers.deplace(t.chemin, nom) == 0)
            noms.push_back(NomFichSeul(nom));
        else
            ++restent;
    }
    return restent;
}

// The day in the name of a sheet set aside, "" for any other file.
std::string jour_du_nom(std::string_view nom) {
    if (!nom.ends_with(kExtension)) return "";
    nom.remove_suffix(kExtension.size());
    if (const std::size_t blanc = nom.rfind(' '); blanc != std::string_view::npos &&
        nom.find_first_not_of("0123456789", blanc + 1) == std::string_view::npos)
        nom = nom.substr(0, blanc);
    if (nom.size() <= kTailleDate) return "";
    const std::string_view jour = nom.substr(nom.size() - kTailleDate);
    for (std::size_t i = 0; i < kTailleDate; ++i)
        if (i == 4 || i == 7 ? jour[i] != '-' : jour[i] < '0' || jour[i] > '9') return "";
    return std::string(jour);
}

// A sheet set aside that nobody has touched since. One that the user has saved there is his.
bool intacte(const std::string& chemin) {
    std::string octets;
    FicheReprise fiche;
    std::string texte;
    return port.fichiers.lit(chemin, octets) == 0 &&
           lit_reprise(octets, fiche, texte) == EtatReprise::bonne;
}

// Deletes what was set aside too long ago, and the oldest ones of too many. One that the user has just
// opened stays.
void allege_dossier_reprise() {
    std::vector<std::pair<std::string, std::string>> gardees;   // day and name
    for (const std::string& nom : noms_du_dossier(dossier_reprise()))
        if (std::string jour = jour_du_nom(nom); !jour.empty()) gardees.emplace_back(std::move(jour), nom);
    std::sort(gardees.begin(), gardees.end());
    const std::string limite = date(port.reprise.maintenant() - kJoursGardes * 86'400);
    std::size_t nombre_garde = gardees.size();
    for (const auto& [jour, nom] : gardees) {
        if (jour >= limite && nombre_garde <= kFeuillesGardees) break;
        const std::string chemin = dossier_reprise() + nom;
        if (rang_ouvert(chemin) == 0 && intacte(chemin) && port.fichiers.efface(chemin) == 0) --nombre_garde;
    }
}

// ---- What is told

void dit_restantes(std::size_t restent) {
    if (restent == 0) return;
    port.boites.boite(nombre(restent).append(
        restent == 1 ? " feuille reste dans le dossier secours ; elle sera proposée au prochain démarrage."_fr
                     : " feuilles restent dans le dossier secours ; elles seront proposées au prochain "
                       "démarrage."_fr));
}

// Adds the first names of several.
void ajoute_noms(std::string& mots, const std::vector<std::string>& noms) {
    for (std::size_t i = 0; i < std::min(noms.size(), kNomsDits); ++i)
        (mots += i == 0 ? "" : ", ") += noms[i];
    if (noms.size() > kNomsDits) mots += ", et d'autres";
}

void dit_depassees(const std::vector<std::string>& noms) {
    if (noms.empty()) return;
    std::string mots = nombre(noms.size());
    mots += noms.size() == 1 ? " copie de secours est plus ancienne que sa feuille ; elle est dans le "
                               "dossier reprise : "_fr
                             : " copies de secours sont plus anciennes que leur feuille ; elles sont dans "
                               "le dossier reprise : "_fr;
    ajoute_noms(mots, noms);
    port.boites.boite(mots);
}

void dit_illisibles(const std::vector<std::string>& noms) {
    if (noms.empty()) return;
    std::string mots = nombre(noms.size());
    mots += noms.size() == 1
                ? " fichier du dossier secours n'est pas une copie de secours entière ; il y reste : "_fr
                : " fichiers du dossier secours ne sont pas des copies de secours entières ; ils y "
                  "restent : "_fr;
    ajoute_noms(mots, noms);
    port.boites.boite(mots);
}

}  // namespace

bool reprend_feuilles(bool donnee) {
    if (!port.reprise.a_nous()) return false;
    Trouvailles t = cherche_feuilles();
    separe_depassees(t);
    bool ouvertes = false;
    std::size_t restent = 0;
    std::vector<std::string> refusees, depassees;
    if (!t.feuilles.empty()) {
        std::string question("La dernière fois, Voxtab s'est arrêté sans quitter. Reprendre "_fr);
        question.append(nombre(t.feuilles.size())).append(" feuille(s) ?");
        restent = port.boites.oui_non(question) ? ouvre_toutes(t.feuilles, donnee, ouvertes)
                                                : met_de_cote(t.feuilles, refusees);
    }
    dit_restantes(restent + met_de_cote(t.depassees, depassees));
    dit_depassees(depassees);
    dit_illisibles(t.illisibles);
    EssaieEnSilence(allege_dossier_reprise);
    return ouvertes;
}
