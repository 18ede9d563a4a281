// Arguments and streams on Linux, where both are bytes already. Changes the signals that end the program,
// for a while.
#include "platform/console.hpp"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace {

// The signals that wait while a file is written.
sigset_t signaux_de_fin() {
    sigset_t signaux;
    sigemptyset(&signaux);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signaux, signal);
    return signaux;
}

// A standard stream that was closed by the caller gets a place where nothing can be written: a file that
// the program opens must not become its output.
void occupe_flux_fermes() {
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd)
        if (fcntl(fd, F_GETFD) < 0) open("/dev/null", O_RDONLY);
}

}  // namespace

std::vector<std::string> prepare_console(int argc, char** argv) {
    occupe_flux_fermes();
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool sortie_au_terminal() { return isatty(STDOUT_FILENO) != 0; }
bool erreurs_au_terminal() { return isatty(STDERR_FILENO) != 0; }

SansInterruption::SansInterruption() {
    const sigset_t signaux = signaux_de_fin();
    sigprocmask(SIG_BLOCK, &signaux, nullptr);
}

SansInterruption::~SansInterruption() {
    const sigset_t signaux = signaux_de_fin();
    sigprocmask(SIG_UNBLOCK, &signaux, nullptr);
}
