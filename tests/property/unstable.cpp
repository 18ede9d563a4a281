// Sheets that change when they are calculated again. Each kind is written with random lines around
// it, and what every pass must give is put together from what its parts give alone.
#include "property/unstable.hpp"

#include <iostream>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "property/checks.hpp"
#include "support/program.hpp"

namespace {

using Lignes = std::vector<std::string>;

// One sheet under trial: the same modes for all its passes.
struct Essai {
    Tirage& t;
    Reglage reglage;

    explicit Essai(Tirage& tirage) : t(tirage), reglage(tire_reglage(tirage)) {}

    // The text that a fresh program makes of a sheet.
    Vue neuf(const Lignes& lignes) const {
        prepare(reglage);
        return calcule(joint(lignes));
    }
    // Random lines that calculate well and leave no block.
    Lignes quelques_lignes() const {
        Redaction redaction(t, reglage);
        for (int i = t.entre(1, 3); i > 0; --i) redaction.ligne_simple();
        Lignes lignes = lignes_de(redaction.acheve().texte);
        for (std::string& l : lignes) l = std::string(sans_blancs(l));
        return lignes;
    }
};

Lignes ensemble(std::initializer_list<Lignes> parties) {
    Lignes toutes;
    for (const Lignes& partie : parties) toutes.insert(toutes.end(), partie.begin(), partie.end());
    return toutes;
}

Lignes calculees(const Essai& essai, const Lignes& lignes) {
    return lignes_de(essai.neuf(lignes).texte);
}

Defaut compare(const char* quoi, const std::string& obtenu, const Lignes& attendu) {
    if (obtenu == joint(attendu)) return {};
    return std::string(quoi) + "\n--- obtained\n" + vers_utf8(obtenu) + "\n--- expected\n" +
           vers_utf8(joint(attendu));
}

// The sheet's passes one after the other in one program, each with the lines that it must give.
Defaut compare_passes(const Essai& essai, const Lignes& feuille,
                      const std::vector<Lignes>& attendues) {
    std::string texte = essai.neuf(feuille).texte;
    for (const Lignes& attendu : attendues) {
        if (Defaut d = compare("pass", texte, attendu); !d.empty()) return d;
        const Vue vue = passe();
        if (Defaut d = verifie_curseur(vue); !d.empty()) return d;
        texte = vue.texte;
    }
    return {};
}

// The total of the lines is a line like any other for the next total.
Defaut total_en_colonne(Essai& essai) {
    essai.reglage.mode_nombre = 1;
    essai.reglage.mode_affichage = essai.t.entre(1, 2) == 1 ? std::int16_t{1} : std::int16_t{2};
    Lignes feuille, calcul;
    int total = 0;
    for (int i = essai.t.entre(1, 8); i > 0; --i) {
        const int n = essai.t.entre(-500, 500);
        const std::string texte = (n < 0 ? "-" : "") + std::to_string(std::abs(n));
        feuille.push_back(essai.t.une_fois_sur(5) ? "! note" : texte);
        calcul.push_back(feuille.back() == "! note" ? "! note" : texte + " = " + texte);
        if (feuille.back() != "! note") total += n;
    }
    prepare(essai.reglage);
    pose_feuille(joint(feuille));
    Lignes totaux;
    for (int k = 1; k <= 4; ++k, total *= 2) {
        const Vue vue = passe("calcul_colonne");
        const std::string z = std::to_string(total);
        if (Defaut d = compare("total", vue.texte, ensemble({calcul, totaux, {"Z= " + z}}));
            !d.empty())
            return d;
        if (vue.sel_start != vue.texte.size()) return "the cursor is not behind the total";
        if (std::string(sans_blancs(vue.messages.back())) != "= " + z)
            return "the total was not said";
        if (!vue.definie[26] || vue.valeur[26] != total) return "Z does not hold the total";
        totaux.push_back("Z= " + z + " = " + z);
    }
    return {};
}

// Two data sets: the second block holds the first one too. What stays of it at the next pass is
// read as ordinary lines: the complete layout fails there, the restricted one is left as it stands.
Defaut deux_series(Essai& essai) {
    const auto serie = [&] {
        std::string texte = "STATX(";
        for (int i = essai.t.entre(0, 3); i > 0; --i)
            texte += std::to_string(essai.t.entre(0, 99)) + ";";
        return texte + std::to_string(essai.t.entre(0, 99)) + ")";
    };
    const std::string a = serie(), b = serie();
    const Lignes une = calculees(essai, {a}), deux = calculees(essai, {b});
    const Lignes bloc_a(une.begin() + 1, une.end()), bloc_b(deux.begin() + 1, deux.end());
    const Lignes tete = ensemble({une, {deux[0]}, bloc_a, bloc_b});
    const Lignes fin = calculees(essai, {"7+1"});
    Lignes reste = bloc_b;
    if (essai.reglage.stat_restreint == 0)
        reste[0] = cp("P=nombre de valeurs = variable non reconnue");
    return compare_passes(
        essai, {a, b, "7+1"},
        {ensemble({tete, fin}), ensemble({tete, reste, fin}), ensemble({tete, reste, reste, fin})});
}

Defaut fonction_sans_egal(Essai& essai) {
    const Lignes tete = essai.quelques_lignes(), queue = essai.quelques_lignes();
    const Lignes avant = calculees(essai, tete);
    const auto avec = [&](const char* ligne) { return ensemble({avant, {ligne}, queue}); };
    const Lignes premiere = avec("DEFFON = manque le =");
    const Lignes seconde = avec("DEFFON = manque le = variable inconnue");
    if (Defaut d = compare_passes(essai, ensemble({tete, {"DEFFON"}, queue}),
                                  {premiere, seconde, seconde});
        !d.empty())
        return d;
    if (Defaut d =
            compare_passes(essai, ensemble({tete, {"DEFFON F=X^2"}, queue}), {premiere, seconde});
        !d.empty())
        return d;
    const Lignes stable = avec("DEFFON X = manque le =");
    return compare_passes(essai, ensemble({tete, {"DEFFON X"}, queue}), {stable, stable});
}

// A tabulation of no rows writes what the block held before: nothing, which is an empty line more
// at each pass, or the table above.
Defaut table_refusee(Essai& essai) {
    const Lignes refus = {"INCX(1,1,0)", "X"}, queue = {"7+1"}, fin = calculees(essai, queue),
                 vide = {""};
    if (Defaut d = compare_passes(essai, ensemble({refus, queue}),
                                  {ensemble({refus, vide, fin}), ensemble({refus, vide, vide, fin}),
                                   ensemble({refus, vide, vide, vide, fin})});
        !d.empty())
        return d;
    const Lignes table = calculees(essai, {"INCX(1,2,2)", "X^2"});
    const Lignes rangees(table.begin() + 2, table.end());
    const Lignes attendu = ensemble({table, refus, rangees, fin});
    return compare_passes(essai, ensemble({{"INCX(1,2,2)", "X^2"}, refus, queue}),
                          {attendu, attendu});
}

// "MA" alone shows a number; its "=" then stands where an assignment of the matrix has its own.
Defaut matrice_seule(Essai& essai) {
    essai.reglage = Reglage{};
    const std::string n = std::to_string(essai.t.entre(1, 99)),
                      m = std::to_string(essai.t.entre(1, 99));
    const std::string nom = std::string("M") + static_cast<char>('A' + essai.t.entre(0, 9));
    const Lignes bloc = {"DEF" + nom + " =1,2", n + "," + m, "FIN"};
    const Lignes seconde = ensemble({bloc, {nom + " = 0 =" + n + "," + m + " =1,2"}});
    return compare_passes(essai, {"DEF" + nom, n + "," + m, "FIN", nom},
                          {ensemble({bloc, {nom + " = 0"}}), seconde, seconde});
}

// FIN in an old result keeps the line from being calculated once; the cut takes it away.
Defaut fin_dans_le_resultat(Essai& essai) {
    const std::string n = std::to_string(essai.t.entre(0, 999));
    const Lignes une = calculees(essai, {n});
    return compare_passes(essai, {n + " = fin"}, {{n}, une, une});
}

// The word in a comment makes an empty block at each pass.
Defaut mot_statx_en_remarque(Essai& essai) {
    const Lignes une = calculees(essai, {"2+2 ! statx"});
    const std::string ligne = une[0];
    return compare_passes(essai, {"2+2 ! statx"},
                          {{ligne, ""}, {ligne, "", ""}, {ligne, "", "", ""}});
}

struct Genre {
    const char* nom;
    Defaut (*essaie)(Essai&);
};
constexpr Genre kGenres[] = {{"column total", total_en_colonne},
                             {"two data sets", deux_series},
                             {"function without equals sign", fonction_sans_egal},
                             {"refused table", table_refusee},
                             {"matrix alone", matrice_seule},
                             {"FIN in an old result", fin_dans_le_resultat},
                             {"STATX in a comment", mot_statx_en_remarque}};

}  // namespace

int essaie_instables(int nombre) {
    int fautes = 0;
    for (const Genre& genre : kGenres)
        for (int i = 1; i <= nombre; ++i) {
            Tirage t(static_cast<std::uint64_t>(i) + 1'000'000);
            Essai essai(t);
            const Defaut defaut = genre.essaie(essai);
            if (defaut.empty()) continue;
            std::cout << "FAILED " << genre.nom << ", seed " << i << ": " << defaut << '\n';
            ++fautes;
            break;
        }
    return fautes;
}
