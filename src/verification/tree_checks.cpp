// Walks through the nodes of a record with the places of their children.
#include "verification/tree_checks.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "functions/table.hpp"
#include "state/context.hpp"
#include "state/modes.hpp"
#include "state/variables.hpp"
#include "verification/matrix_checks.hpp"

namespace {

using Noeuds = std::vector<Noeud>;

// The first child of each node, as an index; its own index for an operand.
std::vector<std::size_t> premiers_enfants(const Noeuds& noeuds) {
    std::vector<std::size_t> premiers(noeuds.size()), pile;
    for (std::size_t i = 0; i < noeuds.size(); ++i) {
        const std::size_t arite = std::min(static_cast<std::size_t>(noeuds[i].arite), pile.size());
        premiers[i] = arite == 0 ? i : pile[pile.size() - arite];
        pile.resize(pile.size() - arite);
        pile.push_back(i);
    }
    return premiers;
}

// What was typed for a node.
std::string texte_de(const Lue& lue, const Noeud& n) {
    const std::size_t debut = lue.place(n.debut - 1);
    const std::size_t fin = lue.place(n.fin);
    return std::string(sans_blancs(lue.tapee.substr(debut, fin > debut ? fin - debut : 0)));
}

// A multiple of a twenty-fourth of pi, up to four turns: no angle in degrees comes so close to one by chance.
bool est_fraction_de_pi(double x) {
    const double parts = x * 24 / pi_valeur();
    return parts > 0.5 && parts < 200 && std::fabs(parts - std::round(parts)) < 1e-9;
}

// Looks at one formula; adds what it finds.
class Examen {
public:
    Examen(const Lue& lue, double valeur)
        : lue_(lue), noeuds_(lue.releve.noeuds), premiers_(premiers_enfants(noeuds_)), valeur_(valeur) {}

    std::vector<ConstatArbre> fait() {
        for (std::size_t i = 0; i < noeuds_.size(); ++i) {
            if (lue_.releve.a(kTraitPourcent)) regarde_pourcentage(i);
            if (lue_.releve.a(kTraitPuissance)) regarde_puissance(i);
            if (lue_.releve.a(kTraitAppel)) regarde_angle(i);
            if (lue_.releve.a(kTraitAppel)) regarde_partie(i);
            if (lue_.releve.a(kTraitAppel)) regarde_fon(i);
            regarde_fraction(i);
        }
        if (lue_.releve.a(kTraitMatrice)) regarde_matrices();
        return std::move(constats_);
    }

private:
    const Noeud& enfant(std::size_t i) const { return noeuds_[premiers_[i]]; }

    // The finding that was added; nullptr when the formula has one of its kind: once is enough.
    ConstatArbre* ajoute(GenreConstat genre, std::int32_t place, std::string propose) {
        const auto meme = std::ranges::find(constats_, genre, &ConstatArbre::genre);
        if (meme != constats_.end()) return nullptr;
        constats_.push_back({.genre = genre, .place = place, .morceau = {}, .lu = {}, .valeur = texte_general(valeur_),
                             .propose = std::move(propose)});
        return &constats_.back();
    }

    // The formula with brackets around a part of it.
    std::string entre_parentheses(std::int32_t debut, std::int32_t fin) const {
        const std::size_t a = lue_.place(debut - 1), b = lue_.place(fin);
        std::string texte(lue_.tapee);
        return texte.insert(b, ")").insert(a, "(");
    }

    // A percentage of a product without brackets: "1000+200*5%" looks like 1000 and 10.
    void regarde_pourcentage(std::size_t i) {
        const Noeud& n = noeuds_[i];
        if (lue_.erreur || i == 0 || !est_pourcentage(n) || !est_terme(noeuds_[i - 1])) return;
        const std::size_t place = lue_.tapee.find('%', lue_.place(noeuds_[i - 1].fin - 1));
        if (place == std::string_view::npos) return;
        std::string propose(lue_.tapee);
        if (noeuds_[i - 1].genre == GenreNoeud::fois)
            propose.replace(place, 1, "/100");
        else
            propose.clear();
        ajoute(GenreConstat::pourcentage_du_terme, static_cast<std::int32_t>(noeuds_[i - 1].fin + 1), std::move(propose));
    }

