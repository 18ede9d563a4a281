// A helper on Linux: one pair of sockets is its standard input and output. Changes no state.
#include "platform/helper_process.hpp"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <thread>

namespace {

// The helper with `bout` as its input and output; 0 when it can't be started.
pid_t demarre(int bout) {
    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0) return 0;
    posix_spawn_file_actions_adddup2(&actions, bout, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, bout, STDOUT_FILENO);
    std::string nom = "voxtab-calc", mot = kMotAide;
    std::array<char*, 3> arguments{nom.data(), mot.data(), nullptr};
    pid_t processus = 0;
    const int rate = posix_spawn(&processus, "/proc/self/exe", &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return rate == 0 ? processus : 0;
}

}  // namespace

bool lance_aide(ProcessusAide& aide) {
    std::array<int, 2> bouts{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, bouts.data()) != 0) return false;
    const pid_t processus = demarre(bouts[1]);
    close(bouts[1]);
    if (processus == 0) {
        close(bouts[0]);
        return false;
    }
    aide = {processus, bouts[0], bouts[0]};
    return true;
}

// The other end of the sockets closes with the program.
void finis_avec_le_programme() {
    const auto surveille = [] {
        pollfd entree{STDIN_FILENO, POLLRDHUP, 0};
        while (poll(&entree, 1, -1) < 0 && errno == EINTR) {
        }
        _exit(1);
    };
    try {
        std::thread(surveille).detach();
    } catch (const std::system_error&) {   // without a thread it ends when it next answers
    }
}

// Without the signal that a helper's end would raise.
bool envoie(const ProcessusAide& aide, std::string_view octets) {
    while (!octets.empty()) {
        const ssize_t ecrits = send(static_cast<int>(aide.entree), octets.data(), octets.size(), MSG_NOSIGNAL);
        if (ecrits < 0 && errno == EINTR) continue;
        if (ecrits <= 0) return false;
        octets.remove_prefix(static_cast<std::size_t>(ecrits));
    }
    return true;
}

std::size_t recoit(const ProcessusAide& aide, char* octets, std::size_t nombre) {
    for (;;) {
        const ssize_t lus = read(static_cast<int>(aide.sortie), octets, nombre);
        if (lus >= 0) return static_cast<std::size_t>(lus);
        if (errno != EINTR) return 0;
    }
}

void attend_aide(ProcessusAide& aide) {
    if (aide.processus == 0) return;
    close(static_cast<int>(aide.entree));
    while (waitpid(static_cast<pid_t>(aide.processus), nullptr, 0) < 0 && errno == EINTR) {
    }
    aide = ProcessusAide{};
}
