// The filler none: every slot is harmless. It is what the port holds before another is installed.
#include "platform/platform.hpp"

namespace {

const std::string kTexteVide;

const std::string& texte_vide() { return kTexteVide; }
void ignore_texte(std::string&&) {}
std::size_t zero() { return 0; }
void ignore_selection(std::size_t, std::size_t) {}
void ignore(std::string_view) {}
bool annule(std::string_view, std::string_view, std::string&) { return false; }
void silence() {}
std::uint64_t graine_fixe() { return 1; }
bool jamais() { return false; }

constexpr Port kPortVide{{texte_vide, ignore_texte, zero, zero, ignore_selection},
                         {ignore, annule, silence},
                         {ignore},
                         {graine_fixe, jamais, nullptr}};

}  // namespace

constinit Port port = kPortVide;

void installe_port_vide() { port = kPortVide; }
