// A watched pass warns of exactly what the check of the sheet calls probably wrong in the lines that the pass has
// calculated, in its words, and writes the text that a pass writes alone: on random lines as pupils type and mistype
// them, and on random sheets with damaged lines.
//   watched [--lignes N] [--feuilles N] [--graine S]     (a seed alone: that line or sheet, shown)
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

#include "base/codepage.hpp"
#include "platform/stack.hpp"
#include "property/sheets.hpp"
#include "sheet/observer.hpp"
#include "sheet/recalculation.hpp"
#include "state/context.hpp"
#include "state/modes.hpp"
#include "verification/check.hpp"
#include "verification/typed_lines.hpp"

namespace {

int premiere_erreur = 0;   // line of the sheet

void note_erreur(const LigneObservee& o) {
    if (o.erreur && premiere_erreur == 0) premiere_erreur = o.numero;
}

// The grave findings, one sentence a line with kind and place.
std::vector<std::string> graves() {
    std::vector<std::string> textes;
    for (const Constat& c : verification.constats)
        if (gravite(c.genre) == Gravite::faux_probable)
            textes.push_back(std::to_string(c.colonne) + " " + vers_utf8(phrase(c)));
    return textes;
}

// A calculation as none has been before, in the modes that are set, with the random numbers of the others.
void recommence() {
    const Modes gardes = modes;
    reinitialise_calcul();
    modes = gardes;
    moteur.generateur.seed(1);
}

std::string calcule(const std::string& feuille) {
    recommence();
    return calcule_feuille(feuille, 0).texte;
}

// The lines of the sheet down to the first one in error: below it a pass calculates nothing.
std::string partie_calculee(const std::string& feuille) {
    Observation vue;
    vue.ligne = note_erreur;
    premiere_erreur = 0;
    observation = &vue;
    calcule(feuille);
    observation = nullptr;
    if (premiere_erreur == 0) return feuille;
    std::size_t fin = feuille.find("\r\n");
    for (int i = 1; i < premiere_erreur && fin != std::string::npos; ++i) fin = feuille.find("\r\n", fin + 2);
    return feuille.substr(0, fin);
}

// In the modes that are set. Counts what was found.
bool essaie(const std::string& feuille, long& trouves) {
    const std::string texte = calcule(feuille), calculee = partie_calculee(feuille);
    recommence();
    verifie_feuille(calculee);
    const std::vector<std::string> voulus = graves();
    commence_surveillance();
    const std::string surveille = calcule(feuille);
    finit_surveillance();
    const std::vector<std::string> annonces = graves();
    trouves += static_cast<long>(voulus.size());
    if (annonces == voulus && annonces.size() == verification.constats.size() && surveille == texte) return true;
    std::cout << (surveille == texte ? "" : "another text, ") << "FAILED:\n" << vers_utf8(feuille) << "\n--- the check:\n";
    for (const std::string& t : voulus) std::cout << t << "\n";
    std::cout << "--- the pass:\n";
    for (const std::string& t : annonces) std::cout << t << "\n";
    return false;
}

// One line: it may give its value to a letter that it reads, hold what looks like another notation, and have something
// behind it.
bool essaie_ligne(std::uint64_t graine, long& trouves) {
    Tirage t(graine);
    Essai e = tire_essai(graine);
    constexpr const char* kFins[] = {" = 12", " = 3.5", " =5", "=5", " = 5 cm", " = 1 + 1", " ! note", " ! 2", " = A"};
    constexpr const char* kMorceaux[] = {"1.5E+3", "2.5*E-1", "1.2.3", "SIN(30)", "SIN(PI)", "COS(3)", "TAN(45)", "100+20%", "X-5.5%", "2*X+5%", "PI", "LN(4)", "ABS(1-LN(4))",
                                         "SQRT(A)", "1+SQRT(1+ABS(3))", "X.A", "2.X", "2 3", "A B", "1/A", "SQRT(1-A)", "0/A(5)"};
    if (t.une_fois_sur(3)) e.ligne = kMorceaux[t.entre(0, 21)] + std::string("+") + e.ligne;
    if (t.une_fois_sur(8)) e.ligne = kMorceaux[t.entre(0, 21)];
    if (t.une_fois_sur(8)) e.ligne += kMorceaux[t.entre(0, 21)];
    if (t.une_fois_sur(3)) e.ligne.insert(0, t.une_fois_sur(2) ? "A=" : "X=");
    if (t.une_fois_sur(3)) e.ligne += kFins[t.entre(0, 8)];
    modes.unite_angle = static_cast<std::int16_t>(t.entre(1, 3));
    return essaie(e.entete + e.ligne, trouves);
}

// A sheet in any mode, with up to three lines typed wrong.
bool essaie_feuille(std::uint64_t graine, long& trouves) {
    Tirage t(graine);
    const FeuilleTiree tiree = t.une_fois_sur(2) ? tire_feuille(graine) : tire_feuille_soignee(graine);
    std::string feuille;
    const int lignes = 1 + static_cast<int>(std::count(tiree.texte.begin(), tiree.texte.end(), '\n'));
    const int abimee = t.entre(0, lignes - 1);
    std::size_t debut = 0;
    for (int i = 0; i < lignes; ++i) {
        const std::size_t fin = std::min(tiree.texte.find("\r\n", debut), tiree.texte.size());
        const std::string ligne = tiree.texte.substr(debut, fin - debut);
        feuille += i >= abimee && i < abimee + 3 && t.une_fois_sur(2) ? abime(t, ligne) : ligne;
        if (i + 1 < lignes) feuille += "\r\n";
        debut = fin + 2;
    }
    pose_reglage(tiree.reglage);
    return essaie(feuille, trouves);
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    const Tours tours = lis_tours(argc, argv);
    long dans_les_lignes = 0, dans_les_feuilles = 0;
    const int fautes = compte_fautes(
        tours, [&](std::uint64_t graine) { return essaie_ligne(graine, dans_les_lignes); },
        [&](std::uint64_t graine) { return essaie_feuille(graine, dans_les_feuilles); });
    std::cout << tours.lignes << " lines with " << dans_les_lignes << " findings, " << tours.feuilles << " sheets with "
              << dans_les_feuilles << "; " << fautes << " faults\n";
    // Where hardly anything is found nothing is compared.
    return fautes == 0 && dans_les_lignes >= tours.lignes / 10 && dans_les_feuilles >= tours.feuilles / 10 ? 0 : 1;
}
