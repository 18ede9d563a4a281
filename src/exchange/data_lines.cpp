// The lines that a sheet reads as a data set or a matrix. Changes no state.
#include "exchange/data_lines.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "exchange/data_number.hpp"
#include "sheet/old_blocks.hpp"
#include "state/matrices.hpp"

namespace {

constexpr std::size_t kValeursParLigne = 10;    // what is heard in one go
constexpr std::size_t kLargeurLigne = 72;
constexpr std::size_t kFormuleMaxi = 32'765;   // characters that the reader can number, less the end mark and one ahead
constexpr std::size_t kLignesMaxi = 32'767;     // lines that a sheet can number

using Colonne = std::vector<double>;

// What the user asked for.
struct Forme {
    std::string mot;                         // in capitals
    std::vector<std::size_t> rangs;          // columns as the file numbers them
};

// Cuts the answer into its word and its numbers. False when a piece is no number.
bool lis_forme(std::string_view texte, Forme& forme) {
    const auto fin_de_mot = [](std::string_view t) { return std::min(t.find_first_of(" ,;\t"), t.size()); };
    bool juste = true;
    while (!(texte = sans_blancs(texte)).empty()) {
        const std::size_t fin = fin_de_mot(texte);
        const std::string_view mot = texte.substr(0, fin);
        texte.remove_prefix(std::min(fin + 1, texte.size()));
        if (mot.empty()) continue;
        std::size_t rang = 0;
        const auto lu = std::from_chars(mot.data(), mot.data() + mot.size(), rang);
        if (forme.mot.empty())
            forme.mot = capitales(mot);
        else if (lu.ec == std::errc() && lu.ptr == mot.data() + mot.size())
            forme.rangs.push_back(rang);
        else
            juste = false;
    }
    return juste;
}

// The columns that the form takes. A number that is no column of numbers is refused.
std::vector<Colonne> colonnes_de(const DonneesLues& donnees, const Forme& forme, std::string& refus) {
    if (forme.rangs.empty()) return donnees.table.colonnes;
    std::vector<Colonne> colonnes;
    for (const std::size_t rang : forme.rangs) {
        const auto place = std::find(donnees.rangs.begin(), donnees.rangs.end(), rang);
        if (place == donnees.rangs.end()) {
            refus = "la colonne " + chiffres(static_cast<long long>(rang)) +
                    std::string(" n'est pas une colonne de nombres"_fr);
            return {};
        }
        colonnes.push_back(donnees.table.colonnes[static_cast<std::size_t>(place - donnees.rangs.begin())]);
    }
    return colonnes;
}

// The same numbers with lines for columns.
std::vector<Colonne> transposees(const std::vector<Colonne>& colonnes) {
    std::vector<Colonne> lignes(colonnes.empty() ? 0 : colonnes.front().size());
    for (const Colonne& colonne : colonnes)
        for (std::size_t i = 0; i < colonne.size(); ++i) lignes[i].push_back(colonne[i]);
    return lignes;
}

// The sentence for more numbers than one calculation can hold.
std::string mots_trop(std::size_t nombre, std::string_view mot) {
    std::string mots = chiffres(static_cast<long long>(nombre));
    return mots.append(" valeurs, c'est trop pour "_fr)
        .append(mot)
        .append(" : un calcul a 32767 caractères au plus"_fr);
}

// A block of values, a few on each line.
std::string lignes_statx(const Colonne& valeurs) {
    std::string texte = "STATX", ligne;
    std::size_t sur_la_ligne = 0;
    for (const double x : valeurs) {
        const std::string valeur = texte_entier(x);
        if (sur_la_ligne == kValeursParLigne || (sur_la_ligne > 0 && ligne.size() + valeur.size() >= kLargeurLigne)) {
            texte.append(kFinDeLigne).append(ligne);
            ligne.clear();
            sur_la_ligne = 0;
        }
        if (sur_la_ligne++ > 0) ligne += ',';
        ligne += valeur;
    }
    return texte.append(kFinDeLigne).append(ligne).append(kFinDeLigne).append("FIN");
}

// The call that the sheet makes of a block has each value in its shortest form, with a frequency of 1.
std::size_t taille_de_l_appel(const Colonne& valeurs) {
    std::size_t taille = std::string_view("STATX()").size();
    for (const double x : valeurs) taille += texte_court(x, '.').size() + 3;
    return taille;
}

// Values with their frequencies, which have one form alone: a call.
std::string appel_statx(const Colonne& valeurs, const Colonne& effectifs) {
    std::string texte = "STATX(";
    for (std::size_t i = 0; i < valeurs.size(); ++i) {
        if (i > 0) texte += ';';
        texte.append(texte_entier(valeurs[i])).append(",").append(texte_entier(effectifs[i]));
    }
    return texte += ')';
}

std::string liste(const Colonne& valeurs) {
    std::string texte;
    for (const double x : valeurs) {
        if (!texte.empty()) texte += ',';
        texte += texte_entier(x);
    }
    return texte;
}

std::optional<std::string> en_statx(const std::vector<Colonne>& colonnes, std::string& refus) {
    if (colonnes.size() == 2) {
        if (std::any_of(colonnes[1].begin(), colonnes[1].end(), [](double n) { return n < 0; })) {
            refus = "un effectif est négatif"_fr;
            return std::nullopt;
        }
        std::string appel = appel_statx(colonnes[0], colonnes[1]);
        if (appel.size() <= kFormuleMaxi) return appel;
        refus = mots_trop(colonnes[0].size(), "STATX");
        return std::nullopt;
    }
    // A single line of numbers is a list, too.
    const std::vector<Colonne> listes = colonnes.size() == 1 ? colonnes : transposees(colonnes);
    if (listes.size() != 1) {
        refus = "STATX prend une colonne, ou une de valeurs et une d'effectifs : STATX 1, STATX 1 2"_fr;
        return std::nullopt;
    }
    if (taille_de_l_appel(listes[0]) <= kFormuleMaxi) return lignes_statx(listes[0]);
    refus = mots_trop(listes[0].size(), "STATX");
    return std::nullopt;
}

std::optional<std::string> en_statxy(const std::vector<Colonne>& colonnes, std::string& refus) {
    const std::vector<Colonne> listes = colonnes.size() == 2 ? colonnes : transposees(colonnes);
    if (listes.size() != 2) {
        refus = "STATXY prend deux colonnes : STATXY 1 2"_fr;
        return std::nullopt;
    }
    const std::string x = liste(listes[0]), y = liste(listes[1]);
    // In the call that the sheet makes of them each pair has a frequency of 1.
    const std::size_t nombre = listes[0].size();
    if (x.size() + y.size() + 3 * nombre + std::string_view("STATXY()").size() <= kFormuleMaxi)
        return std::string("STATXY").append(kFinDeLigne).append(x).append(kFinDeLigne).append(y);
    refus = mots_trop(nombre, "STATXY");
    return std::nullopt;
}

// One line of the matrix a line of the file.
std::optional<std::string> en_matrice(const std::vector<Colonne>& colonnes, std::string_view mot, std::string& refus) {
    std::string texte(mot);
    for (const Colonne& ligne : transposees(colonnes)) {
        const std::string elements = liste(ligne);
        if (elements.size() > kFormuleMaxi) {
            refus = mots_trop(ligne.size(), "une ligne de matrice"_fr);
            return std::nullopt;
        }
        texte.append(kFinDeLigne).append(elements);
    }
    return texte.append(kFinDeLigne).append("FIN");
}

// The headings as a comment, where no word of theirs means something to the calculation.
std::string commentaire(const DonneesLues& donnees) {
    std::string texte;
    for (const std::string& titre : donnees.table.titres) {
        if (!texte.empty()) texte += ", ";
        texte += titre;
    }
    const std::string majuscules = capitales(texte);
    for (const std::string_view mot : {"FIN", "STATX", "DEFM", "INC", "AIR", "NOMBRE DE", "=", "\n", "\r"})
        if (majuscules.find(mot) != std::string::npos) return "";
    if (sans_blancs(texte).empty() || texte.size() > kLargeurLigne) return "";
    return "! " + texte + std::string(kFinDeLigne);
}

// Where the line that holds `position` ends, and the line after it begins.
std::size_t fin_de_ligne(std::string_view texte, std::size_t position) {
    return std::min(texte.find(kFinDeLigne, position), texte.size());
}

// The old blocks of results, looked for from the top to the bottom of a sheet.
struct AnciensBlocs {
    std::string_view feuille;
    // Of each kind, where the last search has met a line that is none of the block: rows in front of it have no end.
    std::array<std::size_t, 4> refusee{};

