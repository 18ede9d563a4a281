// The in-memory port: the whole program runs against it without a screen. It holds the text, the
// selection and the files, lists everything that is heard, and gives the answers that were
// prepared. Files follow the rules of Windows paths: case ignored, "\" and "/" separate, drives
// "C:".
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct Saisie {
    std::string invite;   // prompt of the entry box
    std::string propose;  // text that stood in it
};

// Something that the user hears. Genres: "message", "boite", "question" (box with Yes and No),
// "saisie" (texte: prompt), "dialogue" (texte: "ouvrir", "enregistrer", the caption of one for another file than a
// sheet, "police écran", "police imprimante" or "imprimante"), "bip", "son" (texte: "réussite" or "échec"),
// "courbe" (texte: tenths of a second of a sound that was played), "arret" (it was stopped), "impression" (texte: the
// text sent), "fin".
struct Entendu {
    std::string genre;    // see above
    std::string texte;    // Windows-1252
    std::string propose;  // proposed text or file name; font name, a blank and its size
};

// A file or a folder.
struct FichierMemoire {
    std::string contenu;   // bytes of the file; nothing for a folder
    bool dossier = false;  // it is a folder
};

// Order of paths: by capitals, "/" as "\".
struct OrdreChemin {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
};

struct Memoire {
    std::string texte;                  // the sheet, Windows-1252 with CR LF
    std::size_t sel_start = 0;          // bytes, never above the text's length
    std::size_t sel_length = 0;         // bytes
    std::vector<Entendu> journal;       // all that was heard, in order
    std::vector<std::string> messages;  // as displayed, in order
    std::vector<std::string> annonces;  // told to the screen reader beside the messages, in order
    std::vector<std::string> boites;    // texts of the boxes, in order, those that a pass counts too
    std::vector<Saisie> saisies;        // entry boxes, in order
    // Answers to come, one a question: text of the entry box, file name, "oui" or "non", "Nom;12.5"
    // for a font, "ok" for the printer. Nothing, or no answer left: Cancel; No where there is none.
    std::deque<std::optional<std::string>> reponses;
    std::string presse_papiers;   // the clipboard, UTF-8
    int bips = 0;             // beeps heard
    bool interrompt = false;  // the user gives up at the next sign of life

    std::map<std::string, FichierMemoire, OrdreChemin> fichiers;  // by full path; "C:" is a root
    int operations_fichier = 0;  // file operations that could fail, so far
    int echec_operation = 0;     // number of the one that fails; 0 for none
    int echec_numero = 75;       // its failure
    int echec_impression = 0;    // failure of the printer; 0: it works

    // Recovery files are written at once, at the end of each event, and count as no file operation.
    int echec_reprise = 0;       // failure of writing and deleting them; 0: it works
    std::map<std::string, int> reprises_ratees;   // files whose last write failed, and why
    std::set<std::string> reprises_a_effacer;     // removals that failed: tried again at the next order
    bool reprise_a_nous = true;  // no other program works on the folder
    int marques = 0;             // runs that have asked for their mark: "1", "2"...
    std::int64_t horloge = 1'767'225'600;  // seconds since 1970: 1 January 2026

    std::string dossier_programme = "C:\\VOXTAB";
    std::string dossier_courant = "C:\\";  // full path
    std::string ligne_commande;
    int largeur_ecran = 15360;  // twips
    int hauteur_ecran = 11520;  // twips
};
extern Memoire memoire;

// Empties the memory and installs its implementation in the port. The roots and the program's folder are
// there, without files.
void installe_port_memoire();

// What a test does to the files behind the program's back; none of it counts as an operation.
void pose_fichier(std::string_view chemin, std::string_view contenu);  // makes its folders too
void pose_dossier(std::string_view chemin);                            // with those above it
void supprime_memoire(std::string_view chemin);  // a file, or a folder with all that is in it
std::optional<std::string> lit_memoire(std::string_view chemin);  // nothing when there is none
bool dossier_memoire(std::string_view chemin);                    // that folder exists
std::string chemin_memoire(std::string_view chemin);              // full path, as in `fichiers`
