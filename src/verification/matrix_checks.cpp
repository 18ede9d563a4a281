// Follows the nodes of a record through the two work matrices as the engine fills them.
#include "verification/matrix_checks.hpp"

#include <string_view>
#include <utility>

#include "functions/table.hpp"
#include "state/context.hpp"

namespace {

using Noeuds = std::vector<Noeud>;
using Genre = std::optional<GenreConstat>;
constexpr std::size_t kAucun = std::string_view::npos;

// Where the values of the nodes are.
class Suivi {
public:
    explicit Suivi(const Noeuds& noeuds)
        : noeuds_(noeuds), taille_(noeuds.size(), 1), matrice_(noeuds.size(), false), nombre_(noeuds.size()) {}

    // Takes the next node in; what is wrong with it.
    Genre prend(std::size_t i) {
        const Noeud& n = noeuds_[i];
        nombre_[i] = n.valeur;
        for (std::size_t c = i, reste = static_cast<std::size_t>(n.arite); reste > 0 && c > 0; --reste) {
            c -= c == i ? 1 : taille_[c];
            taille_[i] += taille_[c];
        }
        if (n.genre == GenreNoeud::matrice) return charge(i);
        if (n.genre == GenreNoeud::appel) return appelle(i);
        if (n.arite == 1) return prend_signe(i);
        return n.arite == 2 ? combine(i, i - 1 - taille_[i - 1], i - 1) : Genre();
    }

    bool est_matrice(std::size_t i) const { return matrice_[i]; }
    bool porte(std::size_t i) const { return premiere_ == i && !seconde_prise_; }
    bool entamee() const { return premiere_prise_; }
    GenreConstat melange() const { return determinant_ ? GenreConstat::determinant_accompagne : GenreConstat::matrices_melees; }

private:
    // A name: its matrix goes into the first work matrix that is free, and always into the second one then.
    Genre charge(std::size_t i) {
        matrice_[i] = true;
        (premiere_prise_ ? seconde_ : premiere_) = i;
        (premiere_prise_ ? seconde_prise_ : premiere_prise_) = true;
        return {};
    }

    // The value of a node is that of its operand.
    Genre transmet(std::size_t i, std::size_t operande) {
        matrice_[i] = matrice_[operande];
        if (premiere_ == operande) premiere_ = i;
        if (seconde_ == operande) seconde_ = i;
        return {};
    }

    // Brackets and "+" leave a matrix as it is; so do the other signs, which nobody means.
    Genre prend_signe(std::size_t i) {
        const bool sans_effet = noeuds_[i].genre == GenreNoeud::parenthese || noeuds_[i].genre == GenreNoeud::plus_unaire;
        const bool fausse = matrice_[i - 1] && !sans_effet;
        transmet(i, i - 1);
        return fausse ? Genre(GenreConstat::matrice_et_nombre) : Genre();
    }

    // A function: two of them take a matrix, which must be in the first work matrix.
    Genre appelle(std::size_t i) {
        const bool inverse = noeuds_[i].numero == kInvMat, determinant = noeuds_[i].numero == kDetMat;
        for (std::size_t c = i, reste = static_cast<std::size_t>(noeuds_[i].arite); reste > 0 && c > 0; --reste) {
            c -= c == i ? 1 : taille_[c];
            if (matrice_[c] != (inverse || determinant)) return GenreConstat::matrice_et_nombre;
        }
        if (!inverse && !determinant) return {};
        const bool juste = porte(i - 1);
        determinant_ |= determinant;
        matrice_[i] = inverse;
        if (inverse) premiere_ = i;
        return juste ? Genre() : Genre(melange());
    }

    // What the engine has done to two numbers, or to a number and a matrix.
    Genre combine(std::size_t i, std::size_t a, std::size_t b) {
        const Noeud& n = noeuds_[i];
        const int operandes = matrice_[a] + matrice_[b];
        if (n.genre == GenreNoeud::remplace) return transmet(i, b);
        if (operandes == 0) return n.sorte == SorteCalcul::nombres ? Genre() : Genre(melange());
        matrice_[i] = true;
        const bool somme = n.genre == GenreNoeud::plus || n.genre == GenreNoeud::moins;
        if (n.genre == GenreNoeud::fois) return operandes == 2 ? multiplie(i, a, b) : multiplie_par_nombre(i, a, b);
        if (n.genre == GenreNoeud::puissance && !matrice_[b]) return eleve(i, a);
        if (!somme || operandes != 2) return GenreConstat::matrice_et_nombre;
        return pose(i, n.sorte == SorteCalcul::matrices && premiere_ == a && seconde_ == b);
    }

