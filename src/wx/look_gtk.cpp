// The look of the window on Linux, where the theme gives it all but what somebody who sees little needs: a
// focus and a cursor to be found, keys and chosen words to be read. Changes the style of the whole program.
#include "wx/look.hpp"

#include <gtk/gtk.h>

namespace {

// Themes draw the focus as a thin line of dots, in a colour near to that of the background, the cursor one
// pixel wide, the keys of the menus in a pale grey, and what is chosen in white on a blue that is too light.
constexpr const char* kStyle =
    "* { outline-color: currentColor; outline-style: solid; outline-width: 2px; }"
    "menuitem accelerator { color: inherit; }"
    "entry:focus { box-shadow: inset 0 0 0 2px currentColor; }"
    "menuitem:hover, treeview:selected { background-color: #15539e; color: #ffffff; }"
    "text selection, entry selection, label selection { background-color: #15539e; color: #ffffff; }"
    "textview, entry { -GtkWidget-cursor-aspect-ratio: 0.12; }";

}  // namespace

void habille(wxFrame&) {
    GtkCssProvider* style = gtk_css_provider_new();
    gtk_css_provider_load_from_data(style, kStyle, -1, nullptr);
    gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(style),
                                              GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(style);
}
