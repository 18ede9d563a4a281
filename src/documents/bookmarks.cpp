// The bookmark of the current sheet: field 3 of its row, in bytes from 0. A text that is shown in its place has its
// own. Changes the row, or that of `documents`, and the cursor.
#include "documents/bookmarks.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "documents/documents.hpp"
#include "editing/lines.hpp"
#include "editing/words.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"

namespace {

std::int32_t& repere_courant() {
    return documents.liste_fonction_active ? documents.repere_lecture : ligne_courante_ini().champ3;
}

}  // namespace

void mnuPoseRepereItem() {
    dit("Pose d'un repère"_fr);
    repere_courant() = vers_32_tronque(static_cast<double>(curseur()));
}

void mnuRepereItem() {
    const std::int32_t repere = std::max(repere_courant(), 0);
    port.texte.pose_selection(static_cast<std::size_t>(repere), 0);
    dit_ligne_sous_curseur();
}
