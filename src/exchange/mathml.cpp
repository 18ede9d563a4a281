// The nodes of a formula, each with its children in front of it, become the elements of MathML. Changes no state.
#include "exchange/mathml.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "exchange/html_text.hpp"
#include "functions/table.hpp"

namespace {

constexpr std::string_view kMoins = "\xE2\x88\x92", kFois = "\xC3\x97";

// A part of the formula: its elements, and what must be known of it where it stands in another.
struct Partie {
    GenreNoeud genre = GenreNoeud::nombre;
    bool seule = false;         // one element, which an exponent may follow
    std::string elements;       // without an mrow around them
    std::string interieur;      // of brackets: what stands between them
};

std::string groupe(const std::string& elements) { return "<mrow>" + elements + "</mrow>"; }

std::string parentheses(const std::string& elements) {
    return groupe("<mo>(</mo>" + elements + "<mo>)</mo>");
}

std::string operateur(std::string_view signe) { return "<mo>" + std::string(signe) + "</mo>"; }

// What stands in a fraction or a root needs no brackets.
std::string sans_parentheses(const Partie& p) { return groupe(p.interieur.empty() ? p.elements : p.interieur); }

std::string base_de_puissance(const Partie& p) {
    return p.seule ? p.elements : p.interieur.empty() ? parentheses(p.elements) : groupe(p.elements);
}

// The arguments, parted as French mathematics does where a comma is decimal.
std::string liste(const std::vector<Partie>& arguments) {
    std::string elements;
    for (const Partie& argument : arguments) {
        if (!elements.empty()) elements += "<mo separator=\"true\">;</mo>";
        elements += argument.elements;
    }
    return elements;
}

// Names of functions as mathematics writes them, where it has another one than the sheet.
std::string nom_mathematique(int fonction) {
    switch (fonction) {
        case kAcos: return "arccos";
        case kAsin: return "arcsin";
        case kAtan: return "arctan";
        case kCos: case kSin: case kTan: case kExp: case kLn: case kLog: case kSh: case kCh: case kTh: {
            std::string nom;
            for (const char c : nom_fonction_interne(fonction)) nom += static_cast<char>(c + ('a' - 'A'));
            return nom;
        }
        default: return std::string(nom_fonction_interne(fonction));
    }
}

// The forms that some functions have instead of a name; "" for the others.
Partie signe_de_fonction(int fonction, const std::vector<Partie>& arguments) {
    const Partie& x = arguments.front();
    switch (fonction) {
        case kSqrt: return {GenreNoeud::appel, true, "<msqrt>" + sans_parentheses(x) + "</msqrt>", ""};
        case kSqr3: return {GenreNoeud::appel, true, "<mroot>" + sans_parentheses(x) + "<mn>3</mn></mroot>", ""};
        case kAbs: return {GenreNoeud::appel, true, groupe("<mo>|</mo>" + x.elements + "<mo>|</mo>"), ""};
        case kSqr: return {GenreNoeud::appel, false, "<msup>" + base_de_puissance(x) + "<mn>2</mn></msup>", ""};
        case kFact: return {GenreNoeud::appel, false, base_de_puissance(x) + "<mo form=\"postfix\">!</mo>", ""};
        case kInvMat:
            return {GenreNoeud::appel, false,
                    "<msup>" + base_de_puissance(x) + "<mrow><mo form=\"prefix\">" + std::string(kMoins) +
                        "</mo><mn>1</mn></mrow></msup>", ""};
        default: return {};
    }
}

Partie appel(int fonction, const std::vector<Partie>& arguments) {
    if (fonction == kPi) return {GenreNoeud::appel, true, "<mi>\xCF\x80</mi>", ""};
    const std::string nom = "<mi>" + html(nom_mathematique(fonction)) + "</mi>";
    if (arguments.empty()) return {GenreNoeud::appel, true, nom, ""};
    if (arguments.size() == 1)
        if (Partie p = signe_de_fonction(fonction, arguments); !p.elements.empty()) return p;
    return {GenreNoeud::appel, false, nom + parentheses(liste(arguments)), ""};
}

// The sign between two parts; "" where the node has another form.
std::string_view signe_entre(GenreNoeud genre) {
    switch (genre) {
        case GenreNoeud::plus: case GenreNoeud::plus_pourcent: return "+";
        case GenreNoeud::moins: case GenreNoeud::moins_pourcent: return kMoins;
        case GenreNoeud::et: return "AND";
        case GenreNoeud::ou: return "OR";
        case GenreNoeud::oux: return "XOR";
        case GenreNoeud::egale: return "=";
        default: return "";
    }
}

// Walks through the nodes with a stack of the parts that wait for their parent.
class Traduction {
public:
    Traduction(std::string_view texte, const FormuleRelevee& lue)
        : lue_(lue), places_(places_dans_le_texte(texte, lue.formule)), texte_(texte) {}

