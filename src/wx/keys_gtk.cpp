// The keys of GTK. The toolkit's own event knows neither AltGr nor which key typed a sign, so both
// are asked of the event of GTK that is being handled.
#include "wx/keys.hpp"

#include <gtk/gtk.h>

#include <array>
#include <memory>

#include "base/codepage.hpp"
#include "shell/key_codes.hpp"

namespace {

struct LibereEvenement {
    void operator()(GdkEvent* e) const { gdk_event_free(e); }
};

struct Cle {
    guint symbole;
    int touche;
};
constexpr std::array kCles = {
    Cle{GDK_KEY_Escape, kToucheEchap},        Cle{GDK_KEY_Return, kToucheEntree},
    Cle{GDK_KEY_KP_Enter, kToucheEntree},     Cle{GDK_KEY_ISO_Enter, kToucheEntree},
    Cle{GDK_KEY_Left, kToucheGauche},         Cle{GDK_KEY_KP_Left, kToucheGauche},
    Cle{GDK_KEY_Right, kToucheDroite},        Cle{GDK_KEY_KP_Right, kToucheDroite},
    Cle{GDK_KEY_Up, kToucheHautFleche},       Cle{GDK_KEY_KP_Up, kToucheHautFleche},
    Cle{GDK_KEY_Down, kToucheBas},            Cle{GDK_KEY_KP_Down, kToucheBas},
    Cle{GDK_KEY_Home, kToucheDebut},          Cle{GDK_KEY_KP_Home, kToucheDebut},
    Cle{GDK_KEY_End, kToucheFin},             Cle{GDK_KEY_KP_End, kToucheFin},
    Cle{GDK_KEY_Page_Up, kTouchePagePrecedente},
    Cle{GDK_KEY_KP_Page_Up, kTouchePagePrecedente},
    Cle{GDK_KEY_Page_Down, kTouchePageSuivante},
    Cle{GDK_KEY_KP_Page_Down, kTouchePageSuivante},
    Cle{GDK_KEY_Insert, kToucheInser},        Cle{GDK_KEY_KP_Insert, kToucheInser},
    Cle{GDK_KEY_Delete, kToucheSuppr},        Cle{GDK_KEY_KP_Delete, kToucheSuppr},
    Cle{GDK_KEY_BackSpace, kToucheArriere},   Cle{GDK_KEY_Tab, kToucheTab},
    Cle{GDK_KEY_ISO_Left_Tab, kToucheTab},    Cle{GDK_KEY_Shift_L, kToucheMaj},
    Cle{GDK_KEY_Shift_R, kToucheMaj},         Cle{GDK_KEY_Control_L, kToucheCtrl},
    Cle{GDK_KEY_Control_R, kToucheCtrl},      Cle{GDK_KEY_Alt_L, kToucheAlt},
    Cle{GDK_KEY_Alt_R, kToucheAlt},           Cle{GDK_KEY_Meta_L, kToucheAlt},
    Cle{GDK_KEY_ISO_Level3_Shift, kToucheAlt},
};

int touche_du_symbole(guint symbole) {
    if (symbole >= GDK_KEY_F1 && symbole <= GDK_KEY_F12)
        return kToucheF1 + static_cast<int>(symbole - GDK_KEY_F1);
    for (const Cle& cle : kCles)
        if (cle.symbole == symbole) return cle.touche;
    const guint32 c = gdk_keyval_to_unicode(symbole);
    const bool signe = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return signe ? capitale(static_cast<char>(c)) : static_cast<int>(kToucheAutre);
}

// What the key means by itself: on a French keyboard AltGr and the key of C is C, whatever it types.
// The keypad keeps the meaning that the number lock gives it.
guint symbole_nu(const GdkEventKey& cle) {
    GdkKeymap* clavier = gdk_keymap_get_for_display(gdk_window_get_display(cle.window));
    const bool frappe = touche_du_symbole(cle.keyval) < kToucheF1;
    guint nu = cle.keyval;
    if (frappe || touche_du_symbole(cle.keyval) == kToucheAutre)
        gdk_keymap_translate_keyboard_state(clavier, cle.hardware_keycode,
                                            static_cast<GdkModifierType>(cle.state & GDK_MOD2_MASK),
                                            cle.group, &nu, nullptr, nullptr, nullptr);
    return nu;
}

}  // namespace

FrappeTouche frappe_de(const wxKeyEvent& evenement) {
    FrappeTouche frappe{kToucheAutre, evenement.ShiftDown(), evenement.ControlDown(),
                        evenement.AltDown()};
    const std::unique_ptr<GdkEvent, LibereEvenement> e(gtk_get_current_event());
    if (!e || (e->type != GDK_KEY_PRESS && e->type != GDK_KEY_RELEASE)) return frappe;
    frappe.touche = touche_du_symbole(symbole_nu(e->key));
    if ((e->key.state & GDK_MOD5_MASK) != 0) frappe.ctrl = frappe.alt = true;
    return frappe;
}

int caractere_de(const wxKeyEvent& evenement) {
    const FrappeTouche frappe = frappe_de(evenement);
    if (frappe.ctrl != frappe.alt || frappe.touche == kToucheSuppr) return 0;
    const wxChar signe = evenement.GetUnicodeKey();
    return signe == WXK_NONE || signe == WXK_DELETE ? 0 : static_cast<int>(signe);
}

bool est_touche_morte(const wxKeyEvent&) {
    const std::unique_ptr<GdkEvent, LibereEvenement> e(gtk_get_current_event());
    return e && e->type == GDK_KEY_PRESS && e->key.keyval >= GDK_KEY_dead_grave &&
           e->key.keyval <= GDK_KEY_dead_greek;
}

void rejoue_frappe(const wxKeyEvent&, wxWindow& controle) {
    const std::unique_ptr<GdkEvent, LibereEvenement> e(gtk_get_current_event());
    GtkWidget* w = controle.GetHandle();
    if (GTK_IS_SCROLLED_WINDOW(w)) w = gtk_bin_get_child(GTK_BIN(w));
    if (e) gtk_widget_event(w, e.get());
}

// An open menu has the keys of GTK for itself.
bool menu_ouvert() { return false; }
