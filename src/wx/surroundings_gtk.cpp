// The surroundings of a program on a desktop of Linux. Changes the locale of the process.
#include "wx/surroundings.hpp"

#include <wx/filename.h>
#include <wx/utils.h>

#include <clocale>
#include <iostream>

namespace {

// A sheet given from the current folder keeps its name for the next start, elsewhere.
std::string chemin_entier(const std::string& utf8) {
    wxFileName chemin(wxString::FromUTF8(utf8));
    if (chemin.FileExists()) chemin.MakeAbsolute();
    return chemin.GetFullPath().utf8_string();
}

}  // namespace

// Names of files are UTF-8 whatever the locale says.
void choisit_langue() {
    std::setlocale(LC_ALL, "");
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_NUMERIC, "C");
}

void dit_sans_fenetre(std::string_view utf8) { std::cout << utf8 << std::flush; }

std::string ligne_de_commande(const std::vector<std::string>& arguments) {
    if (arguments.size() == 1) return chemin_entier(arguments.front());
    std::string commande;
    for (const std::string& argument : arguments) {
        if (!commande.empty()) commande += ' ';
        commande += argument;
    }
    return commande;
}

// $XDG_DATA_HOME/voxtab, or ~/.local/share/voxtab.
std::string dossier_de_l_utilisateur() {
    wxString base;
    if (!wxGetEnv("XDG_DATA_HOME", &base) || base.empty()) base = wxGetHomeDir() + "/.local/share";
    return (base + "/voxtab").utf8_string();
}
