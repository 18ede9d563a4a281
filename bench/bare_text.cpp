// What the window is measured against: the toolkit's text control alone in a window, that takes a whole
// text at the release of Alt+C and tells it to the screen reader.
//   bare_text --prepare FOLDER   writes the sheet of the measure (feuille.VXT) and its calculated text
//                                there, and prints the milliseconds of the calculation
//   bare_text FOLDER             opens the window with the sheet
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "mixed_sheet.hpp"
#include "program.hpp"
#include "support/memory.hpp"
#include "wx/positions.hpp"

namespace {

constexpr int kLignes = 32'767;      // the longest sheet there is
constexpr int kMesures = 9;          // calculations, of which the shortest is told

std::string dossier;                 // of the texts, with its final separator

wxString lit(const std::string& nom) {
    std::ifstream fichier(dossier + nom, std::ios::binary);
    if (!fichier) throw std::runtime_error("can't read " + dossier + nom);
    return wxString::FromUTF8(std::string(std::istreambuf_iterator<char>(fichier), {}));
}

void ecrit(const std::string& nom, const std::string& texte) {
    std::ofstream fichier(dossier + nom, std::ios::binary);
    if (!(fichier << texte).flush()) throw std::runtime_error("can't write " + dossier + nom);
}

void prepare() {
    const std::string feuille = cree_feuille_mixte(kLignes).texte;
    double secondes = temps_passe("mixed sheet", feuille);
    for (int i = 1; i < kMesures; ++i)
        secondes = std::min(secondes, temps_passe("mixed sheet", feuille));
    ecrit("feuille.VXT", feuille);
    ecrit("avant.txt", texte_du_controle(feuille));
    ecrit("apres.txt", texte_du_controle(memoire.texte));
    std::cout << secondes * 1000 << '\n';
}

AtkObject* objet(const wxTextCtrl& controle) {
    return gtk_widget_get_accessible(gtk_bin_get_child(GTK_BIN(controle.GetHandle())));
}

// The window: its control has the sheet, and takes the calculated text when C is released.
void ouvre() {
    auto* cadre = new wxFrame(nullptr, wxID_ANY, "bare text", wxDefaultPosition, wxSize(1024, 700));
    auto* txt = new wxTextCtrl(cadre, wxID_ANY, lit("avant.txt"), wxDefaultPosition, wxDefaultSize,
                               wxTE_MULTILINE | wxTE_DONTWRAP | wxTE_NOHIDESEL);
    const wxString apres = lit("apres.txt");
    atk_object_set_name(objet(*txt), "Feuille");
    atk_object_set_description(objet(*txt), "");
    txt->Bind(wxEVT_KEY_UP, [txt, apres](wxKeyEvent& e) {
        e.Skip();
        if (e.GetKeyCode() != 'C') return;
        txt->SetValue(apres);
        txt->SetInsertionPoint(static_cast<long>(apres.find('\n')));
        atk_object_set_description(objet(*txt), apres.BeforeFirst('\n').utf8_str());
    });
    cadre->Show();
    txt->SetInsertionPoint(0);
    txt->SetFocus();
}

class Application : public wxApp {
public:
    bool OnInit() override {
        ouvre();
        return true;
    }
};

int execute(int argc, char** argv) {
    const bool sans_fenetre = argc == 3 && std::string(argv[1]) == "--prepare";
    if (argc != 2 && !sans_fenetre) throw std::runtime_error("[--prepare] FOLDER");
    dossier = std::string(argv[argc - 1]) + "/";
    if (sans_fenetre) {
        prepare();
        return 0;
    }
    int seul = 1;
    if (!wxEntryStart(seul, argv) || !wxTheApp->CallOnInit()) return 1;
    const int statut = wxTheApp->OnRun();
    wxEntryCleanup();
    return statut;
}

}  // namespace

wxIMPLEMENT_APP_NO_MAIN(Application);

int main(int argc, char** argv) {
    try {
        return execute(argc, argv);
    } catch (const std::exception& e) {
        std::cerr << "bare_text: " << e.what() << '\n';
        return 1;
    }
}
