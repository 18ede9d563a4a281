// What the user has heard: the messages of the last events, for who asks for one again. One instance,
// `entendus`; events fill it in, and "Répéter le dernier message" goes back in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"

inline constexpr std::size_t kEntendusMaxi = 30;   // messages that can be heard again

// Said where there is none to be repeated.
inline constexpr std::string_view kAucunMessage = "aucun message"_fr;
inline constexpr std::string_view kAucunPlusAncien = "pas de message plus ancien"_fr;

struct Entendus {
    std::vector<std::string> messages;   // Windows-1252, the last one last
    std::size_t rang = 0;                // how far the repetition has gone back; 0: not begun
};
extern Entendus entendus;

// Takes what has been said since the last time into the list: what an event told, as it told it.
void prend_entendus();

// A key that goes down anywhere in the window: any but that of the repetition lets it begin anew. A modifier
// goes down with its key and is none.
void note_touche_entendus(int touche, bool repetition);

// Says the last message again; at the next press the one before.
void mnuRepeterItem();
