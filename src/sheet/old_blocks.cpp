// The forms of the lines that a pass writes in blocks. A line that has none of them is the user's: a block
// in which one stands is no whole block, and all of it stays. After the "=" of a result anything may stand,
// as after the result of any line.
#include "sheet/old_blocks.hpp"

#include <algorithm>
#include <string>

#include "base/codepage.hpp"
#include "editing/lines.hpp"
#include "sheet/matrix_text.hpp"
#include "sheet/sorted_block.hpp"
#include "sheet/statistics_results.hpp"

namespace {

constexpr auto npos = std::string_view::npos;

bool tout_dans(std::string_view texte, std::string_view signes) {
    return texte.find_first_not_of(signes) == npos;
}

// True for a multiple of Pi without its sign: "Pi", "3Pi/4".
bool est_multiple_pi(std::string_view texte) {
    constexpr std::string_view kChiffres = "0123456789";
    const std::size_t pi = texte.find("Pi");
    if (pi == npos || !tout_dans(texte.substr(0, pi), kChiffres)) return false;
    const std::string_view reste = texte.substr(pi + 2);
    return reste.empty() || (reste[0] == '/' && tout_dans(reste.substr(1), kChiffres));
}

}  // namespace

bool est_valeur(std::string_view texte) {
    if (texte.starts_with('-')) texte.remove_prefix(1);
    if (tout_dans(texte, "0123456789ABCDEF") || texte == "INF" || texte == "NAN") return true;
    if (est_multiple_pi(texte)) return true;
    if (texte[0] < '0' || texte[0] > '9') return false;
    const std::size_t e = std::min(texte.find('E'), texte.size());
    return tout_dans(texte.substr(0, e), "0123456789.") && tout_dans(texte.substr(e), "E0123456789.+-");
}

namespace {

// True for values with ", " between them: a row of a matrix in column form, a line of sorted values.
bool est_rangee(std::string_view ligne) {
    while (true) {
        const std::size_t virgule = std::min(ligne.find(','), ligne.size());
        if (!est_valeur(sans_blancs(ligne.substr(0, virgule)))) return false;
        if (virgule == ligne.size()) return true;
        ligne.remove_prefix(virgule + 1);
    }
}

// True for a row of a table: "f(2) = 4".
bool est_ligne_de_table(std::string_view ligne) {
    const std::size_t fermante = ligne.find(") =");
    if (!ligne.starts_with("f(") || fermante == npos) return false;
    return std::none_of(ligne.begin() + 2, ligne.begin() + static_cast<std::ptrdiff_t>(fermante),
                        [](char c) { return c >= 'a' && c <= 'z' && c != 'i'; });
}

enum class Role { rangee, cloture, autre };

// What a line is below the line of a block; `premiere` for the one directly below it.
Role role_de(GenreBloc genre, std::string_view ligne, bool premiere) {
    switch (genre) {
        case GenreBloc::table:
            return est_ligne_de_table(ligne) ? Role::rangee : Role::autre;
        case GenreBloc::statistiques:
            if (premiere) return commence_resultats_stat(ligne) ? Role::rangee : Role::autre;
            if (est_fin_resultats_stat(ligne)) return Role::cloture;
            return est_ligne_resultats_stat(ligne) ? Role::rangee : Role::autre;
        case GenreBloc::tri:
            if (ligne == kFinTri) return Role::cloture;
            return est_rangee(ligne) ? Role::rangee : Role::autre;
        case GenreBloc::matrice:
            if (ligne == kFinMatrice) return Role::cloture;
            return est_rangee(ligne) ? Role::rangee : Role::autre;
    }
    return Role::autre;
}

}  // namespace

AncienBloc ancien_bloc(GenreBloc genre, std::string_view texte, std::size_t position) {
    AncienBloc lu;
    lu.position = position;
    while (true) {
        AncienBloc suivant = lu;
        std::string_view ligne;
        bool trouve = false;
        LireLigne(ligne, texte, suivant.position, suivant.fin, trouve);
        const Role role = trouve ? role_de(genre, sans_blancs(ligne), lu.lignes == 0) : Role::autre;
        if (role == Role::autre) return genre == GenreBloc::table ? lu : AncienBloc{0, lu.position, false};
        ++suivant.lignes;
        if (role == Role::cloture) return suivant;
        lu = suivant;
    }
}

bool est_compte_de_tri(std::string_view coupe) {
    const std::size_t egal = coupe.rfind('=');
    if (egal == npos) return false;
    const std::string_view compte = sans_blancs(coupe.substr(egal + 1));
    return !compte.empty() && compte.find_first_not_of("0123456789") == npos;
}
