// Looks through the record of a reading for what was passed over, from the gravest to the least.
#include "verification/problem.hpp"

#include <algorithm>
#include <array>

#include "base/codepage.hpp"
#include "engine/reading.hpp"
#include "functions/table.hpp"
#include "sheet/marks.hpp"
#include "state/matrices.hpp"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr int kCorrectionsMaxi = 12;   // mends of one formula

char caractere(std::string_view texte, std::size_t place) { return place < texte.size() ? texte[place] : '\0'; }

// The last character in front of `place` that is no blank, or 0.
char devant(std::string_view texte, std::size_t place) {
    while (place > 0 && texte[place - 1] == ' ') --place;
    return place == 0 ? '\0' : texte[place - 1];
}

// The first character from `place` on that is no blank.
std::size_t saute_blancs(std::string_view texte, std::size_t place) {
    while (place < texte.size() && texte[place] == ' ') ++place;
    return place;
}

// Signs that other calculators and writers know, and what they mean here.
struct SigneConnu {
    char signe;
    std::string_view remplace;
    bool entre_chiffres;       // only a separator of thousands: between two digits
};
constexpr auto kSignes = std::to_array<SigneConnu>({
    {':', "/", false}, {"÷"_fr[0], "/", false}, {'\\', "/", false}, {"×"_fr[0], "*", false},
    {"·"_fr[0], "*", false}, {"•"_fr[0], "*", false}, {"–"_fr[0], "-", false}, {"—"_fr[0], "-", false},
    {"³"_fr[0], "^3", false}, {"¹"_fr[0], "^1", false}, {"°"_fr[0], "", false}, {"€"_fr[0], "", false},
    {'$', "", false}, {"£"_fr[0], "", false}, {'[', "(", false}, {'{', "(", false}, {']', ")", false},
    {'}', ")", false}, {"½"_fr[0], "1/2", false}, {"¼"_fr[0], "1/4", false}, {"¾"_fr[0], "3/4", false},
    {'\'', "", true}, {"’"_fr[0], "", true}, {"‘"_fr[0], "", true}, {'_', "", true}, {'`', "", true},
    {"´"_fr[0], "", true}, {'\xA0', "", true},
});

const SigneConnu* signe_connu(char c) {
    const auto trouve = std::ranges::find(kSignes, c, &SigneConnu::signe);
    return trouve == kSignes.end() ? nullptr : &*trouve;
}

// "45°30" and "12:30" may be minutes: what was meant isn't known.
bool est_heure_ou_angle(std::string_view tapee, std::size_t place) {
    if (!est_chiffre(caractere(tapee, place + 1)) || place == 0 || !est_chiffre(tapee[place - 1])) return false;
    if (tapee[place] == "°"_fr[0]) return true;
    const bool minutes = caractere(tapee, place + 1) < '6' && est_chiffre(caractere(tapee, place + 2)) &&
                         !est_chiffre(caractere(tapee, place + 3)) && caractere(tapee, place + 3) != '.';
    const bool heures = place < 3 && (place < 2 || tapee[0] <= '2');
    return tapee[place] == ':' && heures && minutes;
}

// The start of the operand that ends in front of `place`: digits, letters, points.
std::size_t debut_operande(std::string_view tapee, std::size_t place) {
    while (place > 0 && (est_chiffre(tapee[place - 1]) || est_lettre(capitale(tapee[place - 1])) || tapee[place - 1] == '.')) --place;
    return place;
}

// "%" where it isn't read: a hundredth of the operand in front of it, unless that is a divisor or an exponent.
Probleme pourcentage_non_lu(std::string_view tapee, std::size_t place) {
    const char avant = devant(tapee, debut_operande(tapee, place));
    return {.genre = GenreConstat::pourcentage, .place = place, .longueur = 1, .correction = "/100",
            .corrigible = avant != '/' && avant != '^'};
}

// True when the brackets around `place` hold another comma in front of it: which of them is a decimal mark isn't
// known.
bool autre_virgule(std::string_view tapee, std::size_t place) {
    int profondeur = 0;
    for (std::size_t i = place; i-- > 0;) {
        if (tapee[i] == ')') ++profondeur;
        if (tapee[i] == '(' && profondeur-- == 0) return false;
        if (tapee[i] == ',' && profondeur == 0) return true;
    }
    return false;
}

