// The player on Windows: the system's wave output, which mixes with all others. A timer looks whether the sound has
// ended; nothing waits.
#include "wx/player.hpp"

#include <windows.h>

#include <mmsystem.h>

#include <cstdint>
#include <vector>

#include "platform/platform.hpp"
#include "shell/events.hpp"

namespace {

constexpr UINT kRegard = 30;             // milliseconds between two looks
constexpr ULONGLONG kRetard = 5000;      // milliseconds that a device may be late; then it has gone

struct Lecteur {
    HWAVEOUT sortie = nullptr;
    WAVEHDR entete{};
    std::vector<std::int16_t> son;
    UINT_PTR minuterie = 0;
    ULONGLONG limite = 0;                // the system's time at which it must have ended
    bool impossible = false;             // to be told by the timer, as the end is
};
Lecteur lecteur;

void arrete() {
    if (lecteur.minuterie != 0) KillTimer(nullptr, lecteur.minuterie);
    lecteur.minuterie = 0;
    if (lecteur.sortie == nullptr) return;
    waveOutReset(lecteur.sortie);
    waveOutUnprepareHeader(lecteur.sortie, &lecteur.entete, sizeof lecteur.entete);
    waveOutClose(lecteur.sortie);
    lecteur.sortie = nullptr;
}

// A device that is taken away gives the sound back never: the user hears that it has gone.
void CALLBACK regarde(HWND, UINT, UINT_PTR, DWORD) {
    const bool joue = !lecteur.impossible && (lecteur.entete.dwFlags & WHDR_DONE) != 0;
    if (!joue && !lecteur.impossible && GetTickCount64() < lecteur.limite) return;
    arrete();
    evenement_fin_de_son(joue);
}

// False where there is no device, or it doesn't take the sound.
bool commence(int cadence) {
    WAVEFORMATEX forme{};
    forme.wFormatTag = WAVE_FORMAT_PCM;
    forme.nChannels = 2;
    forme.nSamplesPerSec = static_cast<DWORD>(cadence);
    forme.wBitsPerSample = 16;
    forme.nBlockAlign = 4;
    forme.nAvgBytesPerSec = forme.nSamplesPerSec * forme.nBlockAlign;
    if (waveOutOpen(&lecteur.sortie, WAVE_MAPPER, &forme, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) {
        lecteur.sortie = nullptr;
        return false;
    }
    lecteur.entete = WAVEHDR{};
    lecteur.entete.lpData = reinterpret_cast<LPSTR>(lecteur.son.data());
    lecteur.entete.dwBufferLength = static_cast<DWORD>(lecteur.son.size() * sizeof(std::int16_t));
    return waveOutPrepareHeader(lecteur.sortie, &lecteur.entete, sizeof lecteur.entete) == MMSYSERR_NOERROR &&
           waveOutWrite(lecteur.sortie, &lecteur.entete, sizeof lecteur.entete) == MMSYSERR_NOERROR;
}

void joue(const std::vector<std::int16_t>& echantillons, int cadence) {
    arrete();
    lecteur.son = echantillons;
    lecteur.impossible = !commence(cadence);
    lecteur.limite = GetTickCount64() + echantillons.size() / 2 * 1000 / static_cast<std::size_t>(cadence) + kRetard;
    lecteur.minuterie = SetTimer(nullptr, 0, kRegard, regarde);
}

}  // namespace

void installe_lecteur_de_son() { port.son = {joue, arrete}; }
