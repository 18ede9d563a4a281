// Printing through GTK: lines of the chosen font one below the other, from the left edge, for the
// margin stands in the text. Sizes are points, 72 to the inch.
#include "wx/printing.hpp"

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "platform/platform.hpp"
#include "wx/appearance.hpp"
#include "wx/frame.hpp"
#include "wx/modal.hpp"
#include "wx/pages.hpp"
#include "wx/positions.hpp"

namespace {

constexpr double kMargeHaut = 28;      // points left free above and below the text

struct LibereObjet {
    void operator()(void* objet) const { g_object_unref(objet); }
};
template <class T>
using Objet = std::unique_ptr<T, LibereObjet>;

// What is kept from one printing to the next.
struct Imprimante {
    Objet<GtkPrintSettings> reglages;  // what the user has chosen, or nothing
    std::string fichier_pdf;           // where printing goes, "" for a printer
};
Imprimante imprimante;

// One text on its way to the printer.
struct Tirage {
    const std::string& texte;          // Windows-1252
    std::string police;                // its description: "Arial 16"
    double hauteur = 1;                // of a line, points
    std::vector<Page> pages{};
};

Objet<PangoLayout> mise_en_page(GtkPrintContext* contexte, const Tirage& tirage) {
    Objet<PangoLayout> m(gtk_print_context_create_pango_layout(contexte));
    PangoFontDescription* police = pango_font_description_from_string(tirage.police.c_str());
    pango_layout_set_font_description(m.get(), police);
    pango_font_description_free(police);
    return m;
}

void commence(GtkPrintOperation* operation, GtkPrintContext* contexte, gpointer donnees) {
    Tirage& tirage = *static_cast<Tirage*>(donnees);
    const auto m = mise_en_page(contexte, tirage);
    pango_layout_set_text(m.get(), "X", -1);
    int hauteur = 0;
    pango_layout_get_size(m.get(), nullptr, &hauteur);
    tirage.hauteur = std::max(1.0, static_cast<double>(hauteur) / PANGO_SCALE);
    const double place = gtk_print_context_get_height(contexte) - 2 * kMargeHaut;
    tirage.pages = pages_de(tirage.texte,
                            static_cast<std::size_t>(std::max(1.0, place / tirage.hauteur)));
    gtk_print_operation_set_n_pages(operation, static_cast<int>(tirage.pages.size()));
}

void dessine(GtkPrintOperation*, GtkPrintContext* contexte, int page, gpointer donnees) {
    const Tirage& tirage = *static_cast<Tirage*>(donnees);
    const auto m = mise_en_page(contexte, tirage);
    cairo_t* dessin = gtk_print_context_get_cairo_context(contexte);
    double y = kMargeHaut;
    for (const std::string& ligne : tirage.pages[static_cast<std::size_t>(page)]) {
        pango_layout_set_text(m.get(), texte_du_controle(ligne).c_str(), -1);
        cairo_move_to(dessin, 0, y);
        pango_cairo_show_layout(dessin, m.get());
        y += tirage.hauteur;
    }
}

// A printer that puts something on paper is there.
bool imprimante_presente() {
    bool presente = false;
    gtk_enumerate_printers(
        [](GtkPrinter* p, gpointer trouve) -> gboolean {
            if (gtk_printer_is_virtual(p)) return FALSE;
            *static_cast<bool*>(trouve) = true;
            return TRUE;
        },
        &presente, nullptr, TRUE);
    return presente;
}

GtkPrintOperationAction action_voulue(GtkPrintOperation* operation) {
    if (imprimante.fichier_pdf.empty()) return GTK_PRINT_OPERATION_ACTION_PRINT;
    gtk_print_operation_set_export_filename(operation, imprimante.fichier_pdf.c_str());
    return GTK_PRINT_OPERATION_ACTION_EXPORT;
}

bool tire(Tirage& tirage) {
    const Objet<GtkPrintOperation> operation(gtk_print_operation_new());
    gtk_print_operation_set_unit(operation.get(), GTK_UNIT_POINTS);
    gtk_print_operation_set_job_name(operation.get(), vers_utf8(fenetre.titre).c_str());
    if (imprimante.reglages)
        gtk_print_operation_set_print_settings(operation.get(), imprimante.reglages.get());
    g_signal_connect(operation.get(), "begin-print", G_CALLBACK(commence), &tirage);
    g_signal_connect(operation.get(), "draw-page", G_CALLBACK(dessine), &tirage);
    GtkWindow* parent = cadre != nullptr ? GTK_WINDOW(cadre->GetHandle()) : nullptr;
    return gtk_print_operation_run(operation.get(), action_voulue(operation.get()), parent,
                                   nullptr) != GTK_PRINT_OPERATION_RESULT_ERROR;
}

// The text on the printer. What goes wrong is told here, in words, and so it goes no further: the number
// that a failure is told by would be a second box, and tells nobody that no printer is there.
int imprime(const std::string& texte, const std::string& police, double taille) {
    ouvre_modal();
    const bool choisie = imprimante.reglages || !imprimante.fichier_pdf.empty();
    const wxFont fonte = police_wx({police, taille, false});
    Tirage tirage{texte, fonte.GetNativeFontInfoDesc().utf8_string()};
    if ((!choisie && !imprimante_presente()) || !tire(tirage))
        port.boites.boite(kEchecImpression);
    return 0;
}

}  // namespace

bool choisit_imprimante(wxWindow* parent) {
    GtkWindow* fenetre_parente = parent != nullptr ? GTK_WINDOW(parent->GetHandle()) : nullptr;
    GtkWidget* dialogue = gtk_print_unix_dialog_new("Choix de l'imprimante", fenetre_parente);
    GtkPrintUnixDialog* choix = GTK_PRINT_UNIX_DIALOG(dialogue);
    if (imprimante.reglages) gtk_print_unix_dialog_set_settings(choix, imprimante.reglages.get());
    const bool ok = gtk_dialog_run(GTK_DIALOG(dialogue)) == GTK_RESPONSE_OK;
    if (ok) imprimante.reglages.reset(gtk_print_unix_dialog_get_settings(choix));
    gtk_widget_destroy(dialogue);
    return ok;
}

void imprime_vers(const std::string& fichier_pdf) { imprimante.fichier_pdf = fichier_pdf; }

void installe_imprimante() { port.imprimante.imprime = imprime; }
