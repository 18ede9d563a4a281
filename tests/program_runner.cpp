// Runs scripts of the whole program: each .scn file is one test. Prints every step that failed;
// exit status 1 when there is one.
//   program_runner FILE.scn...
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "platform/stack.hpp"
#include "support/script.hpp"

namespace {

// Runs one file; true when no step failed.
bool execute(const std::string& nom) {
    std::ifstream fichier(nom, std::ios::binary);
    if (!fichier) {
        std::cout << "FAILED " << nom << ": can't be read\n";
        return false;
    }
    const std::string texte{std::istreambuf_iterator<char>(fichier), {}};
    const auto echecs = execute_script(texte);
    for (const EchecEtape& echec : echecs)
        std::cout << "FAILED " << nom << ":" << echec.ligne << ": " << echec.etape
                  << "\n  expected " << echec.attendu << "\n  obtained " << echec.obtenu << '\n';
    return echecs.empty();
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    int justes = 0, faux = 0;
    for (int i = 1; i < argc; ++i) {
        if (argc > 2) std::cerr << argv[i] << '\n';   // the last one named is where the program ended
        execute(argv[i]) ? ++justes : ++faux;
    }
    std::cout << justes << " passed, " << faux << " failed\n";
    return faux == 0 && justes > 0 ? 0 : 1;
}
