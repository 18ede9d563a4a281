// Takes from a study what is heard of it: values, marks and the scale of pitches.
#include "study/curve.hpp"

#include <algorithm>
#include <cmath>
#include <functional>


namespace {

constexpr std::size_t kPoints = 1500;            // values of a curve: one each two milliseconds of three seconds
constexpr double kTicsMaxi = 20;                 // units of x over the interval, at most
constexpr double kBordsIgnores = 0.03;           // lowest and highest part of the values beside a pole

bool a_un_pole(const Etude& etude) {
    const auto fuit = [](const Bout& b) {
        return b.cote.tendance == Tendance::plus_infini || b.cote.tendance == Tendance::moins_infini;
    };
    return std::any_of(etude.parties.begin(), etude.parties.end(), [&](const Partie& p) {
        return fuit(p.morceau.gauche) || fuit(p.morceau.droite);
    });
}

// The lowest and the highest value; beside a pole those of the part in the middle, or all would be one pitch.
void pose_echelle(const Etude& etude, CourbeEntendue& c) {
    std::vector<double> y;
    for (const double v : c.y)
        if (!std::isnan(v)) y.push_back(v);
    if (y.empty()) return;
    std::sort(y.begin(), y.end());
    const double part = a_un_pole(etude) ? kBordsIgnores : 0;
    const auto marge = static_cast<std::size_t>(part * static_cast<double>(y.size()));
    c.bas = y[marge];
    c.haut = y[y.size() - 1 - marge];
}

// Distance of ticks that are neither crowded nor missing over that extent: 1, 2 or 5 and zeros.
double unite_pour(double etendue) {
    double unite = 1;
    while (unite * kTicsMaxi < etendue) unite *= 10;
    while (unite / 10 * kTicsMaxi >= etendue) unite /= 10;
    for (const double part : {0.2, 0.5})
        if (unite * part * kTicsMaxi >= etendue) return unite * part;
    return unite;
}

void pose_marques(const Etude& etude, CourbeEntendue& c) {
    const double etendue = c.fin - c.debut;
    const auto marque = [&](double x, Coche coche) { c.marques.push_back({(x - c.debut) / etendue, coche}); };
    for (const Partie& p : etude.parties) {
        for (const Zero& z : p.zeros) marque(z.lieu.x, Coche::zero);
        for (const Extreme& e : p.extremes) marque(e.lieu.x, Coche::extreme);
        const Bout& bout = p.morceau.droite;
        if (bout.lieu.x < c.fin) c.sauts.push_back((bout.lieu.x - c.debut) / etendue);
    }
    c.unite = unite_pour(etendue);
    for (double k = std::ceil(c.debut / c.unite); k * c.unite <= c.fin; k += 1) marque(k * c.unite, Coche::unite);
    std::stable_sort(c.marques.begin(), c.marques.end(),
                     [](const MarqueSonore& a, const MarqueSonore& b) { return a.place < b.place; });
}

constexpr double kPointsMaxi = 200;              // of an INC with more rows, some are left out

// The points of an INC's table, or those of even numbers.
std::vector<PointEntendu> points_de(FonctionOuverte& f, const CourbeEntendue& c) {
    double pas = f.pas != 0 ? std::fabs(f.pas) : c.unite / 2;
    while ((c.fin - c.debut) / pas > kPointsMaxi) pas *= 2;
    const double origine = f.pas != 0 ? c.debut : std::ceil(c.debut / pas - 1e-9) * pas;
    std::vector<PointEntendu> points;
    if (origine - c.debut > pas * 1e-6) points.push_back({c.debut, f(c.debut)});
    double x = origine;
    for (double k = 1; x <= c.fin + pas * 1e-6; k += 1) {
        const double rond = nombre_rond(x, pas * 1e-9);
        points.push_back({rond, f(rond)});
        x = origine + k * pas;
    }
    if (c.fin - points.back().x > pas * 1e-6) points.push_back({c.fin, f(c.fin)});
    return points;
}

}  // namespace

CourbeEntendue courbe_de(const Etude& etude, const Courbe& f) {
    CourbeEntendue c;
    c.debut = etude.debut;
    c.fin = etude.fin;
    for (std::size_t i = 0; i <= kPoints; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(kPoints);
        c.y.push_back(f(c.debut * (1 - part) + c.fin * part));
    }
    pose_echelle(etude, c);
    pose_marques(etude, c);
    return c;
}

void accorde(CourbeEntendue& une, CourbeEntendue& autre) {
    une.bas = autre.bas = std::min(une.bas, autre.bas);
    une.haut = autre.haut = std::max(une.haut, autre.haut);
}

Refus lis_courbe(std::string_view texte, const FonctionDeFeuille& fonction, std::string_view bornes,
                 CourbeDeFeuille& resultat) {
    return avec_fonction(texte, fonction, bornes, resultat.fonction, [&](FonctionOuverte& ouverte) {
        const Etude etude = etudie(std::ref(ouverte), ouverte.debut, ouverte.fin);
        resultat.courbe = courbe_de(etude, std::ref(ouverte));
        resultat.points = points_de(ouverte, resultat.courbe);
    });
}
