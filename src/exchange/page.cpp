// The page of a sheet, line after line of its calculated text. Changes no state.
#include "exchange/page.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "exchange/drawing.hpp"
#include "exchange/html_text.hpp"
#include "exchange/page_style.hpp"
#include "exchange/shown_results.hpp"
#include "exchange/study_section.hpp"
#include "sheet/marks.hpp"
#include "sheet/number_result.hpp"
#include "sheet/old_result.hpp"

namespace {

constexpr int kColonnesDeFormule = 12, kLignesDeFormule = 40;   // a larger matrix is a table of the page
constexpr std::string_view kFinBloc = "fin résultat "_fr;

// An element of the page with its content, UTF-8 as it stands.
std::string element(std::string_view nom, std::string_view contenu) {
    return "<" + std::string(nom) + ">" + std::string(contenu) + "</" + std::string(nom) + ">";
}

// A formula of these elements.
std::string formule_mathml(const std::string& elements) {
    return "<math xmlns=\"http://www.w3.org/1998/Math/MathML\" displaystyle=\"true\">" + element("mrow", elements) +
           "</math>";
}

// A number in the number mode of the sheet.
std::string texte_element(double x) {
    try {
        return texte_du_mode(x);
    } catch (...) {   // a number without hexadecimal form
        return texte_general(x);
    }
}

// A plain number with a decimal comma; anything else stays.
std::string nombre_francais(std::string_view texte) {
    std::string sortie(texte);
    if (texte.find_first_not_of("0123456789.-") == std::string_view::npos)
        std::replace(sortie.begin(), sortie.end(), '.', ',');
    return sortie;
}

// A table of numbers in columns, each with its heading; `texte` writes a number.
std::string table_html(const TableDonnees& table, const std::string& titre, std::string (*texte)(double)) {
    std::string sortie = "<div class=\"large\" tabindex=\"0\" role=\"region\" aria-label=\"" + titre +
                         "\"><table><caption>" + titre + "</caption><thead><tr>";
    for (const std::string& colonne : table.titres) sortie += "<th scope=\"col\">" + html(colonne) + "</th>";
    sortie += "</tr></thead><tbody>\n";
    for (std::size_t l = 0; l < table.lignes(); ++l) {
        sortie += "<tr>";
        for (const std::vector<double>& colonne : table.colonnes)
            sortie += element("td", html(nombre_francais(texte(colonne[l]))));
        sortie += "</tr>\n";
    }
    return sortie + "</tbody></table></div>\n";
}

std::string matrice_mathml(const TableMatrice& m) {
    std::string rangees;
    for (int l = 1; l <= m.lignes(); ++l) {
        std::string rangee;
        for (int c = 1; c <= m.colonnes(); ++c)
            rangee += element("mtd", element("mrow", mathml_nombre(texte_element(m(l, c)))));
        rangees += element("mtr", rangee);
    }
    return "<mrow><mo>(</mo>" + element("mtable", rangees) + "<mo>)</mo></mrow>";
}

bool est_titre(std::string_view ligne) {
    ligne = sans_blancs(ligne);
    return ligne.starts_with('!') && !sans_blancs(ligne.substr(1)).empty();
}

// Writes the page, going through the lines of the text.
class Page {
public:
    Page(const Rapport& rapport, const std::vector<EtudeDeFeuille>& etudes)
        : lignes_(lignes_du_texte(rapport.texte)), notes_(rapport.lignes), etudes_(etudes) {}

    // All lines but the one that is the title.
    std::string corps() {
        std::size_t note = 0;
        if (est_titre(brute())) ++place_;
        while (place_ < lignes_.size()) {
            const int numero = static_cast<int>(place_) + 1;
            while (note < notes_.size() && notes_[note].numero < numero) ++note;
            if (note < notes_.size() && notes_[note].numero == numero)
                notes_[note].copiee && !est_nombre(notes_[note]) ? copiee(notes_[note]) : calculee(notes_[note]);
            else
                autre(lignes_[place_++]);
            etudes();
        }
        return std::move(sortie_);
    }

private:
    std::string_view brute() const { return place_ < lignes_.size() ? lignes_[place_] : std::string_view(); }

    // The studies of the functions that stand above.
    void etudes() {
        while (etude_ < etudes_.size() && static_cast<std::size_t>(etudes_[etude_].fonction.ligne) <= place_)
            sortie_ += section_d_etude(etudes_[etude_++]);
    }

    static bool est_nombre(const LigneRapport& ligne) {
        return ligne.donnees.variable == 0 && ligne.donnees.groupes.empty() && ligne.matrice == 0;
    }

    // Lines whose random numbers the sheet alone knows.
    void copiee(const LigneRapport& ligne) {
        const std::size_t avant = sortie_.size(), debut = place_;
        calculee(ligne);
        sortie_.resize(avant);
        for (std::size_t i = debut; i < place_; ++i) autre(lignes_[i]);
    }