    // End of the line that ends at `fin`, or of the block below it.
    std::size_t fin_avec_bloc(std::size_t fin) {
        const std::size_t dessous = fin + kFinDeLigne.size() + 1;
        for (const GenreBloc genre : {GenreBloc::table, GenreBloc::statistiques, GenreBloc::tri, GenreBloc::matrice}) {
            std::size_t& vue = refusee[static_cast<std::size_t>(genre)];
            if (fin == feuille.size() || dessous < vue) continue;
            const AncienBloc bloc = ancien_bloc(genre, feuille, dessous);
            if (bloc.lignes > 0) return bloc.fin ? feuille.size() : bloc.position - 1 - kFinDeLigne.size();
            vue = bloc.position;
        }
        return fin;
    }
};

// End of the line of the cursor, or of the old block of results that holds it or stands below it.
std::size_t fin_du_bloc(std::string_view feuille, std::size_t curseur) {
    AnciensBlocs anciens{feuille};
    std::size_t debut = 0;
    for (;;) {
        const std::size_t fin = anciens.fin_avec_bloc(fin_de_ligne(feuille, debut));
        if (fin >= curseur || fin == feuille.size()) return fin;
        debut = fin + kFinDeLigne.size();
    }
}

std::size_t numero_de(std::string_view texte, std::size_t position) {
    std::size_t numero = 1;
    for (std::size_t i = texte.find(kFinDeLigne); i < position; i = texte.find(kFinDeLigne, i + 1)) ++numero;
    return numero;
}

}  // namespace

