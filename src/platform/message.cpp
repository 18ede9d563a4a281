// The message line. Changes `ligne_message` and calls the port's label once per message.
#include "platform/message.hpp"

#include "base/codepage.hpp"
#include "platform/platform.hpp"

LigneMessage ligne_message;

void message(std::string& p_message) {
    std::string& dernier = ligne_message.dernier_message;
    if (dernier.ends_with(' ')) dernier += ' ';
    p_message = std::string(sans_blancs(p_message));
    if (dernier == p_message) p_message = " " + p_message + "  ";
    dernier = p_message;
    ligne_message.LblMessage = p_message;
    port.message.etiquette(p_message);
}

void dit(std::string_view texte) {
    std::string copie(texte);
    message(copie);
}

void souffle(std::string_view texte) { port.message.annonce(texte); }