    // A comment, or a line that no calculation has reached.
    void autre(std::string_view ligne) {
        ligne = sans_blancs(ligne);
        if (ligne.empty()) return;
        if (ligne.starts_with('!'))
            sortie_ += "<p class=\"commentaire\">" + html(sans_blancs(ligne.substr(1))) + "</p>\n";
        else
            sortie_ += "<p class=\"ligne\"><code>" + html(ligne) + "</code></p>\n";
    }

    // What the user wrote behind "!", up to the result.
    static std::string commentaire(std::string_view ligne, std::string_view resultat) {
        const std::size_t debut = ligne.find('!');
        if (debut == std::string_view::npos) return "";
        std::string_view texte = ligne.substr(debut + 1);
        if (texte.ends_with(resultat)) texte.remove_suffix(resultat.size());
        texte = sans_blancs(texte);
        return texte.empty() ? "" : " <span class=\"commentaire\">" + html(texte) + "</span>";
    }

    void paragraphe(const LigneRapport& ligne, const std::string& contenu) {
        sortie_ += "<p class=\"ligne\">" + contenu + commentaire(lignes_[place_], ligne.resultat) + "</p>\n";
    }

    void calculee(const LigneRapport& ligne) {
        if (ligne.erreur) return fautive(ligne);
        if (ligne.donnees.variable != 0 && ligne.resultat.empty() && ligne.donnees.debut == ligne.donnees.fin &&
            ligne.donnees.rangees.empty())
            return fonction_definie(ligne);
        if (ligne.donnees.variable != 0) return tabulee(ligne);
        if (!ligne.donnees.groupes.empty()) return serie(ligne);
        if (ligne.matrice != 0) return matrice(ligne);
        nombre(ligne);
    }

    void fautive(const LigneRapport& ligne) {
        paragraphe(ligne, element("code", html(formule_tapee(ligne))) + " <strong class=\"faute\">" +
                              html(sans_blancs(ligne.resultat)) + "</strong>");
        if (ligne.donnees.variable != 0 && !ligne.courbe.empty()) figure(ligne);
        ++place_;
    }

    // The formula as it stands in the text: that of a data set has become another one.
    std::string_view formule_tapee(const LigneRapport& ligne) const {
        std::string_view texte = lignes_[place_];
        if (!ligne.resultat.empty() && texte.ends_with(ligne.resultat)) texte.remove_suffix(ligne.resultat.size());
        return sans_blancs(texte.substr(0, texte.find('!')));
    }

    void nombre(const LigneRapport& ligne) {
        const std::string_view valeur = sans_egal(ligne.resultat);
        const std::string egale = "<mo>=</mo>" + mathml_nombre(valeur);
        if (ligne.mathml && !valeur.empty())   // "A=4 = 4" says the same twice
            paragraphe(ligne, formule_mathml(*ligne.mathml + (ligne.mathml->ends_with("</mi>" + egale) ? "" : egale)));
        else
            paragraphe(ligne, element("code", html(std::string(formule_tapee(ligne)) + ligne.resultat)));
        ++place_;
    }

    void fonction_definie(const LigneRapport& ligne) {
        if (ligne.mathml_fonction)
            paragraphe(ligne, formule_mathml(nom_de_fonction(ligne, "FON") + "<mo>=</mo>" + *ligne.mathml_fonction));
        else
            paragraphe(ligne, element("code", html(formule_tapee(ligne))));
        ++place_;
    }

    static std::string nom_de_fonction(const LigneRapport& ligne, std::string_view nom) {
        return element("mi", nom) + std::string("<mrow><mo>(</mo><mi>") +
               static_cast<char>('A' + ligne.donnees.variable - 1) + "</mi><mo>)</mo></mrow>";
    }

    void matrice(const LigneRapport& ligne) {
        const TableMatrice& m = ligne.elements;
        const std::string nom = std::string("M") + ligne.matrice;
        const std::string tete = ligne.mathml ? *ligne.mathml : "<mi>" + nom + "</mi>";
        if (m.colonnes() <= kColonnesDeFormule && m.lignes() <= kLignesDeFormule)
            paragraphe(ligne, formule_mathml(tete + "<mo>=</mo>" + matrice_mathml(m)));
        else
            sortie_ += table_html(table_de_matrice(ligne.matrice, m),
                                  "Matrice " + nom + ", ligne " + chiffres(ligne.numero), texte_element);
        ++place_;
        if (ligne.definition)
            passe_definition();
        else if (ligne.resultat.starts_with("=="))
            passe_bloc();
    }

    // The rows of a definition, up to the line that closes it.
    void passe_definition() {
        while (place_ < lignes_.size()) {
            const std::string_view ligne = sans_blancs(lignes_[place_++]);
            if (ligne.empty() || ligne.starts_with('!') || capitales(ligne).find(kFin.mot) != std::string::npos) return;
        }
    }

    // The block of results below a line, up to the line that closes it.
    std::vector<std::string_view> passe_bloc() {
        std::vector<std::string_view> bloc;
        while (place_ < lignes_.size()) {
            const std::string_view ligne = lignes_[place_++];
            if (ligne.starts_with(kFinBloc)) break;
            bloc.push_back(ligne);
        }
        return bloc;
    }

