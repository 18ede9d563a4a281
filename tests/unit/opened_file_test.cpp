// Files of other codings: what becomes of their characters, which files are recognised, and the
// same for the terminal's sheets and for real files.
#include "documents/opened_file.hpp"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "base/typed_text.hpp"
#include "helpers.hpp"
#include "platform/files.hpp"
#include "shell/events.hpp"
#include "support/program.hpp"
#include "terminal/sheet_file.hpp"

namespace {

namespace fs = std::filesystem;

struct Cas {
    const char* utf8;
    const char* feuille;  // in UTF-8 too
};
const std::vector<Cas> kCas = {
    {"A=3", "A=3"},
    {"5\u22123", "5-3"},
    {"5\u22173\u22152", "5*3/2"},
    {"2\u03C0R \u221A(4)", "2PIR SQRT(4)"},
    {"1\u202F000\u00A0000\u2009000", "1 000 000 000"},
    {"e\u0301te\u0301 c\u0327a", "été ça"},
    {"a\r\nb\rc\u2028d\n", "a\nb\nc\nd\n"},
    {"A\u200B=1\uFEFF", "A=1"},
    {"\u20AC \u0153 \u00B2 \u00D7", "€ œ ² ×"},
};

std::string lu(const fs::path& chemin) {
    std::ifstream fichier(chemin, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(fichier), {});
}

std::string dossier_reel;  // of the program, for the port

// Starts the program on real files, with that sheet.
void demarre_sur_disque(const fs::path& dossier, const std::string& feuille) {
    programme_neuf();
    installe_fichiers_reels();
    dossier_reel = (dossier / "programme").string();
    port.systeme.separateur = static_cast<char>(fs::path::preferred_separator);
    port.systeme.dossier_programme = [] { return dossier_reel; };
    memoire.ligne_commande = (dossier / feuille).string();
    evenement_chargement();
}

}  // namespace

TEST_CASE("opened file: the common characters become what the sheet knows") {
    for (const Cas& c : kCas) {
        CAPTURE(c.utf8);
        const TexteAmene amene = amene_en_page(c.utf8);
        CHECK(vers_utf8(amene.texte) == c.feuille);
        CHECK(amene.perdus == 0);
        CHECK(amene.ligne_fausse == 0);
    }
}

TEST_CASE("opened file: what is opened and what is typed become the same") {
    for (const Cas& c : kCas) {
        char32_t refuse = 0;
        CHECK(texte_accepte(c.utf8, refuse) == vers_utf8(amene_en_page(c.utf8).texte));
    }
}

TEST_CASE("opened file: each character of the code page but the no-break blanks comes through") {
    std::string tous;
    for (int c = 0; c < 256; ++c) tous += static_cast<char>(c);
    const TexteAmene amene = amene_en_page(vers_utf8(tous));
    CHECK(amene.perdus == 0);
    tous[0xA0] = ' ';
    tous[0x0D] = '\n';
    tous.erase(0xAD, 1);  // the hyphen that isn't shown
    CHECK(amene.texte == tous);
}

TEST_CASE("opened file: lost characters are counted, and the first are told with their lines") {
    const TexteAmene amene = amene_en_page("\u2264\r\n\r\n\u2264\u2265\r\u2264\n\u2264\U0001F600");
    CHECK(amene.texte == "?\n\n??\n?\n??");
    CHECK(amene.perdus == 6);
    REQUIRE(amene.premiers.size() == kPerdusCites);
    CHECK(amene.premiers[2].caractere == 0x2265);
    std::vector<std::size_t> lignes;
    for (const Perdu& p : amene.premiers) lignes.push_back(p.ligne);
    CHECK(lignes == std::vector<std::size_t>{1, 3, 3, 4, 5});
    CHECK(amene_en_page("a\n\xE9").ligne_fausse == 2);
    CHECK(code_unicode(0x1F600) == "U+1F600");
    CHECK(code_unicode(9) == "U+0009");
}

