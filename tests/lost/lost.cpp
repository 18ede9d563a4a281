// Random sequences of what a user does who never discards a text, with failing files, files that go
// and stops: nothing that was typed is lost. Each sequence follows from its seed alone; one that fails
// is made short and printed as a script that can be kept in tests/program.
//   lost [--sequences N] [--graine S]     (one seed: its sequence and what came of it)
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "lost/player.hpp"
#include "lost/sequence.hpp"
#include "platform/stack.hpp"

namespace {

constexpr int kEvenements = 60;    // of one sequence, at most
constexpr int kFautesMontrees = 3;

// The sequence of that seed. "" or what is wrong; its steps in `etapes`.
std::string essaie(std::uint64_t graine, Etapes& etapes) {
    Tirage t(graine);
    Joueur j;
    nouvelle_partie(j);
    for (const std::string& etape : tire_depart(t)) joue(j, etape);
    int mot = 1;
    for (int n = t.entre(1, kEvenements); n > 0; --n)
        for (const std::string& etape : tire_evenement(t, mot)) joue(j, etape);
    std::string faute = verifie(j);
    etapes = std::move(j.jouees);
    return faute;
}

std::string rejoue(const Etapes& etapes) {
    Joueur j;
    nouvelle_partie(j);
    for (const std::string& etape : etapes) joue(j, etape);
    return verifie(j);
}

// Leaves out every step without which the sequence fails too.
Etapes raccourcit(Etapes etapes) {
    for (bool encore = true; encore;) {
        encore = false;
        for (std::size_t i = etapes.size(); i-- > 0;) {
            Etapes courte = etapes;
            courte.erase(courte.begin() + static_cast<std::ptrdiff_t>(i));
            if (rejoue(courte).empty()) continue;
            etapes = std::move(courte);
            encore = true;
        }
    }
    return etapes;
}

void montre(std::uint64_t graine, const std::string& faute, const Etapes& etapes) {
    std::cout << "# Seed " << graine << ": " << faute << "\n";
    for (const std::string& etape : etapes) std::cout << etape << "\n";
    std::cout << "# ---\n" << std::flush;
}

// The seeds from `debut` to `fin`, `pas` apart. The number of sequences that are wrong.
int essaie_toutes(std::uint64_t debut, std::uint64_t fin, std::uint64_t pas) {
    int fautes = 0;
    for (std::uint64_t graine = debut; graine <= fin && fautes < kFautesMontrees; graine += pas) {
        Etapes etapes;
        if (essaie(graine, etapes).empty()) continue;
        ++fautes;
        const Etapes courte = raccourcit(etapes);
        montre(graine, rejoue(courte), courte);
    }
    return fautes;
}

// Both halves of the seeds at once where the system can.
int essaie_a_deux(std::uint64_t nombre) {
#ifdef _WIN32
    return essaie_toutes(1, nombre, 1);
#else
    const pid_t enfant = fork();
    if (enfant == 0) std::_Exit(std::min(essaie_toutes(2, nombre, 2), 100));
    const int fautes = essaie_toutes(1, nombre, enfant < 0 ? 1 : 2);
    int etat = 0;
    if (enfant > 0 && (waitpid(enfant, &etat, 0) < 0 || !WIFEXITED(etat))) return fautes + 1;
    return fautes + (enfant > 0 ? WEXITSTATUS(etat) : 0);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    std::uint64_t nombre = 20000, seule = 0;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::string(argv[i]) == "--sequences") nombre = std::strtoull(argv[i + 1], nullptr, 10);
        if (std::string(argv[i]) == "--graine") seule = std::strtoull(argv[i + 1], nullptr, 10);
    }
    if (seule != 0) {
        Etapes etapes;
        const std::string faute = essaie(seule, etapes);
        montre(seule, faute.empty() ? "nothing is lost" : faute, etapes);
        return faute.empty() ? 0 : 1;
    }
    const int fautes = essaie_a_deux(nombre);
    std::cout << nombre << " sequences, " << fautes << " lose something\n";
    return fautes == 0 ? 0 : 1;
}
