// Opens a function of the sheet, studies it and looks where it meets the sheet's other functions.
#include "study/sheet_study.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>

#include "engine/reading.hpp"
#include "platform/patience.hpp"
#include "sheet/aside.hpp"

EtudesGardees etudes_gardees;

namespace {

constexpr std::size_t kAutresMaxi = 5;   // other functions that are looked at
constexpr std::size_t kGardeesMaxi = 50; // studies that are kept

// Whether f gives on the grid what it gave before: its line is read at another place of the sheet now.
bool donne_pareil(FonctionOuverte& f, const Etude& e) {
    for (std::size_t i = 0; i < e.x.size(); i += 97) {
        const double y = f(e.x[i]);
        if (std::isnan(y) != std::isnan(e.y[i]) || (!std::isnan(y) && y != e.y[i])) return false;
    }
    return true;
}

// Where the two functions meet. Both are read at the lower of their lines.
Rencontre rencontre(std::string_view texte, const EtudeDeFeuille& etude, const FonctionDeFeuille& autre) {
    Rencontre r{autre, true, {}, {}, {}};
    const FonctionDeFeuille& une = etude.fonction;
    const FonctionDeFeuille& basse = autre.ligne > une.ligne ? autre : une;
    FonctionOuverte f, g;
    if (!ouvre_fonction(texte, basse, "0,1", g).empty() || !relit_fonction(une, f)) return r;
    if (!donne_pareil(f, etude.etude)) {
        r.comparable = false;
        return r;
    }
    if (!relit_fonction(autre, g)) return r;
    FonctionOuverte ecart;
    ecart.lettre = f.lettre;
    ecart.prend_formule(difference(f, g));
    const Etude e = etudie(std::ref(ecart), etude.etude.debut, etude.etude.fin);
    r.lieux = zeros_de(e);
    for (const Partie& p : e.parties)
        for (const Palier& palier : p.paliers)
            if (palier.y == 0) r.confondues.push_back(palier);
    f.prend_formule(f.formule);
    for (const Zero& z : r.lieux) r.y.push_back(f(z.lieu.x));
    return r;
}

bool meme_rencontre(const Rencontre& r, const Rencontre& s) {
    const auto memes_lieux = [](const Zero& a, const Zero& b) { return a.lieu.x == b.lieu.x; };
    return r.autre.texte == s.autre.texte && r.comparable == s.comparable &&
           r.confondues.size() == s.confondues.size() &&
           std::equal(r.lieux.begin(), r.lieux.end(), s.lieux.begin(), s.lieux.end(), memes_lieux);
}

// The other functions of the sheet that stand under INC or AIR. One that stands there twice is told once.
void cherche_rencontres(std::string_view texte, EtudeDeFeuille& etude) {
    for (const FonctionDeFeuille& autre : fonctions_de_feuille(texte)) {
        if (autre.ligne == etude.fonction.ligne || autre.texte == etude.fonction.texte) continue;
        if (etude.rencontres.size() >= kAutresMaxi || patience.abandonnee) return;
        Rencontre r = rencontre(texte, etude, autre);
        const auto pareille = [&](const Rencontre& dite) { return meme_rencontre(dite, r); };
        if (std::none_of(etude.rencontres.begin(), etude.rencontres.end(), pareille))
            etude.rencontres.push_back(std::move(r));
    }
}

// Tells what of the function's text the engine leaves unread. Its letter must have a value.
void note_lecture(EtudeDeFeuille& etude) {
    const std::string& texte = etude.fonction.texte;
    const FormuleRelevee lue = lit_formule(texte);
    const Releve& r = lue.releve;
    etude.autrement = r.a(kTraitRemplace | kTraitPartiel | kTraitSommePerdue | kTraitArgumentPerdu);
    const auto arret = static_cast<std::size_t>(std::max(r.arret, 1)) - 1;
    if (lue.erreur || arret >= lue.formule.size()) return;
    etude.non_lu = texte.substr(std::min(places_dans_le_texte(texte, lue.formule)[arret], texte.size()));
}

}  // namespace

Refus avec_fonction(std::string_view texte, const FonctionDeFeuille& fonction, std::string_view bornes,
                    FonctionDeFeuille& trouvee, const std::function<void(FonctionOuverte&)>& instruction) {
    const CalculAPart a_part;
    FonctionOuverte ouverte;
    const Refus refus = ouvre_fonction(texte, fonction, bornes, ouverte);
    if (refus.empty()) {
        trouvee = fonction;
        trouvee.lettre = ouverte.lettre;
        instruction(ouverte);
    }
    return patience.abandonnee ? kEtudeInterrompue : refus;
}

Refus etudie_fonction(std::string_view texte, const FonctionDeFeuille& fonction, std::string_view bornes,
                      EtudeDeFeuille& resultat) {
    return avec_fonction(texte, fonction, bornes, resultat.fonction, [&](FonctionOuverte& ouverte) {
        ouverte((ouverte.debut + ouverte.fin) / 2);
        note_lecture(resultat);
        ouverte.prend_formule(ouverte.formule);
        resultat.etude = etudie(std::ref(ouverte), ouverte.debut, ouverte.fin);
        cherche_rencontres(texte, resultat);
    });
}

void garde_etude(const FonctionDeFeuille& fonction, std::string_view bornes) {
    std::vector<EtudesGardees::Etudiee>& gardees = etudes_gardees.fonctions;
    std::erase_if(gardees, [&](const auto& g) { return meme_fonction(g.fonction, fonction); });
    if (gardees.size() == kGardeesMaxi) gardees.erase(gardees.begin());
    gardees.push_back({fonction, std::string(bornes)});
}

std::optional<std::vector<EtudeDeFeuille>> refais_etudes(std::string_view texte) {
    std::vector<EtudeDeFeuille> etudes;
    for (const EtudesGardees::Etudiee& gardee : etudes_gardees.fonctions) {
        const auto ici = retrouve_fonction(texte, gardee.fonction);
        if (!ici) continue;
        EtudeDeFeuille etude;
        const Refus refus = etudie_fonction(texte, *ici, gardee.bornes, etude);
        if (refus == kEtudeInterrompue) return {};
        if (refus.empty()) etudes.push_back(std::move(etude));
    }
    std::sort(etudes.begin(), etudes.end(),
              [](const auto& a, const auto& b) { return a.fonction.ligne < b.fonction.ligne; });
    return etudes;
}

std::vector<EtudeDeFeuille> etudie_tout(std::string_view texte) {
    std::vector<EtudeDeFeuille> etudes;
    for (const FonctionDeFeuille& f : fonctions_de_feuille(texte)) {
        EtudeDeFeuille etude;
        if (etudie_fonction(texte, f, "", etude).empty()) etudes.push_back(std::move(etude));
    }
    return etudes;
}