// A fraction written as one sign at `place`, with the whole number in front of it. It needs brackets where a sign that
// binds stands beside it.
Probleme probleme_fraction(std::string_view tapee, std::size_t place, std::string_view fraction) {
    std::size_t debut = place;
    while (debut > 0 && est_chiffre(tapee[debut - 1])) --debut;
    std::string correction(tapee.substr(debut, place - debut));
    correction.append(correction.empty() ? "" : "+").append(fraction);
    const char avant = debut > 0 ? tapee[debut - 1] : '+';
    const char apres = place + 1 < tapee.size() ? tapee[place + 1] : '+';
    if (avant != '+' || (apres != '+' && apres != '-')) correction = "(" + correction + ")";
    return {.genre = GenreConstat::signe_inconnu, .place = place, .edition = debut, .longueur = place + 1 - debut,
            .correction = std::move(correction), .corrigible = avant != '.' && avant != ','};
}

// The problem of a sign at `place` that the engine doesn't know.
Probleme probleme_signe(std::string_view tapee, std::size_t place) {
    const SigneConnu* const connu = signe_connu(caractere(tapee, place));
    if (connu == nullptr) return {.genre = GenreConstat::nombre_partiel, .place = place};
    if (connu->remplace.find('/') == 1) return probleme_fraction(tapee, place, connu->remplace);
    if (!connu->entre_chiffres)
        return {.genre = GenreConstat::signe_inconnu, .place = place, .longueur = 1,
                .correction = std::string(connu->remplace), .corrigible = !est_heure_ou_angle(tapee, place)};
    const bool entre = place > 0 && est_chiffre(tapee[place - 1]) && est_chiffre(caractere(tapee, place + 1));
    return {.genre = GenreConstat::milliers, .place = place, .longueur = 1, .corrigible = entre};
}

// An operand of which the value took only a part.
std::optional<Probleme> operande_partiel(const Lue& lue) {
    if (!lue.releve.a(kTraitPartiel)) return {};
    const auto partiel = std::ranges::find_if(lue.releve.noeuds, [](const Noeud& n) { return n.utile != 0 && n.utile < n.fin; });
    if (partiel == lue.releve.noeuds.end()) return {};
    const std::size_t place = lue.place(partiel->utile);
    if (partiel->genre == GenreNoeud::matrice) return Probleme{.genre = GenreConstat::nom_long, .place = place};
    return probleme_signe(lue.tapee, place);
}

// A hexadecimal number with a character that is none of its digits.
std::optional<Probleme> chiffre_hexa_inconnu(const Lue& lue) {
    if (!lue.releve.a(kTraitHexa)) return {};
    for (const Noeud& n : lue.releve.noeuds) {
        if (n.genre != GenreNoeud::nombre || lue.formule[static_cast<std::size_t>(n.debut - 1)] != '$') continue;
        const std::size_t place = lue.formule.find_first_not_of("0123456789ABCDEF", static_cast<std::size_t>(n.debut));
        if (place < static_cast<std::size_t>(n.fin)) return Probleme{.genre = GenreConstat::hexadecimal, .place = lue.places[place]};
    }
    return {};
}

