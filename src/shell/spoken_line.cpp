// The cursor's line in words, and the values of its letters.
#include "shell/spoken_line.hpp"

#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"

LigneEcoutee ligne_ecoutee;

namespace {

// The last message is still what this command said of that line.
bool encore(const std::string& texte, int numero) {
    return ligne_ecoutee.numero == numero && ligne_ecoutee.curseur == curseur() &&
           ligne_ecoutee.entendu == ligne_message.dernier_message && ligne_ecoutee.texte == texte;
}

}  // namespace

void mnuDireLigneItem() {
    const std::string& texte = port.texte.texte();
    const int numero = numero_de_ligne(texte, curseur());
    if (encore(texte, numero)) {
        ligne_ecoutee.valeurs = !ligne_ecoutee.valeurs;
    } else {
        ligne_ecoutee = LigneEcoutee{.texte = texte, .numero = numero, .curseur = curseur(), .entendu = {},
                                     .dite = dit_ligne(texte, numero)};
    }
    std::string mots = ligne_ecoutee.valeurs ? ligne_ecoutee.dite.valeurs : ligne_ecoutee.dite.mots;
    message(mots);
    ligne_ecoutee.entendu = mots;
}
