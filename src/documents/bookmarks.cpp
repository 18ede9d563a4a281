// The bookmark of the current sheet: field 3 of its row, in bytes from 0.
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

void mnuPoseRepereItem() {
    dit("Pose d'un repère"_fr);
    ligne_courante_ini().champ3 = vers_32_tronque(static_cast<double>(curseur()));
}

void mnuRepereItem() {
    const std::int32_t repere = std::max(ligne_courante_ini().champ3, 0);
    port.texte.pose_selection(static_cast<std::size_t>(repere), 0);
    dit_ligne_sous_curseur();
}