    void serie(const LigneRapport& ligne) {
        const std::string lieu = ", ligne " + chiffres(ligne.numero);
        const std::string genre = ligne.donnees.couples ? "STATXY" : "STATX";
        const bool en_ligne = brute().find('(') != std::string_view::npos;
        sortie_ += table_html(table_des_groupes(ligne.donnees), "Données " + genre + lieu, texte_general);
        const std::string suite = commentaire(brute(), ligne.resultat);
        if (!suite.empty()) sortie_ += "<p class=\"ligne\">" + suite + "</p>\n";
        ++place_;
        if (!en_ligne && ligne.donnees.couples)
            place_ = std::min(place_ + 2, lignes_.size());
        else if (!en_ligne)
            passe_definition();
        resultats(passe_bloc(), "Résultats " + genre + lieu);
        figure(ligne);
    }

    // "S=somme des X= 6" in two cells; several results on one line stand in as many.
    void resultats(const std::vector<std::string_view>& bloc, const std::string& titre) {
        if (bloc.empty()) return;
        sortie_ += "<table><caption>" + titre + "</caption><tbody>\n";
        for (const std::string_view ligne : bloc) {
            const std::size_t egal = ligne.rfind('=');
            const bool une = egal != std::string_view::npos && ligne.find(", ") == std::string_view::npos;
            sortie_ += "<tr><th scope=\"row\">" + html(sans_blancs(une ? ligne.substr(0, egal) : ligne)) + "</th><td>" +
                       (une ? html(nombre_francais(sans_blancs(ligne.substr(egal + 1)))) : "") + "</td></tr>\n";
        }
        sortie_ += "</tbody></table>\n";
    }

    // A sum under an integral stands in brackets.
    static std::string entre_parentheses(const std::string& elements) {
        const bool somme =
            elements.find("<mo>+") != std::string::npos || elements.find("<mo>\xE2\x88\x92") != std::string::npos;
        return somme ? "<mrow><mo>(</mo>" + elements + "<mo>)</mo></mrow>" : element("mrow", elements);
    }

    // A table of values, or an area; the function stands on the line below.
    void tabulee(const LigneRapport& ligne) {
        const std::string fonction = ligne.mathml_fonction.value_or("<mtext>" + html(ligne.fonction) + "</mtext>");
        const std::string lettre(1, static_cast<char>('A' + ligne.donnees.variable - 1));
        const std::string debut = mathml_nombre(texte_general(ligne.donnees.debut));
        const std::string fin = mathml_nombre(texte_general(ligne.donnees.fin));
        if (ligne.donnees.aire)
            paragraphe(ligne,
                       formule_mathml("<msubsup><mo>\xE2\x88\xAB</mo>" + element("mrow", debut) + element("mrow", fin) +
                                      "</msubsup>" + entre_parentheses(fonction) + "<mi>d</mi><mi>" + lettre +
                                      "</mi><mo>\xE2\x89\x88</mo>" + mathml_nombre(sans_egal(ligne.resultat))));
        else
            paragraphe(ligne, formule_mathml(nom_de_fonction(ligne, "f") + "<mo>=</mo>" + fonction));
        place_ = std::min(place_ + 2, lignes_.size());
        if (!ligne.donnees.rangees.empty())
            sortie_ += table_html(table_des_rangees(ligne.donnees),
                                  "Table de " + lettre + ", ligne " + chiffres(ligne.numero), texte_element);
        while (brute().starts_with("f(") && !ligne.donnees.rangees.empty()) ++place_;
        figure(ligne);
    }

    void figure(const LigneRapport& ligne) {
        const std::string svg = ligne.donnees.variable != 0 ? dessin_de_courbe(ligne) : dessin_de_donnees(ligne);
        if (!svg.empty()) sortie_ += "<figure>" + svg + "</figure>\n";
    }

    std::vector<std::string_view> lignes_;
    const std::vector<LigneRapport>& notes_;
    const std::vector<EtudeDeFeuille>& etudes_;
    std::size_t etude_ = 0;                          // the next of them
    std::size_t place_ = 0;
    std::string sortie_;
};

// The first line, when it is a comment.
std::string titre_de(std::string_view texte, std::string_view nom) {
    const std::string_view premiere = texte.substr(0, texte.find("\r\n"));
    return html(est_titre(premiere) ? sans_blancs(sans_blancs(premiere).substr(1)) : nom);
}

}  // namespace

std::string page_html(const Rapport& rapport, std::string_view nom, const std::vector<EtudeDeFeuille>& etudes) {
    const std::string titre = titre_de(rapport.texte, nom);
    std::string page = "<!DOCTYPE html>\n<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"fr\">\n<head>\n"
                       "<meta charset=\"utf-8\"/>\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n";
    page += element("title", titre) + "\n<style>" + std::string(kStyleDePage) + "</style>\n</head>\n<body>\n<main>\n";
    page += element("h1", titre) + "\n" + Page(rapport, etudes).corps();
    page += "<h2>Texte de la feuille</h2>\n<pre>" + html(rapport.texte) + "</pre>\n";
    return page + "</main>\n</body>\n</html>\n";
}
