// Messages to the screen reader through the accessibility of GTK: the signal "notification" where it
// exists, otherwise the description of the control that has the focus, which is spoken and shown in
// Braille without a prefix, also when it repeats the last one.
#include "shell/wx/announce.hpp"

#include <gtk/gtk.h>

namespace {

constexpr int kPoli = 1;   // of "notification": spoken behind what is being said

// The widget that a reader sees: the text view or list within its scrolled window.
GtkWidget* widget_lu(const wxWindow& controle) {
    GtkWidget* w = controle.GetHandle();
    if (GTK_IS_SCROLLED_WINDOW(w)) w = gtk_bin_get_child(GTK_BIN(w));
    return w;
}

AtkObject* objet(const wxWindow& controle) {
    return gtk_widget_get_accessible(widget_lu(controle));
}

bool sait_notifier() {
    static const bool sait = g_signal_lookup("notification", ATK_TYPE_OBJECT) != 0;
    return sait;
}

}  // namespace

void prepare_annonce(wxWindow& controle) {
    AtkObject* a = objet(controle);
    const char* dernier = atk_object_get_description(a);
    if (dernier == nullptr || *dernier != 0) atk_object_set_description(a, "");
}

void prepare_ligne(wxStaticText&) {}

bool annonce_par_le_focus() { return true; }

void annonce(wxWindow& controle, const std::vector<std::string>& messages) {
    AtkObject* a = objet(controle);
    for (const std::string& utf8 : messages) {
        if (sait_notifier())
            g_signal_emit_by_name(a, "notification", utf8.c_str(), kPoli);
        else
            atk_object_set_description(a, utf8.c_str());
    }
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
