// The file dialog of GTK. To open, it begins in the list of files, where typing starts a search in
// all folders below, and Enter after a name opens nothing. It hides a line for a name: we show it
// and make a plain line of it, where what was typed is what stands there, and where Tab and Escape
// do what they do everywhere. And the font dialog, whose parts have no names. Changes nothing of the
// core.
#include <gtk/gtk.h>

#include "wx/file_dialogs.hpp"

namespace {

// A widget of a kind, looked for below another one.
struct Recherche {
    gboolean (*est)(GtkWidget*);
    GtkWidget* trouve = nullptr;
};

void cherche(GtkWidget* w, gpointer donnee) {
    auto& r = *static_cast<Recherche*>(donnee);
    if (r.est(w)) r.trouve = w;
    if (GTK_IS_CONTAINER(w)) gtk_container_forall(GTK_CONTAINER(w), cherche, donnee);
}

GtkWidget* premier(GtkWidget* sous, gboolean (*est)(GtkWidget*)) {
    Recherche r{est};
    cherche(sous, &r);
    return r.trouve;
}

gboolean est_choix(GtkWidget* w) { return GTK_IS_FILE_CHOOSER_WIDGET(w); }
gboolean est_liste(GtkWidget* w) { return GTK_IS_TREE_VIEW(w); }

// A row is selected only by the user who is in the list. The toolkit selects the first one by
// itself, and empties the line when the name of that file is typed there.
gboolean choisit_rang(GtkTreeSelection* choix, GtkTreeModel*, GtkTreePath*, gboolean deja,
                      gpointer) {
    return deja || gtk_widget_has_focus(GTK_WIDGET(gtk_tree_selection_get_tree_view(choix)));
}

// Who comes into the list hears the file that the arrows start from.
gboolean entre_dans_la_liste(GtkWidget* liste, GdkEvent*, gpointer) {
    GtkTreePath* rang = nullptr;
    gtk_tree_view_get_cursor(GTK_TREE_VIEW(liste), &rang, nullptr);
    if (rang != nullptr) gtk_tree_view_set_cursor(GTK_TREE_VIEW(liste), rang, nullptr, FALSE);
    gtk_tree_path_free(rang);
    return FALSE;
}

// No file's name is written after what is typed: with a second file it would be half a name.
void sans_suite(GtkEntryCompletion* suite, GParamSpec*, gpointer) {
    if (gtk_entry_completion_get_inline_completion(suite))
        gtk_entry_completion_set_inline_completion(suite, FALSE);
}

// The line is read by its name alone: the boxes around it have names that say nothing to a user.
void nomme_ligne(GtkWidget* ligne, GtkWidget* choix) {
    atk_object_set_name(gtk_widget_get_accessible(ligne), "Nom du fichier");
    gtk_entry_set_placeholder_text(GTK_ENTRY(ligne), "");
    for (GtkWidget* w = gtk_widget_get_parent(ligne); w != choix; w = gtk_widget_get_parent(w))
        atk_object_set_name(gtk_widget_get_accessible(w), "");
}

// Shows the line and gives it the focus. The toolkit hides it whenever the dialog appears.
void montre_ligne(GtkWidget* choix, gpointer dialogue) {
    g_signal_emit_by_name(choix, "location-popup", "");
    GtkWidget* ligne = gtk_window_get_focus(GTK_WINDOW(dialogue));
    if (!GTK_IS_ENTRY(ligne)) return;
    nomme_ligne(ligne, choix);
    GtkEntryCompletion* suite = gtk_entry_get_completion(GTK_ENTRY(ligne));
    gtk_entry_completion_set_popup_completion(suite, FALSE);
    sans_suite(suite, nullptr, nullptr);
    g_signal_connect(suite, "notify::inline-completion", G_CALLBACK(sans_suite), nullptr);
}

// In the line, Tab would stay there and Escape would only hide it.
gboolean touche(GtkWidget* dialogue, GdkEventKey* frappe, gpointer) {
    GtkWidget* ici = gtk_window_get_focus(GTK_WINDOW(dialogue));
    const auto modificateurs = static_cast<guint>(gtk_accelerator_get_default_mod_mask());
    if (!GTK_IS_ENTRY(ici) || (frappe->state & modificateurs) != 0) return FALSE;
    if (frappe->keyval == GDK_KEY_Escape)
        gtk_dialog_response(GTK_DIALOG(dialogue), GTK_RESPONSE_CANCEL);
    else if (frappe->keyval == GDK_KEY_Tab)
        gtk_widget_child_focus(dialogue, GTK_DIR_TAB_FORWARD);
    else
        return FALSE;
    return TRUE;
}

// The name is good, and the toolkit presses the button for the user: it would show it pressed for a quarter
// of a second. The key that lets it go comes at once.
void lache_le_bouton(GtkWidget*, gpointer dialogue) {
    GtkWidget* bouton = gtk_window_get_default_widget(GTK_WINDOW(dialogue));
    if (!GTK_IS_BUTTON(bouton) || gtk_widget_get_window(bouton) == nullptr) return;
    GdkEvent* e = gdk_event_new(GDK_KEY_RELEASE);
    e->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(bouton)));
    e->key.keyval = GDK_KEY_Return;
    gtk_widget_event(bouton, e);
    gdk_event_free(e);
}

