// What the user has heard: the messages and boxes of the last events, for who asks for one again. One instance,
// `entendus`; events fill it in, and "Répéter le dernier message" goes back in it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/codepage.hpp"
#include "platform/message.hpp"

inline constexpr std::size_t kEntendusMaxi = 30;   // messages that can be heard again

// Said where there is none to be repeated.
inline constexpr std::string_view kAucunMessage = "aucun message"_fr;
inline constexpr std::string_view kAucunPlusAncien = "pas de message plus ancien"_fr;

struct Entendus {
    std::vector<Dit> messages;           // Windows-1252, the last one last
    std::size_t rang = 0;                // how far the repetition has gone back; 0: not begun
    bool frais = false;                  // the last one is what the user has just heard: no key since then
};
extern Entendus entendus;

// Takes what has been said since the last time into the list: what an event told, as it told it.
void prend_entendus();

// A key that goes down anywhere in the window, with the item that it stands for: what was heard is no longer fresh,
// and the repetition begins anew. The keys that ask for it again or for its explanation change nothing, nor does
// a modifier, which goes down with its key.
void note_touche_entendus(int touche, std::string_view item);

// The message or box that was heard last: the last one, or the one that was repeated. "" when there is none.
Dit dernier_entendu();

// Says the last message again; at the next press the one before.
void mnuRepeterItem();
