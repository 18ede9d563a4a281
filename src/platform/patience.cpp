// Asking the user whether a long calculation is to go on. Changes `patience`.
#include "platform/patience.hpp"

#include <utility>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "platform/boxes.hpp"
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

void dit_abandon() {
    if (!std::exchange(patience.dite, true)) montre_boite("calcul interrompu"_fr);
}
