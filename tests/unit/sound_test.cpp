// Curves as sound, measured in the sound file: pitch, sides, ticks, noise; and that two functions sound different.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <complex>
#include <cstdint>
#include <map>
#include <numbers>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "base/codepage.hpp"
#include "state/modes.hpp"
#include "study/sheet_study.hpp"
#include "study/sound.hpp"
#include "support/memory.hpp"
#include "support/program.hpp"

namespace {

// A sound file as it is read back.
struct Wav {
    std::vector<double> gauche, droite;
    double cadence = 0;
};

std::uint32_t entier(const std::string& f, std::size_t place, int octets) {
    std::uint32_t n = 0;
    for (int i = octets - 1; i >= 0; --i) n = n << 8 | static_cast<unsigned char>(f[place + static_cast<std::size_t>(i)]);
    return n;
}

Wav lis_wav(const std::string& f) {
    REQUIRE(f.substr(0, 4) == "RIFF");
    REQUIRE(f.substr(8, 8) == "WAVEfmt ");
    REQUIRE(entier(f, 4, 4) == f.size() - 8);
    REQUIRE(entier(f, 20, 2) == 1);
    REQUIRE(entier(f, 22, 2) == 2);
    REQUIRE(f.substr(36, 4) == "data");
    REQUIRE(entier(f, 40, 4) == f.size() - 44);
    Wav w;
    w.cadence = entier(f, 24, 4);
    for (std::size_t i = 44; i + 3 < f.size(); i += 4) {
        w.gauche.push_back(static_cast<std::int16_t>(entier(f, i, 2)));
        w.droite.push_back(static_cast<std::int16_t>(entier(f, i + 2, 2)));
    }
    return w;
}

// The weights of so many samples around a moment, smoothly from nothing to one and back.
const std::vector<double>& fenetre_de(std::size_t n) {
    static std::map<std::size_t, std::vector<double>> toutes;
    std::vector<double>& poids = toutes[n];
    while (poids.size() < n)
        poids.push_back(0.5 - 0.5 * std::cos(2 * std::numbers::pi * static_cast<double>(poids.size()) / static_cast<double>(n)));
    return poids;
}

// Strength of one frequency around a moment, both sides together.
double force(const Wav& w, double instant, double largeur, double hertz) {
    const auto n = static_cast<std::size_t>(largeur * w.cadence);
    const auto debut = static_cast<std::ptrdiff_t>(instant * w.cadence) - static_cast<std::ptrdiff_t>(n / 2);
    std::complex<double> g = 0, d = 0;
    const std::complex<double> pas = std::polar(1.0, -2 * std::numbers::pi * hertz / w.cadence);
    std::complex<double> onde = 1;
    const std::vector<double>& fenetre = fenetre_de(n);
    for (std::size_t i = 0; i < n; ++i, onde *= pas) {
        const auto k = static_cast<std::size_t>(debut + static_cast<std::ptrdiff_t>(i));
        if (k >= w.gauche.size()) continue;
        g += fenetre[i] * w.gauche[k] * onde;
        d += fenetre[i] * w.droite[k] * onde;
    }
    return 4 / static_cast<double>(n) * std::hypot(std::abs(g), std::abs(d));
}

// The strongest frequency around a moment, in steps that a parabola refines.
double hertz_en(const Wav& w, double instant) {
    constexpr double kLargeur = 0.04, kPas = 8;
    double meilleur = 0, fort = 0;
    for (double h = 180; h < 1650; h += kPas)
        if (const double f = force(w, instant, kLargeur, h); f > fort) {
            fort = f;
            meilleur = h;
        }
    const double a = force(w, instant, kLargeur, meilleur - kPas), b = force(w, instant, kLargeur, meilleur + kPas);
    return meilleur + kPas * (b - a) / (2 * (2 * fort - a - b));
}

// Where between left and right the sound stands, from 0 to 1.
double place_en(const Wav& w, double instant) {
    double g = 0, d = 0;
    const auto milieu = static_cast<std::size_t>(instant * w.cadence);
    for (std::size_t i = milieu - 400; i < milieu + 400; ++i) {
        g += w.gauche[i] * w.gauche[i];
        d += w.droite[i] * w.droite[i];
    }
    return std::atan2(std::sqrt(d), std::sqrt(g)) / (std::numbers::pi / 2);
}

// The moments at which a tick of that frequency begins.
std::vector<double> tics(const Wav& w, double hertz, double seuil) {
    std::vector<double> debuts;
    double dernier = -1;
    for (double t = 0.006; t < static_cast<double>(w.gauche.size()) / w.cadence - 0.006; t += 0.001) {
        if (force(w, t, 0.006, hertz) < seuil) continue;
        if (t - dernier > 0.02) debuts.push_back(t);
        dernier = t;
    }
    return debuts;
}

CourbeDeFeuille courbe(std::string_view formule, std::string_view bornes) {
    programme_neuf();
    modes.unite_angle = 2;
    const std::string texte = std::string(formule) + "\r\n";
    CourbeDeFeuille c;
    REQUIRE(lis_courbe(texte, *fonction_au_curseur(texte, 1), bornes, c).empty());
    return c;
}

Wav son_de(const CourbeDeFeuille& c, const Jeu& jeu = {}) { return lis_wav(fichier_wav(joue_courbe(c.courbe, jeu))); }

struct FonctionSonore {
    std::string_view formule;
    double debut, fin;
    double (*f)(double);
    std::vector<double> zeros;
};

const std::vector<FonctionSonore> kFonctions = {
    {"X", 0, 1, [](double x) { return x; }, {0}},
    {"X^2", 0, 1, [](double x) { return x * x; }, {0}},
    {"X^4", 0, 1, [](double x) { return x * x * x * x; }, {0}},
    {"X", -2, 2, [](double x) { return x; }, {0}},
    {"-X", -2, 3, [](double x) { return -x; }, {0}},
    {"X^2", -2, 2, [](double x) { return x * x; }, {0}},
    {"X^2-2", -2, 2, [](double x) { return x * x - 2; }, {-std::numbers::sqrt2, std::numbers::sqrt2}},
    {"X^3", -1, 1, [](double x) { return x * x * x; }, {0}},
    {"X^3-3X", -2.3, 2.1, [](double x) { return x * x * x - 3 * x; }, {-std::sqrt(3), 0, std::sqrt(3)}},
    {"2X-5", 0, 7, [](double x) { return 2 * x - 5; }, {2.5}},
    {"SIN(X)", 0.3, 6, [](double x) { return std::sin(x); }, {std::numbers::pi}},
    {"COS(X)", 0, 6, [](double x) { return std::cos(x); }, {std::numbers::pi / 2, 1.5 * std::numbers::pi}},
    {"SIN(2X)", 0.2, 3, [](double x) { return std::sin(2 * x); }, {std::numbers::pi / 2}},
    {"COS(X)+2", 0, 6, [](double x) { return std::cos(x) + 2; }, {}},
    {"EXP(X)", -2, 2, [](double x) { return std::exp(x); }, {}},
    {"EXP(-X)", 0, 3, [](double x) { return std::exp(-x); }, {}},
    {"EXP(X)-2", -1, 2, [](double x) { return std::exp(x) - 2; }, {std::log(2)}},
    {"LN(X)", 0.5, 5, [](double x) { return std::log(x); }, {1}},
    {"SQRT(X)", 0, 4, [](double x) { return std::sqrt(x); }, {0}},
    {"SQRT(X+1)-1", -0.9, 3, [](double x) { return std::sqrt(x + 1) - 1; }, {0}},
    {"ABS(X)", -2, 2, [](double x) { return std::fabs(x); }, {0}},
    {"ABS(X-1)-1", -1, 4, [](double x) { return std::fabs(x - 1) - 1; }, {0, 2}},
    {"1/X", 1, 4, [](double x) { return 1 / x; }, {}},
    {"1/(X^2+1)", -3, 3, [](double x) { return 1 / (x * x + 1); }, {}},
    {"X/(X^2+1)", -3, 3, [](double x) { return x / (x * x + 1); }, {0}},
    {"ATAN(X)", -3, 3, [](double x) { return std::atan(x); }, {0}},
    {"TH(X)", -2, 2, [](double x) { return std::tanh(x); }, {0}},
    {"CH(X)", -1, 1, [](double x) { return std::cosh(x); }, {}},
    {"X*EXP(-X)", 0, 5, [](double x) { return x * std::exp(-x); }, {0}},
    {"3", 0, 1, [](double) { return 3.0; }, {}},
    {"-X^2-1", -1, 2, [](double x) { return -x * x - 1; }, {}},
};

// The lowest and highest value, from points of its own.
std::pair<double, double> etendue(const FonctionSonore& s) {
    double bas = s.f(s.debut), haut = bas;
    for (int i = 0; i <= 20000; ++i) {
        const double y = s.f(s.debut + (s.fin - s.debut) * i / 20000);
        bas = std::min(bas, y);
        haut = std::max(haut, y);
    }
    return {bas, haut};
}

// The pitch at a part of the way, where the values go from `bas` to `haut`.
double attendu(const FonctionSonore& s, double bas, double haut, double part) {
    const double y = s.f(s.debut + part * (s.fin - s.debut));
    return 200 * std::pow(7.5, haut > bas ? (y - bas) / (haut - bas) : 0.5);
}

void verifie_hauteurs(const FonctionSonore& s, const Wav& w, double debut) {
    int mesures = 0;
    const std::pair<double, double> bornes = etendue(s);
    const auto hauteur = [&](double part) { return attendu(s, bornes.first, bornes.second, part); };
    for (double part = 0.05; part < 0.96; part += 0.09) {
        const double avant = hauteur(part - 0.007), apres = hauteur(part + 0.007);
        if (std::fabs(std::log(apres / avant)) > 0.06) continue;   // too fast for a window of this length
        const double h = hertz_en(w, debut + 3 * part);
        CHECK_MESSAGE(std::fabs(h / hauteur(part) - 1) < 0.01, s.formule, " at ", part, ": ", h, " Hz");
        CHECK_MESSAGE(std::fabs(place_en(w, debut + 3 * part) - part) < 0.03, s.formule, " at ", part);
        ++mesures;
    }
    CHECK_MESSAGE(mesures >= 4, s.formule);
}

std::string bornes_de(const FonctionSonore& s) {
    return std::to_string(s.debut) + "," + std::to_string(s.fin);
}

}  // namespace

