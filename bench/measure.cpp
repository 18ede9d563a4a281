// Medians of repeated cases, and the memory of a pass in a child process. Holds no state.
#include "measure.hpp"

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace {

double mediane(std::vector<double> valeurs) {
    const auto milieu = valeurs.begin() + static_cast<std::ptrdiff_t>(valeurs.size() / 2);
    std::nth_element(valeurs.begin(), milieu, valeurs.end());
    return *milieu;
}

// A size of /proc/self/status, in bytes. Refuses a name that is not there.
std::size_t taille_statut(const std::string& nom) {
    std::ifstream statut("/proc/self/status");
    for (std::string mot; statut >> mot;) {
        if (mot != nom + ":") continue;
        std::size_t kilo = 0;
        statut >> kilo;
        return kilo * 1024;
    }
    throw std::runtime_error("no " + nom + " in /proc/self/status");
}

// Gives free memory back and forgets the peak so far, so that the next peak is the pass's own.
void oublie_maximum() {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5 << std::flush;
}

// What the child does: measures and writes the two sizes to the pipe.
int mesure_enfant(int tube, const std::function<std::size_t()>& prepare,
                  const std::function<void()>& passe) {
    try {
        MemoirePasse m;
        m.texte = prepare();
        oublie_maximum();
        const std::size_t avant = taille_statut("VmRSS");
        passe();
        m.croissance = std::max(taille_statut("VmHWM"), avant) - avant;
        return write(tube, &m, sizeof m) == static_cast<ssize_t>(sizeof m) ? 0 : 1;
    } catch (const std::exception& e) {
        std::cerr << "bench_sheet, memory: " << e.what() << '\n';
        return 1;
    }
}

}  // namespace

double temps_processeur() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

std::vector<double> medianes(const std::vector<Cas>& cas, int repetitions) {
    std::vector<std::vector<double>> temps(cas.size());
    for (int tour = 0; tour <= repetitions; ++tour)
        for (std::size_t i = 0; i < cas.size(); ++i) {
            const double secondes = cas[i]();
            if (tour > 0) temps[i].push_back(secondes);
        }
    std::vector<double> sortie;
    for (std::vector<double>& t : temps) sortie.push_back(mediane(std::move(t)));
    return sortie;
}

MemoirePasse mesure_memoire(const std::function<std::size_t()>& prepare,
                            const std::function<void()>& passe) {
    int tube[2];
    if (pipe(tube) != 0) throw std::runtime_error("no pipe");
    std::cout.flush();
    const pid_t enfant = fork();
    if (enfant < 0) throw std::runtime_error("no child process");
    if (enfant == 0) _exit(mesure_enfant(tube[1], prepare, passe));
    close(tube[1]);
    MemoirePasse m;
    const bool lu = read(tube[0], &m, sizeof m) == static_cast<ssize_t>(sizeof m);
    close(tube[0]);
    int statut = 0;
    waitpid(enfant, &statut, 0);
    if (!lu || statut != 0) throw std::runtime_error("the child that measures memory failed");
    return m;
}
