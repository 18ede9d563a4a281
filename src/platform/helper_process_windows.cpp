// A helper on Windows: two pipes are its standard input and output. Changes no state.
#include "platform/helper_process.hpp"

#include <windows.h>

#include <algorithm>
#include <array>
#include <mutex>

#include "platform/utf16_windows.hpp"

namespace {

HANDLE poignee(std::intptr_t valeur) { return reinterpret_cast<HANDLE>(valeur); }
std::intptr_t valeur_de(HANDLE poignee) { return reinterpret_cast<std::intptr_t>(poignee); }

// A pipe of which the helper gets one end: 0 the one that reads, 1 the one that writes.
bool cree_tube(std::array<HANDLE, 2>& bouts, int de_l_aide) {
    SECURITY_ATTRIBUTES heritable{sizeof heritable, nullptr, TRUE};
    if (CreatePipe(&bouts[0], &bouts[1], &heritable, 0) == 0) return false;
    SetHandleInformation(bouts[static_cast<std::size_t>(1 - de_l_aide)], HANDLE_FLAG_INHERIT, 0);
    return true;
}

// The job of all helpers: the system ends what is in it when this program ends, however that comes.
HANDLE equipe() {
    static const HANDLE travail = [] {
        const HANDLE cree = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limites{};
        limites.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(cree, JobObjectExtendedLimitInformation, &limites, sizeof limites);
        return cree;
    }();
    return travail;
}

// The helper with these ends; null when it can't be started.
HANDLE demarre(HANDLE entree, HANDLE sortie) {
    std::array<wchar_t, 32768> programme{};
    if (GetModuleFileNameW(nullptr, programme.data(), static_cast<DWORD>(programme.size())) == 0) return nullptr;
    std::wstring ligne = vers_utf16(std::string("voxtab-calc ") + kMotAide);
    STARTUPINFOW depart{};
    depart.cb = sizeof depart;
    depart.dwFlags = STARTF_USESTDHANDLES;
    depart.hStdInput = entree;
    depart.hStdOutput = sortie;
    depart.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION lance{};
    if (!CreateProcessW(programme.data(), ligne.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &depart, &lance))
        return nullptr;
    AssignProcessToJobObject(equipe(), lance.hProcess);
    CloseHandle(lance.hThread);
    return lance.hProcess;
}

}  // namespace

// One at a time: a helper inherits every end that can be inherited just then, and one that keeps another's end open
// would hide the other's end from who waits for it.
bool lance_aide(ProcessusAide& aide) {
    static std::mutex verrou;
    const std::lock_guard garde(verrou);
    std::array<HANDLE, 2> vers{}, depuis{};
    if (!cree_tube(vers, 0)) return false;
    if (!cree_tube(depuis, 1)) {
        for (const HANDLE bout : vers) CloseHandle(bout);
        return false;
    }
    const HANDLE processus = demarre(vers[0], depuis[1]);
    CloseHandle(vers[0]);
    CloseHandle(depuis[1]);
    if (processus == nullptr) {
        CloseHandle(vers[1]);
        CloseHandle(depuis[0]);
        return false;
    }
    aide = {valeur_de(processus), valeur_de(vers[1]), valeur_de(depuis[0])};
    return true;
}

// The job of the helpers sees to it.
void finis_avec_le_programme() {}

bool envoie(const ProcessusAide& aide, std::string_view octets) {
    while (!octets.empty()) {
        DWORD ecrits = 0;
        const auto nombre = static_cast<DWORD>(std::min<std::size_t>(octets.size(), 1 << 20));
        if (WriteFile(poignee(aide.entree), octets.data(), nombre, &ecrits, nullptr) == 0) return false;
        octets.remove_prefix(ecrits);
    }
    return true;
}

std::size_t recoit(const ProcessusAide& aide, char* octets, std::size_t nombre) {
    DWORD lus = 0;
    const auto demandes = static_cast<DWORD>(std::min<std::size_t>(nombre, 1 << 20));
    return ReadFile(poignee(aide.sortie), octets, demandes, &lus, nullptr) == 0 ? 0 : lus;
}

void attend_aide(ProcessusAide& aide) {
    if (aide.processus == 0) return;
    CloseHandle(poignee(aide.entree));
    WaitForSingleObject(poignee(aide.processus), INFINITE);
    CloseHandle(poignee(aide.sortie));
    CloseHandle(poignee(aide.processus));
    aide = ProcessusAide{};
}
