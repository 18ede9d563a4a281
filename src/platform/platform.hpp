// The port: what the core asks of the surroundings, as plain structs of function pointers.
// Implementations: none (every slot harmless, installed from the first instruction), in memory (the
// tests'), real (files here, the window's and the terminal's in their own folders).
// Texts are Windows-1252 with CR LF; positions count bytes from 0, CR LF as two.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The multi-line text control `txt`.
struct PortTexte {
    const std::string& (*texte)();                              // the whole text
    void (*pose_texte)(std::string&& texte);                    // replaces it; the cursor goes to 0
    std::size_t (*sel_start)();                                 // bytes before the selection
    std::size_t (*sel_length)();                                // bytes in the selection
    void (*pose_selection)(std::size_t debut, std::size_t longueur);
};

enum class Reponse { oui, non, annuler };
enum class Son { reussite, echec };   // of a calculation that has ended

// What stops the user, and what is heard beside words. A box waits until it is closed.
struct PortBoites {
    void (*boite)(std::string_view texte);                      // one OK button
    bool (*oui_non)(std::string_view texte);                    // Yes and No; true for Yes
    Reponse (*oui_non_annuler)(std::string_view texte);         // Yes, No and Cancel
    // Entry box with one line; false on Cancel.
    bool (*saisie)(std::string_view invite, std::string_view propose, std::string& reponse);
    void (*bip)();
    void (*son)(Son genre);
    void (*boite_comptee)(std::string_view texte);              // a box that is not shown, see platform/boxes.hpp
    void (*boite_du_compte)(std::string_view texte);            // one OK button: how many there were
};

// The message line, called once per `message` with the text displayed; and words that are told to the
// screen reader beside it.
struct PortMessage {
    void (*etiquette)(std::string_view texte);
    void (*annonce)(std::string_view texte);
};

// Files and folders. Paths are Windows-1252 with the system's separators; a path of a folder may end
// in one or not. Each int is 0, or the number of the failure: 53 absent, 61 disk full, 75 no access,
// 76 folder absent.
struct PortFichiers {
    bool (*existe)(const std::string& chemin);                  // a file, hidden ones too; no folder
    bool (*existe_dossier)(const std::string& chemin);
    int (*lit)(const std::string& chemin, std::string& contenu);
    int (*remplace)(const std::string& chemin, const std::string& contenu);   // old or new, whole
    int (*copie)(const std::string& source, const std::string& destination);  // replaces, whole
    int (*deplace)(const std::string& source, const std::string& destination);
    int (*efface)(const std::string& chemin);
    int (*cree_dossier)(const std::string& chemin);
    int (*liste_fichiers)(const std::string& dossier, std::vector<std::string>& noms);
    int (*liste_dossiers)(const std::string& dossier, std::vector<std::string>& noms);
    bool (*meme_fichier)(const std::string& a, const std::string& b);   // both exist and are one file
};

// A file dialog: kinds of files offered (pairs of caption and pattern), default extension, and the caption.
struct DemandeFichier {
    std::string_view filtre, extension, titre;
};

// The file dialog, the font dialog and the printer dialog; each answers false on Cancel.
struct PortDialogues {
    bool (*ouvre)(std::string& nom, const DemandeFichier& demande);
    bool (*enregistre)(std::string& nom, const DemandeFichier& demande);
    bool (*police)(std::string& nom, double& taille, bool imprimante);
    bool (*imprimante)();
};

// The system's clipboard: text alone, in UTF-8.
struct PortPressePapiers {
    std::string (*lit)();                                       // "" where there is no text
    bool (*pose)(std::string_view utf8);                        // false where it can't be put there
};

// The printer: sends the text as one print call in that font and ends the document. 0 or a failure.
struct PortImprimante {
    int (*imprime)(const std::string& texte, const std::string& police, double taille);
};

// The window that mirrors the shell's data (src/shell/window.hpp).
struct PortFenetre {
    void (*montre)();                                           // the data has changed: show it
    void (*termine)();                                          // the program ends
    void (*taille_ecran)(int& largeur, int& hauteur);           // of the screen, in twips
};

// The surroundings of the computation.
struct PortSysteme {
    std::uint64_t (*graine)();                                  // seed from the clock
    std::string (*dossier_programme)();                         // folder of the program's own files
    std::string (*dossier_courant)();
    std::string (*ligne_commande)();                            // what follows the program's name
    char separateur;                                            // '\\' or '/'
    bool (*interrompu)();                                       // the user gives up a long sum
    // Lowest address that the stack may reach, or nullptr when it isn't known: below it a recursion
    // must end with failure 28.
    const char* limite_pile;
};

// Recovery files. An order returns at once and is carried out in its turn, beside the program's work; one
// that has been overtaken by another for the same file is left out.
struct PortReprise {
    void (*bientot)(void (*releve)());                          // calls it once, within a second
    // Makes the bytes, writes the file whole, and its folder where it is missing.
    void (*ecrit)(const std::string& chemin, std::function<std::string()> contenu);
    void (*efface)(const std::string& chemin);
    void (*attend)();                                           // until every order is carried out
    int (*echec)();                                             // failure of a file whose last write failed, or 0
    bool (*a_nous)();                                           // no other program works on this folder
    std::string (*marque)();                                    // unlike that of any other run
    std::int64_t (*maintenant)();                               // seconds since 1970
};

// Sounds of the program's own making: samples from -32768 to 32767, left and right in turn. The order returns at once;
// the front end reports the end, or that there is no device.
struct PortSon {
    void (*joue)(const std::vector<std::int16_t>& echantillons, int cadence);   // what played before stops
    void (*arrete)();
};

struct Port {
    PortTexte texte;
    PortBoites boites;
    PortMessage message;
    PortFichiers fichiers;
    PortDialogues dialogues;
    PortPressePapiers presse_papiers;
    PortImprimante imprimante;
    PortFenetre fenetre;
    PortSysteme systeme;
    PortReprise reprise;
    PortSon son;
};

extern Port port;

// Installs the implementation whose every slot does nothing and answers nothing.
void installe_port_vide();

// So many beeps.
inline void bips(int nombre) {
    for (int i = 0; i < nombre; ++i) port.boites.bip();
}

// True while a recursion may go deeper with `reserve` bytes to spare above the lowest address.
inline bool reste_pile(std::size_t reserve = 0) {
    const auto ici = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    return ici > reinterpret_cast<std::uintptr_t>(port.systeme.limite_pile) + reserve;
}
