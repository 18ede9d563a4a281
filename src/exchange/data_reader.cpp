// The form of a file of data, found from the file itself. Changes no state.
#include "exchange/data_reader.hpp"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "exchange/data_number.hpp"
#include "exchange/data_text.hpp"

namespace {

constexpr std::size_t kLignesRegardees = 200;   // for the separator
constexpr int kLignesDeTitre = 5;               // of the file, that one line of headings takes at most
constexpr std::size_t kCelluleCitee = 30;       // characters of a cell that a sentence repeats

// Where the line ends; a heading in quotes may go over a few lines of the file.
std::size_t fin_de_ligne(std::string_view texte) {
    const std::size_t premiere = std::min(texte.find('\n'), texte.size());
    std::size_t fin = premiere;
    for (int i = 0; i < kLignesDeTitre; ++i) {
        if (std::count(texte.begin(), texte.begin() + static_cast<std::ptrdiff_t>(fin), '"') % 2 == 0) return fin;
        if (fin == texte.size()) break;
        fin = std::min(texte.find('\n', fin + 1), texte.size());
    }
    return premiere;
}

// Lines at the start of the text in which something stands.
std::vector<std::string_view> premieres_lignes(std::string_view texte) {
    std::vector<std::string_view> lignes;
    while (!texte.empty() && lignes.size() < kLignesRegardees) {
        const std::size_t fin = fin_de_ligne(texte);
        const std::string_view ligne = texte.substr(0, fin);
        if (ligne.find_first_not_of(" \t\r") != std::string_view::npos) lignes.push_back(ligne);
        texte.remove_prefix(std::min(fin + 1, texte.size()));
    }
    return lignes;
}

// How often the separator stands in the line outside of quotes.
std::size_t compte(std::string_view ligne, char separateur) {
    bool entre_guillemets = false;
    std::size_t n = 0;
    for (const char c : ligne) {
        entre_guillemets ^= c == '"';
        n += !entre_guillemets && c == separateur;
    }
    return n;
}

// True when half of the lines or more have it: above a line of numbers may stand a heading without it. A comma,
// which headings have too, wants more than half.
bool domine(const std::vector<std::string_view>& lignes, char separateur) {
    const auto avec = std::count_if(lignes.begin(), lignes.end(),
                                    [=](std::string_view ligne) { return compte(ligne, separateur) > 0; });
    return 2 * static_cast<std::size_t>(avec) >= lignes.size() + (separateur == ',' ? 1 : 0) && avec > 0;
}

// True when the piece is a number with one comma between its digits; a unit may follow it ("12,5%").
bool est_decimal(std::string_view piece) {
    const std::size_t fin = piece.find_last_of("0123456789");
    if (fin == std::string_view::npos) return false;
    const std::string_view nombre = piece.substr(0, fin + 1);
    return piece.find(',', fin) == std::string_view::npos && nombre.find(',') != std::string_view::npos &&
           lis_cellule(nombre, ',').has_value();
}

// True when the commas of the lines are decimal marks: parted at blanks, every piece that has one is a number,
// with or without its unit.
bool virgules_decimales(const std::vector<std::string_view>& lignes) {
    bool un_nombre = false;
    for (const std::string_view ligne : lignes) {
        if (ligne.find('"') != std::string_view::npos) return false;
        const RangeesLues lues = coupe_en_cellules(ligne, kBlancs);
        if (lues.rangees.empty()) continue;
        for (const std::string_view piece : lues.rangees.front().cellules) {
            if (piece.find(',') == std::string_view::npos) continue;
            if (!est_decimal(piece)) return false;
            un_nombre = true;
        }
    }
    return un_nombre;
}

// True when each line is one number, whose thousands are parted by blanks: cut there, the lines wouldn't have as
// many cells.
bool une_colonne(const std::vector<std::string_view>& lignes) {
    bool un_nombre = false;
    std::size_t moins = SIZE_MAX, plus = 0;
    for (const std::string_view ligne : lignes) {
        const bool nombre = lis_cellule(ligne, ',').has_value() || lis_cellule(ligne, '.').has_value();
        if (!nombre && un_nombre) return false;
        un_nombre = nombre;
        if (!nombre) continue;
        const std::size_t cellules = coupe_en_cellules(ligne, kBlancs).rangees.front().cellules.size();
        moins = std::min(moins, cellules);
        plus = std::max(plus, cellules);
    }
    return un_nombre && moins < plus;
}

// What parts the cells. A tab or a semicolon is nothing else in numbers; a comma may be their mark.
char separateur_de(std::string_view texte) {
    const std::vector<std::string_view> lignes = premieres_lignes(texte);
    for (const char separateur : {'\t', ';', '|'})
        if (domine(lignes, separateur)) return separateur;
    if (domine(lignes, ',') && !virgules_decimales(lignes)) return ',';
    if (une_colonne(lignes)) return kAucun;
    // A quote that is never closed hides the separator behind it.
    const bool guillemet = std::count(texte.begin(), texte.end(), '"') % 2 != 0;
    return guillemet ? ';' : kBlancs;
}

// The line "sep=;" that tells a spreadsheet the separator; it is blanked out. 0 when there is none.
char separateur_dit(std::string& texte) {
    if (capitales(texte.substr(0, 4)) != "SEP=" || texte.size() < 6) return 0;
    if (texte[5] != '\r' && texte[5] != '\n') return 0;
    const char separateur = texte[4];
    texte.replace(0, 5, 5, ' ');
    return separateur;
}

// The decimal mark: the one with which more cells can be read. 0 when both read the same.
char decimale_de(const std::vector<RangeeLue>& rangees) {
    std::size_t virgules = 0, points = 0;
    for (const RangeeLue& rangee : rangees)
        for (const std::string_view cellule : rangee.cellules) {
            if (cellule.find_first_of(",.") == std::string_view::npos) continue;
            const bool avec_virgule = lis_cellule(cellule, ',').has_value();
            const bool avec_point = lis_cellule(cellule, '.').has_value();
            virgules += avec_virgule && !avec_point;
            points += avec_point && !avec_virgule;
        }
    return virgules == points && virgules == 0 ? char{0} : virgules > points ? ',' : '.';
}

// The lines of numbers, as they are being looked at.
struct Lecture {
    std::vector<RangeeLue> rangees;
    std::size_t premiere = 0;        // the first that is no heading
    std::size_t colonnes = 0;        // of most lines
    std::size_t largeur = 0;         // of the longest
    char decimale = 0;
    bool blancs = false;             // nothing but blanks parts the cells

