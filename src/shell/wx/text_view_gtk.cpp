// The text view of GTK: its whole text, one change of a part of it, and the filter of what comes in.
#include "shell/wx/text_view.hpp"

#include <gtk/gtk.h>

#include <memory>
#include <utility>

#include "base/typed_text.hpp"

namespace {

GtkTextBuffer* tampon(const wxTextCtrl& controle) {
    GtkWidget* vue = gtk_bin_get_child(GTK_BIN(controle.GetHandle()));
    return gtk_text_view_get_buffer(GTK_TEXT_VIEW(vue));
}

// The texts of GTK as they are freed.
struct Libere {
    void operator()(char* texte) const { g_free(texte); }
};
using TexteGtk = std::unique_ptr<char, Libere>;

struct LibereEvenement {
    void operator()(GdkEvent* e) const { gdk_event_free(e); }
};

// An accent that comes alone joins the letter in front of it. True when it did.
bool joint_accent(GtkTextBuffer* buffer, const GtkTextIter* place, char32_t accent) {
    GtkTextIter avant = *place;
    if (!est_accent(accent) || !gtk_text_iter_backward_char(&avant)) return false;
    const char32_t lettre = compose(gtk_text_iter_get_char(&avant), accent);
    if (lettre == 0) return false;
    char utf8[8] = {};
    const int octets = g_unichar_to_utf8(lettre, utf8);
    GtkTextIter fin = *place;
    gtk_text_buffer_delete(buffer, &avant, &fin);
    gtk_text_buffer_insert(buffer, &avant, utf8, octets);
    return true;
}

// Before a text goes in: it passes, goes in as the sheet can have it, or not at all. The place that
// GTK goes on with must stay valid whatever happened.
void avant_insertion(GtkTextBuffer* buffer, GtkTextIter* place, char* texte, int octets,
                     gpointer donnees) {
    const auto& filtre = *static_cast<FiltreSaisie*>(donnees);
    const std::string_view venu(texte, static_cast<std::size_t>(octets));
    if (filtre.programme()) return;
    char32_t refuse = 0;
    const auto accepte = texte_accepte(venu, refuse);
    if (accepte && *accepte == venu) return;
    g_signal_stop_emission_by_name(buffer, "insert-text");
    GtkTextMark* marque = gtk_text_buffer_create_mark(buffer, nullptr, place, FALSE);
    if (accepte)
        gtk_text_buffer_insert(buffer, place, accepte->data(), static_cast<int>(accepte->size()));
    else if (!joint_accent(buffer, place, refuse))
        filtre.refus(refuse);
    gtk_text_buffer_get_iter_at_mark(buffer, place, marque);
    gtk_text_buffer_delete_mark(buffer, marque);
}

// True while a key press is handled: the window has told of it before.
bool touche_en_cours() {
    const std::unique_ptr<GdkEvent, LibereEvenement> e(gtk_get_current_event());
    return e && e->type == GDK_KEY_PRESS;
}

// What the user changes without a key begins here: a paste, a drop, the menu of the mouse.
void avant_changement(GtkTextBuffer*, gpointer donnees) {
    const auto& filtre = *static_cast<const FiltreSaisie*>(donnees);
    if (!filtre.programme() && !touche_en_cours()) filtre.avant();
}

void apres_changement(GtkTextBuffer*, gpointer donnees) {
    static_cast<const FiltreSaisie*>(donnees)->change();
}

}  // namespace

std::string texte_de_la_vue(const wxTextCtrl& controle) {
    GtkTextBuffer* buffer = tampon(controle);
    GtkTextIter debut;
    GtkTextIter fin;
    gtk_text_buffer_get_bounds(buffer, &debut, &fin);
    return TexteGtk(gtk_text_buffer_get_text(buffer, &debut, &fin, TRUE)).get();
}

void remplace_dans_la_vue(wxTextCtrl& controle, long de, long a, std::string_view utf8) {
    GtkTextBuffer* buffer = tampon(controle);
    GtkTextIter debut;
    GtkTextIter fin;
    gtk_text_buffer_get_iter_at_offset(buffer, &debut, static_cast<int>(de));
    gtk_text_buffer_get_iter_at_offset(buffer, &fin, static_cast<int>(a));
    gtk_text_buffer_begin_user_action(buffer);
    gtk_text_buffer_delete(buffer, &debut, &fin);
    gtk_text_buffer_insert(buffer, &debut, utf8.data(), static_cast<int>(utf8.size()));
    gtk_text_buffer_end_user_action(buffer);
}

void lit_selection_de_la_vue(const wxTextCtrl& controle, long& de, long& a) {
    controle.GetSelection(&de, &a);
}

void pose_selection_de_la_vue(wxTextCtrl& controle, long de, long a) { controle.SetSelection(de, a); }

void montre_curseur_de_la_vue(wxTextCtrl& controle, long position) { controle.ShowPosition(position); }

void filtre_la_saisie(wxTextCtrl& controle, FiltreSaisie filtre) {
    auto* donnees = new FiltreSaisie(std::move(filtre));   // goes with the first connection
    g_signal_connect_data(
        tampon(controle), "insert-text", G_CALLBACK(avant_insertion), donnees,
        [](gpointer d, GClosure*) { delete static_cast<FiltreSaisie*>(d); },
        static_cast<GConnectFlags>(0));
    g_signal_connect(tampon(controle), "begin-user-action", G_CALLBACK(avant_changement), donnees);
    g_signal_connect(tampon(controle), "changed", G_CALLBACK(apres_changement), donnees);
}