TEST_CASE("the pitch of a curve follows the value within one percent, and the sound goes from left to right") {
    REQUIRE(kFonctions.size() >= 30);
    const double debut = debut_de_courbe({});
    for (const FonctionSonore& s : kFonctions) {
        if (s.formule == "3") continue;
        verifie_hauteurs(s, son_de(courbe(s.formule, bornes_de(s))), debut);
    }
    const FonctionSonore& trois = kFonctions[29];
    verifie_hauteurs(trois, son_de(courbe("3+0*X", bornes_de(trois))), debut);
}

TEST_CASE("a tick sounds within ten milliseconds of each zero, and nowhere else") {
    const double debut = debut_de_courbe({});
    for (const FonctionSonore& s : kFonctions) {
        CourbeDeFeuille c = courbe(s.formule == "3" ? "3+0*X" : s.formule, bornes_de(s));
        // The other ticks have a test of their own.
        std::erase_if(c.courbe.marques, [](const MarqueSonore& m) { return m.coche != Coche::zero; });
        const std::vector<double> entendus = tics(son_de(c), kTicZero, 900);
        CHECK_MESSAGE(entendus.size() == s.zeros.size(), s.formule);
        for (std::size_t i = 0; i < std::min(entendus.size(), s.zeros.size()); ++i) {
            const double attendue = debut + 3 * (s.zeros[i] - s.debut) / (s.fin - s.debut);
            CHECK_MESSAGE(std::fabs(entendus[i] - attendue) < 0.01, s.formule, ": ", entendus[i], " for ", attendue);
        }
    }
}

