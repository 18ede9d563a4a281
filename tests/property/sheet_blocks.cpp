// Random sheets: tabulations, areas, matrices and data sets, with the old blocks below them.
#include <cmath>

#include "base/codepage.hpp"
#include "property/sheets.hpp"

// A function of one letter, of values that no display refuses.
std::string Redaction::corps_de_fonction(const std::string& x) {
    const std::string n = std::to_string(t.entre(1, 9));
    switch (t.entre(0, 5)) {
        case 0: return n + x + "+1";
        case 1: return x + "^2-" + n + x;
        case 2: return x + std::string("²"_fr) + "/4";
        case 3: return "SIN(" + x + ")*" + n;
        case 4: return "ABS(" + x + "-" + n + ")";
        default: return "-" + x + "+" + n;
    }
}

void Redaction::tabulation() {
    const int lettre = t.entre(1, 26), nombre = t.entre(1, 8), debut = t.entre(-3, 9);
    const double pas = t.entre(-2, 3) / 2.0;
    constexpr const char* textes[] = {"-1", "-0.5", "0", "0.5", "1", "1.5"};
    const std::string x = lettre_de(lettre);
    ligne(change_casse(t, "INC" + x + "(" + std::to_string(debut) + "," +
                              textes[static_cast<int>(pas * 2) + 2] + "," + std::to_string(nombre) +
                              ")") +
          commentaire());
    ligne(corps_de_fonction(x) + commentaire(), t.une_fois_sur(5) ? " = 8" : "");
    if (t.une_fois_sur(3))
        for (int i = t.entre(1, 5); i > 0; --i) vieille("f(" + std::to_string(i) + ") = 99");
    bloc(nombre);
    double valeur = debut;
    for (int i = 1; i < nombre; ++i) valeur += pas;
    pose_valeur(x[0], valeur);
    bloc_plein = true;
}

void Redaction::aire() {
    const int lettre = t.entre(1, 26);
    const std::string x = lettre_de(lettre);
    ligne(change_casse(t, "AIR" + x + "(" + std::to_string(t.entre(-5, 5)) + "," +
                              std::to_string(t.entre(-5, 5)) + "," + std::to_string(t.entre(1, 9)) +
                              ")") +
              commentaire(),
          t.une_fois_sur(4) ? " = 99" : "");
    ligne(corps_de_fonction(x) + commentaire());
    pose_inconnue(x[0]);
}

// The line that closes a definition.
void Redaction::cloture() {
    switch (t.entre(0, 2)) {
        case 0: ligne("", {}, true); break;
        case 1: ligne("FIN", {}, true); break;
        default: ligne("! fin du bloc", {}, true);
    }
}

void Redaction::definition_matrice() {
    const int lettre = t.entre(1, 10);
    Matrice& m = matrices[lettre];
    m = {t.entre(1, 3), t.entre(1, 3), 0};
    if (t.une_fois_sur(2)) m.colonnes = m.lignes;
    ligne(change_casse(t, "DEFM" + lettre_de(lettre)) + commentaire(),
          t.une_fois_sur(4) ? " =9,9" : "");
    for (int i = 1; i <= m.lignes; ++i) {
        std::string rangee;
        for (int j = 1; j <= m.colonnes; ++j) {
            if (j > 1) rangee += t.une_fois_sur(5) ? ", " : ",";
            const int n = t.entre(-9, 9);
            rangee += t.une_fois_sur(5) ? "2*(" + std::to_string(n) + ")" : std::to_string(n);
        }
        ligne(rangee + commentaire());
    }
    cloture();
}

// A matrix of the same size as the model, another than `sauf`; 0 when there is none.
int Redaction::matrice_comme(const Matrice& modele, int sauf) {
    const int debut = t.entre(0, 9);
    for (int k = 0; k < 10; ++k) {
        const int n = (debut + k) % 10 + 1;
        const Matrice& m = matrices[n];
        if (n != sauf && m.lignes > 0 && m.lignes == modele.lignes && m.colonnes == modele.colonnes)
            return n;
    }
    return 0;
}

