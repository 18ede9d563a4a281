// Asking the user whether a long calculation is to go on. Changes `patience`.
#include "platform/patience.hpp"

#include "base/failure.hpp"
#include "platform/platform.hpp"

Patience patience;

bool abandonne() {
    patience.travail = 0;
    if (!patience.abandonnee) patience.abandonnee = port.systeme.interrompu();
    return patience.abandonnee;
}

void demande() {
    if (abandonne()) echoue(kAbandon);
}
