// The text view of GTK: its whole text, one change of a part of it, and the filter of what comes in.
#include "wx/text_view.hpp"

#include <gtk/gtk.h>

#include <memory>
#include <utility>

#include "base/typed_text.hpp"

namespace {

constexpr int kMargeCurseur = 8;   // pixels that a cursor at the end of a line needs

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

// The filter at work on one view.
struct Saisie {
    FiltreSaisie filtre;
    bool au_travail = false;         // what goes in now has been through it
    int place_effacee = -1;          // where a selection was that gives way to what comes,
    std::string efface{};            // and its text
    bool depot = false;              // what goes in has been dropped on the view
    TexteSaisi depose{};             // how much of it, and the first sign that was refused
};

// What stands in the line in front of a place.
std::string ligne_devant(GtkTextBuffer* buffer, const GtkTextIter* place) {
    GtkTextIter debut = *place;
    gtk_text_iter_set_line_offset(&debut, 0);
    return TexteGtk(gtk_text_buffer_get_text(buffer, &debut, place, TRUE)).get();
}

void insere(Saisie& s, GtkTextBuffer* buffer, GtkTextIter* place, const std::string& utf8) {
    s.au_travail = true;
    gtk_text_buffer_insert(buffer, place, utf8.data(), static_cast<int>(utf8.size()));
    s.au_travail = false;
}

// A refused text leaves the selection that it was to replace.
void remet_selection(Saisie& s, GtkTextBuffer* buffer, GtkTextIter* place) {
    if (s.efface.empty() || s.place_effacee != gtk_text_iter_get_offset(place)) return;
    insere(s, buffer, place, s.efface);
    GtkTextIter debut;
    gtk_text_buffer_get_iter_at_offset(buffer, &debut, s.place_effacee);
    gtk_text_buffer_select_range(buffer, place, &debut);
}

// One of the parts that a dropped text comes in.
void note_depot(TexteSaisi& depose, const TexteSaisi& part) {
    depose.caracteres += part.caracteres;
    if (!depose.refuse) depose.refuse = part.refuse;
    if (!depose.muet) depose.muet = part.muet;
}

// Before a text goes in: it passes, goes in as the sheet can have it, or not at all. The place that
// GTK goes on with must stay valid whatever happened.
void avant_insertion(GtkTextBuffer* buffer, GtkTextIter* place, char* texte, int octets,
                     gpointer donnees) {
    auto& s = *static_cast<Saisie*>(donnees);
    const std::string venu(texte, static_cast<std::size_t>(octets));
    if (s.au_travail || s.filtre.programme()) return;
    const TexteSaisi saisi = saisit(venu, ligne_devant(buffer, place));
    const std::string mots = s.depot ? "" : mots_saisie(saisi, venu);
    if (s.depot) note_depot(s.depose, saisi);
    if (!saisi.refuse && saisi.texte == venu && mots.empty()) return;
    g_signal_stop_emission_by_name(buffer, "insert-text");
    GtkTextMark* marque = gtk_text_buffer_create_mark(buffer, nullptr, place, FALSE);
    const bool joint = saisi.refuse && joint_accent(buffer, place, saisi.refuse->caractere);
    if (!saisi.refuse)
        insere(s, buffer, place, saisi.texte);
    else if (!joint)
        remet_selection(s, buffer, place);
    if (!joint && !s.depot) s.filtre.dit(mots, saisi.refuse.has_value());
    gtk_text_buffer_get_iter_at_mark(buffer, place, marque);
    gtk_text_buffer_delete_mark(buffer, marque);
}

// What is deleted in front of an insertion is kept until the user does something else.
void avant_effacement(GtkTextBuffer* buffer, GtkTextIter* debut, GtkTextIter* fin, gpointer donnees) {
    auto& s = *static_cast<Saisie*>(donnees);
    if (s.filtre.programme()) return;
    s.place_effacee = gtk_text_iter_get_offset(debut);
    s.efface = TexteGtk(gtk_text_buffer_get_text(buffer, debut, fin, TRUE)).get();
}

// --- Paste and drop ---------------------------------------------------------------------------------------

// A text has come, nullptr when there is none: it replaces the selection, or nothing happens.
void colle(Saisie& s, GtkTextView* vue, const char* venu) {
    if (!gtk_text_view_get_editable(vue)) return;
    GtkTextBuffer* buffer = gtk_text_view_get_buffer(vue);
    GtkTextIter debut;
    GtkTextIter fin;
    if (!gtk_text_buffer_get_selection_bounds(buffer, &debut, &fin))
        gtk_text_buffer_get_iter_at_mark(buffer, &debut, gtk_text_buffer_get_insert(buffer));
    const TexteSaisi saisi = saisit(venu == nullptr ? "" : venu, ligne_devant(buffer, &debut));
    if (!saisi.refuse && saisi.caracteres > 0) {
        gtk_text_buffer_begin_user_action(buffer);
        gtk_text_buffer_delete_selection(buffer, TRUE, TRUE);
        gtk_text_buffer_get_iter_at_mark(buffer, &debut, gtk_text_buffer_get_insert(buffer));
        insere(s, buffer, &debut, saisi.texte);
        gtk_text_buffer_end_user_action(buffer);
        gtk_text_view_scroll_mark_onscreen(vue, gtk_text_buffer_get_insert(buffer));
    }
    s.filtre.dit(mots_collage(saisi), saisi.refuse.has_value());
}

// A paste that waits for the clipboard: the view may be gone when it answers.
struct Collage {
    Saisie& saisie;
    GWeakRef vue{};
};

void presse_papiers_lu(GtkClipboard*, const char* texte, gpointer donnees) {
    const std::unique_ptr<Collage> collage(static_cast<Collage*>(donnees));
    GObject* vue = static_cast<GObject*>(g_weak_ref_get(&collage->vue));
    g_weak_ref_clear(&collage->vue);
    if (vue == nullptr) return;
    colle(collage->saisie, GTK_TEXT_VIEW(vue), texte);
    g_object_unref(vue);
}

// GTK would delete the selection first and tell nobody how much has come.
void avant_collage(GtkTextView* vue, gpointer donnees) {
    g_signal_stop_emission_by_name(vue, "paste-clipboard");
    auto* collage = new Collage{*static_cast<Saisie*>(donnees)};
    g_weak_ref_init(&collage->vue, vue);
    gtk_clipboard_request_text(gtk_widget_get_clipboard(GTK_WIDGET(vue), GDK_SELECTION_CLIPBOARD),
                               presse_papiers_lu, collage);
}

bool colle_au_milieu() {
    gboolean oui = TRUE;
    g_object_get(gtk_settings_get_default(), "gtk-enable-primary-paste", &oui, nullptr);
    return oui != FALSE;
}

// The middle button brings what is selected somewhere to the place under it; the cursor goes there. The
// text is asked for before the cursor moves: a selection of this view ends with that.
gboolean avant_bouton(GtkTextView* vue, GdkEventButton* e, gpointer donnees) {
    if (e->type != GDK_BUTTON_PRESS || e->button != GDK_BUTTON_MIDDLE || !colle_au_milieu() ||
        !gtk_text_view_get_editable(vue))
        return FALSE;
    const TexteGtk venu(gtk_clipboard_wait_for_text(
        gtk_widget_get_clipboard(GTK_WIDGET(vue), GDK_SELECTION_PRIMARY)));
    int x = 0;
    int y = 0;
    gtk_text_view_window_to_buffer_coords(vue, GTK_TEXT_WINDOW_TEXT, static_cast<int>(e->x),
                                          static_cast<int>(e->y), &x, &y);
    GtkTextIter place;
    gtk_text_view_get_iter_at_location(vue, &place, x, y);
    gtk_widget_grab_focus(GTK_WIDGET(vue));
    gtk_text_buffer_place_cursor(gtk_text_view_get_buffer(vue), &place);
    colle(*static_cast<Saisie*>(donnees), vue, venu.get());
    return TRUE;
}

// A text that is dropped comes in one part or in several.
void avant_depot(GtkWidget*, GdkDragContext*, int, int, GtkSelectionData*, guint, guint, gpointer donnees) {
    auto& s = *static_cast<Saisie*>(donnees);
    s.depot = true;
    s.depose = {};
}

void apres_depot(GtkWidget*, GdkDragContext*, int, int, GtkSelectionData*, guint, guint, gpointer donnees) {
    auto& s = *static_cast<Saisie*>(donnees);
    s.depot = false;
    if (s.depose.caracteres > 0 || s.depose.refuse)
        s.filtre.dit(mots_collage(s.depose), s.depose.refuse.has_value());
}

// True while a key press is handled: the window has told of it before.
bool touche_en_cours() {
    const std::unique_ptr<GdkEvent, LibereEvenement> e(gtk_get_current_event());
    return e && e->type == GDK_KEY_PRESS;
}

// What the user changes without a key begins here: a paste, a drop, the menu of the mouse.
void avant_changement(GtkTextBuffer*, gpointer donnees) {
    auto& s = *static_cast<Saisie*>(donnees);
    s.efface.clear();
    if (!s.filtre.programme() && !touche_en_cours()) s.filtre.avant();
}

void apres_changement(GtkTextBuffer*, gpointer donnees) {
    static_cast<const Saisie*>(donnees)->filtre.change();
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

// The line is shown from its beginning whenever the cursor can be seen so; only a longer one is moved
// to the left, up to the cursor.
void montre_curseur_de_la_vue(wxTextCtrl& controle, long position) {
    controle.ShowPosition(position);
    auto* const vue = GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(controle.GetHandle())));
    GtkTextIter place;
    gtk_text_buffer_get_iter_at_offset(tampon(controle), &place, static_cast<int>(position));
    GdkRectangle curseur;
    GdkRectangle visible;
    gtk_text_view_get_iter_location(vue, &place, &curseur);
    gtk_text_view_get_visible_rect(vue, &visible);
    if (curseur.x + kMargeCurseur <= visible.width)
        gtk_adjustment_set_value(gtk_scrollable_get_hadjustment(GTK_SCROLLABLE(vue)), 0);
}

