// The timer behind the recovery files: the sheet is looked at a moment after it has changed, not at each
// key, and a file that could not be written is tried again. Keeps the timer.
#include "wx/recovery.hpp"

#include <wx/timer.h>

#include <charconv>
#include <chrono>
#include <memory>

#include "platform/platform.hpp"
#include "platform/recovery_writer.hpp"
#include "shell/window.hpp"

namespace {

constexpr int kBientot = 500;         // milliseconds from a change to the look at it
constexpr int kControle = 1000;       // to the next look while files are written
constexpr int kNouvelEssai = 10000;   // from a write that failed to the next try

void (*releve_demande)() = nullptr;
bool dossier_seul = false;            // no other program works on the folder

class Minuterie : public wxTimer {
    void Notify() override {
        if (fenetre.fermee || releve_demande == nullptr) return;
        releve_demande();
        if (!reprises_ecrites())
            StartOnce(kControle);
        else if (echec_reprises() != 0)
            StartOnce(kNouvelEssai);
    }
};
std::unique_ptr<Minuterie> minuterie;

// A timer that runs for a new try gives way to a change.
void bientot(void (*releve)()) {
    if (!minuterie) return;
    releve_demande = releve;
    if (!minuterie->IsRunning() || minuterie->GetInterval() == kNouvelEssai) minuterie->StartOnce(kBientot);
}

// The moment of the start in hexadecimal: two runs on one folder never have the same.
std::string marque() {
    const auto n = std::chrono::system_clock::now().time_since_epoch().count();
    std::string chiffres(24, '0');
    const auto fin = std::to_chars(chiffres.data(), chiffres.data() + chiffres.size(), n, 16).ptr;
    chiffres.resize(static_cast<std::size_t>(fin - chiffres.data()));
    return chiffres;
}

std::int64_t maintenant() {
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

}  // namespace

void installe_reprises(bool a_nous) {
    dossier_seul = a_nous;
    minuterie = std::make_unique<Minuterie>();
    ouvre_ecriture_reprises();
    port.reprise = {bientot,        ordonne_reprise, ordonne_effacement,          attend_reprises,
                    echec_reprises, [] { return dossier_seul; }, marque, maintenant};
}

void ferme_reprises() {
    minuterie.reset();
    ferme_ecriture_reprises();
}
