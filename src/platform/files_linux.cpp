// Real files on a POSIX system, read, replaced and listed. Changes no state of the core but the
// port's file slots.
#include "platform/files.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "platform/file_order.hpp"
#include "platform/platform.hpp"

namespace {

int numero_erreur(int erreur) {
    switch (erreur) {
        case ENOENT: return kFichierAbsent;
        case ENOTDIR: return kDossierAbsent;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return kDisquePlein;
        default: return kAccesFichier;
    }
}

// Closes a descriptor at the end of its block.
struct Descripteur {
    int fd;
    explicit Descripteur(int f) : fd(f) {}
    ~Descripteur() {
        if (fd >= 0) close(fd);
    }
    Descripteur(Descripteur&& autre) noexcept : fd(std::exchange(autre.fd, -1)) {}
    Descripteur(const Descripteur&) = delete;
    Descripteur& operator=(const Descripteur&) = delete;
};

bool ecrit_tout(int fd, const std::string& contenu) {
    std::size_t fait = 0;
    while (fait < contenu.size()) {
        const ssize_t n = write(fd, contenu.data() + fait, contenu.size() - fait);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        fait += static_cast<std::size_t>(n);
    }
    return true;
}

// Folder part of a path.
std::string dossier(const std::string& chemin) {
    const std::size_t barre = chemin.rfind('/');
    if (barre == std::string::npos) return ".";
    return barre == 0 ? "/" : chemin.substr(0, barre);
}

// Flushes the folder of a file to the disk, so that a new name survives a power cut.
void fixe_nom(const std::string& chemin) {
    const Descripteur parent(open(dossier(chemin).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.fd >= 0) fsync(parent.fd);
}

constexpr int kLiensMaxi = 40;   // links after links, as the system itself allows

// Target of the links, so that the file itself is replaced and not the link; a link whose file is
// not there yet leads to the place of that file.
std::string chemin_reel(std::string chemin) {
    for (int i = 0; i < kLiensMaxi; ++i) {
        std::array<char, PATH_MAX> cible;
        const ssize_t n = readlink(chemin.c_str(), cible.data(), cible.size());
        if (n <= 0 || static_cast<std::size_t>(n) == cible.size()) return chemin;
        const std::string lien(cible.data(), static_cast<std::size_t>(n));
        chemin = lien.front() == '/' ? lien : dossier(chemin) + "/" + lien;
    }
    return chemin;
}

// Rights of a file that is new: those of `modele`, its owner's to write always, or the usual ones.
mode_t droits_nouveaux(const std::string& modele) {
    struct stat source {};
    if (!modele.empty() && stat(modele.c_str(), &source) == 0)
        return (source.st_mode & 0777) | S_IRUSR | S_IWUSR;
    const mode_t masque = umask(0);
    umask(masque);
    return 0666 & ~masque;
}

// Rights for the new file: those of the old one, or those of a new one. A file that its owner may not
// write is refused as a direct write would be.
int droits(const std::string& chemin, mode_t& mode, const std::string& modele = "") {
    struct stat ancien {};
    if (stat(chemin.c_str(), &ancien) != 0) {
        const int erreur = errno;
        mode = droits_nouveaux(modele);
        return erreur == ENOENT ? 0 : numero_erreur(erreur);
    }
    if (!S_ISREG(ancien.st_mode)) return kAccesFichier;
    mode = modele.empty() ? ancien.st_mode & 07777 : droits_nouveaux(modele);
    return (ancien.st_mode & 0222) == 0 || access(chemin.c_str(), W_OK) != 0 ? kAccesFichier : 0;
}

// ---- The temporary file that a save writes beside its target

// Programs that may save the same file at the same moment without one of them leaving a file behind.
constexpr int kPlaces = 4;

// Name of a temporary file, the same for every save of that target: what a save that was killed has
// left, the next one finds. Its length doesn't depend on the target's, which may be the longest that
// the system takes.
std::string nom_temporaire(const std::string& cible, int place) {
    const std::size_t barre = cible.rfind('/');
    std::uint64_t marque = 0xCBF29CE484222325;
    for (std::size_t i = barre == std::string::npos ? 0 : barre + 1; i < cible.size(); ++i)
        marque = (marque ^ static_cast<unsigned char>(cible[i])) * 0x100000001B3;
    std::string nom = dossier(cible) + "/.voxtab.";
    for (int i = 0; i < 16; ++i, marque >>= 4) nom += "0123456789abcdef"[marque & 15];
    return nom + static_cast<char>('0' + place);
}

// The file is this program's alone: nobody else can write what is going to be the target, and the name
// still leads to what was opened, which another save may have moved to its target since.
bool est_a_nous(int fd, const std::string& nom) {
    struct stat ouvert {}, nomme {};
    return fstat(fd, &ouvert) == 0 && lstat(nom.c_str(), &nomme) == 0 &&
           ouvert.st_ino == nomme.st_ino && ouvert.st_dev == nomme.st_dev &&
           S_ISREG(ouvert.st_mode) && ouvert.st_uid == geteuid() && ouvert.st_nlink == 1;
}

// Opens that file for this program alone, with the flags given; the lock goes with the descriptor, a
// killed program's too. Without one where another program is at work with it.
Descripteur prend_temporaire(const std::string& nom, int drapeaux) {
    Descripteur fichier(open(nom.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | drapeaux, 0600));
    const bool pris = fichier.fd >= 0 && flock(fichier.fd, LOCK_EX | LOCK_NB) == 0 &&
                      est_a_nous(fichier.fd, nom);
    return pris ? std::move(fichier) : Descripteur(-1);
}

// Removes what killed saves of the target have left in its other places.
void balaie(const std::string& cible, const std::string& garde) {
    for (int place = 0; place < kPlaces; ++place) {
        const std::string nom = nom_temporaire(cible, place);
        if (nom == garde) continue;
        const Descripteur reste = prend_temporaire(nom, 0);
        if (reste.fd >= 0) unlink(nom.c_str());
    }
}

// An empty temporary file beside the target, its path in `nom`. Where every place is taken, or is not
// to be had on this disk, it has a name of its own. Without a descriptor `errno` tells why.
Descripteur ouvre_temporaire(const std::string& cible, std::string& nom) {
    for (int place = 0; place < kPlaces; ++place) {
        nom = nom_temporaire(cible, place);
        Descripteur fichier = prend_temporaire(nom, O_CREAT);
        if (fichier.fd < 0 || ftruncate(fichier.fd, 0) != 0) continue;
        balaie(cible, nom);
        return fichier;
    }
    nom = dossier(cible) + "/.voxtab.XXXXXX";
    return Descripteur(mkostemp(nom.data(), O_CLOEXEC));
}

}  // namespace

bool est_fichier(const std::string& chemin) {
    struct stat s {};
    return stat(chemin.c_str(), &s) == 0 && S_ISREG(s.st_mode);
}

bool est_dossier(const std::string& chemin) {
    struct stat s {};
    return stat(chemin.c_str(), &s) == 0 && S_ISDIR(s.st_mode);
}

ResultatFichier lit_fichier(const std::string& chemin, std::string& contenu) {
    const Descripteur fichier(open(chemin.c_str(), O_RDONLY | O_CLOEXEC));
    if (fichier.fd < 0) return numero_erreur(errno);
    struct stat etat {};
    if (fstat(fichier.fd, &etat) != 0 || S_ISDIR(etat.st_mode) || S_ISCHR(etat.st_mode) ||
        S_ISBLK(etat.st_mode))
        return kAccesFichier;
    contenu.clear();
    std::array<char, 65536> bloc;
    for (;;) {
        if (contenu.size() > kOctetsMaxi) return kMemoire;
        const ssize_t n = read(fichier.fd, bloc.data(), bloc.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return numero_erreur(errno);
        if (n == 0) return 0;
        contenu.append(bloc.data(), static_cast<std::size_t>(n));
    }
}

ResultatFichier verifie_ecriture(const std::string& chemin) {
    const std::string cible = chemin_reel(chemin);
    mode_t mode = 0;
    if (const int refus = droits(cible, mode); refus != 0) return refus;
    return access(dossier(cible).c_str(), W_OK | X_OK) == 0 ? 0 : kAccesFichier;
}

ResultatFichier remplace_fichier(const std::string& chemin, const std::string& contenu,
                                 const std::string& modele) {
    const std::string cible = chemin_reel(chemin);
    mode_t mode = 0;
    if (const int refus = droits(cible, mode, modele); refus != 0) return refus;
    std::string voisin;
    const Descripteur fichier = ouvre_temporaire(cible, voisin);
    if (fichier.fd < 0) return errno == ENOENT ? kDossierAbsent : numero_erreur(errno);
    const bool ecrit = ecrit_tout(fichier.fd, contenu) && fchmod(fichier.fd, mode) == 0 &&
                       fsync(fichier.fd) == 0;
    if (!ecrit || rename(voisin.c_str(), cible.c_str()) != 0) {
        const int erreur = errno;
        unlink(voisin.c_str());
        return numero_erreur(erreur);
    }
    fixe_nom(cible);
    return 0;
}

bool a_d_autres_noms(const std::string& chemin) {
    struct stat etat {};
    return stat(chemin.c_str(), &etat) == 0 && S_ISREG(etat.st_mode) && etat.st_nlink > 1;
}

ResultatFichier recrit_fichier(const std::string& chemin, const std::string& ancien,
                               const std::string& contenu) {
    const Descripteur fichier(open(chemin.c_str(), O_WRONLY | O_CLOEXEC));
    if (fichier.fd < 0) return numero_erreur(errno);
    const auto pose = [&](const std::string& octets) {
        return lseek(fichier.fd, 0, SEEK_SET) == 0 && ecrit_tout(fichier.fd, octets) &&
               ftruncate(fichier.fd, static_cast<off_t>(octets.size())) == 0 && fsync(fichier.fd) == 0;
    };
    if (pose(contenu)) return 0;
    const int erreur = errno;
    pose(ancien);
    return numero_erreur(erreur);
}

namespace {

using Chemin = const std::string&;   // Windows-1252

// What lies at a path of the system: false when there is nothing.
bool etat(const std::string& reel, struct stat& sortie) {
    return stat(reel.c_str(), &sortie) == 0;
}

// The failure of an operation on a file that should be there: an absent folder is told as such.
int numero_absence(const std::string& reel, int numero) {
    return numero == kFichierAbsent && !est_dossier(dossier(reel)) ? kDossierAbsent : numero;
}

bool existe(Chemin chemin) {
    struct stat s {};
    return etat(vers_utf8(chemin), s) && !S_ISDIR(s.st_mode);
}

bool existe_dossier(Chemin chemin) { return est_dossier(vers_utf8(chemin)); }

// A pipe is no sheet: opening it could wait for ever.
int lit(Chemin chemin, std::string& contenu) {
    const std::string reel = vers_utf8(chemin);
    struct stat s {};
    if (etat(reel, s) && !S_ISREG(s.st_mode)) return kAccesFichier;
    return numero_absence(reel, lit_fichier(reel, contenu));
}

int remplace(Chemin chemin, const std::string& contenu) {
    return remplace_fichier(vers_utf8(chemin), contenu);
}

// A file that the copy makes has the rights of its source; one that stands there keeps its own.
int copie(Chemin source, Chemin destination) {
    std::string contenu;
    if (const int refus = lit(source, contenu); refus != 0) return refus;
    const std::string vers = vers_utf8(destination);
    struct stat s {};
    return remplace_fichier(vers, contenu, etat(vers, s) ? "" : vers_utf8(source));
}

// A move to another disk: the copy is whole before the first file goes.
int deplace_loin(Chemin source, Chemin destination) {
    if (const int refus = copie(source, destination); refus != 0) return refus;
    return unlink(vers_utf8(source).c_str()) == 0 ? 0 : numero_erreur(errno);
}

int deplace(Chemin source, Chemin destination) {
    const std::string de = vers_utf8(source);
    const std::string vers = vers_utf8(destination);
    struct stat ici {}, la {};
    if (!etat(de, ici)) return numero_absence(de, numero_erreur(errno));
    const bool occupe = etat(vers, la);
    const bool lui_meme = occupe && ici.st_dev == la.st_dev && ici.st_ino == la.st_ino;
    if (S_ISDIR(ici.st_mode) || lui_meme) return kAccesFichier;
    if (rename(de.c_str(), vers.c_str()) == 0) {
        fixe_nom(vers);
        return 0;
    }
    if (errno == EXDEV) return deplace_loin(source, destination);
    return errno == ENOENT ? kDossierAbsent : numero_erreur(errno);
}

int efface(Chemin chemin) {
    const std::string reel = vers_utf8(chemin);
    if (unlink(reel.c_str()) == 0) return 0;
    return numero_absence(reel, numero_erreur(errno));
}

int cree_dossier(Chemin chemin) {
    if (mkdir(vers_utf8(chemin).c_str(), 0777) == 0) return 0;
    return errno == ENOENT ? kDossierAbsent : numero_erreur(errno);
}

// The names in a folder, either its files or its folders. A link to a folder is none: who goes down
// through links may never come to an end.
int liste(Chemin chemin, std::vector<std::string>& noms, bool dossiers) {
    noms.clear();
    const std::unique_ptr<DIR, int (*)(DIR*)> ouvert(opendir(vers_utf8(chemin).c_str()), closedir);
    if (!ouvert) return errno == ENOENT ? kDossierAbsent : numero_erreur(errno);
    for (;;) {
        errno = 0;
        const dirent* entree = readdir(ouvert.get());
        if (entree == nullptr) break;
        const std::string nom = entree->d_name;
        struct stat s {};
        if (nom == "." || nom == ".." ||
            fstatat(dirfd(ouvert.get()), nom.c_str(), &s, dossiers ? AT_SYMLINK_NOFOLLOW : 0) != 0 ||
            S_ISDIR(s.st_mode) != dossiers)
            continue;
        if (auto ecrit = depuis_utf8(nom)) noms.push_back(std::move(*ecrit));
    }
    if (errno != 0) return numero_erreur(errno);
    range_noms(noms);
    return 0;
}

int liste_fichiers(Chemin dossier_lu, std::vector<std::string>& noms) {
    return liste(dossier_lu, noms, false);
}
int liste_dossiers(Chemin dossier_lu, std::vector<std::string>& noms) {
    return liste(dossier_lu, noms, true);
}

// Links, and names with "." and ".." in them, come to the file itself.
bool meme_fichier(Chemin a, Chemin b) {
    struct stat premier {}, second {};
    return stat(vers_utf8(a).c_str(), &premier) == 0 && stat(vers_utf8(b).c_str(), &second) == 0 &&
           premier.st_dev == second.st_dev && premier.st_ino == second.st_ino;
}

}  // namespace

void installe_fichiers_reels() {
    port.fichiers = {existe,  existe_dossier, lit,          remplace,       copie,
                     deplace, efface,         cree_dossier, liste_fichiers, liste_dossiers,
                     meme_fichier};
}
