// The end of a session on a desktop of Linux: the signals that end a program. They are taken by a thread of
// their own, so that they count while the program calculates or a box waits.
#include "wx/session.hpp"

#include <glib-unix.h>

#include <csignal>
#include <cstdlib>

#include "platform/platform.hpp"
#include "shell/events.hpp"
#include "wx/single_instance.hpp"

namespace {

constexpr guint kDelai = 1000;   // milliseconds that the program has to come to its events

// The program comes to its events: what was typed last is written too.
gboolean finit(gpointer) {
    evenement_fin_session();
    rend_dossier();
    std::_Exit(EXIT_SUCCESS);
}

// It is busy: what it was given before its command is written.
gboolean finit_de_force(gpointer) {
    port.reprise.attend();
    std::_Exit(EXIT_SUCCESS);
}

gboolean signal_recu(gpointer contexte) {
    g_idle_add(finit, nullptr);   // after the keys that have arrived
    GSource* delai = g_timeout_source_new(kDelai);
    g_source_set_callback(delai, finit_de_force, nullptr, nullptr);
    g_source_attach(delai, static_cast<GMainContext*>(contexte));
    g_source_unref(delai);
    return G_SOURCE_REMOVE;
}

gpointer ecoute(gpointer contexte) {
    g_main_loop_run(g_main_loop_new(static_cast<GMainContext*>(contexte), FALSE));
    return nullptr;
}

}  // namespace

void suit_fin_de_session() {
    GMainContext* contexte = g_main_context_new();   // kept to the end
    for (const int numero : {SIGTERM, SIGHUP, SIGINT}) {
        GSource* source = g_unix_signal_source_new(numero);
        g_source_set_callback(source, signal_recu, contexte, nullptr);
        g_source_attach(source, contexte);
        g_source_unref(source);
    }
    g_thread_unref(g_thread_new("session", ecoute, contexte));
}
