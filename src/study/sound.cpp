// Makes samples of a curve: two wave tables, one above zero and one below, noise where there is no value, ticks.
#include "study/sound.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <numbers>
#include <utility>

#include "base/maths.hpp"

namespace {

constexpr double kDeuxPi = 2 * std::numbers::pi;
constexpr double kForce = 7000;                  // of the tone: a fifth of the most, so that speech stays above it
constexpr double kForceBruit = 2200;
constexpr double kForceTic = 5000;
constexpr double kDureeRepere = 0.25, kSilenceRepere = 0.15;   // seconds
constexpr double kDureePoint = 0.18, kPause = 0.4;
constexpr double kFondu = 0.006;                 // seconds in which a sound begins and ends
constexpr std::size_t kTable = 2048;

using Table = std::array<float, kTable + 1>;

// One period of a tone with some harmonics, of the same loudness for all.
Table table(double deuxieme, double troisieme) {
    Table t{};
    const double force = 1 / std::sqrt(1 + deuxieme * deuxieme + troisieme * troisieme);
    for (std::size_t i = 0; i <= kTable; ++i) {
        const double phase = kDeuxPi * static_cast<double>(i) / static_cast<double>(kTable);
        t[i] = static_cast<float>(force * (maths::sin(phase) + deuxieme * maths::sin(2 * phase) +
                                           troisieme * maths::sin(3 * phase)));
    }
    return t;
}

// The flute above zero, the clarinet below.
const Table& timbre(bool positif) {
    static const Table flute = table(0.15, 0), clarinette = table(0, 0.6);
    return positif ? flute : clarinette;
}

std::size_t trames(double secondes) { return static_cast<std::size_t>(std::lround(secondes * kCadence)); }

// Loudness of both sides for a place from 0 to 1: together always the same to the ear.
struct Cotes {
    double gauche, droite;
};
Cotes cotes(double place) {
    const double angle = std::clamp(place, 0.0, 1.0) * std::numbers::pi / 2;
    return {maths::cos(angle), maths::sin(angle)};
}

// What sounds at a moment, and goes on smoothly to the next.
struct Voix {
    double phase = 0;
    double positif = 1;        // share of the flute
    double ton = 0;            // loudness of the tone, and of the noise
    double bruit = 0;
    double grain = 0;          // of the noise
    std::uint32_t hasard = 1;

    double suivant(double hertz, bool defini, bool au_dessus) {
        static constexpr double kPas = 1 / (kFondu * kCadence);
        const auto vers = [](double& valeur, double but) { valeur += std::clamp(but - valeur, -kPas, kPas); };
        vers(ton, defini ? 1 : 0);
        vers(bruit, defini ? 0 : 1);
        vers(positif, au_dessus ? 1 : 0);
        phase += hertz / kCadence;
        phase -= phase >= 1 ? 1 : 0;
        const double place = phase * static_cast<double>(kTable);
        const auto i = static_cast<std::size_t>(place);
        const double part = place - static_cast<double>(i);
        const auto lis = [&](const Table& t) { return t[i] + part * (t[i + 1] - t[i]); };
        double son = 0;
        if (positif > 0) son += positif * lis(timbre(true));
        if (positif < 1) son += (1 - positif) * lis(timbre(false));
        son *= ton * kForce;
        if (bruit > 0) {
            hasard = hasard * 1664525u + 1013904223u;
            grain += 0.3 * (static_cast<double>(hasard >> 8) / 8388608.0 - 1 - grain);
            son += bruit * kForceBruit * grain * 2;
        }
        return son;
    }
};

// The sound while it is made, left and right in turn.
struct Bande {
    std::vector<float> s;

