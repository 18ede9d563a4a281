// Calculates golden sheets and compares each byte for byte with what is expected. Prints every difference;
// exit status 1 when there is one.
//   sheets_runner [--expected FOLDER] BEFORE.VXT...
// Beside a sheet: .attendu.VXT (after), and optionally .options, .messages, .boites, .instable. With a
// folder these stand there, and the sheet is shown as the program shows a file: without its last line
// end.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "platform/platform.hpp"
#include "platform/stack.hpp"
#include "shell/commands.hpp"
#include "shell/reset.hpp"
#include "support/memory.hpp"
#include "terminal/options.hpp"

namespace {

namespace fs = std::filesystem;

std::string lit(const fs::path& chemin) {
    std::ifstream fichier(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(fichier), {}};
}

std::vector<std::string> mots(const std::string& texte) {
    std::istringstream flux(texte);
    return {std::istream_iterator<std::string>(flux), {}};
}

// Lines of a UTF-8 file, without their line ends.
std::vector<std::string> lignes(const fs::path& chemin) {
    std::istringstream flux(lit(chemin));
    std::vector<std::string> sortie;
    for (std::string ligne; std::getline(flux, ligne);) {
        if (ligne.ends_with('\r')) ligne.pop_back();
        sortie.push_back(ligne);
    }
    return sortie;
}

std::vector<std::string> en_utf8(const std::vector<std::string>& textes) {
    std::vector<std::string> sortie;
    for (const std::string& texte : textes) sortie.push_back(vers_utf8(texte));
    return sortie;
}

bool compare(const char* quoi, const std::string& attendu, const std::string& obtenu) {
    if (attendu == obtenu) return true;
    std::cout << "FAILED " << quoi << "\n--- expected\n"
              << vers_utf8(attendu) << "\n--- obtained\n"
              << vers_utf8(obtenu) << "\n---\n";
    return false;
}

bool compare_liste(const char* quoi, const std::vector<std::string>& attendu,
                   const std::vector<std::string>& obtenu) {
    if (attendu == obtenu) return true;
    std::cout << "FAILED " << quoi << "\n--- expected\n";
    for (const std::string& ligne : attendu) std::cout << ligne << '\n';
    std::cout << "--- obtained\n";
    for (const std::string& ligne : obtenu) std::cout << ligne << '\n';
    return false;
}

// A fresh program with the sheet in its text, calculated once.
void calcule(const std::string& texte, const OptionsCalcul& options) {
    installe_port_memoire();
    reinitialise_tout();
    applique_options(options);
    port.texte.pose_texte(std::string(texte));
    port.texte.pose_selection(options.curseur, 0);
    execute_commande(options.colonne ? "calcul_colonne" : "recalcul");
}

// One sheet, which has what is expected in `dossier` ("": beside it); true when all is as expected.
bool execute(const fs::path& avant, const fs::path& dossier) {
    const fs::path attendus = dossier.empty() ? avant : dossier / avant.filename();
    const auto voisin = [&](const char* suffixe) {
        return fs::path(attendus).replace_extension(suffixe);
    };
    std::string texte = lit(avant);
    if (!dossier.empty() && texte.ends_with("\r\n")) texte.resize(texte.size() - 2);
    const LectureOptions lecture = lis_options(mots(lit(voisin(".options"))), true);
    if (lecture.statut || !fs::exists(voisin(".attendu.VXT"))) {
        std::cout << "FAILED: no expected sheet, or bad options " << lecture.erreur << '\n';
        return false;
    }
    const std::string attendu = lit(voisin(".attendu.VXT"));
    calcule(texte, lecture.options);
    bool juste = compare("sheet", attendu, memoire.texte);
    juste &= compare_liste("boxes", lignes(voisin(".boites")), en_utf8(memoire.boites));
    if (fs::exists(voisin(".messages")))
        juste &= compare_liste("messages", lignes(voisin(".messages")), en_utf8(memoire.messages));
    calcule(attendu, lecture.options);
    if (!fs::exists(voisin(".instable"))) return compare("second pass", attendu, memoire.texte) && juste;
    if (memoire.texte != attendu) return juste;
    std::cout << "FAILED: the sheet is stable, but said to change on a second pass\n";
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    std::vector<std::string> noms(argv + 1, argv + argc);
    fs::path dossier;
    if (noms.size() > 1 && noms[0] == "--expected") {
        dossier = noms[1];
        noms.erase(noms.begin(), noms.begin() + 2);
    }
    int justes = 0, faux = 0;
    for (const std::string& nom : noms) {
        if (noms.size() > 1) std::cerr << nom << '\n';   // the last one named is where the program ended
        execute(nom, dossier) ? ++justes : ++faux;
    }
    std::cout << justes << " passed, " << faux << " failed\n";
    return faux == 0 && justes > 0 ? 0 : 1;
}
