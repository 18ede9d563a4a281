// One program at a time on a folder of files, by the toolkit's own lock. Keeps the lock, no state of the
// core.
#include "wx/single_instance.hpp"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/snglinst.h>
#include <wx/utils.h>

#include <functional>
#include <memory>

namespace {

std::unique_ptr<wxSingleInstanceChecker> verrou;
bool pose = false;   // the lock is laid

// The same for every way to write the folder's name.
wxString nom_verrou(const std::string& dossier) {
    wxString nom = wxString::FromUTF8(dossier);
    if (!wxFileName::IsCaseSensitive()) nom.MakeLower();
    const auto empreinte = std::hash<std::string>{}(nom.utf8_string());
    return wxString::Format("voxtab-%llx", static_cast<unsigned long long>(empreinte));
}

// Where the lock's file lies: the user's folder for running programs is empty when the machine starts,
// so that no number of a program of before is taken for a program of now.
wxString dossier_verrou(const std::string& dossier) {
    wxString place;
    if (wxGetEnv("XDG_RUNTIME_DIR", &place) && wxFileName::IsDirWritable(place)) return place;
    return wxString::FromUTF8(dossier);
}

}  // namespace

std::string adresse_du_programme(const std::string& dossier) {
    return wxFileName(dossier_verrou(dossier), nom_verrou(dossier) + ".feuilles").GetFullPath().utf8_string();
}

bool prend_dossier(const std::string& dossier) {
    const wxLogNull sans_message;
    verrou = std::make_unique<wxSingleInstanceChecker>();
    // Where no lock can be laid, on a full disk, the program opens all the same.
    pose = verrou->Create(nom_verrou(dossier), dossier_verrou(dossier));
    return !pose || !verrou->IsAnotherRunning();
}

bool dossier_a_nous() { return pose; }

void rend_dossier() { verrou.reset(); }
