// A file of any bytes is opened as a sheet and saved unchanged, under its name and under another: what
// stands in the file then is the sheet, line for line, and reads back as it was.
#include <algorithm>
#include <optional>
#include <string>

#include "bytes.hpp"
#include "documents/open_documents.hpp"
#include "documents/opened_file.hpp"
#include "shell/events.hpp"
#include "shell/window.hpp"
#include "support/memory.hpp"
#include "support/program.hpp"

namespace {

constexpr const char* kFichier = "C:\\M\\A.VXT";
constexpr const char* kAutre = "C:\\M\\B.VXT";

// Opens the file in a program that has just started; the sheet's text.
std::string ouvre(const std::string& octets, const char* nom) {
    programme_de_fuzz();
    pose_fichier(nom, octets);
    memoire.ligne_commande = nom;
    evenement_chargement();
    return memoire.texte;
}

// A line end is CR LF and nothing else, and no character is lost.
void verifie_texte(const std::string& texte) {
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const bool retour = texte[i] == '\r', saut = texte[i] == '\n';
        if (retour) verifie(i + 1 < texte.size() && texte[i + 1] == '\n', "a lone CR", texte);
        if (saut) verifie(i > 0 && texte[i - 1] == '\r', "a lone LF", texte);
    }
}

// The file holds the sheet with one line end after it, in Unicode when its bytes would be taken for that,
// and is read back as that sheet.
void verifie_fichier(const char* nom, const std::string& texte) {
    const std::optional<std::string> ecrit = lit_memoire(nom);
    verifie(ecrit.has_value(), "the file is gone", texte);
    verifie(*ecrit == texte + "\r\n" || est_unicode(*ecrit), "not the sheet in the file", *ecrit + "\n---\n" + texte);
    const std::string relu = ouvre(*ecrit, nom);
    verifie(relu == texte, "not read back as it was", relu + "\n---\n" + texte);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* debut, std::size_t taille) {
    Octets octets(debut, taille);
    const bool ailleurs = octets.octet() % 2 != 0;
    const std::string contenu = octets.reste();
    const std::string texte = ouvre(contenu, kFichier);
    verifie_texte(texte);
    verifie(lit_memoire(kFichier) == contenu, "opening has changed the file", contenu);
    if (ailleurs) memoire.reponses.emplace_back(kAutre);
    evenement_menu(ailleurs ? "mnuEnregistrerSousItem" : "mnuEnregistrerItem");
    verifie(documents.document_modifie(1) == 0, "changed after it was saved", texte);
    verifie(memoire.texte == texte, "saving has changed the sheet", memoire.texte);
    verifie_fichier(ailleurs ? kAutre : kFichier, texte);
    return 0;
}
