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

struct Lecteur {
    HWAVEOUT sortie = nullptr;
    WAVEHDR entete{};
    std::vector<std::int16_t> son;
    UINT_PTR minuterie = 0;
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

void CALLBACK regarde(HWND, UINT, UINT_PTR, DWORD) {
    if (!lecteur.impossible && (lecteur.entete.dwFlags & WHDR_DONE) == 0) return;
    const bool joue = !lecteur.impossible;
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
    lecteur.minuterie = SetTimer(nullptr, 0, kRegard, regarde);
}

}  // namespace

void installe_lecteur_de_son() { port.son = {joue, arrete}; }
