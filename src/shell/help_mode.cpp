// Key-help mode: the instance of its flags and the announcement of a command.
#include "shell/help_mode.hpp"

#include "platform/message.hpp"

Aide aide;

bool annonce_mots(std::string_view mots) {
    if (!aide.aide_touche || mots.empty()) return false;
    dit(mots);
    aide.aide_touche_traitee = true;
    return true;
}
