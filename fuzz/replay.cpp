// The main of a target where libFuzzer isn't: runs the files named, or those of the folders named,
// each once.   target FILE|FOLDER...
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "bytes.hpp"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> fichiers(int argc, char** argv) {
    std::vector<fs::path> tous;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            tous.emplace_back(argv[i]);
            continue;
        }
        for (const fs::directory_entry& entree : fs::directory_iterator(argv[i]))
            tous.push_back(entree.path());
    }
    std::sort(tous.begin(), tous.end());
    return tous;
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t nombre = 0;
    for (const fs::path& chemin : fichiers(argc, argv)) {
        std::ifstream flux(chemin, std::ios::binary);
        const std::string octets{std::istreambuf_iterator<char>(flux), {}};
        if (!flux) {
            std::cerr << "replay: " << chemin << " can't be read\n";
            return 2;
        }
        std::cerr << chemin.filename().string() << '\n';  // the last one named is the one that fails
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(octets.data()), octets.size());
        ++nombre;
    }
    std::cout << nombre << " inputs\n";
    return nombre == 0 ? 2 : 0;
}
