// The empty implementation of the port: every slot is harmless. It is what the port holds before
// another one is installed.
#include "base/failure.hpp"
#include "platform/platform.hpp"

namespace {

const std::string kTexteVide;

constexpr PortTexte kTexte{[]() -> const std::string& { return kTexteVide; },
                           [](std::string&&) {},
                           []() -> std::size_t { return 0; },
                           []() -> std::size_t { return 0; },
                           [](std::size_t, std::size_t) {}};

constexpr PortBoites kBoites{[](std::string_view) {},
                             [](std::string_view) { return false; },
                             [](std::string_view) { return Reponse::annuler; },
                             [](std::string_view, std::string_view, std::string&) { return false; },
                             [] {},
                             [](Son) {},
                             [](std::string_view) {},
                             [](std::string_view) {}};

using Chemin = const std::string&;
constexpr PortFichiers kFichiers{
    [](Chemin) { return false; },
    [](Chemin) { return false; },
    [](Chemin, std::string&) -> int { return kFichierAbsent; },
    [](Chemin, Chemin) -> int { return kAccesFichier; },
    [](Chemin, Chemin) -> int { return kAccesFichier; },
    [](Chemin, Chemin) -> int { return kAccesFichier; },
    [](Chemin) -> int { return kFichierAbsent; },
    [](Chemin) -> int { return kAccesFichier; },
    [](Chemin, std::vector<std::string>&) -> int { return kDossierAbsent; },
    [](Chemin, std::vector<std::string>&) -> int { return kDossierAbsent; },
    [](Chemin, Chemin) { return false; }};

using Mots = std::string_view;
constexpr PortDialogues kDialogues{[](std::string&, const DemandeFichier&) { return false; },
                                   [](std::string&, const DemandeFichier&) { return false; },
                                   [](std::string&, double&, bool) { return false; },
                                   [] { return false; }};

constexpr PortPressePapiers kPressePapiers{[] { return std::string(); }, [](Mots) { return false; }};

constexpr PortFenetre kFenetre{[] {}, [] {},
                               [](int& largeur, int& hauteur) { largeur = hauteur = 0; }};

constexpr PortSysteme kSysteme{[]() -> std::uint64_t { return 1; },
                               [] { return std::string(); },
                               [] { return std::string(); },
                               [] { return std::string(); },
                               '\\',
                               [] { return false; },
                               nullptr};

constexpr PortReprise kReprise{[](void (*)()) {},
                               [](Chemin, std::function<std::string()>) {},
                               [](Chemin) {},
                               [] {},
                               []() -> int { return 0; },
                               [] { return false; },
                               [] { return std::string(); },
                               []() -> std::int64_t { return 0; }};

constexpr Port kPortVide{
    kTexte,
    kBoites,
    {[](std::string_view) {}, [](std::string_view) {}},
    kFichiers,
    kDialogues,
    kPressePapiers,
    {[](Chemin, Chemin, double) -> int { return kAccesFichier; }},
    kFenetre,
    kSysteme,
    kReprise,
    {[](const std::vector<std::int16_t>&, int) {}, [] {}}};

}  // namespace

constinit Port port = kPortVide;

void installe_port_vide() { port = kPortVide; }
