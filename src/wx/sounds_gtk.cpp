// Sounds on Linux: those of the desktop's sound theme, by name; where none can be played, the bell of
// the display, which many desktops don't make heard. Two that follow each other are heard as two.
#include "wx/sounds.hpp"

#include <canberra.h>
#include <gtk/gtk.h>

#include <atomic>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>

#include "platform/platform.hpp"

namespace {

constexpr const char* kBip = "bell-window-system";
constexpr const char* kReussite = "complete";
constexpr const char* kEchec = "dialog-error";
// Sounds that wait at most: a long sum beeps faster than a sound lasts.
constexpr std::size_t kAttenteMaxi = 2;

struct Sons {
    ca_context* contexte = nullptr;     // the way to the sound server, once it was needed
    std::deque<const char*> attente;    // names of sounds to play when the one that plays has ended
    std::atomic<bool> libre{true};      // nothing plays; set by the thread of the sound library
};
Sons sons;

struct LibereChaine {
    void operator()(char* texte) const { g_free(texte); }
};

// What the user's desktop says of sounds: the name of the theme, and whether events have any.
std::string theme() {
    char* nom = nullptr;
    g_object_get(gtk_settings_get_default(), "gtk-sound-theme-name", &nom, nullptr);
    const std::unique_ptr<char, LibereChaine> garde(nom);
    return nom == nullptr ? "freedesktop" : nom;
}

bool evenements_sonores() {
    gboolean oui = TRUE;
    g_object_get(gtk_settings_get_default(), "gtk-enable-event-sounds", &oui, nullptr);
    return oui != FALSE;
}

void cloche() { gdk_display_beep(gdk_display_get_default()); }

void joue_attente();

// A sound has ended, in the library's thread. One that could not be played after all is the bell's.
void fini(ca_context*, std::uint32_t, int erreur, void*) {
    sons.libre = true;
    g_idle_add(
        [](gpointer rate) -> gboolean {
            if (rate != nullptr) cloche();
            joue_attente();
            return G_SOURCE_REMOVE;
        },
        GINT_TO_POINTER(erreur == CA_SUCCESS || erreur == CA_ERROR_CANCELED ? 0 : 1));
}

// Starts a sound of the theme. False when there is no theme, no such sound or no server.
bool commence(const char* nom) {
    if (sons.contexte == nullptr && ca_context_create(&sons.contexte) != CA_SUCCESS) return false;
    ca_proplist* son = nullptr;
    if (ca_proplist_create(&son) != CA_SUCCESS) return false;
    ca_proplist_sets(son, CA_PROP_APPLICATION_NAME, "VOXTAB");
    ca_proplist_sets(son, CA_PROP_EVENT_ID, nom);
    ca_proplist_sets(son, CA_PROP_CANBERRA_XDG_THEME_NAME, theme().c_str());
    sons.libre = false;
    const bool part = ca_context_play_full(sons.contexte, 0, son, fini, nullptr) == CA_SUCCESS;
    if (!part) sons.libre = true;
    ca_proplist_destroy(son);
    return part;
}

// Plays what waits, one after the other.
void joue_attente() {
    while (sons.libre && !sons.attente.empty()) {
        const char* nom = sons.attente.front();
        sons.attente.pop_front();
        if (!commence(nom)) cloche();
    }
}

void joue(const char* nom) {
    if (sons.attente.size() < kAttenteMaxi) sons.attente.push_back(nom);
    joue_attente();
}

}  // namespace

void installe_sons() {
    // Who has silenced the desktop's events keeps what the bell does there.
    port.boites.bip = [] { evenements_sonores() ? joue(kBip) : cloche(); };
    port.boites.son = [](Son genre) { joue(genre == Son::echec ? kEchec : kReussite); };
}