// The right-hand side of an assignment to matrix `cible`, and the size of what it gives.
std::string Redaction::operation_matrice(int cible, Matrice& resultat) {
    int a = t.entre(1, 10);
    while (a <= 10 && (matrices[a].lignes == 0 || a == cible)) ++a;
    if (a > 10) return {};
    resultat = matrices[a];
    const std::string nom = "M" + lettre_de(a);
    const int b = matrice_comme(matrices[a], cible);
    const bool carree = resultat.lignes == resultat.colonnes && resultat.produits < 2;
    resultat.produits += b != 0 ? matrices[b].produits + 1 : 1;
    switch (t.entre(0, 5)) {
        case 0: return "2*" + nom;
        case 1: return nom + "*1.5";
        case 2: return b != 0 ? nom + "+M" + lettre_de(b) : nom;
        case 3: return b != 0 ? nom + "-M" + lettre_de(b) : nom + "*3";
        case 4: return carree && b != 0 ? nom + "*M" + lettre_de(b) : "(-1)*" + nom;
        default: return carree ? nom + "^2" : nom;
    }
}

// The line of a matrix, perhaps with what an earlier pass has left in either layout.
void Redaction::pose_ancienne_matrice(const std::string& texte, const Matrice& m) {
    if (t.une_fois_sur(6)) {
        ligne(texte, "== 2,2");
        vieille("1, 2");
        vieille("3, 4");
        vieille(std::string("fin résultat matrice"_fr));
        bloc(1);
    } else {
        ligne(texte, t.une_fois_sur(4) ? " =1,2;3,4 =2,2" : "");
    }
    if (reglage.matrice_colonne == 1) bloc(m.lignes + 1);
    bloc_plein = reglage.matrice_colonne == 1;
}

void Redaction::ligne_matrice() {
    const int cible = t.entre(1, 10);
    Matrice resultat;
    const std::string operation = operation_matrice(cible, resultat);
    if (operation.empty()) return definition_matrice();
    const std::string texte = "M" + lettre_de(cible) + "=" + operation;
    pose_ancienne_matrice(change_casse(t, texte) + commentaire(), resultat);
    matrices[cible] = resultat;
}

void Redaction::determinant() {
    int a = 1;
    while (a <= 10 && (matrices[a].lignes == 0 || matrices[a].lignes != matrices[a].colonnes)) ++a;
    if (a > 10) return definition_matrice();
    const char lettre = static_cast<char>('A' + t.entre(0, 25));
    ligne_a_resultat(std::string(1, lettre) + "=DETMAT(M" + lettre_de(a) + ")");
    pose_inconnue(lettre);
}

std::vector<int> Redaction::valeurs() {
    std::vector<int> liste(static_cast<std::size_t>(t.entre(1, 6)));
    for (int& n : liste) n = t.entre(0, 50);
    return liste;
}

void Redaction::pose_stat_x(const std::vector<int>& x, const std::vector<int>& effectifs) {
    double s = 0, n = 0, v = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        s += static_cast<double>(x[i]) * effectifs[i];
        n += effectifs[i];
        v += static_cast<double>(x[i]) * x[i] * effectifs[i];
    }
    const double moyenne = s / n;
    pose_valeur('P', static_cast<double>(x.size()));
    pose_valeur('S', s);
    pose_valeur('N', n);
    pose_valeur('V', v);
    pose_valeur('X', moyenne);
    pose_valeur('E', std::sqrt(v / n - moyenne * moyenne));
}

void Redaction::pose_stat_xy(const std::vector<int>& x, const std::vector<int>& y) {
    pose_stat_x(x, std::vector<int>(x.size(), 1));
    double s = 0, u = 0, w = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        s += y[i];
        u += static_cast<double>(y[i]) * y[i];
        w += static_cast<double>(x[i]) * y[i];
    }
    const double n = static_cast<double>(x.size()), moyenne = s / n;
    pose_valeur('T', s);
    pose_valeur('U', u);
    pose_valeur('W', w);
    pose_valeur('F', std::sqrt(u / n - moyenne * moyenne));
    for (const char c : {'A', 'B', 'C', 'D', 'Q', 'R'}) pose_inconnue(c);
    // Y holds the mean, but only an assignment of the sheet makes it a variable.
    Variable& moyenne_y = variables['Y' - 'A' + 1];
    moyenne_y = {moyenne_y.definie, true, moyenne, 0};
}

