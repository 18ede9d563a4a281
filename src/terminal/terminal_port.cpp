// Messages and boxes on standard error, the clock for random numbers, the end of the stack; every other slot of
// the port is the harmless one. Changes the port and `terminal`.
#include "terminal/terminal_port.hpp"

#include <chrono>
#include <cstdint>
#include <iostream>
#include <string_view>

#include "base/codepage.hpp"
#include "platform/platform.hpp"
#include "platform/stack.hpp"

Terminal terminal;

namespace {

void ecrit_message(std::string_view texte) { std::cerr << vers_utf8(sans_blancs(texte)) << '\n'; }

void ecrit_boite(std::string_view texte) {
    terminal.boite_vue = true;
    std::cerr << vers_utf8(texte) << '\n';
}

std::uint64_t graine_horloge() {
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

}  // namespace

void installe_port_terminal() {
    installe_port_vide();
    port.message.etiquette = ecrit_message;
    port.boites.boite = port.boites.boite_du_compte = ecrit_boite;
    port.systeme.graine = graine_horloge;
    port.systeme.limite_pile = limite_pile();
}
