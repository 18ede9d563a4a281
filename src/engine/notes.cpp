// The notes of what is read. Change the record that `moteur.releve` points to.
#include "engine/notes.hpp"

#include <algorithm>
#include <bit>
#include <string_view>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "engine/identifiers.hpp"
#include "engine/operations.hpp"
#include "state/context.hpp"

namespace {

constexpr std::string_view kChiffresHexa = "0123456789ABCDEF";

// First character of the current symbol; 0 for an empty one.
char tete_lue() { return moteur.l_symbole.empty() ? '\0' : moteur.l_symbole.front(); }

// Characters of a literal that take part in its value; notes a hexadecimal one with others than its digits.
std::size_t longueur_utile(std::string_view litteral) {
    if (litteral[0] == '$') {
        if (litteral.find_first_not_of(kChiffresHexa, 1) != std::string_view::npos) moteur.releve->traits |= kTraitHexa;
        return litteral.size();   // whatever stands there is a digit, at worst a 0
    }
    if (litteral[0] == '#') return 1 + longueur_prefixe(litteral.substr(1));
    return longueur_prefixe(litteral);
}

// The place of the last of `nombre` characters of the current symbol, which may have been joined over blanks.
std::int32_t place_du_dernier(const Releve& releve, std::size_t nombre) {
    std::int32_t place = releve.symbole_debut - 1;
    while (nombre > 0 && place < releve.symbole_fin)
        if (moteur.p_formule[static_cast<std::size_t>(place++)] != ' ') --nombre;
    return place;
}

// The current symbol as an operand: which one, and how much of it counts.
Noeud operande() {
    Releve& releve = *moteur.releve;
    Noeud n{.genre = GenreNoeud::nombre, .debut = releve.symbole_debut, .fin = releve.symbole_fin,
            .utile = releve.symbole_fin, .valeur = moteur.l_valeur};
    if (releve.symbole_refuse) {
        n.genre = GenreNoeud::refuse;
    } else if (est_mot_operateur(moteur.l_symbole)) {
        n.genre = GenreNoeud::mot;
        releve.traits |= kTraitMot;
    } else if (const char tete = tete_lue(); tete < 'A' || tete > 'Z') {
        n.utile = place_du_dernier(releve, longueur_utile(moteur.l_symbole));
    } else if (moteur.l_symbole.size() > 1) {   // l_matrice and l_var may be those of an assignment's target
        n.genre = GenreNoeud::matrice;
        n.numero = static_cast<std::int16_t>(rang_lettre(moteur.l_symbole[1]));
        n.utile = n.debut + 1;
        releve.traits |= kTraitMatrice;
    } else {
        n.genre = GenreNoeud::lettre;
        n.numero = static_cast<std::int16_t>(rang_lettre(tete));
    }
    return n;
}

// Notes which variable a letter reads, and whether it had a value.
void releve_lettre(Releve& releve, std::int16_t numero) {
    const std::uint32_t bit = std::uint32_t{1} << numero;
    releve.lettres |= bit;
    if (!moteur.variable_definie[static_cast<std::size_t>(numero)]) releve.lettres_neuves |= bit;
}

// The symbols that put a value in l_valeur as soon as they are read.
bool a_ete_valorise() {
    const char c = tete_lue();
    if (c >= 'A' && c <= 'Z')
        return operations.fonction_nommee(moteur.l_symbole) == 0 && !est_mot_operateur(moteur.l_symbole);
    return (c >= '0' && c <= '9') || c == '$' || c == '#' || c == "œ"_fr[0];
}

}  // namespace

void releve_symbole(std::size_t debut, std::size_t fin) noexcept {
    Releve& releve = *moteur.releve;
    releve.lu = std::max(releve.lu, releve.symbole_fin);
    releve.symbole_debut = static_cast<std::int32_t>(debut);
    releve.symbole_fin = static_cast<std::int32_t>(fin);
    releve.symbole_refuse = false;
}

void releve_operande() noexcept {
    Releve& releve = *moteur.releve;
    const Noeud n = operande();
    if (n.genre == GenreNoeud::lettre) releve_lettre(releve, n.numero);
    if (n.utile < n.fin) releve.traits |= kTraitPartiel;
    releve_noeud(n, releve.racines.size());
}

void releve_remplacement() noexcept {
    Releve& releve = *moteur.releve;
    if (releve.symbole_refuse || !a_ete_valorise()) return;
    releve_operande();
    releve.lu = releve.symbole_fin;
    releve.traits |= kTraitRemplace;
    note_operation(GenreNoeud::remplace, 2, 0, moteur.l_valeur);
}

void releve_noeud(const Noeud& noeud, std::size_t parts) noexcept {
    Releve& releve = *moteur.releve;
    parts = std::min(parts, releve.racines.size());
    try {
        Noeud n = noeud;
        n.arite = static_cast<std::int32_t>(releve.racines.size() - parts);
        if (n.arite > 0) {
            const Noeud& premier = releve.noeuds[static_cast<std::size_t>(releve.racines[parts])];
            if (n.debut == 0) n.debut = n.signe == 0 ? premier.debut : std::min(n.signe, premier.debut);
        }
        if (n.fin == 0) n.fin = releve.lu;
        releve.noeuds.push_back(n);
        releve.racines.resize(parts);
        releve.racines.push_back(static_cast<std::int32_t>(releve.noeuds.size()) - 1);
    } catch (...) {
        moteur.releve = nullptr;
    }
}

void note_appel(int fonction, std::int32_t debut, std::int32_t parenthese, std::size_t parts, double valeur) {
    if (moteur.releve == nullptr) return;
    Releve& releve = *moteur.releve;
    releve.traits |= kTraitAppel;
    if (moteur.erreur_formule && releve.faute == 0) {   // a failure of the function itself
        releve.faute = debut;
        releve.faute_fin = releve.lu;
    }
    releve_noeud({.genre = GenreNoeud::appel, .numero = static_cast<std::int16_t>(fonction), .debut = debut,
                  .signe = parenthese, .valeur = valeur},
                 parts);
}

void note_perte(TraitLecture trait, double avant, double apres) noexcept {
    if (moteur.releve == nullptr ||
        std::bit_cast<std::uint64_t>(avant) == std::bit_cast<std::uint64_t>(apres))
        return;
    moteur.releve->traits |= trait;
    if (moteur.releve->perdue == 0) moteur.releve->perdue = moteur.releve->lu;
}

void releve_fin() noexcept {
    Releve& releve = *moteur.releve;
    releve.arret = releve.lu >= releve.symbole_debut ? releve.lu + 1 : releve.symbole_debut;
}