    void regarde_puissance(std::size_t i) {
        const Noeud& n = noeuds_[i];
        if (lue_.erreur) return;
        if (n.genre == GenreNoeud::moins_unaire) return regarde_signe(i);
        if (n.genre != GenreNoeud::puissance || n.sorte != SorteCalcul::nombres) return;
        const Noeud& base = enfant(i);
        regarde_point(base);
        if (base.genre == GenreNoeud::puissance)
            ajoute(GenreConstat::puissance_de_puissance, n.signe, entre_parentheses(base.signe + 1, n.fin));
        if (base.genre == GenreNoeud::non)
            ajoute(GenreConstat::non_puissance, base.debut, entre_parentheses(enfant(premiers_[i]).debut, n.fin));
    }

    // A sign in front of an even power: the power comes first.
    void regarde_signe(std::size_t i) {
        const std::int32_t debut = noeuds_[premiers_[i]].debut;
        const auto puissance = std::find_if(noeuds_.begin(), noeuds_.begin() + static_cast<std::ptrdiff_t>(i), [&](const Noeud& n) {
            return n.genre == GenreNoeud::puissance && n.debut == debut && n.sorte == SorteCalcul::nombres;
        });
        if (puissance == noeuds_.begin() + static_cast<std::ptrdiff_t>(i)) return;
        const double exposant = (puissance - 1)->valeur;
        const Noeud& base = enfant(static_cast<std::size_t>(puissance - noeuds_.begin()));
        if (base.genre != GenreNoeud::nombre || std::fmod(exposant, 2) != 0) return;   // with a letter it is usual
        ajoute(GenreConstat::moins_puissance, noeuds_[i].signe, entre_parentheses(noeuds_[i].signe, puissance->signe - 1));
    }

    // "A/2B" and "8^1/3": what stands behind the line of a fraction is less than it looks.
    void regarde_fraction(std::size_t i) {
        const Noeud& n = noeuds_[i];
        if (lue_.erreur || n.sorte != SorteCalcul::nombres) return;
        if (n.genre == GenreNoeud::fois) return regarde_denominateur(i);
        if (n.genre != GenreNoeud::divise || enfant(i).genre != GenreNoeud::puissance) return;
        const Noeud& exposant = noeuds_[premiers_[i] - 1];
        if (exposant.genre == GenreNoeud::nombre && exposant.valeur == 1)
            ajoute(GenreConstat::puissance_divisee, n.signe, entre_parentheses(exposant.debut, n.fin));
    }

    // A product without its sign behind a fraction with a number below.
    void regarde_denominateur(std::size_t i) {
        const Noeud& n = noeuds_[i];
        if (enfant(i).genre != GenreNoeud::divise || lue_.tapee.substr(lue_.place(n.signe - 1), 1) == "*") return;
        const Noeud& diviseur = noeuds_[premiers_[i] - 1];
        if (diviseur.genre == GenreNoeud::nombre)
            ajoute(GenreConstat::produit_sans_signe, diviseur.debut, entre_parentheses(diviseur.debut, n.fin));
    }

    // "2.10^3": in a textbook the point is that of a product.
    void regarde_point(const Noeud& base) {
        const std::string texte = texte_de(lue_, base);
        if (base.genre != GenreNoeud::nombre || !texte.ends_with(".10")) return;
        std::string propose(lue_.tapee);
        propose[lue_.place(base.fin - 3)] = '*';
        ajoute(GenreConstat::point_dix, base.debut, std::move(propose));
    }

    // A matrix where the rules take a number, and what the work matrices lose.
    void regarde_matrices() {
        if (auto c = constat_de_matrice(lue_)) ajoute(c->genre, c->place, std::move(c->propose));
    }

    // PI stands somewhere in a node, whose part begins with the first operand of its first child; not as a divisor,
    // which makes degrees of radians, and 3.14 not alone.
    bool contient_pi(std::size_t i) const {
        std::size_t debut = i;
        while (premiers_[debut] != debut) debut = premiers_[debut];
        for (std::size_t k = debut; k < i; ++k) {
            const bool seul = debut + 1 == i && noeuds_[k].valeur == 3.14;
            if (est_pi(noeuds_[k]) && noeuds_[k + 1].genre != GenreNoeud::divise && !seul) return true;
        }
        return false;
    }

