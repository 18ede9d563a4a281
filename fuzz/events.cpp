// A stream of events over the whole program: keys, typed texts, menu commands, buttons, answers, files
// that come and go, a file operation that fails, restarts. No failure leaves an event, and what the
// program holds of its documents, text and window stays sound.
#include <algorithm>
#include <string>
#include <string_view>

#include "bytes.hpp"
#include "documents/open_documents.hpp"
#include "shell/events.hpp"
#include "shell/commands.hpp"
#include "shell/menus.hpp"
#include "shell/window.hpp"
#include "support/memory.hpp"
#include "support/program.hpp"
#include "support/script.hpp"
#include "support/script_words.hpp"

namespace {

constexpr int kEtapes = 60;

constexpr std::string_view kTouches[] = {
    "Alt+C",       "Ctrl+Entrée", "Ctrl+Z",  "Ctrl+Maj+Z", "Alt+Gauche", "Alt+Droite", "Entrée",
    "Arrière",     "Suppr",       "Gauche",  "Droite",     "Haut",       "Bas",        "Début",
    "Fin",         "Maj+Fin",     "Échap",   "Tab",        "Maj+Tab",    "Alt+R",      "Ctrl+Maj+S",
    "Alt+F1",      "F1",          "Alt+Q",   "Alt+M",      "Espace",     "Ctrl+R",     "PageSuiv",
    "Maj+Haut",    "Ctrl+Fin",    "AltGr+C", "Maj+Droite"};
constexpr std::string_view kLignes[] = {
    "A=3\r\n",          "B=A*2\r\n",  "STATX(2;4)\r\n", "DEFMA\r\n1,2\r\n3,4\r\nFIN\r\n",
    "INCX(1,1,3)\r\nX", "1/0\r\n",    "DEFFON=X^2\r\n", "STATXY(1,2;3,4)\r\n",
    "! fin\r\n",        "TRISTATX\r\n", "MB=INVMAT(MA)", "FON(2)"};
constexpr std::string_view kNoms[] = {"C:\\M\\A.VXT", "C:\\M\\B.VXT",  "c:\\m\\a.vxt", "C:\\M",
                                      "C:\\A.B\\C.VXT", "D:\\X\\Y.VXT", "SANSTITRE.VXT", ""};
constexpr std::string_view kReponses[] = {"oui", "non", "1", "0", "2", "fin", "A", "Courier;12"};
constexpr std::string_view kBoutons[] = {"CmdAngle",    "CmdVoxtab",    "CmdModifTexte", "CmdQuitter",
                                         "OptionDegre", "OptionRadian", "OptionGrade"};
constexpr int kDefaillances[] = {53, 61, 70, 75, 76};

template <class T, std::size_t N>
const T& un_de(Octets& octets, const T (&liste)[N]) {
    return liste[octets.parmi(static_cast<int>(N))];
}

// One step of a script, which reports what leaves its event.
void etape(const std::string& mots) {
    execute_etape(0, mots);
    for (const EchecEtape& echec : script.echecs)
        verifie(echec.attendu != "un événement qui finit", echec.etape + ": " + echec.obtenu);
    script.echecs.clear();
}

void tape(const std::string& texte) { etape("tape " + cite(texte)); }

void prepare_reponse(Octets& octets) {
    const int sorte = octets.parmi(4);
    if (sorte == 0) memoire.reponses.emplace_back(std::nullopt);
    if (sorte == 1) memoire.reponses.emplace_back(un_de(octets, kReponses));
    if (sorte == 2) memoire.reponses.emplace_back(un_de(octets, kNoms));
    if (sorte == 3) memoire.reponses.emplace_back(octets.texte(12));
}

// What happens to the files behind the program's back, or under it.
void derange_fichiers(Octets& octets) {
    const std::string nom(un_de(octets, kNoms));
    const int sorte = octets.parmi(5);
    if (sorte == 0 && !nom.empty()) pose_fichier(nom, octets.texte(40));
    if (sorte == 1 && !nom.empty() && !lit_memoire(nom)) pose_dossier(nom);
    if (sorte == 2) supprime_memoire(nom);
    if (sorte == 3) supprime_memoire("C:\\VOXTAB\\travail");
    if (sorte == 4) {
        memoire.echec_operation = memoire.operations_fichier + 1 + octets.parmi(8);
        memoire.echec_numero = un_de(octets, kDefaillances);
    }
}

void choisit_menu(Octets& octets) {
    const auto& lignes = lignes_menu();
    const int rang = octets.parmi(static_cast<int>(lignes.size()) + kItemsRecents);
    if (rang < kItemsRecents)
        evenement_menu(kNomRecents, rang + 1);
    else
        evenement_menu(lignes[static_cast<std::size_t>(rang - kItemsRecents)].nom);
}

void etape_suivante(Octets& octets) {
    switch (octets.parmi(12)) {
        case 0:
        case 1: return etape("touche " + std::string(un_de(octets, kTouches)));
        case 2: return tape(std::string(un_de(octets, kLignes)));
        case 3: return tape(avec_lignes(octets.texte(16)));
        case 4:
        case 5: return choisit_menu(octets);
        case 6: return prepare_reponse(octets);
        case 7: return derange_fichiers(octets);
        case 8: return evenement_clic(un_de(octets, kBoutons));
        case 9: return etape("curseur " + std::to_string(octets.octet()) + " " +
                             std::to_string(octets.parmi(8)));
        case 10: return etape("redémarre " + cite(un_de(octets, kNoms)));
        default: return octets.octet() % 8 == 0 ? evenement_fermeture() : choisit_menu(octets);
    }
}

void verifie_etat() {
    const Documents& d = documents;
    verifie(d.nombre_document >= 1 && d.nombre_document <= kDocumentsMaxi, "count of documents");
    verifie(d.document_courant >= 1 && d.document_courant <= d.nombre_document, "current document");
    verifie(memoire.sel_start + memoire.sel_length <= memoire.texte.size(), "a selection outside");
    for (int i = 1; i <= d.nombre_document; ++i)
        for (int j = i + 1; j <= d.nombre_document; ++j)
            verifie(d.nom_copie(i) != d.nom_copie(j), "two sheets with one copy", d.nom_copie(i));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* debut, std::size_t taille) {
    Octets octets(debut, taille);
    programme_de_fuzz();
    script = Script{};
    script.strict = false;
    pose_fichier("C:\\M\\A.VXT", "A=1\r\nB=A+1\r\n");
    pose_fichier("C:\\VOXTAB\\fonction.txt", "SIN\r\nCOS\r\n");
    pose_fichier("C:\\VOXTAB\\aide.txt", "Guide\r\n");
    etape("démarre");
    for (int i = 0; i < kEtapes && !octets.vide(); ++i) {
        if (!programme_en_marche()) etape("redémarre \"\"");
        etape_suivante(octets);
        verifie_etat();
    }
    return 0;
}
