// Undo and redo: each open sheet has its own list of changes, kept as what went and what came. One
// instance, `historique`; the events note what has changed, the two steps change the text,
// the cursor, and mark the sheet as changed.
// The list belongs to the core because the text control forgets its own when a command rewrites it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

// Bytes that the changes of one sheet may hold. The last change stays, however large it is.
inline constexpr std::size_t kOctetsHistorique = std::size_t{16} * 1024 * 1024;

struct Selection {
    std::size_t debut = 0;           // bytes from 0
    std::size_t longueur = 0;        // bytes
};

// One change of the text: `mis` stands at `place` now, where `enleve` stood.
struct Changement {
    std::size_t place = 0;           // bytes from 0
    std::string enleve, mis;         // Windows-1252
    Selection avant, apres;
    bool ouvert = false;             // one key's work: the next key of the same word joins it
};

struct HistoireFeuille {
    std::deque<Changement> faits;    // what can be taken back, the last one at the end
    std::vector<Changement> defaits; // what was taken back, the last one at the end
    std::size_t octets = 0;          // that the changes hold
    std::size_t empreinte = 0;       // of the text, while another sheet is shown
};

struct Historique {
    std::map<std::uint64_t, HistoireFeuille> feuilles;  // by the identity of the open sheet
    std::optional<std::uint64_t> document;   // whose text is in `texte`; none: the next text seen is new
    std::string texte;               // the sheet as it was seen last
    Selection selection;             // its cursor at that moment
};
extern Historique historique;

// Notes what has changed since the last time: the user's own work, or that of a command. Nothing while
// the control shows another text than the sheet.
void note_frappe() noexcept;
void note_commande() noexcept;

// The current document gets another text that isn't a change of the one before: its list is emptied.
void oublie_changements() noexcept;
// The sheet of that document number is no longer open: its list goes.
void ferme_changements(int rang) noexcept;

// Takes the last change back, or makes the one again that was taken back last, and says the line under
// the cursor. False when there is none, or the control shows another text than the sheet.
bool defait_changement();
bool refait_changement();
