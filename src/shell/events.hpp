// What happens in the window, as the front end or a script reports it. Each event runs to its end;
// a failure that nothing has caught shows its number and ends the command.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/keys.hpp"

// What another start hands over while a command shows a box waits until that command has ended.
struct Remises {
    bool commande_en_cours = false;
    std::vector<std::string> attente;   // the command lines of those starts
};
extern Remises remises;

void evenement_chargement();                          // the window loads: the whole of start-up
void evenement_remise(const std::string& commande);   // another start of the program hands its sheet over
void evenement_fermeture();                           // the close box: quitter, then it closes all the same
// The system's session ends: all that isn't saved goes to the recovery files, without a question. False
// when it could not.
bool evenement_fin_session();
void evenement_menu(std::string_view nom, int index = 0);   // an item was chosen (index: recent file)
void evenement_clic(std::string_view controle);       // a button or an option was clicked
void evenement_caractere(std::string_view controle, int code);   // a key press: its character
void evenement_touche(std::string_view controle, const FrappeTouche& frappe);   // a key release
// A key press in the window, whatever has the focus: menus take theirs first, then the letters of the
// buttons, then the control. True when it is dealt with and must do nothing else.
bool evenement_pression(std::string_view controle, const FrappeTouche& frappe);
// The last of these: the control takes the press. True when a command ran.
bool evenement_enfonce(std::string_view controle, const FrappeTouche& frappe);
void evenement_fin_de_son(bool joue);                 // a sound has ended, or there is no device to play it
void evenement_lecture_seule();                       // a key that would write, in a text to be read
void evenement_avant_changement();                    // the user is about to change the text
void evenement_texte_change();                        // the user has changed it, by a key or without one
// What is to be said of what was typed or pasted, in UTF-8: nothing when it is "". A refusal beeps.
void evenement_saisie(std::string_view mots, bool refus);