// What an earlier pass, with either layout, has left below a data set.
void Redaction::ancien_bloc_stat(bool couples) {
    if (!t.une_fois_sur(3)) return;
    if (t.une_fois_sur(2)) {
        vieille(couples ? "N= 9, X= 9, y= 9, Y= 9X 9" : "N= 9, X= 9, E= 9");
    } else {
        vieille(couples ? "P=nombre de couples = 9" : "P=nombre de valeurs = 9");
        vieille("N=Effectif total= 9");
    }
    vieille(std::string(couples ? "fin résultat statxy"_fr : "fin résultat statx"_fr));
}

// What follows every data set: its block, and what reads it.
void Redaction::suite_stat(bool couples) {
    ancien_bloc_stat(couples);
    bloc(couples ? 19 : 9);
    bloc_plein = bloc_attend = true;
    (couples ? statxy_vu : statx_vu) = true;
    if (couples && t.une_fois_sur(3)) ligne_a_resultat("RESXY(2,-1)");
    if (!couples && t.une_fois_sur(2)) tri();
}

void Redaction::tri() {
    if (t.une_fois_sur(3)) {
        ligne("TRISTATX", " = 3");
        vieille("1, 2, 3");
        vieille(std::string("fin résultat TriStatX"_fr));
    } else {
        ligne(change_casse(t, "TRISTATX"));
    }
    bloc(9);
}

void Redaction::stat_appel() {
    if (bloc_plein || definition_vue) return calcul();
    const std::vector<int> x = valeurs();
    std::vector<int> effectifs(x.size(), 1);
    std::string texte = "STATX(";
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (i > 0) texte += ";";
        texte += std::to_string(x[i]);
        if (t.une_fois_sur(3)) {
            effectifs[i] = t.entre(1, 4);
            texte += "," + std::to_string(effectifs[i]);
        }
    }
    ligne_a_resultat(change_casse(t, texte + ")"));
    pose_stat_x(x, effectifs);
    suite_stat(false);
}

void Redaction::stat_bloc() {
    if (bloc_plein) return affectation();
    ligne(change_casse(t, "STATX") + commentaire(),
          t.une_fois_sur(4) ? std::string(" =erreur élément Q"_fr) : "");
    std::vector<int> tous;
    for (int i = t.entre(1, 3); i > 0; --i) {
        const std::vector<int> x = valeurs();
        std::string texte;
        for (const int n : x) texte += (texte.empty() ? "" : ",") + std::to_string(n);
        ligne(texte + (t.une_fois_sur(3) ? "," : ""));
        tous.insert(tous.end(), x.begin(), x.end());
    }
    cloture();
    pose_stat_x(tous, std::vector<int>(tous.size(), 1));
    definition_vue = true;
    suite_stat(false);
}

void Redaction::stat_couples() {
    if (bloc_plein) return calcul();
    const std::vector<int> x = valeurs();
    std::vector<int> y = x;
    std::string texte;
    for (std::size_t i = 0; i < x.size(); ++i) {
        y[i] = t.entre(0, 50);
        texte += (i > 0 ? ";" : "") + std::to_string(x[i]) + "," + std::to_string(y[i]);
    }
    ligne_a_resultat(change_casse(t, "STATXY(" + texte + ")"));
    pose_stat_xy(x, y);
    suite_stat(true);
}

void Redaction::stat_deux_listes() {
    const std::vector<int> x = valeurs();
    std::vector<int> y = x;
    std::string premiere, seconde;
    for (std::size_t i = 0; i < x.size(); ++i) {
        y[i] = t.entre(0, 50);
        premiere += (i > 0 ? "," : "") + std::to_string(x[i]);
        seconde += (i > 0 ? "," : "") + std::to_string(y[i]);
    }
    ligne(change_casse(t, "STATXY"));
    ligne(premiere);
    ligne(seconde);
    pose_stat_xy(x, y);
    suite_stat(true);
}

// A definition that the end of the sheet leaves open: nothing comes of it.
void Redaction::fin_ouverte() {
    ouverte = true;
    if (t.une_fois_sur(2)) {
        ligne("DEFMA");
        ligne("1,2");
    } else if (!bloc_plein) {
        ligne("STATX");
        ligne("1,2,3");
    }
    ligne("4,5");
}