    // Trigonometry of a number that is usual in another unit.
    void regarde_angle(std::size_t i) {
        const Noeud& n = noeuds_[i];
        if (!est_angle(n) || !angle_suspect(noeuds_[i - 1].valeur, contient_pi(i))) return;
        constexpr std::string_view kUnites[] = {"degrés"_fr, "radians"_fr, "grades"_fr};
        ConstatArbre* const c = ajoute(GenreConstat::angle, n.debut, "");
        if (c == nullptr) return;
        c->morceau = texte_de(lue_, n);
        c->lu = kUnites[modes.unite_angle == 1 ? 0 : modes.unite_angle == 2 ? 1 : 2];
    }

    // The two parts of a number, as mathematics has them, are others below 0; and one is rounded first.
    void regarde_partie(std::size_t i) {
        const Noeud& n = noeuds_[i];
        if (lue_.erreur || i == 0 || !est_autre_partie(n, noeuds_[i - 1].valeur)) return;
        ConstatArbre* const c = ajoute(GenreConstat::partie_entiere, n.debut, "");
        if (c == nullptr) return;
        const bool coupe = n.valeur == std::trunc(noeuds_[i - 1].valeur);
        c->morceau = texte_de(lue_, n);
        c->valeur = texte_general(n.valeur);
        c->lu = n.numero == kFrac ? "FRAC perd le signe"_fr
               : coupe           ? "INT coupe les décimales"_fr
                                 : "INT arrondit d'abord aux décimales affichées"_fr;
    }

    // A call of the user function leaves its value in the function's letter, which may be read behind it.
    void regarde_fon(std::size_t i) {
        const Noeud& n = noeuds_[i];
        const int lettre = moteur.fonction_active;
        if (n.genre == GenreNoeud::appel && n.numero == kFon && i > 0)
            fon_change_ |= noeuds_[i - 1].genre != GenreNoeud::lettre || noeuds_[i - 1].numero != lettre;
        if (lue_.erreur || !fon_change_ || n.genre != GenreNoeud::lettre || n.numero != lettre) return;
        if (ConstatArbre* const c = ajoute(GenreConstat::lettre_de_fon, n.debut, ""))
            c->lu = std::string(1, static_cast<char>('A' + lettre - 1));
        fon_change_ = false;
    }

    bool fon_change_ = false;
    const Lue& lue_;
    const Noeuds& noeuds_;
    std::vector<std::size_t> premiers_;
    double valeur_;
    std::vector<ConstatArbre> constats_;
};

}  // namespace

bool est_pourcentage(const Noeud& n) { return n.genre == GenreNoeud::plus_pourcent || n.genre == GenreNoeud::moins_pourcent; }

bool est_terme(const Noeud& n) {
    return n.genre == GenreNoeud::fois || n.genre == GenreNoeud::divise || n.genre == GenreNoeud::puissance;
}

bool est_angle(const Noeud& n) {
    return n.genre == GenreNoeud::appel && (n.numero == kSin || n.numero == kCos || n.numero == kTan) && n.arite == 1;
}

bool est_autre_partie(const Noeud& n, double argument) {
    if (n.genre != GenreNoeud::appel || n.arite != 1 || (n.numero != kInt && n.numero != kFrac)) return false;
    const double entier = std::floor(argument);
    return std::fabs(n.valeur - (n.numero == kInt ? entier : argument - entier)) > 1e-9 * std::max(1.0, std::fabs(argument));
}

bool est_pi(const Noeud& n) {
    if (n.genre == GenreNoeud::appel) return n.numero == kPi;
    return n.genre == GenreNoeud::nombre && (n.valeur == 3.14 || (n.valeur >= 3.1415 && n.valeur <= 3.1416));
}

bool angle_suspect(double argument, bool contient_pi) {
    const double x = std::fabs(argument);
    const bool radian = modes.unite_angle == 2;
    if (!radian && (contient_pi || est_fraction_de_pi(x))) return true;
    if (modes.unite_angle == 1 || contient_pi) return false;
    return x >= 15 && x <= 720 && std::fmod(x, 15) == 0 && (radian || std::fmod(x, 10) != 0);
}

bool fraction_a_regarder(std::string_view formule, std::string_view tapee) {
    if (formule.find('/') == std::string_view::npos) return false;
    return formule.size() > tapee.size() || formule.find("^1/") != std::string_view::npos;
}

std::vector<ConstatArbre> constats_de_l_arbre(const Lue& lue, double valeur) {
    if (!lue.releve.a(kTraitPuissance | kTraitMatrice | kTraitAppel | kTraitPourcent) &&
        !fraction_a_regarder(lue.formule, lue.tapee))
        return {};
    return Examen(lue, valeur).fait();
}
