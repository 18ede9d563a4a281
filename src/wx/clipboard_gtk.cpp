// A text on the clipboard of GTK, as Ctrl+C of a text puts it there: a clipboard manager may keep it when the program
// ends.
#include "wx/clipboard.hpp"

#include <gtk/gtk.h>

#include <string>

bool pose_presse_papiers(std::string_view utf8) {
    std::string texte(utf8);
    std::erase(texte, '\r');   // a line end is one character on this system
    GtkClipboard* presse_papiers = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
    if (presse_papiers == nullptr) return false;
    gtk_clipboard_set_text(presse_papiers, texte.data(), static_cast<gint>(texte.size()));
    gtk_clipboard_set_can_store(presse_papiers, nullptr, 0);
    return true;
}