    std::string_view cellule(const RangeeLue& rangee, std::size_t colonne) const {
        return colonne < rangee.cellules.size() ? rangee.cellules[colonne] : std::string_view();
    }
    std::optional<double> nombre(std::string_view cellule_lue) const {
        return lis_cellule(cellule_lue, decimale == 0 ? '.' : decimale);
    }
};

// The first line of numbers; those in front of it are headings. Where blanks part the cells, words of a heading
// do, too, and a number among them counts for nothing when most lines have numbers alone.
std::size_t premiere_de_nombres(const Lecture& lecture, char separateur) {
    const auto est_nombre = [&](std::string_view c) { return lecture.nombre(c).has_value(); };
    const auto a_un_nombre = [&](const RangeeLue& r) {
        return std::any_of(r.cellules.begin(), r.cellules.end(), est_nombre);
    };
    const auto nombres_seuls = [&](const RangeeLue& r) {
        return std::all_of(r.cellules.begin(), r.cellules.end(), est_nombre);
    };
    const std::vector<RangeeLue>& rangees = lecture.rangees;
    const auto seuls = static_cast<std::size_t>(std::count_if(rangees.begin(), rangees.end(), nombres_seuls));
    const auto premiere = separateur == kBlancs && 2 * seuls >= rangees.size()
                              ? std::find_if(rangees.begin(), rangees.end(), nombres_seuls)
                              : std::find_if(rangees.begin(), rangees.end(), a_un_nombre);
    return static_cast<std::size_t>(premiere - rangees.begin());
}

// How many cells most of the lines of numbers have, and the longest.
void mesure(Lecture& lecture) {
    std::vector<std::size_t> fois(1);
    for (std::size_t i = lecture.premiere; i < lecture.rangees.size(); ++i) {
        const std::size_t n = lecture.rangees[i].cellules.size();
        if (fois.size() <= n) fois.resize(n + 1);
        ++fois[n];
    }
    lecture.largeur = fois.size() - 1;
    // Where as many lines have more cells as have fewer, the shorter ones lack something.
    lecture.colonnes = static_cast<std::size_t>(fois.rend() - std::max_element(fois.rbegin(), fois.rend())) - 1;
}

// What a column holds.
struct Contenu {
    std::size_t nombres = 0, mots = 0;
    const RangeeLue* faute = nullptr;   // the first line that has no number there
};

// All columns in one walk over the cells: there may be as many of them as there are lines. The columns that most
// lines have are known to lack a cell from `manquantes` on.
std::vector<Contenu> contenus_de(const Lecture& lecture) {
    std::vector<Contenu> contenus(lecture.largeur);
    std::size_t manquantes = lecture.colonnes;
    for (std::size_t i = lecture.premiere; i < lecture.rangees.size(); ++i) {
        const RangeeLue& rangee = lecture.rangees[i];
        const std::size_t cellules = rangee.cellules.size();
        for (std::size_t c = 0; c < std::max(cellules, manquantes); ++c) {
            const std::string_view cellule = lecture.cellule(rangee, c);
            if (lecture.nombre(cellule)) {
                ++contenus[c].nombres;
                continue;
            }
            contenus[c].mots += !cellule.empty();
            if (contenus[c].faute == nullptr) contenus[c].faute = &rangee;
        }
        manquantes = std::min(manquantes, cellules);
    }
    return contenus;
}

// "ligne 7, colonne 2 : "
std::string lieu(std::size_t ligne, std::size_t colonne) {
    return "ligne " + chiffres(static_cast<long long>(ligne)) + ", colonne " +
           chiffres(static_cast<long long>(colonne)) + " : ";
}

// "ligne 2, colonne 1 : "12 cm" n'est pas un nombre".
std::string mots_cellule(const RangeeLue& rangee, std::size_t colonne) {
    const std::string_view cellule = rangee.cellules[colonne];
    std::string mots = lieu(rangee.ligne, colonne + 1) + "\"" + std::string(cellule.substr(0, kCelluleCitee));
    return mots.append(cellule.size() > kCelluleCitee ? "...\"" : "\"").append(" n'est pas un nombre"_fr);
}

// The sentence for a file without a number: the first cell that begins like one, where there is one.
std::string mots_sans_nombre(const Lecture& lecture) {
    for (const RangeeLue& rangee : lecture.rangees)
        for (std::size_t c = 0; c < rangee.cellules.size(); ++c)
            if (rangee.cellules[c].find_first_of("0123456789") == 0) return mots_cellule(rangee, c);
    return std::string("aucun nombre dans ce fichier"_fr);
}

// The sentence for a line without a number in that column, from 0.
std::string mots_faute(const Lecture& lecture, const RangeeLue& rangee, std::size_t colonne) {
    const std::size_t n = rangee.cellules.size();
    if (n > lecture.colonnes)
        return "ligne " + chiffres(static_cast<long long>(rangee.ligne)) + " : " +
               chiffres(static_cast<long long>(n)) + (n == 1 ? " colonne, " : " colonnes, ") +
               chiffres(static_cast<long long>(lecture.colonnes)) + " sur les autres lignes";
    const std::string_view cellule = lecture.cellule(rangee, colonne);
    if (cellule.empty()) return lieu(rangee.ligne, colonne + 1) + "il manque un nombre";
    std::string mots = mots_cellule(rangee, colonne);
    if (lecture.decimale == ',') mots += " à virgule décimale"_fr;
    if (lecture.decimale == '.') mots += " à point décimal"_fr;
    return mots;
}

// A line that is longer than most, which no column of the others explains; none: nullptr.
const RangeeLue* trop_longue(const Lecture& lecture) {
    for (std::size_t i = lecture.premiere; i < lecture.rangees.size(); ++i) {
        const auto& cellules = lecture.rangees[i].cellules;
        for (std::size_t c = lecture.colonnes; c < cellules.size(); ++c)
            if (lecture.nombre(cellules[c])) return &lecture.rangees[i];
    }
    return nullptr;
}

// Sorts the columns into numbers and words. The sentence for the first line that lacks a number, or "".
std::string trie_colonnes(const Lecture& lecture, DonneesLues& donnees) {
    const RangeeLue* fautive = trop_longue(lecture);
    std::size_t colonne_fautive = lecture.colonnes;
    const std::vector<Contenu> contenus = contenus_de(lecture);
    for (std::size_t c = 0; c < contenus.size(); ++c) {
        const Contenu& contenu = contenus[c];
        if (contenu.nombres < contenu.mots || contenu.nombres == 0 || c >= lecture.colonnes) {
            if (contenu.mots > 0) donnees.textes.push_back(c + 1);
            continue;
        }
        donnees.rangs.push_back(c + 1);
        if (contenu.faute == nullptr) continue;
        if (fautive != nullptr && fautive->ligne <= contenu.faute->ligne) continue;
        fautive = contenu.faute;
        colonne_fautive = c;
    }
    if (fautive != nullptr) return mots_faute(lecture, *fautive, colonne_fautive);
    return donnees.rangs.empty() ? std::string("aucune colonne de nombres dans ce fichier"_fr) : "";
}

// The line that has the headings of the columns: the first with as many cells, or with more. A single column may
// have a heading of several words; of several columns parted by blanks nobody knows which words are whose.
const RangeeLue* ligne_de_titres(const Lecture& lecture) {
    const RangeeLue* plus_longue = nullptr;
    for (std::size_t i = 0; i < lecture.premiere; ++i) {
        const RangeeLue& rangee = lecture.rangees[i];
        if (rangee.cellules.size() == lecture.colonnes) return &rangee;
        const bool attribuable = !lecture.blancs || lecture.colonnes == 1;
        if (attribuable && rangee.cellules.size() > lecture.colonnes && plus_longue == nullptr) plus_longue = &rangee;
    }
    return plus_longue;
}

bool a_un_chiffre(std::string_view texte) { return texte.find_first_of("0123456789") != std::string_view::npos; }

// Whether a line between the headings and the first numbers looks like the lines of numbers: the words beside them
// are like theirs. A line of units has none there, or others.
bool semble_de_donnees(const Lecture& lecture, const RangeeLue& rangee, const std::vector<std::size_t>& textes) {
    const RangeeLue& modele = lecture.rangees[lecture.premiere];
    return rangee.cellules.size() == lecture.colonnes &&
           std::any_of(textes.begin(), textes.end(), [&](std::size_t rang) {
               const std::string_view mot = lecture.cellule(rangee, rang - 1), sien = lecture.cellule(modele, rang - 1);
               return !mot.empty() && !sien.empty() && a_un_chiffre(mot) == a_un_chiffre(sien);
           });
}

// The sentence for a first line of data with a word in place of its number, which would pass for a heading; or "".
std::string mots_ligne_prise_pour_titre(const Lecture& lecture, const DonneesLues& donnees) {
    const RangeeLue* const titre = ligne_de_titres(lecture);
    for (std::size_t i = 0; titre != nullptr && i < lecture.premiere; ++i) {
        const RangeeLue& rangee = lecture.rangees[i];
        if (rangee.ligne <= titre->ligne || !semble_de_donnees(lecture, rangee, donnees.textes)) continue;
        for (const std::size_t rang : donnees.rangs)
            if (!lecture.cellule(rangee, rang - 1).empty()) return mots_faute(lecture, rangee, rang - 1);
    }
    return "";
}

// The numbers of the columns, and their headings where a line of headings has as many cells.
void remplit(const Lecture& lecture, DonneesLues& donnees) {
    donnees.titres = lecture.premiere;
    donnees.table.colonnes.resize(donnees.rangs.size());
    for (std::size_t k = 0; k < donnees.rangs.size(); ++k)
        for (std::size_t i = lecture.premiere; i < lecture.rangees.size(); ++i)
            donnees.table.colonnes[k].push_back(
                lecture.nombre(lecture.cellule(lecture.rangees[i], donnees.rangs[k] - 1)).value_or(0));
    const RangeeLue* const titre = ligne_de_titres(lecture);
    if (titre == nullptr) return;
    if (lecture.colonnes == 1 && titre->cellules.size() != 1)
        donnees.table.titres.emplace_back(titre->entiere);
    else
        for (const std::size_t rang : donnees.rangs) donnees.table.titres.emplace_back(titre->cellules[rang - 1]);
}

// "3 lignes", "1 ligne".
// The columns by their numbers in the file, with their headings: "2 Maths, 3 Anglais".
std::string mots_colonnes(const DonneesLues& donnees) {
    std::string mots;
    for (std::size_t i = 0; i < donnees.rangs.size() && i < 8; ++i) {
        mots += (i == 0 ? "" : ", ") + chiffres(static_cast<long long>(donnees.rangs[i]));
        if (i < donnees.table.titres.size() && !donnees.table.titres[i].empty())
            mots += " " + donnees.table.titres[i].substr(0, kCelluleCitee);
    }
    std::replace(mots.begin(), mots.end(), '\n', ' ');
    return donnees.rangs.size() > 8 ? mots + "..." : mots;
}

}  // namespace