TEST_CASE("extremes tick twice, units of x lightly") {
    const double debut = debut_de_courbe({});
    const Wav w = son_de(courbe("SIN(X)", "0.5,5.5"));
    std::vector<double> extremes;
    for (const double x : {std::numbers::pi / 2, 1.5 * std::numbers::pi}) {
        extremes.push_back(debut + 3 * (x - 0.5) / 5);
        extremes.push_back(extremes.back() + 0.04);
    }
    const std::vector<double> entendus = tics(w, kTicExtreme, 1200);
    REQUIRE(entendus.size() == extremes.size());
    for (std::size_t i = 0; i < extremes.size(); ++i) CHECK(std::fabs(entendus[i] - extremes[i]) < 0.01);
    CourbeDeFeuille unites = courbe("X+100", "0.25,6.75");
    const std::vector<double> tics_unites = tics(son_de(unites), kTicUnite, 300);
    REQUIRE(unites.courbe.unite == 0.5);
    REQUIRE(tics_unites.size() == 13);
    CHECK(std::fabs(tics_unites[1] - (debut + 3 * 0.75 / 6.5)) < 0.01);
}

TEST_CASE("below zero the timbre is another one, and where there is no value there is noise") {
    const double debut = debut_de_courbe({});
    const Wav w = son_de(courbe("X", "-2,2"));
    const auto tierce = [&](double part) {
        const double h = 200 * std::pow(7.5, part);
        return force(w, debut + 3 * part, 0.04, 3 * h) / force(w, debut + 3 * part, 0.04, h);
    };
    CHECK(tierce(0.3) > 0.4);
    CHECK(tierce(0.7) < 0.05);
    const Wav racine = son_de(courbe("SQRT(X)+1", "-2,2"));
    // Noise has no frequency that stands out.
    const auto pic = [&](double part) {
        const double h = hertz_en(racine, debut + 3 * part);
        return force(racine, debut + 3 * part, 0.04, h) / force(racine, debut + 3 * part, 0.04, h + 150);
    };
    CHECK(pic(0.8) > 20);
    CHECK(pic(0.25) < 12);
    CHECK(force(racine, debut + 0.75, 0.04, 400) < 1500);
}