// The two operands of which only the second one counts: digits with a blank in between are one number.
std::optional<Probleme> operandes_de_suite(const Lue& lue) {
    if (!lue.releve.a(kTraitRemplace)) return {};
    const auto& noeuds = lue.releve.noeuds;
    const auto remplace = std::ranges::find(noeuds, GenreNoeud::remplace, &Noeud::genre);
    if (remplace == noeuds.end() || remplace - noeuds.begin() < 2) return {};
    const Noeud& second = *(remplace - 1);
    const Noeud& premier = *(remplace - 2);
    const std::size_t place = lue.place(premier.fin);
    const std::size_t suite = lue.place(second.debut - 1);
    const bool nombres = premier.genre == GenreNoeud::nombre && second.genre == GenreNoeud::nombre;
    const std::string_view chiffres = lue.tapee.substr(suite, static_cast<std::size_t>(second.fin - second.debut + 1));
    const std::size_t entiers = std::min(chiffres.find_first_not_of("0123456789"), chiffres.size());
    if (nombres && (entiers == 3 || (entiers > 0 && entiers % 3 == 0)))
        return Probleme{.genre = GenreConstat::blanc_dans_nombre, .place = place, .longueur = suite - place, .corrigible = true};
    // "3 x 2" is meant as a product, whatever X holds.
    const char lettre = caractere(lue.formule, static_cast<std::size_t>(second.debut - 1));
    if (second.genre == GenreNoeud::lettre && lettre == 'X' &&
        est_chiffre(caractere(lue.tapee, saute_blancs(lue.tapee, suite + 1))))
        return Probleme{.genre = GenreConstat::lettre_fois, .place = suite, .longueur = 1, .correction = "*", .corrigible = true};
    return Probleme{.genre = GenreConstat::deux_valeurs, .place = place, .longueur = suite - place, .correction = "*",
                    .corrigible = true};
}

// "(" behind a value: a product, or the brackets of a name that has none.
Probleme parenthese_non_lue(const Lue& lue, std::size_t place) {
    const std::size_t suite = saute_blancs(lue.tapee, place + 1);
    if (caractere(lue.tapee, suite) == ')')
        return {.genre = GenreConstat::parentheses_vides, .place = place, .longueur = suite + 1 - place, .corrigible = true};
    return {.genre = GenreConstat::signe_manquant, .place = place, .correction = "*", .corrigible = true};
}

// ")" behind a value: one of a call that ended before it, one whose "(" is missing at the start, or one too many.
Probleme fermante_non_lue(const Lue& lue, std::size_t place) {
    const std::string_view devant = lue.tapee.substr(0, place);
    const auto ouvertes = std::ranges::count(devant, '('), fermees = std::ranges::count(devant, ')');
    if (ouvertes > fermees) return {.genre = GenreConstat::texte_non_lu, .place = place};
    if (ouvertes > 0 || saute_blancs(lue.tapee, place + 1) == lue.tapee.size())
        return {.genre = GenreConstat::fermante_en_trop, .place = place, .longueur = 1, .corrigible = true};
    const std::size_t egal = devant.find('=');
    return {.genre = GenreConstat::fermante_en_trop, .place = place, .edition = egal == npos ? 0 : egal + 1,
            .correction = "(", .corrigible = true};
}

// What stands where reading stopped.
std::optional<Probleme> reste_non_lu(const Lue& lue) {
    const auto arret = static_cast<std::size_t>(lue.releve.arret);
    if (arret == 0 || arret > lue.formule.size()) return {};
    const std::size_t place = lue.places[arret - 1];
    const char c = lue.formule[arret - 1];
    if (c == ',') {
        const bool decimale = place > 0 && est_chiffre(lue.tapee[place - 1]) && est_chiffre(caractere(lue.tapee, place + 1));
        return Probleme{.genre = decimale ? GenreConstat::virgule_decimale : GenreConstat::texte_non_lu, .place = place,
                        .longueur = 1, .correction = ".", .corrigible = decimale && !autre_virgule(lue.tapee, place)};
    }
    if (c == '(') return parenthese_non_lue(lue, place);
    if (c == ')') return fermante_non_lue(lue, place);
    if (c == '%') return pourcentage_non_lu(lue.tapee, place);
    if (c == '=') return Probleme{.genre = GenreConstat::deux_egal, .place = place};
    if (est_lettre(c)) return Probleme{.genre = GenreConstat::signe_manquant, .place = place, .correction = "*", .corrigible = true};
    if (signe_connu(c) != nullptr) return probleme_signe(lue.tapee, place);
    return Probleme{.genre = GenreConstat::texte_non_lu, .place = place};
}

// The end of the operand that begins at `debut`: a number, a name with its brackets, or brackets.
std::size_t fin_operande(std::string_view tapee, std::size_t debut) {
    std::size_t i = saute_blancs(tapee, debut);
    while (i < tapee.size() && (est_chiffre(tapee[i]) || est_lettre(capitale(tapee[i])) || tapee[i] == '.')) ++i;
    if (caractere(tapee, i) != '(') return i;
    int profondeur = 0;
    for (; i < tapee.size(); ++i) {
        if (tapee[i] == '(') ++profondeur;
        if (tapee[i] == ')' && --profondeur == 0) return i + 1;
    }
    return i;
}

