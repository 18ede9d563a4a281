// Real files on a POSIX system, read and replaced whole. Changes no state of the core.
#include "platform/files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include "base/failure.hpp"

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

constexpr int kLiensMaxi = 40;   // links behind links, as the system itself allows

// Path behind the links, so that the file itself is replaced and not the link; a link whose file is
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

// Rights for the new file: those of the old one, or the usual ones. A file that its owner may not
// write is refused as a direct write would be.
int droits(const std::string& chemin, mode_t& mode) {
    struct stat ancien {};
    if (stat(chemin.c_str(), &ancien) != 0) {
        const mode_t masque = umask(0);
        umask(masque);
        mode = 0666 & ~masque;
        return errno == ENOENT ? 0 : numero_erreur(errno);
    }
    if (!S_ISREG(ancien.st_mode)) return kAccesFichier;
    mode = ancien.st_mode & 07777;
    return (ancien.st_mode & 0222) == 0 || access(chemin.c_str(), W_OK) != 0 ? kAccesFichier : 0;
}

}  // namespace

ResultatFichier lit_fichier(const std::string& chemin, std::string& contenu) {
    const Descripteur fichier(open(chemin.c_str(), O_RDONLY | O_CLOEXEC));
    if (fichier.fd < 0) return numero_erreur(errno);
    struct stat etat {};
    if (fstat(fichier.fd, &etat) != 0 || S_ISDIR(etat.st_mode)) return kAccesFichier;
    contenu.clear();
    std::array<char, 65536> bloc;
    for (;;) {
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

ResultatFichier remplace_fichier(const std::string& chemin, const std::string& contenu) {
    const std::string cible = chemin_reel(chemin);
    mode_t mode = 0;
    if (const int refus = droits(cible, mode); refus != 0) return refus;
    std::string voisin = cible + ".XXXXXX";
    Descripteur fichier(mkostemp(voisin.data(), O_CLOEXEC));
    if (fichier.fd < 0) return errno == ENOENT ? kDossierAbsent : numero_erreur(errno);
    const bool ecrit = ecrit_tout(fichier.fd, contenu) && fchmod(fichier.fd, mode) == 0 &&
                       fsync(fichier.fd) == 0;
    if (!ecrit || rename(voisin.c_str(), cible.c_str()) != 0) {
        const int erreur = errno;
        unlink(voisin.c_str());
        return numero_erreur(erreur);
    }
    const Descripteur parent(open(dossier(cible).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.fd >= 0) fsync(parent.fd);   // the new name survives a power cut
    return 0;
}
