// The open documents: the instance, the current one, the one of a file, and their rows in the settings.
#include "documents/documents.hpp"

#include <utility>

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

void range_ini(std::string_view nomfic) {
    if (sans_blancs(nomfic).empty()) return;
    const int courant = documents.document_courant;
    const int rang = rang_du_nom(nomfic);
    if (rang == courant) return;
    if (rang > documents.nombre_document) {
        reglages.article_courant = reglages.table_ini(rang);
        efface_nomdoc(rang);
    }
    // The row that the sheet had goes after the open ones: each of these keeps its own.
    std::swap(reglages.table_ini(courant), reglages.article_courant);
    if (documents.nombre_document < kDocumentsMaxi) insert_nomdoc(documents.nombre_document + 1);
}