TEST_CASE("a reference tone sounds first, at zero or at the end nearest to it") {
    const Wav w = son_de(courbe("X", "-2,2"));
    CHECK(std::fabs(hertz_en(w, 0.125) / (200 * std::sqrt(7.5)) - 1) < 0.01);
    CHECK(std::fabs(hertz_en(son_de(courbe("X+10", "0,5")), 0.125) / 200 - 1) < 0.01);
    CHECK(std::fabs(hertz_en(son_de(courbe("-X-10", "0,5")), 0.125) / 1500 - 1) < 0.01);
    CHECK(force(w, 0.33, 0.04, 547) < 50);
    const Wav tard = son_de(courbe("X", "-2,2"), {.attente = 1});
    CHECK(force(tard, 0.5, 0.3, 547) < 1);
    CHECK(std::fabs(hertz_en(tard, 1.125) / (200 * std::sqrt(7.5)) - 1) < 0.01);
}

TEST_CASE("X, X^2 and X^4 sound different where they differ") {
    const double debut = debut_de_courbe({});
    const Wav x = son_de(courbe("X", "0,1")), x2 = son_de(courbe("X^2", "0,1")), x4 = son_de(courbe("X^4", "0,1"));
    for (const double part : {0.3, 0.5, 0.7}) {
        const double t = debut + 3 * part;
        CHECK(hertz_en(x, t) > 1.15 * hertz_en(x2, t));
        CHECK(hertz_en(x2, t) > 1.1 * hertz_en(x4, t));
    }
}

TEST_CASE("a pole doesn't take all pitches from the rest, a jump is a jump") {
    const CourbeDeFeuille c = courbe("1/X", "-4,4");
    CHECK(c.courbe.haut < 40);
    CHECK(c.courbe.bas > -40);
    const CourbeDeFeuille s = courbe("X/ABS(X)", "-1.1,2.3");
    const Wav w = son_de(s);
    const double saut = debut_de_courbe({}) + 3 * 1.1 / 3.4;
    CHECK(std::fabs(hertz_en(w, saut - 0.03) / 200 - 1) < 0.01);
    CHECK(std::fabs(hertz_en(w, saut + 0.03) / 1500 - 1) < 0.01);
}

TEST_CASE("two curves one after the other have one scale of pitches") {
    CourbeDeFeuille un = courbe("X", "0,1"), autre = courbe("2X", "0,1");
    accorde(un.courbe, autre.courbe);
    const double debut = debut_de_courbe({});
    CHECK(std::fabs(hertz_en(son_de(un), debut + 2.85) / (200 * std::pow(7.5, 0.475)) - 1) < 0.01);
    Echantillons deux = joue_courbe(un.courbe, {});
    const std::size_t seule = deux.size();
    enchaine(deux, joue_courbe(autre.courbe, {}));
    CHECK(deux.size() > 2 * seule);
}

TEST_CASE("the points of a table are those of its INC, other points are even numbers") {
    programme_neuf();
    const std::string inc = "INCX(1,0.25,5)\r\nX^2\r\n";
    CourbeDeFeuille c;
    REQUIRE(lis_courbe(inc, *fonction_au_curseur(inc, 1), "", c).empty());
    REQUIRE(c.points.size() == 5);
    CHECK(c.points[1].x == 1.25);
    CHECK(c.points[4].y == 4);
    const CourbeDeFeuille libre = courbe("X^2", "-0.3,1");
    CHECK(libre.points.front().x == -0.3);
    CHECK(libre.points[1].x == -0.25);
    CHECK(libre.points.back().x == 1);
    const Wav point = lis_wav(fichier_wav(joue_point(libre.courbe, 0.75, 0.5, 0.1)));
    CHECK(std::fabs(hertz_en(point, 0.09) / hauteur(libre.courbe, 0.5) - 1) < 0.01);
    CHECK(std::fabs(place_en(point, 0.09) - 0.75) < 0.03);
}

TEST_CASE("a calculation above the curve that the user gives up is no error of the sheet") {
    programme_neuf();
    memoire.interrompt = true;
    const std::string texte = "AIRX(0,1,30000000)\r\nX^2\r\nINCX(0,1,5)\r\nX\r\n";
    CourbeDeFeuille c;
    CHECK(lis_courbe(texte, *fonction_au_curseur(texte, 3), "", c) == kEtudeInterrompue);
    EtudeDeFeuille etude;
    CHECK(etudie_fonction(texte, *fonction_au_curseur(texte, 3), "", etude) == kEtudeInterrompue);
}