// A sign behind an operator: brackets around it and its operand.
std::optional<Probleme> signe_derriere(const Lue& lue, std::size_t place) {
    if (npos == std::string_view("+-*/^").find(devant(lue.tapee, place)) || devant(lue.tapee, place) == '\0') return {};
    const std::size_t fin = fin_operande(lue.tapee, place + 1);
    if (fin <= place + 1) return Probleme{.genre = GenreConstat::signe_apres_operateur, .place = place};
    return Probleme{.genre = GenreConstat::signe_apres_operateur, .place = place, .longueur = fin - place,
                    .correction = "(" + std::string(lue.tapee.substr(place, fin - place)) + ")", .corrigible = true};
}

// A letter directly behind a number, `place` being the letter's: an exponent, or x for a product.
std::optional<Probleme> lettre_derriere_nombre(const Lue& lue, std::size_t place) {
    if (place == 0 || !est_chiffre(lue.tapee[place - 1])) return {};
    const char lettre = capitale(caractere(lue.tapee, place));
    const std::size_t suite = place + 1;
    if (lettre == 'X' && est_chiffre(caractere(lue.tapee, suite)))
        return Probleme{.genre = GenreConstat::lettre_fois, .place = place, .longueur = 1, .correction = "*", .corrigible = true};
    if (lettre != 'E') return {};
    const char signe = caractere(lue.tapee, suite);
    const std::size_t debut = signe == '+' || signe == '-' ? suite + 1 : suite;
    std::size_t fin = debut;
    while (est_chiffre(caractere(lue.tapee, fin))) ++fin;
    if (fin == debut) return {};
    std::string puissance(lue.tapee.substr(debut, fin - debut));
    if (signe == '-') puissance = "(-" + puissance + ")";
    return Probleme{.genre = GenreConstat::exposant, .place = place, .longueur = fin - place,
                    .correction = "*10^" + puissance, .corrigible = true};
}

// "1.5E+3" where E has a value is a product and a sum.
std::optional<Probleme> exposant_cache(const Lue& lue) {
    if ((lue.releve.lettres & (1u << ('E' - 'A' + 1))) == 0) return {};
    for (std::size_t i = 1; i < lue.tapee.size(); ++i) {
        const char signe = caractere(lue.tapee, i + 1);
        if (capitale(lue.tapee[i]) != 'E' || (signe != '+' && signe != '-') || est_chiffre(caractere(lue.tapee, i + 1))) continue;
        // One figure in front of the point and a whole exponent tell the number from a product with E.
        std::size_t debut = i, fin = i + 2;
        while (debut > 0 && (est_chiffre(lue.tapee[debut - 1]) || lue.tapee[debut - 1] == '.')) --debut;
        while (est_chiffre(caractere(lue.tapee, fin))) ++fin;
        const char suite = caractere(lue.tapee, fin);
        if (debut + 1 < i && lue.tapee[debut + 1] == '.' && suite != '.' && suite != '^')
            if (auto p = lettre_derriere_nombre(lue, i)) return p;
    }
    return {};
}

// "10 000" in brackets: the blank in front of three figures.
std::optional<Probleme> milliers_en_faute(std::string_view tapee, std::size_t place) {
    if (place == 0 || tapee[place - 1] != ' ' || !est_chiffre(devant(tapee, place))) return {};
    const std::string_view suite = tapee.substr(place);
    if (std::min(suite.find_first_not_of("0123456789"), suite.size()) != 3) return {};
    std::size_t blanc = place;
    while (tapee[blanc - 1] == ' ') --blanc;
    return Probleme{.genre = GenreConstat::ecriture, .place = blanc, .longueur = place - blanc, .corrigible = true};
}