// The view has font and colours, its text has none of its own: the toolkit would give each text that comes in
// three tags, and look through the whole buffer for older ones at every key. It would also put the whole text
// in anew for another font.
void pose_police_de_la_vue(wxTextCtrl& controle, const wxFont& police) {
    controle.wxTextCtrlBase::SetFont(police);
}

void pose_couleurs_de_la_vue(wxTextCtrl& controle, const wxColour& caracteres, const wxColour& fond) {
    controle.SetForegroundColour(caracteres);
    controle.SetBackgroundColour(fond);
    controle.SetDefaultStyle(wxTextAttr());
}

// What the toolkit tells a reader of the buffer comes from the view's accessible object.
void tait_les_changements(const wxTextCtrl& controle, bool tait) {
    GtkWidget* vue = gtk_bin_get_child(GTK_BIN(controle.GetHandle()));
    const auto change = tait ? g_signal_handlers_block_matched : g_signal_handlers_unblock_matched;
    change(tampon(controle), G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr,
           gtk_widget_get_accessible(vue));
}

void filtre_la_saisie(wxTextCtrl& controle, FiltreSaisie filtre) {
    auto* donnees = new Saisie{std::move(filtre)};   // goes with the first connection
    GtkWidget* vue = gtk_bin_get_child(GTK_BIN(controle.GetHandle()));
    g_signal_connect_data(
        tampon(controle), "insert-text", G_CALLBACK(avant_insertion), donnees,
        [](gpointer d, GClosure*) { delete static_cast<Saisie*>(d); },
        static_cast<GConnectFlags>(0));
    g_signal_connect(tampon(controle), "delete-range", G_CALLBACK(avant_effacement), donnees);
    g_signal_connect(tampon(controle), "begin-user-action", G_CALLBACK(avant_changement), donnees);
    g_signal_connect(tampon(controle), "changed", G_CALLBACK(apres_changement), donnees);
    g_signal_connect(vue, "paste-clipboard", G_CALLBACK(avant_collage), donnees);
    g_signal_connect(vue, "button-press-event", G_CALLBACK(avant_bouton), donnees);
    g_signal_connect(vue, "drag-data-received", G_CALLBACK(avant_depot), donnees);
    g_signal_connect_after(vue, "drag-data-received", G_CALLBACK(apres_depot), donnees);
}
