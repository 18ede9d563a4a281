// The surroundings of a program on a desktop of Windows. Changes nothing.
#include "wx/surroundings.hpp"

#include <windows.h>

#include <wx/filename.h>
#include <wx/stdpaths.h>

#include "platform/files.hpp"
#include "platform/utf16_windows.hpp"

namespace {

constexpr std::wstring_view kBlancs = L" \t";

// Takes the first word away: up to its closing quote, or up to a blank.
std::wstring_view sans_premier_mot(std::wstring_view ligne) {
    const bool cite = ligne.starts_with(L'"');
    const std::size_t fin = cite ? ligne.find(L'"', 1) : ligne.find_first_of(kBlancs);
    if (fin == std::wstring_view::npos) return {};
    ligne.remove_prefix(cite ? fin + 1 : fin);
    const std::size_t suite = ligne.find_first_not_of(kBlancs);
    return suite == std::wstring_view::npos ? std::wstring_view() : ligne.substr(suite);
}

// "C:x" leads into the current folder of that disk for Windows, and to its root for the
// program.
bool sans_dossier(const std::string& nom) {
    return nom.size() > 2 && nom[1] == ':' && nom[2] != '\\' && nom[2] != '/';
}

}  // namespace

// Windows gives its dialogs the user's language by itself.
void choisit_langue() {}

// A program with a window has no terminal, unless somebody listens to what it writes.
void dit_sans_fenetre(std::string_view utf8) {
    const HANDLE sortie = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD n = 0;
    if (sortie != nullptr && sortie != INVALID_HANDLE_VALUE &&
        WriteFile(sortie, utf8.data(), static_cast<DWORD>(utf8.size()), &n, nullptr) != 0)
        return;
    MessageBoxW(nullptr, vers_utf16(utf8).c_str(), L"VOXTAB", MB_OK);
}

// The line as it was given, for a path may hold blanks without standing in quotes. Only a file that
// is there gets its whole path, so that it keeps its name for the next start, elsewhere.
std::string ligne_de_commande(const std::vector<std::string>&) {
    std::wstring_view ligne = sans_premier_mot(GetCommandLineW());
    while (ligne.starts_with(L"--")) ligne = sans_premier_mot(ligne);
    const std::string commande = depuis_utf16(ligne);
    std::string nom = commande.substr(0, commande.find_last_not_of(" \t") + 1);
    if (nom.size() > 2 && nom.front() == '"' && nom.back() == '"')
        nom = nom.substr(1, nom.size() - 2);
    if (sans_dossier(nom) || !est_fichier(nom)) return commande;
    wxFileName chemin(wxString::FromUTF8(nom));
    chemin.MakeAbsolute();
    return chemin.GetFullPath().utf8_string();
}

std::string dossier_de_l_utilisateur() {
    return (wxStandardPaths::Get().GetUserConfigDir() + "\\voxtab").utf8_string();
}