// A name that was refused, with a sign of another notation in it ("A:4"), or a function behind a letter ("XSIN").
std::optional<Probleme> nom_refuse(const Lue& lue, std::size_t place) {
    if (lue.releve.mots_faute != "variable non reconnue"_fr) return {};
    const std::size_t fin = std::min(lue.place(lue.releve.faute_fin), lue.tapee.size());
    for (std::size_t i = place; i < fin; ++i) {
        const SigneConnu* const connu = signe_connu(lue.tapee[i]);
        if (connu != nullptr && !connu->entre_chiffres && !connu->remplace.empty())
            return Probleme{.genre = GenreConstat::ecriture, .place = i, .longueur = 1,
                            .correction = std::string(connu->remplace), .corrigible = true};
    }
    const std::string nom = capitales(lue.tapee.substr(place, fin - place));
    if (nom.size() < 3 || fonction_nommee(std::string_view(nom).substr(1)) == kAucuneFonction) return {};
    return Probleme{.genre = GenreConstat::ecriture, .place = place + 1, .correction = "*", .corrigible = true};
}

// "MC =MA+MB": a blank takes the "=" from the name of a matrix.
std::optional<Probleme> egal_de_matrice(const Lue& lue) {
    const std::size_t egal = saute_blancs(lue.tapee, 2);
    const bool matrice = lue.formule.size() > 2 && lue.formule[0] == 'M' && TestCarMatrice(lue.formule.substr(1, 1));
    if (!matrice || egal == 2 || caractere(lue.tapee, egal) != '=' || lue.releve.faute != 1) return {};
    return Probleme{.genre = GenreConstat::ecriture, .place = 2, .longueur = egal - 2, .corrigible = true};
}

// "CNP(5;2)": other programs have semicolons between the values of a function. With a comma too, it is a decimal mark.
// Statistics have both here.
std::optional<Probleme> points_virgules(const Lue& lue) {
    const std::size_t place = lue.tapee.find(';');
    if (lue.releve.mots_faute != "Manque une ,"_fr || place == npos || lue.formule.find(kMotStatX.mot) != npos) return {};
    std::string texte(lue.tapee);
    std::ranges::replace(texte, ',', '.');
    std::ranges::replace(texte, ';', ',');
    return Probleme{.genre = GenreConstat::ecriture, .place = place, .edition = 0, .longueur = texte.size(),
                    .correction = texte, .corrigible = true};
}

// Where the reader stood at its first report, when it is known what was meant there.
std::optional<Probleme> faute_connue(const Lue& lue) {
    if (!lue.erreur || lue.releve.faute == 0) return {};
    if (auto p = points_virgules(lue)) return p;
    const auto faute = static_cast<std::size_t>(lue.releve.faute);
    if (faute > lue.formule.size()) return {};
    const std::size_t place = lue.places[faute - 1];
    const char c = caractere(lue.tapee, place);
    if (c == ',' && place > 0 && est_chiffre(lue.tapee[place - 1]) && est_chiffre(caractere(lue.tapee, place + 1)))
        return Probleme{.genre = GenreConstat::virgule_decimale, .place = place, .longueur = 1, .correction = ".",
                        .corrigible = !autre_virgule(lue.tapee, place)};
    if (c == '.' && est_chiffre(caractere(lue.tapee, place + 1)))
        return Probleme{.genre = GenreConstat::point_seul, .place = place, .correction = "0", .corrigible = true};
    if (c == '%') return pourcentage_non_lu(lue.tapee, place);
    if (c == '+' || c == '-') return signe_derriere(lue, place);
    if (est_chiffre(c)) return milliers_en_faute(lue.tapee, place);
    if (auto p = lettre_derriere_nombre(lue, place)) return p;
    if (auto p = egal_de_matrice(lue)) return p;
    if (auto p = nom_refuse(lue, place)) return p;
    if (!est_chiffre(c) && !est_lettre(capitale(c)) && c != '$' && signe_connu(c) != nullptr) return probleme_signe(lue.tapee, place);
    return {};
}

// A word of an operator where a value is due.
std::optional<Probleme> mot_pour_valeur(const Lue& lue) {
    const auto mot = std::ranges::find(lue.releve.noeuds, GenreNoeud::mot, &Noeud::genre);
    if (mot == lue.releve.noeuds.end()) return {};
    return Probleme{.genre = GenreConstat::mot_operateur, .place = lue.place(mot->debut - 1)};
}

