// The open documents: the instance, the current one and the one of a file.
#include "documents/documents.hpp"

#include "base/codepage.hpp"
#include "platform/message.hpp"
#include "platform/paths.hpp"

Documents documents;

article& ligne_courante_ini() { return reglages.table_ini(documents.document_courant); }

void marque_modifie() { documents.document_modifie(documents.document_courant) = 1; }

int rang_ouvert(const std::string& nomfic, int sauf) {
    for (int rang = 1; rang <= documents.nombre_document; ++rang)
        if (rang != sauf && meme_document(reglages.table_ini(rang).nom, nomfic)) return rang;
    return 0;
}

void dit_si_hors_liste(const std::string& nom) {
    if (nom.size() > kTailleNom)
        dit("chemin trop long : au prochain démarrage, la liste n'en aura que le début"_fr);
}
