// Real files on Windows: replaced whole, with the numbers of the failures that the user hears.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include <doctest/doctest.h>
#include <windows.h>

#include <sddl.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "platform/files.hpp"
#include "platform/platform.hpp"
#include "platform/system_path.hpp"
#include "platform/utf16_windows.hpp"

namespace {

namespace fs = std::filesystem;

// A folder of the test's own, emptied at its end. Paths are Windows-1252.
struct Folder {
    fs::path place = fs::temp_directory_path() / ("voxtab" + std::to_string(GetCurrentProcessId()));
    Folder() {
        fs::create_directories(place);
        installe_fichiers_reels();
    }
    ~Folder() {
        for (const auto& entry : fs::directory_iterator(place))
            SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
        std::error_code ignored;
        fs::remove_all(place, ignored);
        installe_port_vide();
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string operator()(std::string_view name) const {
        return *depuis_utf8(chemin_en_utf8(place)) + "\\" + std::string(name);
    }
};

std::string content(const std::string& path) {
    std::string bytes;
    REQUIRE(port.fichiers.lit(path, bytes) == 0);
    return bytes;
}

std::vector<std::string> names(const Folder& folder) {
    std::vector<std::string> list;
    REQUIRE(port.fichiers.liste_fichiers(folder(""), list) == 0);
    return list;
}

const wchar_t* wide(const fs::path& path) { return path.c_str(); }

// Who may do what with a file, in the system's own notation.
std::wstring access_rights(const fs::path& path) {
    std::vector<char> bytes(4096);
    DWORD size = 0;
    REQUIRE(GetFileSecurityW(wide(path), DACL_SECURITY_INFORMATION, bytes.data(),
                             static_cast<DWORD>(bytes.size()), &size) != 0);
    LPWSTR text = nullptr;
    REQUIRE(ConvertSecurityDescriptorToStringSecurityDescriptorW(
                bytes.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr) != 0);
    const std::wstring rights = text;
    LocalFree(text);
    return rights;
}

void set_access_rights(const fs::path& path, const wchar_t* rights) {
    PSECURITY_DESCRIPTOR security = nullptr;
    REQUIRE(ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &security,
                                                                 nullptr) != 0);
    CHECK(SetFileSecurityW(wide(path), DACL_SECURITY_INFORMATION, security) != 0);
    LocalFree(security);
}

}  // namespace

TEST_CASE("a file is written, read and replaced, and nothing is left beside it") {
    const Folder folder;
    const std::string path = folder("été à 5 €.VXT"_fr);
    CHECK(port.fichiers.remplace(path, "A=1\r\n") == 0);
    CHECK(content(path) == "A=1\r\n");
    CHECK(port.fichiers.remplace(path, std::string(200000, 'x')) == 0);
    CHECK(content(path) == std::string(200000, 'x'));
    CHECK(port.fichiers.existe(path));
    CHECK_FALSE(port.fichiers.existe_dossier(path));
    CHECK(names(folder) == std::vector<std::string>{std::string("été à 5 €.VXT"_fr)});
}

TEST_CASE("what is absent has its number") {
    const Folder folder;
    std::string bytes;
    CHECK(port.fichiers.lit(folder("rien.VXT"), bytes) == kFichierAbsent);
    CHECK(port.fichiers.lit(folder("rien\\rien.VXT"), bytes) == kDossierAbsent);
    CHECK(port.fichiers.lit(folder(""), bytes) == kAccesFichier);
    CHECK(port.fichiers.remplace(folder("rien\\rien.VXT"), "x") == kDossierAbsent);
    CHECK(port.fichiers.efface(folder("rien.VXT")) == kFichierAbsent);
    CHECK(port.fichiers.deplace(folder("rien.VXT"), folder("autre.VXT")) == kFichierAbsent);
    CHECK(port.fichiers.cree_dossier(folder("a\\b")) == kDossierAbsent);
    CHECK(names(folder).empty());
}

TEST_CASE("a file that may not be written stays as it is") {
    const Folder folder;
    const std::string path = folder("x.VXT");
    REQUIRE(port.fichiers.remplace(path, "ancien") == 0);
    REQUIRE(SetFileAttributesW(wide(folder.place / "x.VXT"), FILE_ATTRIBUTE_READONLY) != 0);
    CHECK(verifie_ecriture(vers_utf8(path)) == kAccesFichier);
    CHECK(port.fichiers.remplace(path, "neuf") == kAccesFichier);
    CHECK(content(path) == "ancien");
    CHECK(names(folder).size() == 1);
}

