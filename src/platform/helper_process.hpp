// Another process of this program that works for it, spoken to by its standard input and output.
// One file per system implements this header. Holds no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The word that starts the program as a helper, the only one on its command line.
inline constexpr const char* kMotAide = "--aide-de-calcul";

struct ProcessusAide {
    std::intptr_t processus = 0;   // 0: none runs
    std::intptr_t entree = -1;     // where it reads what is sent
    std::intptr_t sortie = -1;     // where it writes what is received
};

// Starts a helper. False when none can be started.
bool lance_aide(ProcessusAide& aide);

// Called in a helper: it ends at once when the program that started it is gone or needs it no more, whatever it
// calculates.
void finis_avec_le_programme();

// False when the helper has ended.
bool envoie(const ProcessusAide& aide, std::string_view octets);

// Waits for bytes and takes what has come, at most `nombre`; 0 when the helper has ended.
std::size_t recoit(const ProcessusAide& aide, char* octets, std::size_t nombre);

// Lets the helper end, which it does when nothing more can come, and waits for it.
void attend_aide(ProcessusAide& aide);