std::string forme_proposee(const DonneesLues& donnees, std::string_view feuille) {
    const std::size_t colonnes = donnees.rangs.size(), lignes = donnees.table.lignes();
    if (colonnes == 2 && donnees.table.titres.size() == 2 && capitales(donnees.table.titres[1]).starts_with("EFFECTIF"))
        return "STATX " + chiffres(static_cast<long long>(donnees.rangs[0])) + " " +
               chiffres(static_cast<long long>(donnees.rangs[1]));
    if (colonnes == 1 || (lignes == 1 && colonnes > 2)) return "STATX";
    // Two lines are the two lists, unless headings say what the columns are.
    if (colonnes == 2 || (lignes == 2 && donnees.table.titres.empty())) return "STATXY";
    const std::string majuscules = capitales(feuille);
    for (const char lettre : kLettresMatrices) {
        const std::string nom{'M', lettre};
        if (majuscules.find("DEF" + nom) == std::string::npos && majuscules.find(nom + "=") == std::string::npos)
            return "DEF" + nom;
    }
    return "DEFMJ";
}

std::optional<std::string> lignes_de_feuille(const DonneesLues& donnees, std::string_view texte, std::string& refus) {
    refus.clear();
    Forme forme;
    const bool lisible = lis_forme(texte, forme);
    const bool matrice = forme.mot.size() == 5 && forme.mot.starts_with("DEFM") &&
                         kLettresMatrices.find(forme.mot[4]) != std::string_view::npos;
    if (!lisible || (!matrice && forme.mot != "STATX" && forme.mot != "STATXY")) {
        refus = "forme inconnue : tapez STATX, STATXY, ou DEFM et une lettre de A à J, puis des numéros de colonnes"_fr;
        return std::nullopt;
    }
    const std::vector<Colonne> colonnes = colonnes_de(donnees, forme, refus);
    if (!refus.empty()) return std::nullopt;
    std::optional<std::string> lignes = matrice                 ? en_matrice(colonnes, forme.mot, refus)
                                        : forme.mot == "STATX" ? en_statx(colonnes, refus)
                                                               : en_statxy(colonnes, refus);
    if (lignes && forme.rangs.empty()) lignes->insert(0, commentaire(donnees));
    return lignes;
}

std::optional<Insertion> insere_lignes(std::string_view feuille, std::size_t curseur, std::string_view lignes) {
    curseur = std::min(curseur, feuille.size());
    std::size_t place = fin_du_bloc(feuille, curseur);
    const bool sur_ligne_vide = place == feuille.size() && (feuille.empty() || feuille.ends_with(kFinDeLigne));
    Insertion insertion;
    insertion.texte.append(feuille.substr(0, place));
    if (!sur_ligne_vide) insertion.texte.append(kFinDeLigne);
    insertion.position = insertion.texte.size();
    insertion.texte.append(lignes);
    if (place == feuille.size()) insertion.texte.append(kFinDeLigne);
    insertion.texte.append(feuille.substr(place));
    insertion.ligne = numero_de(insertion.texte, insertion.position);
    insertion.derniere = numero_de(insertion.texte, insertion.position + lignes.size());
    if (numero_de(insertion.texte, insertion.texte.size()) > kLignesMaxi) return std::nullopt;
    return insertion;
}
