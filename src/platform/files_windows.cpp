// Real files on Windows, read, replaced and listed through the calls that take any name of any
// length. Changes no state of the core but the port's file slots.
#include "platform/files.hpp"

#include <windows.h>

#include <aclapi.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "platform/file_order.hpp"
#include "platform/platform.hpp"
#include "platform/utf16_windows.hpp"

namespace {

constexpr DWORD kPartage = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kCheminCourt = 240;   // characters that every call of the system takes
constexpr int kEssais = 100;                // of a replacement that another program holds up: two seconds
constexpr DWORD kAttente = 20;              // milliseconds between two of them
constexpr DWORD kQuotaDepasse = 1295;       // the system's number for a user's share of the disk
constexpr DWORD kBloc = 1 << 16;            // bytes read or written by one call

int numero_erreur(DWORD erreur) {
    switch (erreur) {
        case ERROR_FILE_NOT_FOUND: return kFichierAbsent;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME: return kDossierAbsent;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case ERROR_FILE_TOO_LARGE:
        case kQuotaDepasse: return kDisquePlein;
        default: return kAccesFichier;
    }
}

int derniere_erreur() { return numero_erreur(GetLastError()); }

// Closes a handle at the end of its block.
struct Poignee {
    HANDLE h;
    explicit Poignee(HANDLE poignee) : h(poignee) {}
    ~Poignee() { ferme(); }
    Poignee(Poignee&& autre) noexcept : h(std::exchange(autre.h, INVALID_HANDLE_VALUE)) {}
    Poignee(const Poignee&) = delete;
    Poignee& operator=(const Poignee&) = delete;
    bool ouverte() const { return h != INVALID_HANDLE_VALUE; }
    bool ferme() {
        const HANDLE ancienne = std::exchange(h, INVALID_HANDLE_VALUE);
        return ancienne == INVALID_HANDLE_VALUE || CloseHandle(ancienne) != 0;
    }
};

// Path from the root of its disk.
std::wstring chemin_entier(const std::wstring& chemin) {
    std::wstring entier(GetFullPathNameW(chemin.c_str(), 0, nullptr, nullptr), L'\0');
    entier.resize(GetFullPathNameW(chemin.c_str(), static_cast<DWORD>(entier.size()), entier.data(),
                                   nullptr));
    return entier;
}

// The path as the system's calls take it, also where it is longer than 260 characters.
std::wstring chemin_large(const std::string& utf8) {
    const std::wstring donne = vers_utf16(utf8);
    if (donne.size() < kCheminCourt || donne.starts_with(L"\\\\?\\")) return donne;
    const std::wstring entier = chemin_entier(donne);
    if (entier.starts_with(L"\\\\")) return L"\\\\?\\UNC" + entier.substr(1);
    return L"\\\\?\\" + entier;
}

// Folder part of a path, with its separator; "" for the current folder.
std::wstring dossier(const std::wstring& chemin) {
    const std::size_t barre = chemin.find_last_of(L"\\/:");
    return barre == std::wstring::npos ? L"" : chemin.substr(0, barre + 1);
}

bool dit_dossier(DWORD attributs) {
    return attributs != INVALID_FILE_ATTRIBUTES && (attributs & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Target of a link, so that the file itself is replaced and not the link.
std::wstring chemin_reel(const std::wstring& chemin) {
    const DWORD attributs = GetFileAttributesW(chemin.c_str());
    if (attributs == INVALID_FILE_ATTRIBUTES || (attributs & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return chemin;
    const Poignee fichier(
        CreateFileW(chemin.c_str(), 0, kPartage, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!fichier.ouverte()) return chemin;
    std::wstring reel(GetFinalPathNameByHandleW(fichier.h, nullptr, 0, 0), L'\0');
    const DWORD taille =
        GetFinalPathNameByHandleW(fichier.h, reel.data(), static_cast<DWORD>(reel.size()), 0);
    if (taille == 0 || taille >= reel.size()) return chemin;
    reel.resize(taille);
    return reel;
}

// Attributes for the new file: those of the old one, or the usual ones. A file that may not be
// written is refused as a direct write would be.
int attributs_voulus(const std::wstring& chemin, DWORD& attributs) {
    attributs = GetFileAttributesW(chemin.c_str());
    if (attributs == INVALID_FILE_ATTRIBUTES) {
        const DWORD erreur = GetLastError();
        attributs = FILE_ATTRIBUTE_NORMAL;
        return erreur == ERROR_FILE_NOT_FOUND ? 0 : numero_erreur(erreur);
    }
    const bool refuse = (attributs & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0;
    attributs &= FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    if (attributs == 0) attributs = FILE_ATTRIBUTE_NORMAL;
    return refuse ? kAccesFichier : 0;
}

// ---- The temporary file that a save writes beside its target

// Programs that may save the same file at the same moment without one of them leaving a file behind.
constexpr int kPlaces = 4;
constexpr int kEssaisNom = 5;   // of a name by chance

// Name of a temporary file, the same for every save of that target, whatever its capitals: what a save
// that was killed has left, the next one finds. Its length doesn't depend on the target's, which may be
// the longest that the system takes.
std::wstring nom_temporaire(const std::wstring& cible, int place) {
    const std::wstring ou = dossier(cible);
    std::wstring fichier = cible.substr(ou.size());
    CharLowerBuffW(fichier.data(), static_cast<DWORD>(fichier.size()));
    std::uint64_t marque = 0xCBF29CE484222325;
    for (const wchar_t c : fichier)
        marque = (marque ^ static_cast<std::uint64_t>(c)) * 0x100000001B3;
    std::wstring nom = ou + L".voxtab.";
    for (int i = 0; i < 16; ++i, marque >>= 4) nom += L"0123456789abcdef"[marque & 15];
    return nom + static_cast<wchar_t>(L'0' + place);
}

// Makes a new file that others may only read until it is closed: that is the lock, and it goes with a
// killed program.
HANDLE cree_neuf(const std::wstring& nom, DWORD attributs) {
    return CreateFileW(nom.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                       attributs, nullptr);
}

// Removes what a killed save has left under that name. Another program's file is at work and stays.
void efface_reste(const std::wstring& nom) {
    const Poignee reste(CreateFileW(nom.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING,
                                    FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT,
                                    nullptr));
}

// Makes a new file in that folder, under a name of its own that is put in `nom`.
HANDLE cree_voisin(const std::wstring& dossier_cible, DWORD attributs, std::wstring& nom) {
    std::random_device hasard;
    for (int essai = 0;; ++essai) {
        nom = dossier_cible + L".voxtab." + std::to_wstring(hasard());
        const HANDLE h = cree_neuf(nom, attributs);
        if (h != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS || essai == kEssaisNom)
            return h;
    }
}

// A new temporary file beside the target, its path in `nom`; nothing of former saves stays beside it.
// Where every place is taken, it has a name by chance.
Poignee ouvre_temporaire(const std::wstring& cible, DWORD attributs, std::wstring& nom) {
    for (int place = 0; place < kPlaces; ++place) {
        nom = nom_temporaire(cible, place);
        efface_reste(nom);
        Poignee fichier(cree_neuf(nom, attributs));
        if (!fichier.ouverte()) continue;
        for (int autre = 0; autre < kPlaces; ++autre)
            if (autre != place) efface_reste(nom_temporaire(cible, autre));
        return fichier;
    }
    return Poignee(cree_voisin(dossier(cible), attributs, nom));
}

// The new file is for whom the old one was. What can't be taken over is as the folder says.
void reprend_acces(const std::wstring& ancien, std::wstring neuf) {
    PACL acces = nullptr;
    PSECURITY_DESCRIPTOR fiche = nullptr;
    if (GetNamedSecurityInfoW(ancien.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                              nullptr, &acces, nullptr, &fiche) != ERROR_SUCCESS)
        return;
    SECURITY_DESCRIPTOR_CONTROL controle = 0;
    DWORD revision = 0;
    GetSecurityDescriptorControl(fiche, &controle, &revision);
    const SECURITY_INFORMATION part =
        DACL_SECURITY_INFORMATION | ((controle & SE_DACL_PROTECTED) != 0
                                         ? PROTECTED_DACL_SECURITY_INFORMATION
                                         : UNPROTECTED_DACL_SECURITY_INFORMATION);
    if ((controle & SE_DACL_PRESENT) != 0)
        SetNamedSecurityInfoW(neuf.data(), SE_FILE_OBJECT, part, nullptr, nullptr, acces, nullptr);
    LocalFree(fiche);
}

bool ecrit_tout(HANDLE fichier, const std::string& contenu) {
    std::size_t fait = 0;
    while (fait < contenu.size()) {
        const auto reste = static_cast<DWORD>(std::min<std::size_t>(contenu.size() - fait, kBloc));
        DWORD n = 0;
        if (WriteFile(fichier, contenu.data() + fait, reste, &n, nullptr) == 0) return false;
        fait += n;
    }
    return true;
}

// Repeats a replacement while another program looks into the file, which is over soon.
template <class Remplacement>
bool insiste(const Remplacement& remplacement) {
    for (int essai = 1; !remplacement(); ++essai) {
        const DWORD erreur = GetLastError();
        const bool tenu = erreur == ERROR_SHARING_VIOLATION || erreur == ERROR_ACCESS_DENIED;
        if (!tenu || essai == kEssais) return false;
        Sleep(kAttente);
    }
    return true;
}

bool renomme(const std::wstring& de, const std::wstring& vers) {
    return insiste([&] {
        return MoveFileExW(de.c_str(), vers.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    });
}

// Renames a file that is open over what may stand there: it stays ours until it has its new name.
bool renomme_ouvert(HANDLE fichier, const std::wstring& vers) {
    const std::size_t octets = vers.size() * sizeof(wchar_t);
    std::vector<std::uint64_t> place((sizeof(FILE_RENAME_INFO) + octets) / sizeof(std::uint64_t) + 1);
    auto* const nom = reinterpret_cast<FILE_RENAME_INFO*>(place.data());
    nom->ReplaceIfExists = TRUE;
    nom->FileNameLength = static_cast<DWORD>(octets);
    std::memcpy(nom->FileName, vers.c_str(), octets);
    const auto taille = static_cast<DWORD>(place.size() * sizeof(std::uint64_t));
    return insiste([&] {
        return SetFileInformationByHandle(fichier, FileRenameInfo, nom, taille) != 0;
    });
}

void efface_ouvert(HANDLE fichier) {
    FILE_DISPOSITION_INFO fin{TRUE};
    SetFileInformationByHandle(fichier, FileDispositionInfo, &fin, sizeof fin);
}

}  // namespace

bool est_fichier(const std::string& chemin) {
    const DWORD attributs = GetFileAttributesW(chemin_large(chemin).c_str());
    return attributs != INVALID_FILE_ATTRIBUTES && !dit_dossier(attributs);
}

bool est_dossier(const std::string& chemin) { return dit_dossier(GetFileAttributesW(chemin_large(chemin).c_str())); }

ResultatFichier lit_fichier(const std::string& chemin, std::string& contenu) {
    const Poignee fichier(CreateFileW(chemin_large(chemin).c_str(), GENERIC_READ, kPartage, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    if (!fichier.ouverte()) return derniere_erreur();
    if (GetFileType(fichier.h) == FILE_TYPE_CHAR) return kAccesFichier;
    contenu.clear();
    std::vector<char> bloc(kBloc);
    for (;;) {
        if (contenu.size() > kOctetsMaxi) return kMemoire;
        DWORD n = 0;
        if (ReadFile(fichier.h, bloc.data(), kBloc, &n, nullptr) == 0) return derniere_erreur();
        if (n == 0) return 0;
        contenu.append(bloc.data(), n);
    }
}

ResultatFichier verifie_ecriture(const std::string& chemin) {
    const std::wstring cible = chemin_reel(chemin_large(chemin));
    DWORD attributs = 0;
    if (const int refus = attributs_voulus(cible, attributs); refus != 0) return refus;
    std::wstring nom;
    const Poignee voisin(cree_voisin(dossier(cible), FILE_FLAG_DELETE_ON_CLOSE, nom));
    return voisin.ouverte() ? 0 : derniere_erreur();
}

// A new file has the access rights of its folder here, whatever the model.
ResultatFichier remplace_fichier(const std::string& chemin, const std::string& contenu,
                                 const std::string&) {
    const std::wstring cible = chemin_reel(chemin_entier(chemin_large(chemin)));
    DWORD attributs = 0;
    if (const int refus = attributs_voulus(cible, attributs); refus != 0) return refus;
    std::wstring voisin;
    const Poignee fichier = ouvre_temporaire(cible, attributs, voisin);
    if (!fichier.ouverte()) return derniere_erreur();
    reprend_acces(cible, voisin);
    if (ecrit_tout(fichier.h, contenu) && FlushFileBuffers(fichier.h) != 0 &&
        renomme_ouvert(fichier.h, cible)) {
        FlushFileBuffers(fichier.h);   // the new name too
        return 0;
    }
    const int echec = derniere_erreur();
    efface_ouvert(fichier.h);
    return echec;
}

bool a_d_autres_noms(const std::string& chemin) {
    const Poignee fichier(
        CreateFileW(chemin_large(chemin).c_str(), 0, kPartage, nullptr, OPEN_EXISTING, 0, nullptr));
    BY_HANDLE_FILE_INFORMATION fiche{};
    return fichier.ouverte() && GetFileInformationByHandle(fichier.h, &fiche) != 0 &&
           fiche.nNumberOfLinks > 1;
}

ResultatFichier recrit_fichier(const std::string& chemin, const std::string& ancien,
                               const std::string& contenu) {
    const Poignee fichier(CreateFileW(chemin_large(chemin).c_str(), GENERIC_WRITE, kPartage, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    if (!fichier.ouverte()) return derniere_erreur();
    const auto pose = [&](const std::string& octets) {
        return SetFilePointer(fichier.h, 0, nullptr, FILE_BEGIN) == 0 && ecrit_tout(fichier.h, octets) &&
               SetEndOfFile(fichier.h) != 0 && FlushFileBuffers(fichier.h) != 0;
    };
    if (pose(contenu)) return 0;
    const int echec = derniere_erreur();
    pose(ancien);
    return echec;
}

namespace {

using Chemin = const std::string&;   // Windows-1252

std::wstring reel(Chemin chemin) { return chemin_large(vers_utf8(chemin)); }

bool existe(Chemin chemin) { return est_fichier(vers_utf8(chemin)); }

bool existe_dossier(Chemin chemin) { return est_dossier(vers_utf8(chemin)); }

int lit(Chemin chemin, std::string& contenu) { return lit_fichier(vers_utf8(chemin), contenu); }

int remplace(Chemin chemin, const std::string& contenu) {
    return remplace_fichier(vers_utf8(chemin), contenu);
}

int copie(Chemin source, Chemin destination) {
    std::string contenu;
    const int refus = lit(source, contenu);
    return refus != 0 ? refus : remplace(destination, contenu);
}

// A move to another disk: the copy is whole before the first file goes.
int deplace_loin(Chemin source, Chemin destination) {
    if (const int refus = copie(source, destination); refus != 0) return refus;
    return DeleteFileW(reel(source).c_str()) != 0 ? 0 : derniere_erreur();
}

// Whether two paths lead to the same file.
bool meme_fichier(const std::wstring& a, const std::wstring& b) {
    std::array<BY_HANDLE_FILE_INFORMATION, 2> fiches{};
    const std::array<const std::wstring*, 2> chemins = {&a, &b};
    for (std::size_t i = 0; i < 2; ++i) {
        const Poignee fichier(
            CreateFileW(chemins[i]->c_str(), 0, kPartage, nullptr, OPEN_EXISTING, 0, nullptr));
        if (!fichier.ouverte() || GetFileInformationByHandle(fichier.h, &fiches[i]) == 0)
            return false;
    }
    return fiches[0].dwVolumeSerialNumber == fiches[1].dwVolumeSerialNumber &&
           fiches[0].nFileIndexHigh == fiches[1].nFileIndexHigh &&
           fiches[0].nFileIndexLow == fiches[1].nFileIndexLow;
}

int deplace(Chemin source, Chemin destination) {
    const std::wstring de = reel(source);
    const std::wstring vers = reel(destination);
    const DWORD attributs = GetFileAttributesW(de.c_str());
    if (attributs == INVALID_FILE_ATTRIBUTES) return derniere_erreur();
    if (dit_dossier(attributs) || meme_fichier(de, vers)) return kAccesFichier;
    if (renomme(de, vers)) return 0;
    const DWORD erreur = GetLastError();
    return erreur == ERROR_NOT_SAME_DEVICE ? deplace_loin(source, destination)
                                           : numero_erreur(erreur);
}

int efface(Chemin chemin) { return DeleteFileW(reel(chemin).c_str()) != 0 ? 0 : derniere_erreur(); }

int cree_dossier(Chemin chemin) {
    return CreateDirectoryW(reel(chemin).c_str(), nullptr) != 0 ? 0 : derniere_erreur();
}

// The names in a folder, either its files or its folders. A folder that leads elsewhere, a junction, a
// link or one that lies on the network, is none: who goes down through those may never come to an end.
int liste(Chemin chemin, std::vector<std::string>& noms, bool dossiers) {
    noms.clear();
    std::wstring motif = reel(chemin);
    if (!motif.empty() && motif.back() != L'\\' && motif.back() != L'/') motif += L'\\';
    WIN32_FIND_DATAW entree;
    const HANDLE recherche =
        FindFirstFileExW((motif + L"*").c_str(), FindExInfoBasic, &entree,
                         dossiers ? FindExSearchLimitToDirectories : FindExSearchNameMatch, nullptr,
                         FIND_FIRST_EX_LARGE_FETCH);
    // The root of an empty disk has no entry at all.
    if (recherche == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? 0 : derniere_erreur();
    do {
        const std::string nom = depuis_utf16(entree.cFileName);
        if (nom == "." || nom == ".." || dit_dossier(entree.dwFileAttributes) != dossiers) continue;
        if (dossiers && (entree.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) continue;
        if (auto ecrit = depuis_utf8(nom)) noms.push_back(std::move(*ecrit));
    } while (FindNextFileW(recherche, &entree) != 0);
    const DWORD erreur = GetLastError();
    FindClose(recherche);
    if (erreur != ERROR_NO_MORE_FILES) return numero_erreur(erreur);
    range_noms(noms);
    return 0;
}

int liste_fichiers(Chemin dossier_lu, std::vector<std::string>& noms) {
    return liste(dossier_lu, noms, false);
}
int liste_dossiers(Chemin dossier_lu, std::vector<std::string>& noms) {
    return liste(dossier_lu, noms, true);
}

// What tells a file from all others. False when it isn't there.
bool identite_fichier(Chemin chemin, BY_HANDLE_FILE_INFORMATION& qui) {
    const Poignee fichier(CreateFileW(reel(chemin).c_str(), 0, kPartage, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return fichier.ouverte() && GetFileInformationByHandle(fichier.h, &qui) != 0;
}

// Short names, links, and names with "." and ".." in them, come to the file itself.
bool meme_fichier(Chemin a, Chemin b) {
    BY_HANDLE_FILE_INFORMATION premier{}, second{};
    return identite_fichier(a, premier) && identite_fichier(b, second) &&
           premier.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
           premier.nFileIndexHigh == second.nFileIndexHigh &&
           premier.nFileIndexLow == second.nFileIndexLow;
}

}  // namespace

void installe_fichiers_reels() {
    port.fichiers = {existe,  existe_dossier, lit,          remplace,       copie,
                     deplace, efface,         cree_dossier, liste_fichiers, liste_dossiers,
                     meme_fichier};
}
