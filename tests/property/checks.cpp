// The checks on a calculated sheet. Changes the program that it runs, and the digest.
#include "property/checks.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <utility>

#include "base/codepage.hpp"
#include "platform/message.hpp"
#include "property/kept.hpp"
#include "state/variables.hpp"
#include "support/program.hpp"

namespace {

std::uint64_t digest = 0xCBF29CE484222325u;

void ajoute_octets(const void* debut, std::size_t taille) {
    const auto* octet = static_cast<const unsigned char*>(debut);
    for (std::size_t i = 0; i < taille; ++i) digest = (digest ^ octet[i]) * 0x100000001B3u;
}
void ajoute_texte(const std::string& texte) { ajoute_octets(texte.data(), texte.size() + 1); }

void ajoute_vue(const Vue& vue) {
    ajoute_texte(vue.texte);
    for (const std::string& m : vue.messages) ajoute_texte(m);
    for (const std::string& b : vue.boites) ajoute_texte(b);
    ajoute_octets(&vue.sel_start, sizeof vue.sel_start);
    for (std::size_t i = 1; i <= 26; ++i)
        if (vue.definie[i]) ajoute_octets(&vue.valeur[i], sizeof vue.valeur[i]);
}

bool memes_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (a == 0 && b == 0);
}

// The text of the line that the cursor is on.
std::string ligne_du_curseur(const Vue& vue) {
    const std::size_t avant = vue.texte.rfind("\r\n", vue.sel_start == 0 ? 0 : vue.sel_start - 1);
    const bool premiere = vue.sel_start == 0 || avant == std::string::npos;
    const std::size_t debut = premiere ? 0 : avant + 2;
    return vue.texte.substr(debut, vue.sel_start - debut);
}

}  // namespace

std::uint64_t empreinte() { return digest; }

void prepare(const Reglage& reglage) {
    memoire = Memoire{};
    reinitialise_tout();
    pose_reglage(reglage);
}

Vue passe(const char* commande) {
    memoire.messages.clear();
    memoire.boites.clear();
    execute_commande(commande);
    Vue vue{memoire.texte,  memoire.sel_start,   memoire.sel_length, memoire.messages,
            memoire.boites, formule_en_erreur(), {},                 {}};
    for (std::size_t rang = 0; rang < vue.definie.size(); ++rang) {
        vue.definie[rang] = variable_definie(rang);
        vue.valeur[rang] = valeur_variable(rang);
    }
    ajoute_vue(vue);
    return vue;
}

Vue calcule(const std::string& texte, std::size_t curseur) {
    pose_feuille(texte, curseur);
    return passe();
}

Defaut verifie_curseur(const Vue& vue) {
    if (vue.sel_length != 0) return "a selection is left";
    const std::string_view reste = std::string_view(vue.texte).substr(vue.sel_start);
    if (!reste.empty() && !reste.starts_with("\r\n"))
        return "the cursor is not at the end of a line";
    return {};
}

// The cursor goes to the line that failed, or back to the line where it was, wherever the blocks above have
// moved it. On a line of an old block anything may have come in its place.
Defaut verifie_ligne_du_curseur(const FeuilleTiree& feuille, const Vue& vue) {
    const auto numero = [](std::string_view texte) {
        return static_cast<std::size_t>(std::count(texte.begin(), texte.end(), '\r'));
    };
    std::vector<std::string> lignes = lignes_de(feuille.texte);
    for (std::string& l : lignes) l = std::string(sans_blancs(l));
    const std::size_t la = feuille.ligne_en_erreur != 0
                               ? feuille.ligne_en_erreur - 1
                               : numero(std::string_view(feuille.texte).substr(0, feuille.curseur));
    if (feuille.texte.empty() || lignes_a_remplacer(lignes)[la]) return {};
    const std::string ici = ligne_du_curseur(vue);
    if (est_la_ligne(lignes[la], ici)) return {};
    return "the cursor is on \"" + ici + "\", not on \"" + lignes[la] + "\"";
}

// The last message is the cursor's line as the message line shows it after what it showed before.
// An empty text is not calculated: nothing is said.
Defaut verifie_message(const std::string& texte_avant, const Vue& vue,
                       const std::string& dernier_avant) {
    if (texte_avant.empty()) return vue.messages.empty() ? "" : "something was said of no text";
    if (vue.messages.empty()) return "nothing was said";
    std::string avant =
        vue.messages.size() > 1 ? vue.messages[vue.messages.size() - 2] : dernier_avant;
    if (avant.ends_with(' ')) avant += ' ';
    std::string attendu(sans_blancs(ligne_du_curseur(vue)));
    if (attendu == avant) attendu = " " + attendu + "  ";
    if (vue.messages.back() == attendu) return {};
    return "said \"" + vue.messages.back() + "\" for the line \"" + attendu + "\"";
}

// The number that a result shows, read without a look at the locale.
double nombre_de(std::string_view texte, int base) {
    double valeur = 0;
    unsigned long entier = 0;
    if (base == 16) {
        std::from_chars(texte.data(), texte.data() + texte.size(), entier, 16);
        return static_cast<double>(static_cast<std::int32_t>(entier));
    }
    std::from_chars(texte.data(), texte.data() + texte.size(), valeur);
    return valeur;
}

