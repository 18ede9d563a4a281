// The in-memory port: text, selection, journal of what is heard, prepared answers, and files with
// the rules of Windows paths. Changes `memoire`.
#include "support/memory.hpp"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "documents/dialog.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "platform/stack.hpp"

Memoire memoire;

namespace {

using Mots = std::string_view;
using Chemin = const std::string&;

// ---- The text control

const std::string& lit_texte() { return memoire.texte; }

void pose_texte(std::string&& texte) {
    memoire.texte = std::move(texte);
    memoire.sel_start = memoire.sel_length = 0;
}

std::size_t lit_sel_start() { return memoire.sel_start; }
std::size_t lit_sel_length() { return memoire.sel_length; }

void pose_selection(std::size_t debut, std::size_t longueur) {
    memoire.sel_start = std::min(debut, memoire.texte.size());
    memoire.sel_length = std::min(longueur, memoire.texte.size() - memoire.sel_start);
}

// ---- Boxes, dialogs, voice

void entend(Mots genre, Mots texte = {}, Mots propose = {}) {
    memoire.journal.push_back({std::string(genre), std::string(texte), std::string(propose)});
}

// Next prepared answer; nothing for Cancel.
std::optional<std::string> reponse_suivante() {
    if (memoire.reponses.empty()) return std::nullopt;
    std::optional<std::string> prete = std::move(memoire.reponses.front());
    memoire.reponses.pop_front();
    return prete;
}

void note_boite(Mots texte) {
    memoire.boites.emplace_back(texte);
    note_boite_montree(texte);
    entend("boite", texte);
}

// The list of boxes holds those that a pass counts, and not the one that counts them; the journal is what
// the user hears.
void note_boite_comptee(Mots texte) { memoire.boites.emplace_back(texte); }
void note_compte(Mots texte) {
    note_boite_montree(texte);
    entend("boite", texte);
}

bool demande_oui_non(Mots texte) {
    entend("question", texte);
    return reponse_suivante() == "oui";
}

Reponse demande_oui_non_annuler(Mots texte) {
    entend("question", texte);
    const std::optional<std::string> prete = reponse_suivante();
    if (prete == "oui") return Reponse::oui;
    return prete == "non" ? Reponse::non : Reponse::annuler;
}

bool repond(Mots invite, Mots propose, std::string& reponse) {
    memoire.saisies.push_back({std::string(invite), std::string(propose)});
    entend("saisie", invite, propose);
    std::optional<std::string> prete = reponse_suivante();
    if (!prete) return false;
    reponse = std::move(*prete);
    return true;
}

void note_bip() {
    ++memoire.bips;
    entend("bip");
}

void note_son(Son genre) { entend("son", genre == Son::echec ? "échec"_fr : "réussite"_fr); }

// Tenths of a second of a curve's or a point's sound.
void note_courbe(const std::vector<std::int16_t>& echantillons, int cadence) {
    entend("courbe", chiffres(static_cast<long long>(echantillons.size()) * 5 / cadence));
}

void note_message(Mots texte) {
    memoire.messages.emplace_back(texte);
    entend("message", texte);
}

// A dialog for something else than a sheet is told by its caption.
bool choisit_fichier(Mots dialogue, std::string& nom, const DemandeFichier& demande) {
    const bool feuille = demande.titre == kTitreOuvrir || demande.titre == kTitreEnregistrer;
    entend("dialogue", feuille ? dialogue : demande.titre, nom);
    std::optional<std::string> prete = reponse_suivante();
    if (!prete) return false;
    nom = std::move(*prete);
    return true;
}

bool dialogue_ouvre(std::string& nom, const DemandeFichier& d) { return choisit_fichier("ouvrir", nom, d); }
bool dialogue_enregistre(std::string& nom, const DemandeFichier& d) { return choisit_fichier("enregistrer", nom, d); }

std::string nom_et_taille(Mots nom, double taille) {
    return std::string(nom) + " " + texte_general(taille);
}

// The answer is "Nom;taille"; without a size the proposed one stays.
bool dialogue_police(std::string& nom, double& taille, bool imprimante) {
    entend("dialogue", imprimante ? Mots("police imprimante") : "police écran"_fr,
           nom_et_taille(nom, taille));
    const std::optional<std::string> prete = reponse_suivante();
    if (!prete) return false;
    const std::size_t separation = prete->rfind(';');
    nom = prete->substr(0, separation);
    if (separation != std::string::npos)
        taille = prefixe_numerique(std::string_view(*prete).substr(separation + 1));
    return true;
}

std::string lit_presse_papiers() { return memoire.presse_papiers; }
bool pose_presse_papiers(Mots utf8) {
    memoire.presse_papiers = utf8;
    return true;
}

bool dialogue_imprimante() {
    entend("dialogue", "imprimante");
    return reponse_suivante() == "ok";
}

int imprime(Chemin texte, Chemin police, double taille) {
    if (memoire.echec_impression != 0) return memoire.echec_impression;
    entend("impression", texte, nom_et_taille(police, taille));
    return 0;
}

// ---- Files

bool separe(char c) { return c == '\\' || c == '/'; }

// The form in which two letters of a path are the same one.
constexpr auto kReplie = [] {
    std::array<char, 256> t = kCapitale;
    t['/'] = '\\';
    return t;
}();
char replie(char c) { return kReplie[static_cast<unsigned char>(c)]; }

// Adds the parts of a path to `complet`: "." and empty parts fall away, ".." goes up, and blanks
// and dots at the end of a name don't count.
void ajoute_parties(std::string& complet, Mots reste) {
    while (!reste.empty()) {
        const auto fin = std::find_if(reste.begin(), reste.end(), separe);
        const auto longueur = static_cast<std::size_t>(fin - reste.begin());
        Mots partie = reste.substr(0, longueur);
        reste.remove_prefix(std::min(longueur + 1, reste.size()));
        if (partie == "..") {
            const std::size_t barre = complet.rfind('\\');
            if (barre != std::string::npos) complet.erase(barre);
            continue;
        }
        while (partie.ends_with(' ') || partie.ends_with('.')) partie.remove_suffix(1);
        if (!partie.empty()) complet.append("\\").append(partie);
    }
}

// Full path with "\", without one at its end: "C:" for a root. "" for an empty path.
std::string complete(Mots chemin) {
    if (chemin.empty()) return {};
    const Mots courant = memoire.dossier_courant;
    const bool lecteur = chemin.size() > 1 && chemin[1] == ':';
    std::string complet(lecteur ? chemin.substr(0, 2) : courant.substr(0, 2));
    const Mots reste = lecteur ? chemin.substr(2) : chemin;
    const bool depuis_racine = reste.empty() ? lecteur : separe(reste.front());
    if (!depuis_racine && replie(complet[0]) == replie(courant[0]))
        ajoute_parties(complet, courant.substr(2));
    ajoute_parties(complet, reste);
    return complet;
}

Mots parent(Mots complet) {
    const std::size_t barre = complet.rfind('\\');
    return barre == Mots::npos ? Mots() : complet.substr(0, barre);
}

// What lies at a full path, or nullptr.
FichierMemoire* objet(Mots complet) {
    const auto place = memoire.fichiers.find(complet);
    return place == memoire.fichiers.end() ? nullptr : &place->second;
}

bool est_dossier(Mots complet) {
    const FichierMemoire* la = objet(complet);
    return la != nullptr && la->dossier;
}

// Counts an operation that can fail: 0, or the failure prepared for it.
int tente_operation() {
    ++memoire.operations_fichier;
    return memoire.operations_fichier == memoire.echec_operation ? memoire.echec_numero : 0;
}

// 0 when a file lies there, otherwise the failure of reading it.
int refus_lecture(Mots complet) {
    const FichierMemoire* la = objet(complet);
    if (la != nullptr) return la->dossier ? kAccesFichier : 0;
    return est_dossier(parent(complet)) ? kFichierAbsent : kDossierAbsent;
}

// 0 when a file may be written there, otherwise the failure.
int refus_ecriture(Mots complet) {
    if (est_dossier(complet)) return kAccesFichier;
    return est_dossier(parent(complet)) ? 0 : kDossierAbsent;
}

bool existe(Chemin chemin) {
    const FichierMemoire* la = objet(complete(chemin));
    return la != nullptr && !la->dossier;
}

bool existe_dossier(Chemin chemin) { return est_dossier(complete(chemin)); }

int lit(Chemin chemin, std::string& contenu) {
    if (const int panne = tente_operation(); panne != 0) return panne;
    const std::string complet = complete(chemin);
    if (const int refus = refus_lecture(complet); refus != 0) return refus;
    contenu = objet(complet)->contenu;
    return 0;
}

int remplace(Chemin chemin, Chemin contenu) {
    if (const int panne = tente_operation(); panne != 0) return panne;
    const std::string complet = complete(chemin);
    if (const int refus = refus_ecriture(complet); refus != 0) return refus;
    memoire.fichiers[complet] = {contenu, false};
    return 0;
}

int copie(Chemin source, Chemin destination) {
    if (const int panne = tente_operation(); panne != 0) return panne;
    const std::string de = complete(source);
    const std::string vers = complete(destination);
    if (const int refus = refus_lecture(de); refus != 0) return refus;
    if (const int refus = refus_ecriture(vers); refus != 0) return refus;
    const FichierMemoire copie_faite = *objet(de);
    memoire.fichiers[vers] = copie_faite;
    return 0;
}

// A move of a file onto itself is refused; another file that bears the name gives way.
int deplace(Chemin source, Chemin destination) {
    if (const int panne = tente_operation(); panne != 0) return panne;
    const std::string de = complete(source);
    const std::string vers = complete(destination);
    if (const int refus = refus_lecture(de); refus != 0) return refus;
    if (const int refus = refus_ecriture(vers); refus != 0) return refus;
    if (objet(de) == objet(vers)) return kAccesFichier;
    FichierMemoire deplace_fait = std::move(*objet(de));
    memoire.fichiers.erase(de);
    memoire.fichiers[vers] = std::move(deplace_fait);
    return 0;
}

int efface(Chemin chemin) {
    if (const int panne = tente_operation(); panne != 0) return panne;
    const std::string complet = complete(chemin);
    if (const int refus = refus_lecture(complet); refus != 0) return refus;
    memoire.fichiers.erase(complet);
    return 0;
}

int cree_dossier(Chemin chemin) {
    if (const int panne = tente_operation(); panne != 0) return panne;
    const std::string complet = complete(chemin);
    if (objet(complet) != nullptr) return kAccesFichier;
    if (!est_dossier(parent(complet))) return kDossierAbsent;
    memoire.fichiers[complet] = {"", true};
    return 0;
}

bool commence(Mots chemin, Mots debut) {
    return chemin.size() >= debut.size() &&
           std::equal(debut.begin(), debut.end(), chemin.begin(),
                      [](char a, char b) { return replie(a) == replie(b); });
}

// Names in a folder, files or folders, in the alphabetical order of the map.
int liste(Chemin dossier, std::vector<std::string>& noms, bool dossiers) {
    noms.clear();
    if (const int panne = tente_operation(); panne != 0) return panne;
    std::string debut = complete(dossier);
    if (!est_dossier(debut)) return kDossierAbsent;
    debut += '\\';
    for (auto i = memoire.fichiers.lower_bound(debut);
         i != memoire.fichiers.end() && commence(i->first, debut); ++i) {
        std::string nom = i->first.substr(debut.size());
        if (i->second.dossier == dossiers && nom.find('\\') == std::string::npos)
            noms.push_back(std::move(nom));
    }
    return 0;
}

int liste_fichiers(Chemin dossier, std::vector<std::string>& noms) {
    return liste(dossier, noms, false);
}
int liste_dossiers(Chemin dossier, std::vector<std::string>& noms) {
    return liste(dossier, noms, true);
}

bool meme_fichier(Chemin a, Chemin b) {
    const FichierMemoire* la = objet(complete(a));
    return la != nullptr && la == objet(complete(b));
}

// ---- Recovery files

// Removes the files of orders that failed, as the real writer does after a while.
void reprend_effacements() {
    if (memoire.echec_reprise != 0) return;
    for (const std::string& complet : std::exchange(memoire.reprises_a_effacer, {}))
        if (refus_lecture(complet) == 0) memoire.fichiers.erase(complet);
}

void ecrit_reprise(Chemin chemin, std::function<std::string()> contenu) {
    const std::string complet = complete(chemin);
    memoire.reprises_a_effacer.erase(complet);
    reprend_effacements();
    if (memoire.echec_reprise == 0 && objet(parent(complet)) == nullptr) pose_dossier(parent(complet));
    const int refus = memoire.echec_reprise != 0 ? memoire.echec_reprise : refus_ecriture(complet);
    if (refus == 0) memoire.fichiers[complet] = {contenu(), false};
    if (refus == 0)
        memoire.reprises_ratees.erase(complet);
    else
        memoire.reprises_ratees[complet] = refus;
}

void efface_reprise(Chemin chemin) {
    const std::string complet = complete(chemin);
    memoire.reprises_ratees.erase(complet);
    memoire.reprises_a_effacer.insert(complet);
    reprend_effacements();
}

int echec_reprise() {
    return memoire.reprises_ratees.empty() ? 0 : memoire.reprises_ratees.begin()->second;
}

// ---- Surroundings

void note_fin() { entend("fin"); }

void taille_ecran(int& largeur, int& hauteur) {
    largeur = memoire.largeur_ecran;
    hauteur = memoire.hauteur_ecran;
}

std::uint64_t graine_horloge() {
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

bool interrompt() { return memoire.interrompt; }

}  // namespace

bool OrdreChemin::operator()(std::string_view a, std::string_view b) const {
    // Most paths begin with the same bytes, which are passed over as they stand, eight at a time.
    const std::size_t n = std::min(a.size(), b.size());
    std::size_t i = 0;
    for (std::uint64_t x = 0, y = 0; i + sizeof x <= n; i += sizeof x) {
        std::memcpy(&x, a.data() + i, sizeof x);
        std::memcpy(&y, b.data() + i, sizeof y);
        if (x != y) break;
    }
    for (; i < n; ++i) {
        const auto c = static_cast<unsigned char>(replie(a[i])), d = static_cast<unsigned char>(replie(b[i]));
        if (c != d) return c < d;
    }
    return a.size() < b.size();
}

void pose_dossier(std::string_view chemin) {
    const std::string complet = complete(chemin);
    for (std::size_t barre = complet.find('\\'); barre != std::string::npos;
         barre = complet.find('\\', barre + 1))
        memoire.fichiers[complet.substr(0, barre)].dossier = true;
    memoire.fichiers[complet].dossier = true;
}

void pose_fichier(std::string_view chemin, std::string_view contenu) {
    const std::string complet = complete(chemin);
    pose_dossier(parent(complet));
    memoire.fichiers[complet] = {std::string(contenu), false};
}

void supprime_memoire(std::string_view chemin) {
    const std::string complet = complete(chemin);
    memoire.fichiers.erase(complet);
    std::erase_if(memoire.fichiers,
                  [&](const auto& f) { return commence(f.first, complet + '\\'); });
}

std::optional<std::string> lit_memoire(std::string_view chemin) {
    const FichierMemoire* la = objet(complete(chemin));
    if (la == nullptr || la->dossier) return std::nullopt;
    return la->contenu;
}

bool dossier_memoire(std::string_view chemin) { return est_dossier(complete(chemin)); }

std::string chemin_memoire(std::string_view chemin) { return complete(chemin); }

void installe_port_memoire() {
    static const char* const limite = limite_pile();   // to ask the system takes longer than a short test
    memoire = Memoire{};
    pose_dossier(memoire.dossier_programme);
    port = Port{{lit_texte, pose_texte, lit_sel_start, lit_sel_length, pose_selection},
                {note_boite, demande_oui_non, demande_oui_non_annuler, repond, note_bip, note_son,
                 note_boite_comptee, note_compte},
                {note_message, [](Mots texte) { memoire.annonces.emplace_back(texte); }},
                {existe, existe_dossier, lit, remplace, copie, deplace, efface, cree_dossier,
                 liste_fichiers, liste_dossiers, meme_fichier},
                {dialogue_ouvre, dialogue_enregistre, dialogue_police, dialogue_imprimante},
                {lit_presse_papiers, pose_presse_papiers},
                {imprime},
                {[] {}, note_fin, taille_ecran},
                {graine_horloge, [] { return memoire.dossier_programme; },
                 [] { return memoire.dossier_courant; }, [] { return memoire.ligne_commande; },
                 '\\', interrompt, limite},
                {[](void (*releve)()) { releve(); }, ecrit_reprise, efface_reprise, reprend_effacements,
                 echec_reprise, [] { return memoire.reprise_a_nous; },
                 [] { return chiffres(++memoire.marques); }, [] { return memoire.horloge; }},
                {note_courbe, [] { entend("arret"); }}};
}