    explicit Bande(std::size_t n) : s(2 * n) {}
    void ajoute(std::size_t trame, double valeur, const Cotes& c) {
        if (2 * trame + 1 >= s.size()) return;
        s[2 * trame] += static_cast<float>(valeur * c.gauche);
        s[2 * trame + 1] += static_cast<float>(valeur * c.droite);
    }
    Echantillons rend() const {
        Echantillons e(s.size());
        std::transform(s.begin(), s.end(), e.begin(), [](float v) {
            return static_cast<std::int16_t>(std::lround(std::clamp(v, -32767.0F, 32767.0F)));
        });
        return e;
    }
};

// A tick: a short ring of one pitch, two of them for an extreme.
void frappe(Bande& bande, std::size_t debut, const Cotes& c, double hertz, double secondes, double force) {
    const std::size_t duree = trames(5 * secondes);
    for (std::size_t i = 0; i < duree; ++i) {
        const double t = static_cast<double>(i) / kCadence;
        const double attaque = std::min(1.0, t / 0.001);
        bande.ajoute(debut + i, force * attaque * maths::exp(-t / secondes) * maths::sin(kDeuxPi * hertz * t), c);
    }
}

void coche(Bande& bande, std::size_t debut, const Cotes& c, Coche genre) {
    switch (genre) {
        case Coche::zero: return frappe(bande, debut, c, kTicZero, 0.012, kForceTic);
        case Coche::unite: return frappe(bande, debut, c, kTicUnite, 0.002, kForceTic / 2);
        case Coche::extreme: break;
    }
    frappe(bande, debut, c, kTicExtreme, 0.005, kForceTic);
    frappe(bande, debut + trames(0.04), c, kTicExtreme, 0.005, kForceTic);
}

// A tone that doesn't change, faded in and out.
void tenue(Bande& bande, std::size_t debut, std::size_t duree, double hertz, bool positif, const Cotes& c,
           double force) {
    Voix voix;
    voix.positif = positif ? 1 : 0;
    for (std::size_t i = 0; i < duree; ++i) {
        const auto bord = static_cast<double>(std::min(i, duree - i));
        const double fondu = std::min(1.0, bord / (kFondu * kCadence));
        bande.ajoute(debut + i, force * fondu * voix.suivant(hertz, true, positif), c);
    }
}

// The index of the value that holds at `place`, between two of them that a jump may part; `part` is how far the place
// lies towards the next one.
std::size_t rang_en(const CourbeEntendue& c, double place, double& part) {
    const double reel = place * static_cast<double>(c.y.size() - 1);
    const std::size_t i = std::min(static_cast<std::size_t>(reel), c.y.size() - 2);
    part = reel - static_cast<double>(i);
    const double gauche = static_cast<double>(i) / static_cast<double>(c.y.size() - 1);
    const auto saut = std::lower_bound(c.sauts.begin(), c.sauts.end(), gauche);
    const bool coupee =
        saut != c.sauts.end() && *saut * static_cast<double>(c.y.size() - 1) <= static_cast<double>(i + 1);
    if (coupee || std::isnan(c.y[i]) || std::isnan(c.y[i + 1])) {
        const bool apres = coupee ? place >= *saut : part >= 0.5;
        part = apres ? 1 : 0;
    }
    return i;
}

// The curve itself: the pitch slides from value to value, in even steps of the ear.
void chante(Bande& bande, const CourbeEntendue& c, std::size_t debut, std::size_t duree) {
    std::vector<double> hertz;
    for (const double y : c.y) hertz.push_back(std::isnan(y) ? kGrave : hauteur(c, y));
    Voix voix;
    for (std::size_t i = 0; i < duree; ++i) {
        const double place = static_cast<double>(i) / static_cast<double>(duree - 1);
        double part = 0;
        const std::size_t rang = rang_en(c, place, part);
        const std::size_t proche = part < 0.5 ? rang : rang + 1;
        const double y = part <= 0   ? c.y[rang]
                         : part >= 1 ? c.y[rang + 1]
                                     : c.y[rang] + part * (c.y[rang + 1] - c.y[rang]);
        const double ton = hertz[rang] + part * (hertz[rang + 1] - hertz[rang]);
        const auto bord = static_cast<double>(std::min(i, duree - 1 - i));
        const double fondu = std::min(1.0, bord / (kFondu * kCadence));
        bande.ajoute(debut + i, fondu * voix.suivant(ton, !std::isnan(c.y[proche]), y >= 0), cotes(place));
    }
}

// The value of the reference tone: 0 where the curve's pitches have it, otherwise the end nearest to it.
double valeur_repere(const CourbeEntendue& courbe) { return std::clamp(0.0, courbe.bas, courbe.haut); }

}  // namespace