TEST_CASE("opened file: only a mark, or UTF-8 with more than ASCII, is recognised") {
    for (const char* oui : {"\xEF\xBB\xBF",
                            "\xEF\xBB\xBF"
                            "A=\xE9",
                            "\xFF\xFE", "\xFE\xFF", "\u00E9", "A\n\u03C0"})
        CHECK(est_unicode(oui));
    for (const char* non :
         {"", "A=3\r\n", "\xE9", "\u00E9\xE9", "\xEF\xBB", "\xC1\x80", "\xED\xA0\x80", "a\xFF\xFE"})
        CHECK_FALSE(est_unicode(non));
}

TEST_CASE("opened file: the terminal's sheets take the same road, and refuse what would be lost") {
    RefusFeuille refus;
    const auto lue = lit_feuille("2\u03C0\r\n5\u22123\r\n", Codage::utf8, refus);
    REQUIRE(lue.has_value());
    CHECK(lue->texte == "2PI\r\n5-3");
    CHECK(lue->fins == FinsDeLigne::cr_lf);
    CHECK(lue->fin_finale);
    CHECK_FALSE(lit_feuille("A\nB\u2264", Codage::utf8, refus).has_value());
    CHECK(refus.ligne == 2);
    CHECK(refus.caractere == 0x2264);
    CHECK_FALSE(lit_feuille("A\n\nB\xE9", Codage::utf8, refus).has_value());
    CHECK(refus.ligne == 3);
    CHECK(refus.caractere == 0);
    CHECK(lit_feuille("2\u03C0", Codage::windows_1252, refus)->texte == "2\xCF\x80");
}

TEST_CASE("opened file: a real file stays as it is until it is saved") {
    const fs::path dossier =
        fs::temp_directory_path() / ("voxtab-test-" + std::to_string(std::random_device()()));
    REQUIRE(fs::create_directory(dossier));
    fs::create_directory(dossier / "programme");
    const std::string octets =
        "\xEF\xBB\xBF"
        "2\u03C0\n\u2264 \u00E9\n";
    std::ofstream(dossier / "feuille.VXT", std::ios::binary) << octets;
    demarre_sur_disque(dossier, "feuille.VXT");
    CHECK(memoire.texte == cp("2PI\r\n? é"));
    CHECK(memoire.boites.size() == 1);
    CHECK(lu(dossier / "feuille.VXT") == octets);
    evenement_menu("mnuEnregistrerItem");
    CHECK(lu(dossier / "feuille.VXT") == cp("2PI\r\n? é\r\n"));
    CHECK(lu(dossier / "feuille.bak") == octets);
    fs::remove_all(dossier);
}

namespace {

// The text is saved, the sheet closed, and the file opened again. What is shown then.
std::string relu(const std::string& texte) {
    port.texte.pose_texte(std::string(texte));
    evenement_texte_change();
    memoire.reponses = {"C:\\X.VXT"};
    evenement_menu("mnuEnregistrerItem");
    evenement_menu("mnuFermerItem");
    memoire.reponses = {"C:\\X.VXT"};
    evenement_menu("mnuOuvrirItem");
    return memoire.texte;
}

// A line end is the only thing that a text can't have otherwise.
bool fin_de_ligne(int octet) { return octet == '\r' || octet == '\n'; }

}  // namespace

TEST_CASE("opened files: what the program wrote is read back as it was, for every pair of bytes") {
    for (int a = 0; a < 256; ++a) {
        programme_neuf();
        evenement_chargement();
        for (int b = 0; b < 256; ++b) {
            if (fin_de_ligne(a) || fin_de_ligne(b)) continue;
            const std::string texte{static_cast<char>(a), static_cast<char>(b)};
            if (relu(texte) != texte) FAIL_CHECK(a << " " << b);
        }
    }
    for (const char* const texte : {"! CARRÉ²", "CLASSÉ…", "3×½", "Ã©", "ï»¿x", "ÿþ", "Â\u00A0"})
        CHECK(vers_utf8(relu(cp(texte))) == texte);
}

TEST_CASE("opened files: UTF-8 without a mark is taken only when a sheet can hold all of it") {
    CHECK(est_unicode("é"));
    CHECK(est_unicode("2\u03C0R"));
    CHECK_FALSE(est_unicode("A\u22643"));
    CHECK(est_unicode("\uFEFFA\u22643"));
    for (const char* const texte : {"! CARRÉ²", "CLASSÉ…", "3×½"}) CHECK_FALSE(est_unicode(cp(texte)));
}
