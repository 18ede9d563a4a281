// The player on Linux: the desktop's sound server (PulseAudio, or PipeWire in its place), through its own library on
// the loop of GTK. Nothing waits: the server's answers come as calls. The toolkit's own sounds need a device that
// desktops no longer have.
#include "wx/player.hpp"

#include <glib.h>
#include <pulse/glib-mainloop.h>
#include <pulse/pulseaudio.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.hpp"
#include "shell/events.hpp"

namespace {

constexpr guint kRetard = 5000;                    // milliseconds that a server may be late; then it hangs
constexpr const char* kSansCarte = "auto_null";   // what servers without a device call the one that they make up

struct Lecteur {
    pa_glib_mainloop* boucle = nullptr;
    pa_context* contexte = nullptr;               // the way to the server, once it was needed
    pa_stream* flux = nullptr;                    // the sound that plays
    std::vector<std::int16_t> son;                // waits for the server
    std::size_t donnes = 0;                       // bytes of it that the server has
    int cadence = 0;
    bool attend = false;                          // `son` is to be played
    guint echec = 0;                              // that there is no sound is still to be told
    guint limite = 0;                             // by then it must have ended
};
Lecteur lecteur;

void laisse_flux() {
    if (lecteur.flux == nullptr) return;
    pa_stream_set_state_callback(lecteur.flux, nullptr, nullptr);
    pa_stream_set_write_callback(lecteur.flux, nullptr, nullptr);
    pa_stream_disconnect(lecteur.flux);
    pa_stream_unref(lecteur.flux);
    lecteur.flux = nullptr;
}

void laisse_contexte() {
    laisse_flux();
    if (lecteur.contexte == nullptr) return;
    pa_context_set_state_callback(lecteur.contexte, nullptr, nullptr);
    pa_context_disconnect(lecteur.contexte);
    pa_context_unref(lecteur.contexte);
    lecteur.contexte = nullptr;
}

void oublie(guint& minuterie) {
    if (minuterie != 0) g_source_remove(std::exchange(minuterie, 0));
}

// The end is told when what is going on is over: a server that is missing is known before the words of the curve
// have been told. After a failure the next sound looks for a server anew.
void finit(bool joue) {
    lecteur.attend = false;
    oublie(lecteur.limite);
    if (joue) {
        laisse_flux();
        return evenement_fin_de_son(true);
    }
    laisse_contexte();
    if (lecteur.echec != 0) return;
    lecteur.echec = g_idle_add(
        [](gpointer) -> gboolean {
            lecteur.echec = 0;
            evenement_fin_de_son(false);
            return G_SOURCE_REMOVE;
        },
        nullptr);
}

// All samples stand in the server's buffer; it tells when they have been heard.
void attend_la_fin(pa_stream* flux) {
    const auto ecoute = [](pa_stream* s, int reussi, void*) {
        if (s == lecteur.flux) finit(reussi != 0);
    };
    pa_operation* attente = pa_stream_drain(flux, ecoute, nullptr);
    if (attente == nullptr) return finit(false);
    pa_operation_unref(attente);
}

// The server has room: its buffer takes some twenty seconds, and drops what is more.
void donne(pa_stream* flux, std::size_t place, void*) {
    const std::size_t reste = lecteur.son.size() * sizeof(std::int16_t) - lecteur.donnes;
    if (flux != lecteur.flux || reste == 0) return;
    const std::size_t part = std::min(place, reste);
    const auto* const octets = reinterpret_cast<const char*>(lecteur.son.data()) + lecteur.donnes;
    if (pa_stream_write(flux, octets, part, nullptr, 0, PA_SEEK_RELATIVE) < 0) return finit(false);
    lecteur.donnes += part;
    if (part == reste) attend_la_fin(flux);
}

void etat_du_flux(pa_stream* flux, void*) {
    if (flux != lecteur.flux) return;
    if (pa_stream_get_state(flux) == PA_STREAM_FAILED) finit(false);
}

void commence() {
    if (!lecteur.attend) return;
    lecteur.attend = false;
    const pa_sample_spec forme{PA_SAMPLE_S16NE, static_cast<std::uint32_t>(lecteur.cadence), 2};
    lecteur.flux = pa_stream_new(lecteur.contexte, "courbe", &forme, nullptr);
    if (lecteur.flux == nullptr) return finit(false);
    pa_stream_set_state_callback(lecteur.flux, etat_du_flux, nullptr);
    pa_stream_set_write_callback(lecteur.flux, donne, nullptr);
    const auto octets = static_cast<std::uint32_t>(lecteur.son.size() * sizeof(std::int16_t));
    const auto defaut = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr place{defaut, octets, defaut, defaut, defaut};
    if (pa_stream_connect_playback(lecteur.flux, nullptr, &place, PA_STREAM_NOFLAGS, nullptr, nullptr) < 0)
        finit(false);
}

// A server without a device plays to nobody.
void regarde_la_sortie(pa_context* contexte, const pa_server_info* info, void*) {
    if (contexte != lecteur.contexte || !lecteur.attend) return;
    const bool sortie = info != nullptr && info->default_sink_name != nullptr &&
                        std::string_view(info->default_sink_name) != kSansCarte;
    sortie ? commence() : finit(false);
}

void demande_la_sortie() {
    pa_operation* demande = pa_context_get_server_info(lecteur.contexte, regarde_la_sortie, nullptr);
    if (demande == nullptr) return finit(false);
    pa_operation_unref(demande);
}

void etat_du_contexte(pa_context* contexte, void*) {
    if (contexte != lecteur.contexte) return;
    const pa_context_state_t etat = pa_context_get_state(contexte);
    if (etat == PA_CONTEXT_READY) demande_la_sortie();
    if (etat != PA_CONTEXT_FAILED && etat != PA_CONTEXT_TERMINATED) return;
    const bool en_cours = lecteur.attend || lecteur.flux != nullptr;
    en_cours ? finit(false) : laisse_contexte();
}

void cherche_serveur() {
    if (lecteur.boucle == nullptr) lecteur.boucle = pa_glib_mainloop_new(nullptr);
    lecteur.contexte = pa_context_new(pa_glib_mainloop_get_api(lecteur.boucle), "VOXTAB");
    pa_context_set_state_callback(lecteur.contexte, etat_du_contexte, nullptr);
    if (pa_context_connect(lecteur.contexte, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) finit(false);
}

void arrete() {
    lecteur.attend = false;
    oublie(lecteur.echec);
    oublie(lecteur.limite);
    laisse_flux();
}

// A server that hangs answers nothing, not even that the sound has failed.
void limite_l_attente() {
    const auto secondes = static_cast<double>(lecteur.son.size()) / 2 / lecteur.cadence;
    const auto trop_tard = [](gpointer) -> gboolean {
        lecteur.limite = 0;
        finit(false);
        return G_SOURCE_REMOVE;
    };
    lecteur.limite = g_timeout_add(static_cast<guint>(1000 * secondes) + kRetard, trop_tard, nullptr);
}

void joue(const std::vector<std::int16_t>& echantillons, int cadence) {
    arrete();
    lecteur.son = echantillons;
    lecteur.donnes = 0;
    lecteur.cadence = cadence;
    lecteur.attend = true;
    limite_l_attente();
    if (lecteur.contexte == nullptr) return cherche_serveur();
    if (pa_context_get_state(lecteur.contexte) == PA_CONTEXT_READY) demande_la_sortie();
}

}  // namespace

void installe_lecteur_de_son() { port.son = {joue, arrete}; }