    std::optional<std::string> tout() {
        for (const Noeud& noeud : lue_.releve.noeuds) {
            if (static_cast<std::size_t>(noeud.arite) > parts_.size()) return std::nullopt;
            std::vector<Partie> enfants(parts_.end() - noeud.arite, parts_.end());
            parts_.resize(parts_.size() - enfants.size());
            Partie p = traduit(noeud, enfants);
            p.genre = noeud.genre;
            if (p.elements.empty()) return std::nullopt;
            parts_.push_back(std::move(p));
        }
        if (parts_.size() != 1) return std::nullopt;
        return parts_.front().elements;
    }

private:
    // Whether the user typed the operator: an inserted one isn't shown.
    bool tape(const Noeud& noeud) const {
        const auto place = static_cast<std::size_t>(std::max(noeud.signe, 1) - 1);
        return place < places_.size() && places_[place] < texte_.size() && texte_[places_[place]] == '*';
    }
    Partie operande(const Noeud& noeud) const {
        const std::string texte(texte_utile(lue_.formule, noeud));
        if (noeud.genre == GenreNoeud::nombre) {
            const std::string elements = mathml_nombre(texte);
            return {noeud.genre, elements.starts_with("<mn>") && elements.find("<mo>") == std::string::npos, elements,
                    ""};
        }
        return {noeud.genre, true, "<mi>" + html(texte) + "</mi>", ""};
    }
    Partie produit(const Noeud& noeud, const std::vector<Partie>& e) const {
        // Braille tools don't know the invisible sign; a number needs none in front of what follows it.
        const bool colle = !tape(noeud) && e[0].genre == GenreNoeud::nombre;
        return {noeud.genre, false, e[0].elements + (colle ? "" : operateur(kFois)) + e[1].elements, ""};
    }
    Partie traduit(const Noeud& noeud, const std::vector<Partie>& e) const {
        switch (noeud.genre) {
            case GenreNoeud::nombre: case GenreNoeud::lettre: case GenreNoeud::matrice: return operande(noeud);
            case GenreNoeud::appel: return appel(noeud.numero, e);
            case GenreNoeud::parenthese: return {noeud.genre, true, parentheses(e[0].elements), e[0].elements};
            case GenreNoeud::plus_unaire: return {noeud.genre, false, "<mo form=\"prefix\">+</mo>" + e[0].elements, ""};
            case GenreNoeud::moins_unaire:
                return {noeud.genre, false, "<mo form=\"prefix\">" + std::string(kMoins) + "</mo>" + e[0].elements, ""};
            case GenreNoeud::complement: return {noeud.genre, false, "<mo form=\"prefix\">!</mo>" + e[0].elements, ""};
            case GenreNoeud::non: return {noeud.genre, false, "<mo form=\"prefix\">NOT</mo>" + e[0].elements, ""};
            case GenreNoeud::puissance:
                return {noeud.genre, false, "<msup>" + base_de_puissance(e[0]) + sans_parentheses(e[1]) + "</msup>",
                        ""};
            case GenreNoeud::divise:
                return {noeud.genre, false, "<mfrac>" + sans_parentheses(e[0]) + sans_parentheses(e[1]) + "</mfrac>",
                        ""};
            case GenreNoeud::fois: return produit(noeud, e);
            default: break;
        }
        const std::string_view signe = signe_entre(noeud.genre);
        if (signe.empty()) return {};
        const bool pourcent = noeud.genre == GenreNoeud::plus_pourcent || noeud.genre == GenreNoeud::moins_pourcent;
        return {noeud.genre, false, e[0].elements + operateur(signe) + e[1].elements +
                                        (pourcent ? "<mo form=\"postfix\">%</mo>" : ""), ""};
    }

    const FormuleRelevee& lue_;
    std::vector<std::size_t> places_;
    std::string_view texte_;
    std::vector<Partie> parts_;
};

}  // namespace

std::optional<std::string> mathml(std::string_view texte, const FormuleRelevee& lue) {
    const Releve& releve = lue.releve;
    const bool lue_en_entier = releve.arret > static_cast<std::int32_t>(lue.formule.size());
    const bool comme_elle_se_voit = !releve.a(kTraitRemplace | kTraitPartiel | kTraitMot | kTraitSommePerdue |
                                              kTraitArgumentPerdu);
    if (lue.erreur || !lue_en_entier || !comme_elle_se_voit) return std::nullopt;
    return Traduction(sans_blancs(texte), lue).tout();
}