// What a reader calls a part of the font dialog, or nullptr.
const char* nom_de_partie(GtkWidget* w) {
    if (GTK_IS_SEARCH_ENTRY(w)) return "Chercher une police";
    if (GTK_IS_SPIN_BUTTON(w) || GTK_IS_SCALE(w)) return "Taille";
    if (GTK_IS_TREE_VIEW(w)) return "Polices";
    return GTK_IS_ENTRY(w) ? "Aperçu" : nullptr;
}

void nomme_partie(GtkWidget* w, gpointer) {
    if (const char* nom = nom_de_partie(w)) atk_object_set_name(gtk_widget_get_accessible(w), nom);
    if (GTK_IS_CONTAINER(w)) gtk_container_forall(GTK_CONTAINER(w), nomme_partie, nullptr);
}

}  // namespace

// The list can't stand on a font that isn't installed, and would go to its first one as soon as it is
// used: it begins on the font that is shown instead.
void prepare_police(wxFontDialog& dialogue) {
    GtkWidget* fenetre = dialogue.GetHandle();
    nomme_partie(fenetre, nullptr);
    const wxFont voulue = dialogue.GetFontData().GetInitialFont();
    PangoFontDescription* police =
        pango_font_description_from_string(voulue.GetNativeFontInfoDesc().utf8_str());
    if (PangoFont* montree = pango_context_load_font(gtk_widget_get_pango_context(fenetre), police)) {
        PangoFontDescription* sienne = pango_font_describe(montree);
        pango_font_description_set_family(police, pango_font_description_get_family(sienne));
        gtk_font_chooser_set_font_desc(GTK_FONT_CHOOSER(fenetre), police);
        pango_font_description_free(sienne);
        g_object_unref(montree);
    }
    pango_font_description_free(police);
}

wxString police_montree(wxFontDialog& dialogue) {
    PangoFontFamily* famille =
        gtk_font_chooser_get_font_family(GTK_FONT_CHOOSER(dialogue.GetHandle()));
    return famille == nullptr ? wxString() : wxString::FromUTF8(pango_font_family_get_name(famille));
}

// The toolkit looks at capitals: each letter stands for both.
wxString motif_du_systeme(const wxString& motif) {
    wxString sortie;
    for (const wxUniChar c : motif) {
        const wxString lettre(c);
        sortie += lettre.Upper() == lettre.Lower() ? lettre : "[" + lettre.Lower() + lettre.Upper() + "]";
    }
    return sortie;
}

void commence_par_le_nom(wxFileDialog& dialogue) {
    GtkWidget* fenetre = dialogue.GetHandle();
    GtkWidget* choix = premier(fenetre, est_choix);
    if (choix == nullptr) return;
    if (GtkWidget* liste = premier(choix, est_liste)) {
        gtk_tree_selection_set_select_function(gtk_tree_view_get_selection(GTK_TREE_VIEW(liste)),
                                               choisit_rang, nullptr, nullptr);
        g_signal_connect_after(liste, "focus-in-event", G_CALLBACK(entre_dans_la_liste), nullptr);
    }
    g_signal_connect_after(choix, "map", G_CALLBACK(montre_ligne), fenetre);
    g_signal_connect(fenetre, "key-press-event", G_CALLBACK(touche), nullptr);
    g_signal_connect_after(choix, "response-requested", G_CALLBACK(lache_le_bouton), fenetre);
}
