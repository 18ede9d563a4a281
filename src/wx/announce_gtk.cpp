// Messages to the screen reader through the accessibility of GTK: the signal "notification" where it
// exists, otherwise the description of the control that has the focus. Its change is spoken and shown in
// Braille without a prefix, also when it repeats the last one; at once it is empty again, so that it is
// never read with the control itself.
#include "wx/announce.hpp"

#include <gtk/gtk.h>

#include <memory>

#include "base/codepage.hpp"

namespace {

constexpr int kPoli = 1;   // of "notification": spoken after what is being said
constexpr int kAttenteLecteur = 3000;   // milliseconds, at most, for the bus of the readers

struct LibereObjet {
    void operator()(gpointer objet) const { g_object_unref(objet); }
};
using Bus = std::unique_ptr<GDBusConnection, LibereObjet>;
struct LibereVariante {
    void operator()(GVariant* valeur) const { g_variant_unref(valeur); }
};
using Variante = std::unique_ptr<GVariant, LibereVariante>;

// The widget that a reader sees: the text view or list within its scrolled window.
GtkWidget* widget_lu(const wxWindow& controle) {
    GtkWidget* w = controle.GetHandle();
    if (GTK_IS_SCROLLED_WINDOW(w)) w = gtk_bin_get_child(GTK_BIN(w));
    return w;
}

AtkObject* objet(const wxWindow& controle) {
    return gtk_widget_get_accessible(widget_lu(controle));
}

// The chosen line of a list is in sight.
gboolean montre_la_ligne(gpointer vue) {
    GtkTreePath* chemin = nullptr;
    gtk_tree_view_get_cursor(GTK_TREE_VIEW(vue), &chemin, nullptr);
    if (chemin != nullptr) gtk_tree_view_scroll_to_cell(GTK_TREE_VIEW(vue), chemin, nullptr, FALSE, 0, 0);
    gtk_tree_path_free(chemin);
    return G_SOURCE_REMOVE;
}

// A widget is shown: if it is a box of the toolkit, it gets that name.
gboolean nomme_la_boite(GSignalInvocationHint*, guint, const GValue* widget, gpointer mots) {
    gpointer montre = g_value_get_object(widget);
    if (GTK_IS_MESSAGE_DIALOG(montre))
        atk_object_set_name(gtk_widget_get_accessible(GTK_WIDGET(montre)),
                            static_cast<const std::string*>(mots)->c_str());
    return TRUE;
}

bool sait_notifier() {
    static const bool sait = g_signal_lookup("notification", ATK_TYPE_OBJECT) != 0;
    return sait;
}

// What a method of a service on that bus answers, nothing when it doesn't.
Variante demande(GDBusConnection* bus, const char* nom, const char* chemin, const char* interface,
                 const char* methode) {
    return Variante(g_dbus_connection_call_sync(bus, nom, chemin, interface, methode, nullptr, nullptr,
                                                G_DBUS_CALL_FLAGS_NONE, kAttenteLecteur, nullptr, nullptr));
}

// Whether somebody listens on the bus of the readers.
bool un_lecteur_ecoute() {
    const Bus session(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (!session) return false;
    const Variante adresse = demande(session.get(), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                     "GetAddress");
    if (!adresse || !g_variant_is_of_type(adresse.get(), G_VARIANT_TYPE("(s)"))) return false;
    const char* texte = nullptr;
    g_variant_get(adresse.get(), "(&s)", &texte);
    const Bus lecteurs(g_dbus_connection_new_for_address_sync(
        texte,
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr));
    if (!lecteurs) return false;
    const Variante ecoutes = demande(lecteurs.get(), "org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                     "org.a11y.atspi.Registry", "GetRegisteredEvents");
    if (!ecoutes || g_variant_n_children(ecoutes.get()) == 0) return false;
    const Variante liste(g_variant_get_child_value(ecoutes.get(), 0));
    return g_variant_is_container(liste.get()) && g_variant_n_children(liste.get()) > 0;
}

// The number that the toolkit gives to the next one who listens to its accessible objects.
guint numero_d_ecoute() {
    const GSignalEmissionHook rien = [](GSignalInvocationHint*, guint, const GValue*, gpointer) -> gboolean {
        return TRUE;
    };
    const guint numero = atk_add_global_event_listener(rien, "Gtk:AtkObject:children-changed");
    atk_remove_global_event_listener(numero);
    return numero;
}

}  // namespace

// The toolkit's bridge to the readers asks who listens, and that takes a while on a slow machine; until it
// knows, all that is shown is lost to a reader. It then listens to the toolkit, which the numbers show.
void attend_lecteur() {
    guint dernier = numero_d_ecoute();
    if (dernier > 1 || !un_lecteur_ecoute()) return;
    bool fini = false;
    const guint minuterie = g_timeout_add(
        kAttenteLecteur,
        [](gpointer passe) -> gboolean {
            *static_cast<bool*>(passe) = true;
            return G_SOURCE_CONTINUE;
        },
        &fini);
    for (guint numero = dernier; !fini && numero <= dernier + 1; numero = numero_d_ecoute()) {
        dernier = numero;
        g_main_context_iteration(nullptr, TRUE);
    }
    g_source_remove(minuterie);
}

void prepare_annonce(wxWindow& controle) {
    AtkObject* a = objet(controle);
    const char* dernier = atk_object_get_description(a);
    if (dernier == nullptr || *dernier != 0) atk_object_set_description(a, "");
}

void prepare_ligne(wxStaticText&) {}

void montre_message(wxStaticText& ligne, const std::string& utf8) {
    ligne.SetLabelText(wxString::FromUTF8(utf8));
}

bool annonce_par_le_focus() { return true; }

bool titre_lu_par_le_lecteur() { return true; }

// A message that repeats the last one has blanks around it; here each is told as it is. In a list the
// reader is on the chosen line.
void annonce(wxWindow& controle, const std::vector<std::string>& messages) {
    AtkObject* a = objet(controle);
    const bool liste = GTK_IS_TREE_VIEW(widget_lu(controle));
    AtkObject* const ligne = liste ? atk_selection_ref_selection(ATK_SELECTION(a), 0) : nullptr;
    if (ligne != nullptr) a = ligne;
    // The first change from nothing at all isn't told.
    if (atk_object_get_description(a) == nullptr) atk_object_set_description(a, "");
    for (const std::string& utf8 : messages) {
        const std::string mots(sans_blancs(utf8));
        if (sait_notifier()) {
            g_signal_emit_by_name(a, "notification", mots.c_str(), kPoli);
            continue;
        }
        atk_object_set_description(a, mots.c_str());
        atk_object_set_description(a, "");
    }
    if (ligne != nullptr) g_object_unref(ligne);
}

// The focus comes back from a menu or a box when the display says so: first all that has been asked of
// the display is done, then what it answered.
void apres_le_focus(void (*suite)()) {
    const auto puis = [](gpointer s) -> gboolean {
        reinterpret_cast<void (*)()>(s)();
        return G_SOURCE_REMOVE;
    };
    gdk_display_sync(gdk_display_get_default());
    g_idle_add_full(G_PRIORITY_LOW, puis, reinterpret_cast<gpointer>(suite), nullptr);
}

// A list that has just been shown is moved while it has no size yet, and the line would be out of sight.
void suit_la_ligne(wxListBox& liste, int rang) {
    GtkTreePath* chemin = gtk_tree_path_new_from_indices(rang, -1);
    GtkWidget* vue = widget_lu(liste);
    gtk_tree_view_set_cursor(GTK_TREE_VIEW(vue), chemin, nullptr, FALSE);
    gtk_tree_path_free(chemin);
    g_idle_add_full(G_PRIORITY_LOW, montre_la_ligne, g_object_ref(vue), g_object_unref);
}

// The toolkit's own F10 goes to the menu bar without opening a menu, and Escape doesn't lead back from
// there: every key is lost without a word. An open menu is left with Escape, and the reader follows.
bool prend_f10() {
    g_object_set(gtk_settings_get_default(), "gtk-menu-bar-accel", "", nullptr);
    return true;
}

void ouvre_premier_menu(wxMenuBar& barre) {
    GList* menus = gtk_container_get_children(GTK_CONTAINER(barre.GetHandle()));
    if (menus != nullptr) gtk_widget_mnemonic_activate(GTK_WIDGET(menus->data), FALSE);
    g_list_free(menus);
}

// They leap over it.
bool menu_lit_ce_qui_est_grise() { return false; }

// The box bears its words as its name, so that they are in Braille too; the reader doesn't read the text
// in it once more. The toolkit makes the box only as it shows it: it is named at that moment.
int montre_boite_lue(wxMessageDialog& boite, const wxString& mots) {
    std::string utf8 = mots.utf8_string();
    const guint montre = g_signal_lookup("show", GTK_TYPE_WIDGET);
    const gulong crochet = g_signal_add_emission_hook(montre, 0, nomme_la_boite, &utf8, nullptr);
    const int reponse = boite.ShowModal();
    g_signal_remove_emission_hook(montre, crochet);
    return reponse;
}

void nomme(wxWindow& controle, const std::string& utf8) {
    atk_object_set_name(objet(controle), utf8.c_str());
}

void n_etiquette_rien(wxWindow& texte) {
    gtk_label_set_mnemonic_widget(GTK_LABEL(texte.GetHandle()), nullptr);
}

void declare_dialogue(wxWindow& dialogue) {
    atk_object_set_role(objet(dialogue), ATK_ROLE_DIALOG);
}

void declare_barre_etat(wxWindow& barre) { atk_object_set_role(objet(barre), ATK_ROLE_STATUSBAR); }
