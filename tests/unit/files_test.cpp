// Real files, read and replaced whole: rights and links kept, refusals told by their number, and
// never half a file or a leftover beside it.
#include "platform/files.hpp"

#include <doctest/doctest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/platform.hpp"

namespace {

namespace fs = std::filesystem;

// A folder of its own for each test, removed at the end.
struct Dossier {
    fs::path chemin;
    Dossier() {
        std::string modele = (fs::temp_directory_path() / "voxtab-test-XXXXXX").string();
        REQUIRE(mkdtemp(modele.data()) != nullptr);
        chemin = modele;
    }
    ~Dossier() { fs::remove_all(chemin); }
    Dossier(const Dossier&) = delete;
    Dossier& operator=(const Dossier&) = delete;
    std::string operator/(const char* nom) const { return (chemin / nom).string(); }
    // Number of entries: what is left in the folder.
    std::ptrdiff_t entrees() const {
        return std::distance(fs::directory_iterator(chemin), fs::directory_iterator());
    }
};

void ecrit(const std::string& chemin, const std::string& contenu) {
    std::ofstream(chemin, std::ios::binary) << contenu;
}

std::string lu(const std::string& chemin) {
    std::string contenu = "not read";
    return lit_fichier(chemin, contenu) == 0 ? contenu : "refused";
}

mode_t droits_de(const std::string& chemin) {
    struct stat etat {};
    REQUIRE(stat(chemin.c_str(), &etat) == 0);
    return etat.st_mode & 07777;
}

// Forbids files above `octets` while it lives: the way in which a full disk looks to a program.
struct DisqueEtroit {
    rlimit ancienne{};
    void (*ancien_signal)(int) = std::signal(SIGXFSZ, SIG_IGN);
    explicit DisqueEtroit(rlim_t octets) {
        REQUIRE(getrlimit(RLIMIT_FSIZE, &ancienne) == 0);
        const rlimit etroite{octets, ancienne.rlim_max};
        REQUIRE(setrlimit(RLIMIT_FSIZE, &etroite) == 0);
    }
    ~DisqueEtroit() {
        setrlimit(RLIMIT_FSIZE, &ancienne);
        std::signal(SIGXFSZ, ancien_signal);
    }
    DisqueEtroit(const DisqueEtroit&) = delete;
    DisqueEtroit& operator=(const DisqueEtroit&) = delete;
};

}  // namespace

