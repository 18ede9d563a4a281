// The open documents: what is known of each beside its row in the settings. One instance, `documents`; the
// commands of the documents change it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/codepage.hpp"
#include "base/table.hpp"
#include "settings/settings.hpp"

struct Documents {
    std::int16_t document_courant = 1;   // number of the sheet in `txt`, 1 to nombre_document
    std::int16_t nombre_document = 1;    // open documents, 1 to 15
    Table<std::string> nom_copie{kDocumentsMaxi};       // working copy of each, by document number
    Table<char> document_modifie{kDocumentsMaxi};       // 1: the sheet differs from its file
    Table<std::string> texte{kDocumentsMaxi};           // of each, as it was when `txt` last left it
    Table<char> copie_a_jour{kDocumentsMaxi};           // 1: the working copy holds `texte`
    Table<char> a_son_fichier{kDocumentsMaxi};          // 1: it came from the file of its name, or went there
    Table<std::uint64_t> identite{kDocumentsMaxi};      // of each open sheet, from 1, never given twice
    Table<std::optional<std::uint64_t>> base{kDocumentsMaxi};  // sum of its file as read or written last;
                                                        // 0: it has none, nothing: not known
    std::uint64_t derniere_identite = 0; // the last one given in this run
    bool liste_fonction_active = false;  // `txt` shows a text that isn't the sheet
    std::int32_t repere_lecture = 0;     // the bookmark of that text, from its opening on
    bool feuille_ailleurs = false;       // while quitting: `txt` shows another sheet than this one
    bool enregistrement_rate = false;    // the last save on the way out or under a new name has failed
};
extern Documents documents;

article& ligne_courante_ini();           // the current document's row
void marque_modifie();                   // the current sheet differs from its file
int rang_ouvert(const std::string& nomfic, int sauf = 0);  // number of the open sheet of that file, 0: none
inline constexpr std::string_view kDejaOuvert = "déja ouvert"_fr;   // said of its name

// A row's place of the selection, for the text control, which holds one past the end at the end.
inline std::size_t position_gardee(std::int32_t champ) {
    return static_cast<std::size_t>(std::max<std::int32_t>(champ, 0));
}

void dit_si_hors_liste(const std::string& nom);   // tells when the settings file has no room for that path

// Puts article_courant at the current document's row, and the row that stood there after the open
// ones; a recent row of the same name comes there instead. Nothing for an empty name, or where the
// current row has it already.
void range_ini(std::string_view nomfic);