    // The result of two matrices is in the first work matrix.
    Genre pose(std::size_t i, bool juste) {
        premiere_ = i;
        seconde_ = kAucun;
        seconde_prise_ = false;
        return juste ? Genre() : Genre(melange());
    }

    Genre multiplie(std::size_t i, std::size_t a, std::size_t b) {
        if (noeuds_[i].sorte != SorteCalcul::matrices) return GenreConstat::produit_de_matrices;
        return pose(i, premiere_ == a && seconde_ == b);
    }

    // The number is the side that isn't 0, the left one first: a matrix that came of a product has its number.
    Genre multiplie_par_nombre(std::size_t i, std::size_t a, std::size_t b) {
        const double gauche = nombre_[a], droite = nombre_[b];
        const bool nombre = gauche == droite || (matrice_[a] ? gauche == 0 : gauche != 0 || droite == 0);
        const std::size_t matrice = matrice_[a] ? a : b;
        const bool juste = nombre && noeuds_[i].sorte == SorteCalcul::matrice_par_nombre &&
                           (seconde_prise_ ? seconde_ : premiere_) == matrice;
        transmet(i, matrice);
        return juste ? Genre() : Genre(melange());
    }

    Genre eleve(std::size_t i, std::size_t base) {
        const bool juste = noeuds_[i].sorte == SorteCalcul::matrices && porte(base);
        premiere_ = i;
        nombre_[i] = nombre_[base];
        return juste ? Genre() : Genre(melange());
    }

    const Noeuds& noeuds_;
    std::vector<std::size_t> taille_;    // nodes of a part
    std::vector<bool> matrice_;          // what the node is meant to be
    std::vector<double> nombre_;         // what the engine holds as its number, of a matrix too
    std::size_t premiere_ = kAucun, seconde_ = kAucun;   // whose value each work matrix holds
    bool premiere_prise_ = false, seconde_prise_ = false;
    bool determinant_ = false;           // DETMAT was called: its matrix still counts as one of the formula's
};

// The formula stored in a matrix that has no value yet; "" when each has one.
std::string rangee(std::string_view formule) {
    if (formule.size() > 1 && formule[1] == '=') formule.remove_prefix(2);
    for (char lettre = 'J'; lettre >= 'A'; --lettre)
        if (!moteur.matrice_definie[static_cast<std::size_t>(lettre - 'A' + 1)])
            return (std::string("M") + lettre + "=").append(formule);
    return {};
}

// A sign in front of a matrix as the product that it means.
std::string avec_facteur(const Lue& lue, const Noeud& n) {
    if (n.genre != GenreNoeud::moins_unaire) return {};
    std::string texte(lue.tapee);
    texte.replace(lue.place(n.signe - 1), 1, "(-1)*");
    return lue.releve.affectee < 0 ? texte : rangee(texte);
}

// What becomes of the value of the whole formula.
std::optional<ConstatMatrice> constat_du_resultat(const Lue& lue, const Suivi& suivi, std::size_t racine) {
    const bool dans_matrice = lue.releve.affectee < 0;
    if (!suivi.est_matrice(racine))
        return dans_matrice && suivi.entamee() ? std::optional(ConstatMatrice{.genre = suivi.melange()}) : std::nullopt;
    if (!dans_matrice) return ConstatMatrice{.genre = GenreConstat::matrice_seule, .propose = rangee(lue.tapee)};
    return suivi.porte(racine) ? std::nullopt : std::optional(ConstatMatrice{.genre = suivi.melange()});
}

}  // namespace

std::optional<ConstatMatrice> constat_de_matrice(const Lue& lue) {
    const Noeuds& noeuds = lue.releve.noeuds;
    Suivi suivi(noeuds);
    std::size_t racine = kAucun;
    for (std::size_t i = debut_calcul(noeuds); i < noeuds.size(); ++i) {
        const Noeud& n = noeuds[i];
        if (n.genre == GenreNoeud::refuse) return {};
        if (n.genre == GenreNoeud::egale) break;
        racine = i;
        if (const Genre genre = suivi.prend(i))
            return ConstatMatrice{*genre, n.signe > 0 ? n.signe : n.debut, avec_facteur(lue, n)};
    }
    return lue.erreur || racine == kAucun ? std::nullopt : constat_du_resultat(lue, suivi, racine);
}