TEST_CASE("files: what is written is read back to the byte") {
    const Dossier d;
    std::string octets;
    for (int c = 0; c < 256; ++c) octets += static_cast<char>(c);
    for (const std::string& contenu : {std::string(), std::string("A=1\r\n"), octets,
                                       std::string(300'000, 'x'), std::string(3, '\0')}) {
        CHECK(remplace_fichier(d / "feuille.vxt", contenu) == 0);
        CHECK(lu(d / "feuille.vxt") == contenu);
        CHECK(d.entrees() == 1);
    }
}

TEST_CASE("files: reading replaces what the text held before") {
    const Dossier d;
    ecrit(d / "a", "new");
    std::string contenu = "a much longer old content";
    CHECK(lit_fichier(d / "a", contenu) == 0);
    CHECK(contenu == "new");
}

TEST_CASE("files: a new file has the usual rights, an old one keeps its own") {
    const Dossier d;
    const mode_t masque = umask(027);
    CHECK(remplace_fichier(d / "neuf", "1") == 0);
    CHECK(droits_de(d / "neuf") == 0640);
    umask(masque);
    for (const mode_t droits : {0600u, 0644u, 0666u, 0755u, 0200u}) {
        CAPTURE(droits);
        REQUIRE(chmod((d / "neuf").c_str(), droits) == 0);
        CHECK(remplace_fichier(d / "neuf", "2") == 0);
        CHECK(droits_de(d / "neuf") == droits);
    }
}

TEST_CASE("files: a file is replaced and not rewritten in place") {
    const Dossier d;
    ecrit(d / "a", "old");
    std::ifstream ancien(d / "a");
    CHECK(remplace_fichier(d / "a", "new") == 0);
    CHECK(std::string(std::istreambuf_iterator<char>(ancien), {}) == "old");
    CHECK(lu(d / "a") == "new");
}

TEST_CASE("files: links are followed and stay links") {
    const Dossier d;
    fs::create_directory(d / "loin");
    ecrit(d / "loin/cible", "old");
    fs::create_symlink("loin/cible", d / "lien");
    fs::create_symlink("lien", d / "lien2");
    CHECK(remplace_fichier(d / "lien2", "new") == 0);
    CHECK(fs::is_symlink(d / "lien"));
    CHECK(fs::is_symlink(d / "lien2"));
    CHECK_FALSE(fs::is_symlink(d / "loin/cible"));
    CHECK(lu(d / "loin/cible") == "new");
    CHECK(lu(d / "lien2") == "new");
    CHECK(fs::exists(d / "loin"));
    CHECK(d.entrees() == 3);
}

TEST_CASE("files: a link whose file is not there yet stays a link and gets its file") {
    const Dossier d;
    fs::create_symlink("cible", d / "lien");
    CHECK(remplace_fichier(d / "lien", "new") == 0);
    CHECK(fs::is_symlink(d / "lien"));
    CHECK(lu(d / "cible") == "new");
}

TEST_CASE("files: a link that leads to itself is refused") {
    const Dossier d;
    fs::create_symlink("lien", d / "lien");
    CHECK(remplace_fichier(d / "lien", "new") == 75);
    CHECK(fs::is_symlink(d / "lien"));
    CHECK(d.entrees() == 1);
}

TEST_CASE("files: what isn't there is told by its number") {
    const Dossier d;
    ecrit(d / "fichier", "x");
    std::string contenu = "untouched";
    CHECK(lit_fichier(d / "absent", contenu) == 53);
    CHECK(lit_fichier(d / "fichier/dedans", contenu) == 76);
    CHECK(contenu == "untouched");
    CHECK(remplace_fichier(d / "absent/feuille", "x") == 76);
    CHECK(remplace_fichier(d / "fichier/dedans", "x") == 76);
    CHECK(remplace_fichier("", "x") != 0);
    CHECK(lu(d / "fichier") == "x");
    CHECK(d.entrees() == 1);
}

TEST_CASE("files: a folder in the place of a file is refused") {
    const Dossier d;
    fs::create_directory(d / "feuille.vxt");
    std::string contenu;
    CHECK(lit_fichier(d / "feuille.vxt", contenu) == 75);
    CHECK(remplace_fichier(d / "feuille.vxt", "x") == 75);
    CHECK(fs::is_directory(d / "feuille.vxt"));
    CHECK(d.entrees() == 1);
}

TEST_CASE("files: a file that nobody may write is refused and stays") {
    const Dossier d;
    ecrit(d / "protege", "old");
    REQUIRE(chmod((d / "protege").c_str(), 0444) == 0);
    CHECK(remplace_fichier(d / "protege", "new") == 75);
    CHECK(lu(d / "protege") == "old");
    CHECK(droits_de(d / "protege") == 0444);
    CHECK(d.entrees() == 1);
}

TEST_CASE("files: a device is no sheet") {
    CHECK(remplace_fichier("/dev/null", "x") == 75);
    CHECK(fs::is_character_file("/dev/null"));
}

TEST_CASE("files: a full disk leaves the old file and nothing beside it") {
    const Dossier d;
    ecrit(d / "feuille", "old");
    {
        const DisqueEtroit etroit(1000);
        CHECK(remplace_fichier(d / "feuille", std::string(5000, 'x')) == 61);
        CHECK(remplace_fichier(d / "neuf", std::string(5000, 'x')) == 61);
    }
    CHECK(lu(d / "feuille") == "old");
    CHECK_FALSE(fs::exists(d / "neuf"));
    CHECK(d.entrees() == 1);
    CHECK(remplace_fichier(d / "feuille", std::string(5000, 'x')) == 0);
    CHECK(lu(d / "feuille") == std::string(5000, 'x'));
}

TEST_CASE("files: a path with accents and blanks is taken as its bytes") {
    const Dossier d;
    const std::string chemin = d / "feuille d'été (2).VXT";
    CHECK(remplace_fichier(chemin, "A") == 0);
    CHECK(lu(chemin) == "A");
}

TEST_CASE("files: two paths of one file are known for it") {
    const Dossier d;
    ecrit(d / "a", "1");
    ecrit(d / "b", "1");
    fs::create_directory(d.chemin / "sous");
    fs::create_symlink(d / "a", d / "lien");
    installe_fichiers_reels();
    CHECK(port.fichiers.meme_fichier(d / "a", d / "lien"));
    CHECK(port.fichiers.meme_fichier(d / "a", d / "sous/../a"));
    CHECK_FALSE(port.fichiers.meme_fichier(d / "a", d / "b"));
    CHECK_FALSE(port.fichiers.meme_fichier(d / "c", d / "c"));
    installe_port_vide();
}
