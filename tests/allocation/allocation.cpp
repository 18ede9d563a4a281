// The memory comes to an end in the middle of each command, at every allocation in turn or at a sample of
// them, for good or for that one allocation: no failure leaves the event, the text that was typed still
// stands on the screen or in a file, and the next command works. What finds no memory once only is done
// whole, without a word. Sheets are larger than the reserve, so that the large pieces fail for good.
//   allocation [COMMAND [K]]      (one command; one place)
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "allocation/memory_limit.hpp"
#include "base/codepage.hpp"
#include "base/memory_reserve.hpp"
#include "documents/open_documents.hpp"
#include "platform/stack.hpp"
#include "shell/events.hpp"
#include "shell/help_mode.hpp"
#include "shell/commands.hpp"
#include "shell/window.hpp"
#include "support/program.hpp"

namespace {

constexpr std::size_t kReserveDuTest = std::size_t{64} << 10;
constexpr long kPlaces = 60;   // of each command, besides the first ones
constexpr long kPremieres = 20;
constexpr std::size_t kLignesDeReste = 1500;   // make the sheet larger than the reserve

struct Trial {
    std::string name;
    void (*event)();
    std::string_view item;   // of the menu, when there is no event
};

void alt_c() { evenement_touche("txt", {'C', false, false, true}); }
void ctrl_z() { evenement_enfonce("txt", {'Z', false, true, false}); }
void total() { evenement_touche("txt", {kToucheEntree, false, true, false}); }

// The user types a character: the control changes the text, then the program is told.
void caractere() {
    evenement_avant_changement();
    memoire.texte.insert(memoire.sel_start, 1, '7');
    evenement_caractere("txt", '7');
    evenement_texte_change();
}

std::vector<Trial> trials() {
    std::vector<Trial> all = {{"Alt+C", alt_c, {}},
                              {"Ctrl+Entrée", total, {}},
                              {"Ctrl+Z", ctrl_z, {}},
                              {"a character", caractere, {}},
                              {"the close box", evenement_fermeture, {}}};
    for (const LigneCommande& ligne : lignes_menu())
        all.push_back({std::string(ligne.nom), nullptr, ligne.nom});
    return all;
}

const std::vector<std::string>& sheet() {
    static const std::vector<std::string> lines = [] {
        std::vector<std::string> l = {"A=3",         "B=A*2+SIN(30)", "! remarque",  "STATX(2;4;6)",
                                      "INCX(1,1,3)", "X^2",           "DEFMA",       "1,2",
                                      "3,4",         "FIN",           "MB=INVMAT(MA)", "MA*MB",
                                      "DEFFON=X^2",  "FON(3)",        "TRISTATX"};
        for (std::size_t i = 0; i < kLignesDeReste; ++i)
            l.push_back("C=A*" + std::to_string(i) + " ! une ligne comme les autres");
        return l;
    }();
    return lines;
}

// Two sheets are open; the second one, changed and named, is shown.
void prepare() {
    memoire = Memoire{};
    pose_dossier(memoire.dossier_programme);
    reinitialise_tout();
    pose_fichier("C:\\M\\AUTRE.VXT", "A=1\r\n");
    pose_fichier("C:\\M\\FEUILLE.VXT", "B=1\r\n");
    pose_fichier("C:\\VOXTAB\\fonction.txt", "SIN\r\n");
    pose_fichier("C:\\VOXTAB\\aide.txt", "Guide\r\n");
    memoire.ligne_commande = "C:\\M\\AUTRE.VXT";
    evenement_chargement();
    memoire.reponses.emplace_back("C:\\M\\FEUILLE.VXT");
    evenement_menu("mnuOuvrirItem");
    evenement_avant_changement();
    port.texte.pose_texte(joint(sheet()));
    port.texte.pose_selection(3, 0);
    evenement_texte_change();
    memoire.reponses.assign({"C:\\M\\NEUF.VXT", "oui", "3"});
}

// Every line of the user stands in the text, in order.
bool holds(std::string_view text) {
    std::size_t here = 0;
    for (const std::string& line : sheet()) {
        const std::size_t found = text.find(line, here);
        if (found == std::string_view::npos) return false;
        here = found + line.size();
    }
    return true;
}

bool kept() {
    if (holds(memoire.texte)) return true;
    return std::any_of(memoire.fichiers.begin(), memoire.fichiers.end(),
                       [](const auto& file) { return holds(file.second.contenu); });
}

void run(const Trial& trial) {
    if (trial.event != nullptr)
        trial.event();
    else
        evenement_menu(trial.item);
}

// What works when there is memory again: a new program view, a sum, its result.
bool next_command_works() {
    if (fenetre.fermee) return true;
    if (aide.aide_touche) evenement_menu("mnuAideToucheItem");
    evenement_caractere("txt", kToucheEchap);
    evenement_caractere("CmdAngle", kToucheEchap);   // out of a view without the text, where nothing is calculated
    port.texte.pose_texte("2+3");
    execute_commande("recalcul");
    return memoire.texte.starts_with("2+3 = ");
}

int faults = 0;

void fault(const Trial& trial, long k, const char* what) {
    ++faults;
    std::cout << "FAILED " << trial.name << ", allocation " << k << ": " << what << std::endl;
}

// The command with memory up to allocation k. The allocations that it asked for.
long essaie(const Trial& trial, long k, bool may_change) {
    prepare();
    reprend_reserve();
    epuise_memoire_a(k);
    run(trial);
    const long count = rend_memoire();
    reprend_reserve();
    if (k == 0) return count;
    if (!may_change && !kept()) fault(trial, k, "the text is lost");
    if (!next_command_works()) fault(trial, k, "the next command doesn't work");
    return count;
}

// What a command leaves: the text, the cursor, the files, the number of boxes.
struct Left {
    std::string text;
    std::size_t cursor = 0;
    std::vector<std::pair<std::string, std::string>> files;
    long boxes = 0;
    bool operator==(const Left&) const = default;
};

long boxes_shown = 0;

Left left() {
    Left l{memoire.texte, memoire.sel_start, {}, boxes_shown};
    for (const auto& [name, file] : memoire.fichiers) l.files.emplace_back(name, file.contenu);
    return l;
}

// The command with allocation k refused once (0: none). What it leaves.
Left essaie_seule(const Trial& trial, long k) {
    prepare();
    reprend_reserve();
    boxes_shown = 0;
    refuse_memoire_a(k);
    run(trial);
    rend_memoire();
    reprend_reserve();
    return left();
}

long essaie_toutes(const Trial& trial) {
    const long count = essaie(trial, 0, true);
    const bool may_change = !kept();   // the command itself changes a line, as deleting a word does
    const long step = std::max(1L, count / kPlaces);
    const Left whole = essaie_seule(trial, 0);
    long runs = 0;
    for (long k = 1; k <= count; k += k < kPremieres ? 1 : step, runs += 2) {
        std::cerr << trial.name << ' ' << k << '\n';   // the last one named is where the program ended
        essaie(trial, k, may_change);
        if (essaie_seule(trial, k) != whole) fault(trial, k, "refused once, and something else is left");
    }
    return runs;
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    installe_port_memoire();
    port.systeme.graine = graine_de_test;
    // What is heard isn't kept: a list of it would be the first to find no memory.
    port.boites.boite = [](std::string_view) { ++boxes_shown; };
    port.message.etiquette = [](std::string_view) {};
    port.boites.boite_comptee = [](std::string_view) { ++boxes_shown; };
    port.boites.bip = [] {};
    installe_reserve(kReserveDuTest);
    long runs = 0;
    for (const Trial& trial : trials()) {
        if (argc > 1 && trial.name != argv[1]) continue;
        if (argc > 2)
            essaie(trial, std::atol(argv[2]), false);
        else
            runs += essaie_toutes(trial);
    }
    std::cout << runs << " runs, " << faults << " failed\n";
    return faults == 0 ? 0 : 1;
}
