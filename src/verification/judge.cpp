// What the record of a line's reading, its words and its result say of it.
#include "verification/judge.hpp"

#include <algorithm>
#include <cstddef>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/number.hpp"
#include "engine/reading.hpp"
#include "functions/table.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_definition.hpp"
#include "state/context.hpp"
#include "verification/matrix_checks.hpp"
#include "verification/old_text.hpp"
#include "verification/problem.hpp"
#include "verification/tree_checks.hpp"

namespace {

constexpr auto npos = std::string_view::npos;

// A line that is judged, where its formula or an element of it begins.
struct Endroit {
    int numero;
    int numero_ecrit;
    std::size_t retrait;   // characters of the line in front of what is judged
};

Endroit endroit_de(const LigneObservee& o) { return {o.numero, o.numero_ecrit, o.retrait}; }

// A finding at `place` of what is judged there, from 0.
Constat constat(const Endroit& e, GenreConstat genre, std::size_t place, std::string_view morceau) {
    return {.genre = genre, .ligne = e.numero, .ligne_ecrite = e.numero_ecrit,
            .colonne = static_cast<int>(e.retrait + place + 1), .morceau = std::string(morceau),
            .lu = {}, .valeur = {}, .propose = {}};
}

Constat& ajoute_constat(Jugement& j, const Endroit& e, GenreConstat genre, std::size_t place, std::string_view morceau) {
    j.constats.push_back(constat(e, genre, place, morceau));
    return j.constats.back();
}

// Where each character of what was read comes from: of a call of statistics through its groups.
std::vector<std::size_t> places_de(const LigneObservee& o) {
    if (o.role != RoleLigne::statistiques) return places_dans_le_texte(o.formule, o.lue);
    std::vector<std::size_t> prepare;
    for (std::size_t i = 0; i < o.formule.size(); ++i) {
        prepare.push_back(i);
        if (o.formule[i] == kCarreEcrit) prepare.push_back(i);
    }
    std::vector<std::size_t> places;
    for (const std::size_t groupe : observation->groupes)
        places.push_back(groupe < prepare.size() ? prepare[groupe] : o.formule.size());
    places.resize(o.lue.size() + 1, o.formule.size());
    return places;
}

// True when the tree has nothing that its rules look for: one power at most and no sign in front, angles that are
// usual, percentages of a value.
bool arbre_simple(const Releve& r) {
    int puissances = 0;
    bool pi = false, angle = false, angle_de_pi = false;
    for (std::size_t i = 0; i < r.noeuds.size(); ++i) {
        const Noeud& n = r.noeuds[i];
        if (n.genre == GenreNoeud::appel && n.numero == kFon) return false;
        if (n.genre == GenreNoeud::puissance && ++puissances > 1) return false;
        if (n.genre == GenreNoeud::moins_unaire && r.a(kTraitPuissance)) return false;
        if (i == 0) {
            pi = est_pi(n);
            continue;
        }
        if (est_pourcentage(n) && est_terme(r.noeuds[i - 1])) return false;
        if (est_autre_partie(n, r.noeuds[i - 1].valeur)) return false;
        pi |= est_pi(n);
        angle |= est_angle(n) && angle_suspect(r.noeuds[i - 1].valeur, false);
        angle_de_pi |= est_angle(n) && angle_suspect(r.noeuds[i - 1].valeur, true);
    }
    return !angle && !(pi && angle_de_pi);
}

// True when nothing in the record asks for a second look. Most lines end here.
bool sans_histoire(const Releve& r, std::string_view lue, std::string_view tapee) {
    constexpr std::uint32_t kRien = kTraitBits | kTraitAppel | kTraitPuissance | kTraitPourcent;
    constexpr std::uint32_t kE = 1u << ('E' - 'A' + 1);
    if ((r.traits & ~kRien) != 0 || r.faute != 0 || r.arret <= static_cast<std::int32_t>(lue.size())) return false;
    if ((r.lettres & kE) != 0 && lue.find("*E") != npos) return false;
    if (fraction_a_regarder(lue, tapee)) return false;
    if (r.a(kTraitPuissance) && lue.find(".10^") != npos) return false;
    return !r.a(kTraitAppel | kTraitPuissance | kTraitPourcent) || arbre_simple(r);
}

// Who has a value now.
ValeursConnues valeurs_connues() {
    return {moteur.variable_definie, moteur.matrice_definie, !moteur.nom_fonction.empty()};
}

bool est_connue(const ValeursConnues& v, int lettre) {
    if (lettre == 0) return v.fonction;
    return lettre > 0 ? v.lettres[static_cast<std::size_t>(lettre)] : v.matrices[static_cast<std::size_t>(-lettre)];
}

// Notes a letter, a matrix or the user function without a value, for the end of the sheet.
void note_trop_tot(Jugement& j, const Endroit& e, const Lue& lue) {
    constexpr std::string_view kVariable = "variable "_fr, kMatrice = "matrice M"_fr, kNonDefinie = " non définie"_fr;
    const std::string_view mots = lue.releve.mots_faute;
    const bool matrice = mots.starts_with(kMatrice), fonction = mots == "Fonction inconnue"_fr;
    const std::string_view tete = matrice ? kMatrice : kVariable;
    if (!fonction && (!mots.starts_with(tete) || mots.substr(std::min(mots.size(), tete.size() + 1)) != kNonDefinie)) return;
    Constat c = constat(e, GenreConstat::lettre_plus_bas, lue.place(lue.releve.faute - 1), lue.tapee);
    c.lu = fonction ? std::string("FON") : (matrice ? "M" : "") + std::string(1, mots[tete.size()]);
    const int rang = fonction ? 0 : rang_lettre(mots[tete.size()]);
    const int lettre = matrice ? -rang : rang;
    j.attendent[static_cast<std::size_t>(lettre + kDerniereMatrice)].push_back(j.trop_tot.size());
    j.trop_tot.push_back({std::move(c), lettre});
    j.valeurs = valeurs_connues();
}

// True for a formula that evaluates without a problem.
bool se_lit(std::string_view texte) {
    if (texte.empty()) return false;
    const FormuleRelevee lue = lit_formule(texte);
    const Lue relue{texte, lue.formule, lue.releve, lue.erreur, places_dans_le_texte(texte, lue.formule)};
    return !lue.erreur && !premier_probleme(relue) && !(lue.releve.a(kTraitMatrice) && constat_de_matrice(relue));
}

// Judges a formula that was read; `valeur` is what it gave.
bool juge_formule(Jugement& j, const Endroit& e, const Lue& lue, double valeur, bool propose = true) {
    if (!lue.erreur && sans_histoire(lue.releve, lue.formule, lue.tapee)) return false;
    if (const std::optional<Probleme> p = premier_probleme(lue)) {
        const std::string proposee = propose ? formule_proposee(lue.tapee, *p) : std::string();
        // A notation that isn't understood is told where another one would be.
        if (p->genre != GenreConstat::ecriture || !propose || !proposee.empty()) {
            Constat& c = ajoute_constat(j, e, p->genre, p->place, lue.tapee);
            c.lu = partie_lue(lue);
            c.valeur = texte_general(valeur);
            c.propose = proposee;
            return true;
        }
    }
    if (lue.erreur) note_trop_tot(j, e, lue);
    bool trouve = false;
    for (const ConstatArbre& a : constats_de_l_arbre(lue, valeur)) {
        Constat& c = ajoute_constat(j, e, a.genre, lue.place(a.place - 1),
                                    a.morceau.empty() ? lue.tapee : std::string_view(a.morceau));
        c.lu = a.lu;
        c.valeur = a.valeur;
        c.propose = se_lit(a.propose) ? a.propose : std::string();
        trouve = true;
    }
    return trouve;
}

// A text that is a formula of its own: an element, the text of a function.
void juge_texte(Jugement& j, const Endroit& e, std::string_view texte) {
    const std::size_t blancs = std::min(texte.find_first_not_of(' '), texte.size());
    const std::string_view tapee = sans_blancs(texte);
    const FormuleRelevee lue = lit_formule(tapee);
    const Endroit la{e.numero, e.numero_ecrit, e.retrait + blancs};
    juge_formule(j, la, {tapee, lue.formule, lue.releve, lue.erreur, places_dans_le_texte(tapee, lue.formule)}, lue.valeur);
}

// The row with a comma between each two elements.
std::string avec_virgules(std::string_view rangee) {
    std::string texte;
    for (std::size_t i = 0; i < rangee.size(); ++i) {
        if (rangee[i] != ' ' && rangee[i] != ',') {
            texte += rangee[i];
            continue;
        }
        while (i + 1 < rangee.size() && (rangee[i + 1] == ' ' || rangee[i + 1] == ',')) ++i;
        texte += ',';
    }
    return texte;
}

// The row with a 0 where nothing stands in front of a comma.
std::string avec_zeros(std::string_view rangee) {
    std::string texte;
    for (const char c : rangee) {
        if (c == ',' && (texte.empty() || texte.back() == ',')) texte += '0';
        texte += c;
    }
    return texte;
}

// One finding for the elements of a row that are empty.
void juge_vides(Jugement& j, const LigneObservee& o, std::string_view ligne) {
    const std::size_t vide = ligne.starts_with(',') ? 0 : ligne.find(",,");
    if (vide != npos) ajoute_constat(j, endroit_de(o), GenreConstat::element_vide, vide, ligne).propose = avec_zeros(ligne);
}

// The elements of a row of a matrix or of a data line. Plain numbers are read and not evaluated.
void juge_elements(Jugement& j, const Endroit& e, std::string_view ligne) {
    std::size_t debut = 0;
    bool proposee = false;   // the whole line is proposed once: it may be long, and hold many such elements
    while (debut < ligne.size()) {
        const std::size_t virgule = std::min(ligne.find(',', debut), ligne.size());
        const std::string_view element = ligne.substr(debut, virgule - debut);
        const Endroit la{e.numero, e.numero_ecrit, e.retrait + debut};
        if (element.find_first_not_of("0123456789.-") != npos) {
            const std::size_t avant = j.constats.size();
            juge_texte(j, la, element);
            // Among elements a blank stands for a comma.
            if (j.constats.size() > avant && j.constats.back().genre == GenreConstat::deux_valeurs)
                j.constats.back().propose = std::exchange(proposee, true) ? std::string() : avec_virgules(ligne);
        } else if (const std::size_t lus = longueur_prefixe(element); lus < element.size()) {
            Constat& c = ajoute_constat(j, la, GenreConstat::element_partiel, lus, element);
            c.lu = lus == 0 ? "0" : std::string(element.substr(0, lus));
            if (element.find('-', 1) != npos) c.propose = "(" + std::string(element) + ")";
        }
        debut = virgule + 1;
    }
}

// A row of a matrix: its elements, and whether it has more of them than the first row.
void juge_rangee(Jugement& j, const LigneObservee& o) {
    const auto elements = [](std::string_view r) {
        return r.empty() ? 0 : std::count(r.begin(), r.end() - 1, ',') + 1;
    };
    j.bloc_refuse = o.erreur;
    const std::ptrdiff_t trouves = elements(o.formule), voulus = definition_de_matrice.definition_colonnes;
    if (!o.erreur) {
        if (!j.rangee) j.rangee = constat(endroit_de(o), GenreConstat::premiere_rangee, o.formule.find(','), o.formule);
        juge_vides(j, o, o.formule);
        return juge_elements(j, endroit_de(o), o.formule);
    }
    if (trouves < voulus && j.rangee) {
        j.rangee->lu = o.formule;
        j.rangee->valeur = chiffres(voulus);
        j.constats.push_back(std::move(*j.rangee));
        j.rangee.reset();
    }
    if (trouves <= voulus) return;
    Constat& c = ajoute_constat(j, endroit_de(o), GenreConstat::colonnes_en_trop, o.formule.find(','), o.formule);
    c.lu = chiffres(voulus);
    c.valeur = chiffres(trouves);
}

// The parts of a group of a data set behind those that are values: their count, and whether it can be one.
bool est_effectif(std::string_view texte) {
    const std::string_view t = sans_blancs(texte);
    if (t.empty() || t.find_first_not_of("0123456789.") != npos) return true;
    return t.find('.') == npos && (t.size() == 1 || t[0] != '0');
}

// The call with a point for the first comma of each group, where it stands between two digits; "" for one with
// points.
std::string avec_points(std::string_view formule) {
    std::string texte(formule);
    bool libre = true;
    for (std::size_t i = 1; i + 1 < texte.size(); ++i) {
        if (texte[i] == ';') libre = true;
        if (texte[i] == '.') return {};   // who writes points means the commas
        if (texte[i] != ',') continue;
        if (libre && est_chiffre(texte[i - 1]) && est_chiffre(texte[i + 1])) texte[i] = '.';
        libre = false;
    }
    return texte;
}

// One finding for the counts of a call: the first that can be none, otherwise the first.
void juge_effectifs(Jugement& j, const LigneObservee& o) {
    const std::size_t ouvrante = o.formule.find('('), fermante = std::min(o.formule.find(')'), o.formule.size());
    if (ouvrante == npos || fermante < ouvrante) return;
    const bool couples = capitales(o.formule.substr(0, ouvrante)).find(kMotStatXY.mot) != npos;
    const int valeurs = couples ? 2 : 1;
    std::optional<std::size_t> premier;
    int parties = 0;
    std::size_t debut = ouvrante + 1;
    for (std::size_t i = debut; i <= fermante; ++i) {
        const char c = i == fermante ? ';' : o.formule[i];
        if (c != ',' && c != ';') continue;
        const bool compte = ++parties > valeurs;
        const std::string_view partie = o.formule.substr(debut, i - debut);
        if (parties > valeurs + 1 || (compte && !est_effectif(partie))) {
            ajoute_constat(j, endroit_de(o), GenreConstat::effectif_virgule, debut - 1, o.formule).propose =
                couples ? std::string() : avec_points(o.formule);
            return;
        }
        if (c == ';' && parties < valeurs) {
            ajoute_constat(j, endroit_de(o), GenreConstat::couple_incomplet, i == fermante ? debut - 1 : i, o.formule);
            return;
        }
        if (compte && !premier) premier = debut - 1;
        debut = i + 1;
        if (c == ';') parties = 0;
    }
    if (premier) ajoute_constat(j, endroit_de(o), GenreConstat::effectif, *premier, o.formule);
}

// The heading of two lists, which are the lines below it.
void attend_listes(Jugement& j, const LigneObservee& o) {
    if (o.erreur || o.formule.find('(') != npos || capitales(o.formule).find(kMotStatXY.mot) == npos) return;
    j.listes = constat(endroit_de(o), GenreConstat::liste_manquante, 0, o.formule);
    j.listes_lues = 0;
}

// A call of statistics: how it was read, then its counts.
void juge_statistiques(Jugement& j, const LigneObservee& o) {
    if (o.lue.empty()) return attend_listes(j, o);
    const Lue lue{o.formule, o.lue, observation->releve, o.erreur, places_de(o)};
    const std::size_t avant = j.constats.size();
    juge_effectifs(j, o);
    if (j.constats.size() == avant || gravite(j.constats.back().genre) == Gravite::a_savoir)
        juge_formule(j, endroit_de(o), lue, o.valeur, false);
    if (o.erreur || capitales(o.formule).find(kMotStatXY.mot) != npos) return;
    if (j.statx) ajoute_constat(j, endroit_de(o), GenreConstat::second_statx, 0, o.formule);
    j.statx = true;
}

// True when what stands behind a "!" goes on with the formula. A comment begins with a word, and behind a blank
// also with a sign.
bool continue_le_calcul(std::string_view derriere, bool colle) {
    const std::string_view suite = sans_blancs(derriere);
    if (suite.empty()) return true;
    if (std::string_view("+-*/^),=!:%×÷;"_fr).find(suite[0]) != npos) {
        const std::string_view apres = sans_blancs(suite.substr(1));
        return colle || (!apres.empty() && (est_chiffre(apres[0]) || apres[0] == '('));
    }
    // One value alone is no comment.
    const bool valeur = suite.find_first_not_of("0123456789.()") == npos || (suite.size() == 1 && est_lettre(capitale(suite[0])));
    return colle && derriere[0] != ' ' && valeur;
}

// "5!" is no factorial: what stands behind the "!" is a comment. A comment that is one begins with a word.
bool juge_factorielle(Jugement& j, const LigneObservee& o) {
    const std::size_t signe = o.formule.size();
    if (signe == 0 || o.ligne.size() <= o.formule.size()) return false;
    const std::size_t place = o.ligne.find('!');
    const char devant = o.formule.back();
    const bool operande = est_chiffre(devant) || devant == ')' || (place == signe && est_lettre(capitale(devant)));
    if (!operande || !continue_le_calcul(o.ligne.substr(place + 1), place == signe)) return false;
    Constat& c = ajoute_constat(j, endroit_de(o), GenreConstat::factorielle, place, o.ligne);
    c.lu = o.formule;
    c.propose = avec_factorielles(o.ligne);
    return true;
}

// True for numbers, letters, products and powers alone: they leave nothing of rounding where 0 was meant.
bool est_produit(std::string_view formule) {
    char avant = '=';
    for (const char c : capitales(formule)) {
        if (c == '+' || (est_lettre(c) && est_lettre(avant))) return false;
        if (c == '-' && avant != '(' && avant != '^' && avant != '=') return false;
        if (c != ' ') avant = c;
    }
    return true;
}

// What the mode hides of a value that is shown as a number.
void juge_valeur(Jugement& j, const LigneObservee& o) {
    const double x = o.valeur;
    if (x == 0 || !std::isfinite(x) || o.resultat.empty()) return;
    const bool entier = x == std::trunc(x);
    if (entier && modes.mode_nombre == 1) return;
    const bool zero = o.resultat == " = 0" || o.resultat == " = -0";
    if (!zero && modes.mode_nombre != 2 && modes.mode_affichage != 1) return;
    if (!o.resultat.starts_with(" = ") || o.resultat.find(',') != npos || o.resultat.find("Pi") != npos) return;
    if (zero && std::fabs(x) < 1e-12 && !est_produit(o.formule)) return;   // what rounding has left of zero
    const bool coupee = modes.mode_nombre == 2 ? !entier : modes.mode_affichage == 1;
    if (!zero && !coupee) return;
    const GenreConstat genre = zero && !coupee ? GenreConstat::zero_montre : GenreConstat::valeur_coupee;
    ajoute_constat(j, endroit_de(o), genre, 0, o.formule).valeur = texte_general(x);
}

// What the pass has cut off that no pass has written.
bool juge_fin_de_ligne(Jugement& j, const LigneObservee& o) {
    if (o.entiere.size() <= o.ligne.size()) return false;
    const TexteEfface efface = texte_efface(o);
    if (efface.genre == GenreConstat::apres) return false;
    Constat& c = ajoute_constat(j, endroit_de(o), efface.genre, efface.place, efface.morceau);
    c.lu = o.formule;
    c.propose = efface.propose;
    return true;
}

std::string lettre_de(int rang) { return std::string(1, static_cast<char>('A' + rang - 1)); }

// "A=A+1" on the first line of A: what gives the letter its value has made it known.
void juge_lettre_neuve(Jugement& j, const LigneObservee& o) {
    const Releve& r = observation->releve;
    if (o.erreur || r.affectee <= 0 || (r.lettres_neuves >> r.affectee & 1u) == 0) return;
    const auto lue = std::find_if(r.noeuds.begin() + static_cast<std::ptrdiff_t>(debut_calcul(r.noeuds)), r.noeuds.end(),
                                  [&](const Noeud& n) { return n.genre == GenreNoeud::lettre && n.numero == r.affectee; });
    if (lue == r.noeuds.end()) return;
    const std::vector<std::size_t> places = places_de(o);
    Constat& c = ajoute_constat(j, endroit_de(o), GenreConstat::lettre_sans_valeur,
                                places[static_cast<std::size_t>(lue->debut - 1)], o.formule);
    c.lu = lettre_de(r.affectee);
}

// A calculated line.
void juge_calculee(Jugement& j, const LigneObservee& o) {
    if (juge_fin_de_ligne(j, o) || juge_factorielle(j, o)) return;
    const std::size_t avant = j.constats.size();
    if (!o.lue.empty()) {
        const Releve& r = observation->releve;
        if (o.erreur || !sans_histoire(r, o.lue, o.formule))
            juge_formule(j, endroit_de(o), {o.formule, o.lue, r, o.erreur, places_de(o)}, o.valeur);
        if (!o.erreur && r.affectee == 0 && !r.noeuds.empty() && r.noeuds.back().genre == GenreNoeud::egale)
            ajoute_constat(j, endroit_de(o), GenreConstat::affectation_vide, 0, o.formule);
        if (j.constats.size() == avant) juge_lettre_neuve(j, o);
    }
    if (!o.erreur && j.constats.size() == avant && !o.lue.empty()) juge_valeur(j, o);
}

// Gives what waited its line below: the one that has just given it a value.
void note_valeurs(Jugement& j, const LigneObservee& o, int ligne) {
    if (j.trop_tot.empty()) return;
    const ValeursConnues avant = std::exchange(j.valeurs, valeurs_connues());
    if (o.erreur || o.role == RoleLigne::fonction_de_table) return;   // the values of a table are its own
    const int affectee = o.role == RoleLigne::formule ? observation->releve.affectee : 0;   // a failed line may have left one too
    for (int lettre = -kDerniereMatrice; lettre < kAttentes - kDerniereMatrice; ++lettre) {
        const bool neuve = !est_connue(avant, lettre) && est_connue(j.valeurs, lettre);
        if (!neuve && (affectee == 0 || affectee != lettre)) continue;
        std::erase_if(j.attendent[static_cast<std::size_t>(lettre + kDerniereMatrice)], [&](std::size_t i) {
            Constat& c = j.trop_tot[i].constat;
            if (c.ligne >= ligne) return false;
            c.valeur = chiffres(ligne);
            return true;
        });
    }
}

// Tells of the letters that a formula reads and that are no longer what their own line has made them.
void juge_lettres_changees(Jugement& j, const LigneObservee& o) {
    const Releve& r = observation->releve;
    if (o.role != RoleLigne::formule || o.erreur || o.lue.empty()) return;
    for (std::size_t i = debut_calcul(r.noeuds); i < r.noeuds.size(); ++i) {
        const Noeud& n = r.noeuds[i];
        if (n.genre != GenreNoeud::lettre) continue;
        LettreDonnee& lettre = j.lettres[static_cast<std::size_t>(n.numero)];
        if (lettre.changee == 0) continue;
        Constat& c = ajoute_constat(j, endroit_de(o), GenreConstat::lettre_changee,
                                    places_de(o)[static_cast<std::size_t>(n.debut - 1)], o.formule);
        c.lu = lettre_de(n.numero);
        c.valeur = chiffres(std::exchange(lettre.changee, 0));   // once is enough
    }
}

// Notes the letter that a line gives a value, and which of those that had one it has changed beside.
void note_lettres(Jugement& j, const LigneObservee& o) {
    const int affectee = o.role == RoleLigne::formule && !o.lue.empty() ? observation->releve.affectee : 0;
    for (std::size_t i = 1; i < j.lettres.size(); ++i) {
        LettreDonnee& lettre = j.lettres[i];
        const double valeur = moteur.valeur_variable[i];
        const bool sienne = affectee == static_cast<int>(i);
        const bool autre = valeur != lettre.valeur && !(std::isnan(valeur) && std::isnan(lettre.valeur));
        if (sienne)
            lettre = {true, valeur, 0};
        else if (lettre.donnee && autre)
            lettre.changee = o.numero;
        lettre.valeur = valeur;
    }
}

// The statistics' word in a comment makes a line of statistics of it.
void juge_commentaire(Jugement& j, const LigneObservee& o) {
    const std::size_t signe = o.ligne.find('!');
    if (signe == npos || signe == 0) return;
    if (!kMotStatX.possible(signes_de(o.ligne))) return;
    const std::size_t mot = capitales(o.ligne).find(kMotStatX.mot, signe);
    if (mot == npos || capitales(o.formule).find(kMotStatX.mot) != npos) return;
    ajoute_constat(j, endroit_de(o), GenreConstat::mot_statx, mot, o.ligne);
}

// The letters FIN keep a line from being calculated that would be one otherwise.
void juge_fermante(Jugement& j, const LigneObservee& o) {
    if (o.formule.empty()) return;
    const std::string entiere = capitales(o.entiere);
    const std::size_t mot = entiere.find(kFin.mot);
    if (mot == npos) return;
    // In front of the comment it is a text, or the line that closes a definition, but for an assignment.
    const bool affecte = o.entiere.substr(o.formule.size()).find('=') != npos && est_mot(o.formule) && o.formule.size() > 3;
    if (mot < o.formule.size() && !affecte) return;
    const std::string formule = capitales(o.formule);
    const bool marque = formule.find("STATX(") != npos || formule.starts_with(kDefFonction.mot);
    if (affecte || marque || !lit_formule(o.formule).erreur) ajoute_constat(j, endroit_de(o), GenreConstat::mot_fin, mot, o.formule);
}

// A heading begins with its word, has a letter behind it and then its bracket; another line holds the letters
// by chance.
void juge_entete(Jugement& j, const LigneObservee& o) {
    const std::string capitale_ligne = capitales(o.formule);
    const TexteMarque marque{capitale_ligne};
    const std::size_t inc = marque.position(kMotInc), mot = inc != npos ? inc : marque.position(kMotAir);
    j.entete = {.numero = o.numero, .numero_ecrit = o.numero_ecrit, .retrait = o.retrait,
                .formule = std::string(o.formule), .suspect = false};
    if (mot == 0 && capitale_ligne.size() > 4 && sans_blancs(std::string_view(capitale_ligne).substr(4)).starts_with('(')) return;
    j.entete.suspect = true;
    Constat& c = ajoute_constat(j, endroit_de(o), inc != npos ? GenreConstat::mot_inc : GenreConstat::mot_air,
                                mot == npos ? 0 : mot, o.entiere);
    const std::string_view queue = o.entiere.substr(o.ligne.size());
    if (est_mot(o.ligne) && queue.find('=') != npos) c.propose = affectation_voulue(o.ligne, queue);
}

// A heading that no function has followed.
void juge_entete_seul(Jugement& j) {
    if (j.entete.numero == 0) return;
    const Endroit e{j.entete.numero, j.entete.numero_ecrit, j.entete.retrait};
    if (!j.entete.suspect) ajoute_constat(j, e, GenreConstat::entete_seul, 0, j.entete.formule);
    j.entete.numero = 0;
}

// The function of a table or an area, and its heading.
void juge_table(Jugement& j, const LigneObservee& o) {
    const EnteteJuge entete = std::exchange(j.entete, {});
    if (entete.suspect) return;
    const Endroit e{entete.numero, entete.numero_ecrit, entete.retrait};
    if (sans_blancs(o.formule).empty()) return void(ajoute_constat(j, e, GenreConstat::entete_seul, 0, entete.formule));
    if (!o.lue.empty()) {
        const Releve& r = observation->releve;
        juge_formule(j, e, {entete.formule, o.lue, r, r.faute != 0, places_dans_le_texte(entete.formule, o.lue)}, 0);
    }
    if (!juge_factorielle(j, o)) juge_texte(j, endroit_de(o), o.formule);
}

// The text of the user function, read with a value for its variable.
void juge_fonction(Jugement& j, const LigneObservee& o) {
    const std::size_t egal = o.formule.find('=');
    const auto rang = static_cast<std::size_t>(moteur.fonction_active);
    if (egal == npos) return;
    // Slot 0 stands for a text whose variable was not reached.
    const bool definie = std::exchange(moteur.variable_definie[rang], true);
    Endroit e = endroit_de(o);
    e.retrait += egal + 1;
    const std::size_t avant = j.constats.size();
    juge_texte(j, e, o.formule.substr(egal + 1));
    for (std::size_t i = avant; i < j.constats.size(); ++i)
        if (!j.constats[i].propose.empty()) j.constats[i].propose.insert(0, o.formule.substr(0, egal + 1));
    moteur.variable_definie[rang] = definie;
}

// The heading of a matrix is its name: numbers behind it are read by nobody.
void juge_entete_matrice(Jugement& j, const LigneObservee& o) {
    const std::size_t mot = capitales(o.formule).find(kDefM.mot);
    if (juge_fin_de_ligne(j, o) || o.erreur || mot == npos) return;
    const std::size_t nom = mot + kDefM.mot.size() + 1, suite = o.formule.find_first_of("0123456789", nom);
    if (suite == npos) return;
    ajoute_constat(j, endroit_de(o), GenreConstat::texte_non_lu, suite, o.formule).lu = o.formule.substr(0, nom);
}

// A heading opens a definition, a line that closes it ends that. What is open at the end of the sheet is never
// calculated.
void note_definition(Jugement& j, const LigneObservee& o) {
    if (o.role == RoleLigne::fermante) j.ouverte.reset();
    if (o.role != RoleLigne::entete_matrice && o.role != RoleLigne::entete_donnees) return;
    j.rangee.reset();
    j.ouverte = constat(endroit_de(o), GenreConstat::definition_ouverte, 0, o.formule);
}

// A list has its values between commas.
void juge_liste(Jugement& j, const LigneObservee& o) {
    if (++j.listes_lues == 2) j.listes.reset();
    const std::size_t place = o.ligne.find(';');
    if (place == npos) return juge_elements(j, endroit_de(o), o.ligne);
    Constat& c = ajoute_constat(j, endroit_de(o), GenreConstat::point_virgule_de_liste, place, o.ligne);
    c.propose = std::string(o.ligne);
    if (o.ligne.find(',') == npos)
        std::ranges::replace(c.propose, ';', ',');
    else
        c.propose.clear();   // which of them are decimal marks isn't known
}

// What a line is judged for, after as what it was treated.
void juge_selon_role(Jugement& j, const LigneObservee& o) {
    switch (o.role) {
        case RoleLigne::formule: return juge_calculee(j, o);
        case RoleLigne::statistiques: return juge_statistiques(j, o);
        case RoleLigne::fonction:
            if (!juge_fin_de_ligne(j, o)) juge_fonction(j, o);
            return;
        case RoleLigne::rangee: return juge_rangee(j, o);
        case RoleLigne::donnees:
            juge_vides(j, o, o.ligne);
            return juge_elements(j, endroit_de(o), o.ligne);
        case RoleLigne::fermante: return juge_fermante(j, o);
        case RoleLigne::entete: return juge_entete(j, o);
        case RoleLigne::fonction_de_table: return juge_table(j, o);
        case RoleLigne::entete_matrice: return juge_entete_matrice(j, o);
        case RoleLigne::entete_donnees: return void(juge_fin_de_ligne(j, o));
        case RoleLigne::liste: return juge_liste(j, o);
        case RoleLigne::copiee:
        case RoleLigne::refusee: return;
    }
}

// True for a calculated line without a comment whose formula was read to its end and needed no record, with nothing or
// a number behind it, where nothing waits for it. In a watched pass most lines are.
bool est_sans_histoire(const Jugement& j, const LigneObservee& o) {
    if (o.role != RoleLigne::formule || o.erreur || !o.lue.empty() || o.ligne.size() != o.formule.size()) return false;
    if (j.entete.numero != 0 || j.bloc_refuse || !j.trop_tot.empty()) return false;
    return o.entiere.size() == o.ligne.size() || est_resultat_de(o);
}

// The rest of them; out of the way of most.
[[gnu::noinline]] void juge_en_detail(Jugement& jugement, const LigneObservee& o) {
    if (o.role != RoleLigne::fonction_de_table) juge_entete_seul(jugement);
    const int ligne = o.role == RoleLigne::fermante && jugement.ouverte ? jugement.ouverte->ligne : o.numero;
    note_definition(jugement, o);
    if (o.role == RoleLigne::fermante || o.role == RoleLigne::entete_matrice) jugement.bloc_refuse = false;
    if (!jugement.bloc_refuse) juge_selon_role(jugement, o);
    note_valeurs(jugement, o, ligne);
    if (jugement.lettres_notees) {
        juge_lettres_changees(jugement, o);
        note_lettres(jugement, o);
    }
    if (o.role != RoleLigne::formule || jugement.bloc_refuse) return;
    // What stands below a definition that was refused is no formula.
    if (o.erreur && (capitales(o.formule).find(kDefM.mot) != npos || capitales(o.formule).find(kMotStatX.mot) != npos))
        jugement.bloc_refuse = true;
    if (o.ligne.size() != o.formule.size()) juge_commentaire(jugement, o);
}

}  // namespace

void juge_ligne(Jugement& jugement, const LigneObservee& o) {
    if (!est_sans_histoire(jugement, o)) juge_en_detail(jugement, o);
}

void acheve_jugement(Jugement& jugement) {
    juge_entete_seul(jugement);
    if (jugement.ouverte) jugement.constats.push_back(std::move(*jugement.ouverte));
    jugement.ouverte.reset();
    if (jugement.listes) jugement.constats.push_back(std::move(*jugement.listes));
    jugement.listes.reset();
    for (LectureTropTot& l : jugement.trop_tot)
        if (!l.constat.valeur.empty()) jugement.constats.push_back(std::move(l.constat));
    jugement.trop_tot.clear();
    jugement.attendent = {};
    std::ranges::stable_sort(jugement.constats, [](const Constat& a, const Constat& b) {
        return std::pair(a.ligne, a.colonne) < std::pair(b.ligne, b.colonne);
    });
}
