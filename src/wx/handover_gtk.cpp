// A sheet that goes from one start of the program to another, through a local socket of the desktop's
// library. Keeps the service that takes it, and what the desktop said of this start.
#include "wx/handover.hpp"

#include <wx/utils.h>

#include <gdk/gdkx.h>
#include <gio/gio.h>
#include <gio/gunixsocketaddress.h>
#include <glib/gstdio.h>
#include <gtk/gtk.h>

#include <memory>
#include <utility>

#include "wx/frame.hpp"

namespace {

constexpr guint kDelai = 15;           // seconds that the running program has for its answer
constexpr char kPris = '+';            // that answer

template <class Objet>
using Tenu = std::unique_ptr<Objet, decltype(&g_object_unref)>;
template <class Objet>
Tenu<Objet> tenu(Objet* objet) {
    return {objet, g_object_unref};
}

std::string lancement;                 // how the desktop knows this start, "" when it doesn't
std::string lancement_de_l_autre;      // the same of the start that has just given its sheet
GSocketService* service = nullptr;
std::string socket_ouvert;             // its place on the disk
std::function<void(const std::string&)> remise;

// What a start gives: how the desktop knows it, then its sheet, each with a zero after it.
void lettre_lue(GObject* flux, GAsyncResult* resultat, gpointer connexion) {
    const auto ici = tenu(G_IO_STREAM(connexion));
    gsize lus = 0;
    char* octets = g_data_input_stream_read_upto_finish(G_DATA_INPUT_STREAM(flux), resultat, &lus, nullptr);
    const std::string lettre(octets == nullptr ? "" : octets, octets == nullptr ? 0 : lus);
    g_free(octets);
    const std::size_t milieu = lettre.find('\n');
    if (milieu == std::string::npos || service == nullptr) return;
    lancement_de_l_autre = lettre.substr(0, milieu);
    g_output_stream_write_all(g_io_stream_get_output_stream(ici.get()), &kPris, 1, nullptr, nullptr, nullptr);
    remise(lettre.substr(milieu + 1));
}

// Another start has called.
gboolean appel(GSocketService*, GSocketConnection* connexion, GObject*, gpointer) {
    GInputStream* brut = g_io_stream_get_input_stream(G_IO_STREAM(connexion));
    const auto flux = tenu(g_data_input_stream_new(brut));
    g_data_input_stream_read_upto_async(flux.get(), "", 1, G_PRIORITY_DEFAULT, nullptr, lettre_lue,
                                        g_object_ref(connexion));
    return TRUE;
}

}  // namespace

void note_lancement() {
    wxString valeur;
    for (const char* variable : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
        if (lancement.empty() && wxGetEnv(variable, &valeur)) lancement = valeur.utf8_string();
}

bool confie_feuille(const std::string& nom, const std::string& feuille) {
    const auto client = tenu(g_socket_client_new());
    g_socket_client_set_timeout(client.get(), kDelai);
    const auto adresse = tenu(g_unix_socket_address_new(nom.c_str()));
    GSocketConnection* connexion = g_socket_client_connect(
        client.get(), G_SOCKET_CONNECTABLE(adresse.get()), nullptr, nullptr);
    if (connexion == nullptr) return false;
    const auto ici = tenu(G_IO_STREAM(connexion));
    const std::string lettre = lancement + '\n' + feuille;
    char reponse = 0;
    gsize n = 0;
    return g_output_stream_write_all(g_io_stream_get_output_stream(ici.get()), lettre.c_str(),
                                     lettre.size() + 1, &n, nullptr, nullptr) &&
           g_input_stream_read_all(g_io_stream_get_input_stream(ici.get()), &reponse, 1, &n, nullptr,
                                   nullptr) &&
           n == 1 && reponse == kPris;
}

// The caller has the folder to itself: what lies at the socket's place is of a program that was killed.
void attend_feuilles(const std::string& nom, std::function<void(const std::string&)> recoit) {
    remise = std::move(recoit);
    g_unlink(nom.c_str());
    const auto adresse = tenu(g_unix_socket_address_new(nom.c_str()));
    service = g_socket_service_new();
    if (!g_socket_listener_add_address(G_SOCKET_LISTENER(service), adresse.get(), G_SOCKET_TYPE_STREAM,
                                       G_SOCKET_PROTOCOL_DEFAULT, nullptr, nullptr, nullptr)) {
        g_clear_object(&service);
        return;
    }
    socket_ouvert = nom;
    g_signal_connect(service, "incoming", G_CALLBACK(appel), nullptr);
    g_socket_service_start(service);
}

void n_attend_plus() {
    if (service == nullptr) return;
    g_socket_service_stop(service);
    g_clear_object(&service);
    g_unlink(socket_ouvert.c_str());
}

// The desktop lets a window come to the front for a start of the user's own.
void vient_devant() {
    if (cadre == nullptr) return;
    GtkWidget* dessus = gtk_grab_get_current();   // a box that is open
    GtkWindow* w = GTK_WINDOW(GTK_IS_WINDOW(dessus) ? dessus : cadre->GetHandle());
    const std::string id = std::exchange(lancement_de_l_autre, "");
    if (!id.empty()) gtk_window_set_startup_id(w, id.c_str());
    GdkWindow* vu = gtk_widget_get_window(GTK_WIDGET(w));
    const bool x11 = vu != nullptr && GDK_IS_X11_WINDOW(vu);
    gtk_window_present_with_time(w, x11 ? gdk_x11_get_server_time(vu) : GDK_CURRENT_TIME);
}