TEST_CASE("a file that another program keeps for itself stays as it is") {
    const Folder folder;
    const std::string path = folder("x.VXT");
    REQUIRE(port.fichiers.remplace(path, "ancien") == 0);
    const HANDLE kept = CreateFileW(wide(folder.place / "x.VXT"), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    REQUIRE(kept != INVALID_HANDLE_VALUE);
    CHECK(port.fichiers.remplace(path, "neuf") == kAccesFichier);
    CHECK(names(folder).size() == 1);
    CloseHandle(kept);
    CHECK(content(path) == "ancien");
}

TEST_CASE("a hidden file stays hidden") {
    const Folder folder;
    REQUIRE(port.fichiers.remplace(folder("x.VXT"), "ancien") == 0);
    REQUIRE(SetFileAttributesW(wide(folder.place / "x.VXT"), FILE_ATTRIBUTE_HIDDEN) != 0);
    CHECK(port.fichiers.remplace(folder("x.VXT"), "neuf") == 0);
    CHECK(content(folder("x.VXT")) == "neuf");
    CHECK((GetFileAttributesW(wide(folder.place / "x.VXT")) & FILE_ATTRIBUTE_HIDDEN) != 0);
    CHECK(port.fichiers.existe(folder("x.VXT")));
}

TEST_CASE("a replaced file is for whom it was") {
    const Folder folder;
    const fs::path file = folder.place / "x.VXT";
    REQUIRE(port.fichiers.remplace(folder("x.VXT"), "ancien") == 0);
    const std::wstring usual = access_rights(file);
    set_access_rights(file, L"D:P(A;;FA;;;WD)");   // everybody may do everything
    const std::wstring own = access_rights(file);
    REQUIRE(own != usual);
    CHECK(port.fichiers.remplace(folder("x.VXT"), "neuf") == 0);
    CHECK(content(folder("x.VXT")) == "neuf");
    CHECK(access_rights(file) == own);
    CHECK(port.fichiers.remplace(folder("y.VXT"), "neuf") == 0);
    CHECK(access_rights(folder.place / "y.VXT") == usual);
}

TEST_CASE("a file is replaced by its bare name") {
    const Folder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.place);
    CHECK(port.fichiers.remplace("x.VXT", "ancien") == 0);
    CHECK(port.fichiers.remplace("x.VXT", "neuf") == 0);
    fs::current_path(before);
    CHECK(content(folder("x.VXT")) == "neuf");
    CHECK(names(folder) == std::vector<std::string>{"x.VXT"});
}

TEST_CASE("a move replaces, and never a file by itself") {
    const Folder folder;
    REQUIRE(port.fichiers.remplace(folder("a.VXT"), "a") == 0);
    REQUIRE(port.fichiers.remplace(folder("b.VXT"), "b") == 0);
    CHECK(port.fichiers.deplace(folder("a.VXT"), folder("A.vxt")) == kAccesFichier);
    CHECK(content(folder("a.VXT")) == "a");
    CHECK(port.fichiers.deplace(folder("a.VXT"), folder("b.VXT")) == 0);
    CHECK(content(folder("b.VXT")) == "a");
    CHECK(names(folder) == std::vector<std::string>{"b.VXT"});
    CHECK(port.fichiers.copie(folder("b.VXT"), folder("c.VXT")) == 0);
    CHECK(names(folder) == std::vector<std::string>{"b.VXT", "c.VXT"});
}

TEST_CASE("folders are made and listed in the order of the alphabet") {
    const Folder folder;
    for (const char* name : {"jaws", "Ancien", "beta"})
        CHECK(port.fichiers.cree_dossier(folder(name)) == 0);
    CHECK(port.fichiers.cree_dossier(folder("BETA")) == kAccesFichier);
    CHECK(port.fichiers.existe_dossier(folder("jaws\\")));
    std::vector<std::string> list;
    CHECK(port.fichiers.liste_dossiers(folder(""), list) == 0);
    CHECK(list == std::vector<std::string>{"Ancien", "beta", "jaws"});
    CHECK(port.fichiers.liste_dossiers(folder("absent"), list) == kDossierAbsent);
}

TEST_CASE("paths longer than 260 characters") {
    const Folder folder;
    std::string path = folder("long");
    REQUIRE(port.fichiers.cree_dossier(path) == 0);
    std::vector<std::string> made;
    while (path.size() < 400) {
        path += "\\" + std::string(60, 'd');
        REQUIRE(port.fichiers.cree_dossier(path) == 0);
        made.push_back(path);
    }
    CHECK(port.fichiers.remplace(path + "\\x.VXT", "ancien") == 0);
    CHECK(port.fichiers.remplace(path + "\\x.VXT", "loin") == 0);
    CHECK(content(path + "\\x.VXT") == "loin");
    CHECK(port.fichiers.existe(path + "\\x.VXT"));
    CHECK(port.fichiers.deplace(path + "\\x.VXT", folder("x.VXT")) == 0);
    CHECK(content(folder("x.VXT")) == "loin");
    // The standard library can't reach so far to take them away.
    for (; !made.empty(); made.pop_back())
        CHECK(RemoveDirectoryW((L"\\\\?\\" + vers_utf16(vers_utf8(made.back()))).c_str()) != 0);
}
