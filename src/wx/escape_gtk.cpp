// The Escape key on a desktop of Linux: the presses that wait are looked through. The state of the keyboard
// isn't to be had under Wayland, and would miss a key that is let go between two looks. Changes the queue of
// events.
#include "wx/escape.hpp"

#include <gtk/gtk.h>
#ifdef GDK_WINDOWING_WAYLAND
#include <gdk/gdkwayland.h>
#include <poll.h>
#include <wayland-client-core.h>
#endif

#include <vector>

namespace {

// Takes all events that wait into the list, but for Escape. True when Escape was pressed.
bool retire(std::vector<GdkEvent*>& autres) {
    bool tapee = false;
    while (GdkEvent* const e = gdk_event_get()) {
        const bool echap = e->type == GDK_KEY_PRESS && e->key.keyval == GDK_KEY_Escape;
        tapee = tapee || echap;
        if (echap)
            gdk_event_free(e);
        else
            autres.push_back(e);
    }
    return tapee;
}

// Reads what the display has sent. Under X every look at the queue does that; under Wayland the loop of events
// alone does, which stands still.
void lit_l_ecran() {
#ifdef GDK_WINDOWING_WAYLAND
    GdkDisplay* const ecran = gdk_display_get_default();
    if (!GDK_IS_WAYLAND_DISPLAY(ecran)) return;
    wl_display* const lien = gdk_wayland_display_get_wl_display(ecran);
    if (wl_display_prepare_read(lien) == 0) {
        pollfd attente{wl_display_get_fd(lien), POLLIN, 0};
        if (poll(&attente, 1, 0) > 0)
            wl_display_read_events(lien);
        else
            wl_display_cancel_read(lien);
    }
    wl_display_dispatch_pending(lien);
#endif
}

}  // namespace

// What was pressed before the command has been dealt with before it.
void oublie_echap() {}

bool echap_tapee() {
    std::vector<GdkEvent*> autres;
    lit_l_ecran();
    const bool tapee = retire(autres);
    for (GdkEvent* const e : autres) {   // in their order
        gdk_event_put(e);
        gdk_event_free(e);
    }
    return tapee;
}