// The result after a line is the value that the line must have, as near as the display is.
Defaut verifie_resultat(const Reglage& r, const LigneGardee& gardee, const std::string& ligne) {
    const std::string_view texte = std::string_view(ligne).substr(gardee.texte.size() + 3);
    const double v = gardee.valeur, precision = std::fabs(v) * 1e-14;
    if (texte.find("Pi") != std::string_view::npos) return {};
    if (r.mode_nombre == 2) {
        if (std::fabs(v) >= 2147483647.0)
            return texte.empty() ? "" : "a text too large for its form";
        return nombre_de(texte, 16) == std::trunc(v) ? "" : "wrong hexadecimal result: " + ligne;
    }
    const double pas = std::pow(10.0, -r.nombre_decimal);
    const double ecart = std::fabs(nombre_de(texte, 10) - v);
    const double permis[] = {1 + pas / 2, pas / 2, std::fabs(v) * pas};
    if (ecart <= permis[r.mode_affichage - 1] * (1 + 1e-9) + precision) return {};
    return "wrong result: " + ligne;
}

// Every line of the user stands in the new text, in order: comments whole, the others at the head
// of their line. The text has as many lines as these and the blocks explain.
Defaut verifie_lignes(const FeuilleTiree& feuille, const Vue& vue) {
    const std::vector<std::string> lignes = lignes_de(vue.texte);
    auto ici = lignes.begin();
    for (const LigneGardee& gardee : feuille.gardees) {
        ici = std::find_if(ici, lignes.end(), [&](const std::string& l) {
            if (gardee.entiere) return l == gardee.texte;
            return l.starts_with(gardee.connue ? gardee.texte + " = " : gardee.texte);
        });
        if (ici == lignes.end()) return "lost the line \"" + gardee.texte + "\"";
        if (gardee.connue)
            if (Defaut d = verifie_resultat(feuille.reglage, gardee, *ici); !d.empty()) return d;
        ++ici;
    }
    const std::size_t avant = lignes_de(feuille.texte).size();
    if (lignes.size() > avant + static_cast<std::size_t>(feuille.lignes_de_bloc))
        return "too many lines";
    return {};
}

Defaut verifie_valeurs(const FeuilleTiree& feuille, const Vue& vue) {
    for (std::size_t i = 1; i <= 26; ++i) {
        const Variable& attendue = feuille.attendues[i];
        const std::string nom(1, static_cast<char>('A' + i - 1));
        if (vue.definie[i] != attendue.definie)
            return nom + (vue.definie[i] ? " is defined" : " is not defined");
        if (attendue.connue && !memes_bits(vue.valeur[i], attendue.valeur))
            return nom + " is " + std::to_string(vue.valeur[i]) + ", not " +
                   std::to_string(attendue.valeur);
    }
    return {};
}

// A sheet without a failing line shows no box, but for a value that no hexadecimal form holds.
Defaut verifie_boites(const FeuilleTiree& feuille, const Vue& vue) {
    if (vue.erreur == feuille.saine) return vue.erreur ? "a line failed" : "no line failed";
    if (!feuille.saine) return {};
    for (const std::string& boite : vue.boites)
        if (feuille.reglage.mode_nombre != 2 || boite != "6 6 sur Affiche_valeur_nombre")
            return "a box: " + boite;
    return {};
}

bool memes_valeurs(const Vue& a, const Vue& b) {
    for (std::size_t i = 1; i <= 26; ++i) {
        if (a.definie[i] != b.definie[i]) return false;
        if (a.definie[i] && !memes_bits(a.valeur[i], b.valeur[i])) return false;
    }
    return true;
}

namespace {

// The passes after the first one change nothing: neither the text, nor the values, nor the boxes.
Defaut verifie_repetition(const Vue& premiere, const Vue& suivante, const char* laquelle) {
    const std::string ou = std::string(" (") + laquelle + ")";
    if (suivante.texte != premiere.texte)
        return "the text has changed" + ou + ":\n" + suivante.texte;
    if (suivante.boites != premiere.boites) return "other boxes" + ou;
    if (suivante.erreur != premiere.erreur) return "another end" + ou;
    if (!memes_valeurs(suivante, premiere)) return "other values" + ou;
    return {};
}

Defaut premier(std::initializer_list<Defaut> defauts) {
    for (const Defaut& d : defauts)
        if (!d.empty()) return d;
    return {};
}

}  // namespace

Defaut verifie_feuille(const FeuilleTiree& feuille, const FeuilleTiree& autre) {
    prepare(feuille.reglage);
    const Vue une = calcule(feuille.texte, feuille.curseur);
    Defaut d = premier({verifie_curseur(une), verifie_ligne_du_curseur(feuille, une),
                        verifie_message(feuille.texte, une, ""), verifie_boites(feuille, une),
                        verifie_lignes(feuille, une), verifie_valeurs(feuille, une),
                        verifie_lignes_gardees(feuille.texte, une.texte)});
    if (!d.empty()) return d;
    const std::string dit = ligne_message.dernier_message;
    const Vue deux = passe();
    d = premier({verifie_repetition(une, deux, "second pass"), verifie_curseur(deux),
                 verifie_message(une.texte, deux, dit)});
    if (!d.empty()) return d;
    const Vue trois = passe();
    if (trois.sel_start != deux.sel_start) return "the cursor has moved (third pass)";
    prepare(feuille.reglage);
    d = verifie_repetition(une, calcule(une.texte), "opened again");
    if (!d.empty() || feuille.texte.empty()) return d;  // no text: what was there stays
    prepare(feuille.reglage);
    calcule(autre.texte);
    return verifie_repetition(une, calcule(feuille.texte, feuille.curseur), "behind another sheet");
}
