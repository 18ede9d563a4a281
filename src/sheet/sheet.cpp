// The instance of the sheet's tables, and the insertion into the rebuilt text.
#include "sheet/sheet.hpp"

#include <algorithm>

Feuille feuille;

void insere_texte_reconstruit(std::size_t position, const std::string& texte) {
    std::string& cible = feuille.texte_reconstruit;
    cible.insert(std::min(position, cible.size()), texte);
}
