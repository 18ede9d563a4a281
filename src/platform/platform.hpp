// The port: what the core asks of the surroundings, as plain structs of function pointers. Three
// fillers: none (every slot harmless, installed from the first instruction), memory (tests and
// batch), real (files here, the window's in its own folder).
// Texts are Windows-1252 with CR LF; positions count bytes from 0, CR LF as two.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The multi-line text control `txt`.
struct PortTexte {
    const std::string& (*texte)();                              // the whole text
    void (*pose_texte)(std::string&& texte);                    // replaces it; the cursor goes to 0
    std::size_t (*sel_start)();                                 // bytes before the selection
    std::size_t (*sel_length)();                                // bytes in the selection
    void (*pose_selection)(std::size_t debut, std::size_t longueur);
};

// What stops the user, and the beep. A box waits until it is closed.
struct PortBoites {
    void (*boite)(std::string_view texte);                      // one OK button
    // Entry box with one line; false on Cancel.
    bool (*saisie)(std::string_view invite, std::string_view propose, std::string& reponse);
    void (*bip)();
};

// The message line: called once per `message` with the text displayed.
struct PortMessage {
    void (*etiquette)(std::string_view texte);
};

// The surroundings of the computation.
struct PortSysteme {
    std::uint64_t (*graine)();                                  // seed from the clock
    bool (*interrompu)();                                       // the user gives up a long sum
    // Lowest address that the stack may reach, or nullptr when it isn't known: below it a recursion
    // must end with failure 28.
    const char* limite_pile;
};

struct Port {
    PortTexte texte;
    PortBoites boites;
    PortMessage message;
    PortSysteme systeme;
};

extern Port port;

// Installs the filler whose every slot does nothing and answers nothing.
void installe_port_vide();

// True while a recursion may go deeper with `reserve` bytes to spare above the lowest address.
inline bool reste_pile(std::size_t reserve = 0) {
    const auto ici = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    return ici > reinterpret_cast<std::uintptr_t>(port.systeme.limite_pile) + reserve;
}