double hauteur(const CourbeEntendue& courbe, double y) {
    const double etendue = courbe.haut - courbe.bas;
    const double part = etendue > 0 ? std::clamp((y - courbe.bas) / etendue, 0.0, 1.0) : 0.5;
    return kGrave * maths::exp(part * maths::log(kAigu / kGrave));
}

double debut_de_courbe(const Jeu& jeu) {
    return jeu.attente + (jeu.repere ? kDureeRepere + kSilenceRepere : 0);
}

Echantillons joue_courbe(const CourbeEntendue& courbe, const Jeu& jeu) {
    const std::size_t debut = trames(debut_de_courbe(jeu)), duree = trames(jeu.duree);
    Bande bande(debut + duree + trames(0.1));
    const double repere = valeur_repere(courbe);
    if (jeu.repere)
        tenue(bande, trames(jeu.attente), trames(kDureeRepere), hauteur(courbe, repere), true, cotes(0.5), 0.6);
    chante(bande, courbe, debut, duree);
    for (const MarqueSonore& m : courbe.marques)
        coche(bande, debut + static_cast<std::size_t>(std::lround(m.place * static_cast<double>(duree))),
              cotes(m.place), m.coche);
    return bande.rend();
}

Echantillons joue_point(const CourbeEntendue& courbe, double place, double y, double pas) {
    const std::size_t duree = trames(kDureePoint);
    Bande bande(duree + trames(0.1));
    const Cotes c = cotes(place);
    if (std::isnan(y)) {
        Voix voix;
        for (std::size_t i = 0; i < duree; ++i) {
            const auto bord = static_cast<double>(std::min(i, duree - i));
            bande.ajoute(i, std::min(1.0, bord / (kFondu * kCadence)) * voix.suivant(kGrave, false, true), c);
        }
    } else {
        tenue(bande, 0, duree, hauteur(courbe, y), y >= 0, c, 1);
    }
    for (const MarqueSonore& m : courbe.marques)
        if (m.coche != Coche::unite && std::fabs(m.place - place) <= pas / 2) coche(bande, 0, c, m.coche);
    return bande.rend();
}

void enchaine(Echantillons& tout, const Echantillons& autre) {
    if (!tout.empty()) tout.resize(tout.size() + 2 * trames(kPause));
    tout.insert(tout.end(), autre.begin(), autre.end());
}

std::string fichier_wav(const Echantillons& echantillons) {
    std::string f;
    const auto nombre = [&](std::uint32_t valeur, int octets) {
        for (int i = 0; i < octets; ++i) f += static_cast<char>((valeur >> (8 * i)) & 0xFF);
    };
    const auto octets = static_cast<std::uint32_t>(2 * echantillons.size());
    f += "RIFF";
    nombre(36 + octets, 4);
    f += "WAVEfmt ";
    for (const auto& [valeur, largeur] : std::initializer_list<std::pair<std::uint32_t, int>>{
             {16, 4}, {1, 2}, {2, 2}, {kCadence, 4}, {4 * kCadence, 4}, {4, 2}, {16, 2}})
        nombre(valeur, largeur);
    f += "data";
    nombre(octets, 4);
    for (const std::int16_t e : echantillons) nombre(static_cast<std::uint16_t>(e), 2);
    return f;
}