std::optional<DonneesLues> lis_donnees(std::string_view octets, std::string& refus) {
    std::optional<std::string> texte = texte_des_donnees(octets, refus);
    if (!texte) return std::nullopt;
    const char dit = separateur_dit(*texte);
    const char separateur = dit != 0 ? dit : separateur_de(*texte);
    RangeesLues lues = coupe_en_cellules(*texte, separateur);
    refus = lues.refus;
    if (!refus.empty()) return std::nullopt;
    Lecture lecture;
    lecture.rangees = std::move(lues.rangees);
    lecture.blancs = separateur == kBlancs;
    lecture.decimale = decimale_de(lecture.rangees);
    lecture.premiere = premiere_de_nombres(lecture, separateur);
    if (lecture.premiere == lecture.rangees.size()) {
        refus = mots_sans_nombre(lecture);
        return std::nullopt;
    }
    mesure(lecture);
    DonneesLues donnees;
    donnees.decimale = lecture.decimale;
    refus = trie_colonnes(lecture, donnees);
    if (refus.empty()) refus = mots_ligne_prise_pour_titre(lecture, donnees);
    if (!refus.empty()) return std::nullopt;
    remplit(lecture, donnees);
    return donnees;
}

std::string mots_donnees(const DonneesLues& donnees) {
    std::string mots = combien(donnees.table.lignes(), "ligne", "lignes") + ", " +
                       combien(donnees.rangs.size(), "colonne", "colonnes");
    mots += donnees.decimale == ',' ? ", virgule décimale"_fr
            : donnees.decimale == '.' ? ", point décimal"_fr : ", nombres entiers"_fr;
    if (donnees.titres == 0) mots += ", sans titre"_fr;
    // Words that name no column are told, too.
    const bool sans_nom = donnees.titres > 0 && donnees.table.titres.empty();
    if (donnees.titres > 1 || sans_nom)
        mots += ", " + combien(donnees.titres, "ligne", "lignes") + std::string(" de titres"_fr);
    if (donnees.rangs.size() > 1 || !donnees.table.titres.empty())
        mots += (donnees.rangs.size() == 1 ? " : colonne " : " : colonnes ") + mots_colonnes(donnees);
    if (!donnees.textes.empty()) {
        mots +=
            donnees.textes.size() == 1 ? " ; en texte, laissée de côté : "_fr : " ; en texte, laissées de côté : "_fr;
        for (std::size_t i = 0; i < donnees.textes.size(); ++i)
            mots += (i == 0 ? "" : ", ") + chiffres(static_cast<long long>(donnees.textes[i]));
    }
    return mots;
}
