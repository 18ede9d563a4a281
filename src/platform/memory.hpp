// The filler memory: the whole program runs against it without a screen. It holds the text and the
// selection, lists every message and box, and gives the answers that were prepared.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

struct Saisie {
    std::string invite;      // prompt of the entry box
    std::string propose;     // text that stood in it
};

struct Memoire {
    std::string texte;                              // the sheet, Windows-1252 with CR LF
    std::size_t sel_start = 0;                      // bytes, never above the text's length
    std::size_t sel_length = 0;                     // bytes
    std::vector<std::string> messages;              // as displayed, in order
    std::vector<std::string> boites;                // texts of the boxes, in order
    std::vector<Saisie> saisies;                    // entry boxes, in order
    std::deque<std::optional<std::string>> reponses;   // answers to come; nothing: Cancel
    int bips = 0;                                   // beeps heard
    bool interrompt = false;                        // the user gives up at the next sign of life
};
extern Memoire memoire;

// Empties the memory and installs its filler in the port.
void installe_port_memoire();