// What happened behind the back of who wrote the formula. The call itself stands for the place.
std::optional<Probleme> detour(const Lue& lue) {
    const Releve& r = lue.releve;
    const auto place = [&](std::int32_t p) { return p > 0 ? lue.place(p - 1) : 0; };
    if (r.a(kTraitSommePerdue | kTraitArgumentPerdu)) {
        const auto appel = std::ranges::find_if(
            r.noeuds, [&](const Noeud& n) { return n.genre == GenreNoeud::appel && n.fin == r.perdue; });
        return Probleme{.genre = r.a(kTraitSommePerdue) ? GenreConstat::somme_perdue : GenreConstat::argument_perdu,
                        .place = place(appel == r.noeuds.end() ? r.perdue : appel->debut)};
    }
    if (r.a(kTraitSansInverse)) {
        const auto appel = std::ranges::find_if(
            r.noeuds, [](const Noeud& n) { return n.genre == GenreNoeud::appel && n.numero == kInvMat; });
        return Probleme{.genre = GenreConstat::matrice_sans_inverse,
                        .place = appel == r.noeuds.end() ? 0 : place(appel->debut)};
    }
    if (r.faute != 0 && !lue.erreur) return Probleme{.genre = GenreConstat::erreur_effacee, .place = place(r.faute)};
    return {};
}

std::string applique(std::string_view tapee, const Probleme& p) {
    std::string texte(tapee);
    return texte.replace(p.edition == npos ? p.place : p.edition, p.longueur, p.correction);
}

}  // namespace

std::optional<Probleme> premier_probleme(const Lue& lue) {
    if (lue.erreur) return faute_connue(lue);
    if (auto p = operande_partiel(lue)) return p;
    if (auto p = chiffre_hexa_inconnu(lue)) return p;
    if (lue.releve.a(kTraitMot))
        if (auto p = mot_pour_valeur(lue)) return p;
    if (auto p = operandes_de_suite(lue)) return p;
    if (auto p = reste_non_lu(lue)) return p;
    if (auto p = exposant_cache(lue)) return p;
    return detour(lue);
}

std::size_t debut_calcul(const std::vector<Noeud>& noeuds) {
    if (noeuds.empty() || noeuds.back().genre != GenreNoeud::egale) return 0;
    std::size_t i = noeuds.size() - 1;
    for (std::int32_t manquent = 1; manquent > 0 && i > 0;) manquent += noeuds[--i].arite - 1;
    return i;
}

std::string partie_lue(const Lue& lue) {
    const Releve& r = lue.releve;
    std::string texte;
    const std::size_t arret = std::min(static_cast<std::size_t>(std::max(r.arret, 1)) - 1, lue.formule.size());
    std::size_t debut = 0;
    for (const Noeud& n : r.noeuds) {
        if (n.utile == 0 || n.utile >= n.fin) continue;
        const std::size_t utile = lue.place(n.utile);
        texte += lue.tapee.substr(debut, utile - debut);
        // A letter behind what goes was multiplied, and stays so.
        if (static_cast<std::size_t>(n.fin) < lue.formule.size() && lue.formule[static_cast<std::size_t>(n.fin)] == '*' &&
            lue.place(n.fin) == lue.place(n.fin + 1) && n.fin < lue.releve.arret)
            texte += '*';
        debut = lue.place(n.fin);
    }
    const std::size_t fin = lue.places[arret];
    if (fin > debut) texte += lue.tapee.substr(debut, fin - debut);
    return std::string(sans_blancs(texte));
}

std::string formule_proposee(std::string_view tapee, const Probleme& premier) {
    Probleme p = premier;
    std::string texte(tapee);
    for (int i = 0; i < kCorrectionsMaxi && p.corrigible; ++i) {
        texte = applique(texte, p);
        const FormuleRelevee lue = lit_formule(texte);
        const auto suivant = premier_probleme({texte, lue.formule, lue.releve, lue.erreur, places_dans_le_texte(texte, lue.formule)});
        if (!suivant) return lue.erreur ? std::string() : texte;
        p = *suivant;
    }
    return {};
}
