// Key-help mode: the instance of its flags and the announcement of a command.
#include "shell/help_mode.hpp"

#include "shell/message.hpp"

Aide aide;

bool annonce_aide(std::string_view mots) {
    if (!aide.aide_touche) return false;
    dit(mots);
    aide.aide_touche_traitee = true;
    return true;
}
