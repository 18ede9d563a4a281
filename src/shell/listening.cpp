// What plays of a curve, and when. The samples are made by study/sound; the port plays them beside the program.
#include "shell/listening.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/number.hpp"
#include "editing/lines.hpp"
#include "platform/message.hpp"
#include "platform/platform.hpp"
#include "shell/window.hpp"
#include "study/sound.hpp"

Ecoute ecoute;

namespace {

constexpr std::array<double, 5> kDurees = {1, 1.5, 3, 6, 12};
constexpr double kAttenteDesMots = 1.5;      // seconds: the words begin before the tone
constexpr std::size_t kLignesDevant = 2;     // of the view, in front of the points

std::string texte(std::string_view mots) { return std::string(mots); }

// A number of a point, with few figures; one that these would make 0 as it is.
std::string nombre(double x) {
    std::string fixe = std::fabs(x) < 1e9 ? texte_fixe(x, 6) : texte_general(x);
    if (fixe.find('.') != std::string::npos) fixe.resize(fixe.find_last_not_of('0') + 1);
    if (fixe.ends_with('.')) fixe.pop_back();
    return fixe == "-0" || fixe == "0" ? texte_general(x) : fixe;
}

void lance_son(const Echantillons& son) {
    ecoute.joue = true;
    port.son.joue(son, kCadence);
}

// Slower by one step, or faster, heard at once.
void change_duree(int pas) {
    const auto ici = std::ranges::find(kDurees, ecoute.duree);
    const auto rang = ici - kDurees.begin() + pas;
    if (rang < 0) return dit(kPlusRapide);
    if (rang >= static_cast<std::ptrdiff_t>(kDurees.size())) return dit(kPlusLent);
    ecoute.duree = kDurees[static_cast<std::size_t>(rang)];
    dit(nombre(ecoute.duree) + (ecoute.duree < 2 ? " seconde" : " secondes"));
    joue_la_courbe(true);
}

// This curve and the next function's, on one scale.
void joue_les_deux() {
    if (ecoute.autre.points.empty()) return dit(kSansAutreCourbe);
    CourbeEntendue une = ecoute.une.courbe, autre = ecoute.autre.courbe;
    accorde(une, autre);
    dit(ecoute.une.fonction.texte + texte(", puis "_fr) + ecoute.autre.fonction.texte);
    Echantillons son = joue_courbe(une, {ecoute.duree, kAttenteDesMots, true});
    enchaine(son, joue_courbe(autre, {ecoute.duree, 0, false}));
    lance_son(son);
}

// The line of the view that the cursor is on, from 0.
std::size_t ligne_du_curseur() {
    const std::string& vue = port.texte.texte();
    const auto fin = vue.begin() + static_cast<std::ptrdiff_t>(std::min(curseur(), vue.size()));
    return static_cast<std::size_t>(std::count(vue.begin(), fin, '\n'));
}

}  // namespace

std::string texte_d_ecoute() {
    const CourbeDeFeuille& c = ecoute.une;
    const std::string lettre(1, c.fonction.lettre);
    std::string vue = texte("Courbe de "_fr) + c.fonction.texte + ", " + lettre + " de " + nombre(c.courbe.debut) +
                      texte(" à "_fr) + nombre(c.courbe.fin) + "\r\n";
    vue += texte("Du plus grave au plus aigu : f de "_fr) + nombre(c.courbe.bas) + texte(" à "_fr) +
           nombre(c.courbe.haut) + texte(" ; un tic tous les "_fr) + nombre(c.courbe.unite) + "\r\n";
    for (const PointEntendu& p : c.points)
        vue += lettre + " = " + nombre(p.x) + " ; f = " +
               (std::isnan(p.y) ? texte("pas de valeur"_fr) : nombre(p.y)) + "\r\n";
    return vue + texte("Entrée écoute, R plus rapide, L plus lent, D les deux courbes, flèches point par point"_fr);
}

void joue_la_courbe(bool apres_les_mots) {
    ecoute.ligne = ligne_du_curseur();
    lance_son(joue_courbe(ecoute.une.courbe, {ecoute.duree, apres_les_mots ? kAttenteDesMots : 0, true}));
}

void arrete_courbe() {
    if (!std::exchange(ecoute.joue, false)) return;
    port.son.arrete();
}

void courbe_finie(bool jouee) {
    if (!std::exchange(ecoute.joue, false)) return;
    if (!jouee) return dit(kPasDeSon);
    if (fenetre.courbe_ecoutee && ecoute.ligne == ligne_du_curseur()) dit(kFinDeCourbe);
}

bool est_touche_d_ecoute(const FrappeTouche& f) {
    const bool sienne = f.touche == kToucheEntree || f.touche == 'R' || f.touche == 'L' || f.touche == 'D';
    return fenetre.courbe_ecoutee && fenetre.txt.visible && sienne && !f.ctrl && !f.alt;
}

void touche_d_ecoute(const FrappeTouche& f) {
    switch (f.touche) {
        case 'R': return change_duree(-1);
        case 'L': return change_duree(1);
        case 'D': return joue_les_deux();
        default: joue_la_courbe(false);
    }
}

// The reader says the line by itself; a point that has sounded doesn't sound again.
void suit_curseur() {
    if (!fenetre.courbe_ecoutee || !fenetre.txt.visible) return;
    const std::size_t ligne = ligne_du_curseur();
    if (std::exchange(ecoute.ligne, ligne) == ligne || ligne < kLignesDevant) return;
    const std::size_t rang = ligne - kLignesDevant;
    const CourbeDeFeuille& c = ecoute.une;
    if (rang >= c.points.size()) return;
    const PointEntendu& p = c.points[rang];
    const double etendue = c.courbe.fin - c.courbe.debut;
    const double pas = c.points.size() > 1 ? (c.points[1].x - c.points[0].x) / etendue : 1;
    port.son.joue(joue_point(c.courbe, (p.x - c.courbe.debut) / etendue, p.y, pas), kCadence);
}
