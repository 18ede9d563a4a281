// The port's text control over the real one. Only what has changed between the old text and the new
// one is written, so that the cursor, the view and the screen reader aren't disturbed for nothing.
#include "wx/text_control.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/platform.hpp"
#include "wx/positions.hpp"
#include "wx/text_view.hpp"

namespace {

ZoneTexte* zone_txt = nullptr;   // set by installe_texte

bool est_suite(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Bytes that two texts in UTF-8 have in common at their start, whole characters.
std::size_t debut_commun(std::string_view a, std::string_view b) {
    const std::size_t maxi = std::min(a.size(), b.size());
    std::size_t n = static_cast<std::size_t>(
        std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(maxi), b.begin()).first -
        a.begin());
    while (n > 0 && ((n < a.size() && est_suite(a[n])) || (n < b.size() && est_suite(b[n])))) --n;
    return n;
}

// Bytes that they have in common at their end, whole characters, not more than `maxi`.
std::size_t fin_commune(std::string_view a, std::string_view b, std::size_t maxi) {
    std::size_t n = 0;
    while (n < maxi && a[a.size() - 1 - n] == b[b.size() - 1 - n]) ++n;
    while (n > 0 && est_suite(a[a.size() - n])) --n;
    return n;
}

long caracteres(std::string_view utf8) {
    return static_cast<long>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return !est_suite(c); }));
}

}  // namespace

ZoneTexte::ZoneTexte(wxTextCtrl& controle) : controle_(controle) {}

const std::string& ZoneTexte::texte() {
    if (!lu_) {
        ecrit_en_utf8_ = texte_de_la_vue(controle_);
        texte_ = texte_de_la_feuille(ecrit_en_utf8_);
        lu_ = true;
    }
    return texte_;
}

// The selection that the core has set stays to the byte as long as the user leaves it where it is.
void ZoneTexte::lit_selection() {
    if (selection_a_ecrire_) return;
    long de = 0;
    long a = 0;
    lit_selection_de_la_vue(controle_, de, a);
    if (de == vu_de_ && a == vu_a_) return;
    vu_de_ = de;
    vu_a_ = a;
    debut_ = position_de_la_feuille(texte(), static_cast<std::size_t>(de));
    longueur_ = position_de_la_feuille(texte(), static_cast<std::size_t>(a)) - debut_;
}

std::size_t ZoneTexte::debut() {
    lit_selection();
    return debut_;
}

std::size_t ZoneTexte::longueur() {
    lit_selection();
    return longueur_;
}

void ZoneTexte::pose_texte(std::string&& texte) {
    if (!lu_) this->texte();
    texte_ = std::move(texte);
    texte_a_ecrire_ = true;
    pose_selection(0, 0);
}

void ZoneTexte::pose_selection(std::size_t debut, std::size_t longueur) {
    debut_ = std::min(debut, texte().size());
    longueur_ = std::min(longueur, texte_.size() - debut_);
    selection_a_ecrire_ = true;
}

void ZoneTexte::ecrit_texte() {
    std::string nouveau = texte_du_controle(texte_);
    const std::string_view ancien = ecrit_en_utf8_;
    const std::size_t tete = debut_commun(ancien, nouveau);
    const std::size_t reste = std::min(ancien.size(), nouveau.size()) - tete;
    const std::size_t queue = fin_commune(ancien, nouveau, reste);
    const std::string_view parti = ancien.substr(tete, ancien.size() - tete - queue);
    const std::string_view venu =
        std::string_view(nouveau).substr(tete, nouveau.size() - tete - queue);
    const long de = caracteres(ancien.substr(0, tete));
    if (!parti.empty() || !venu.empty())
        remplace_dans_la_vue(controle_, de, de + caracteres(parti), venu);
    ecrit_en_utf8_ = std::move(nouveau);
}

bool ZoneTexte::ecrit() {
    if (ecriture_ || (!texte_a_ecrire_ && !selection_a_ecrire_)) return false;
    ecriture_ = true;
    const long avant = controle_.GetInsertionPoint();
    if (texte_a_ecrire_) ecrit_texte();
    const long de = static_cast<long>(position_du_controle(texte(), debut_));
    const long a = static_cast<long>(position_du_controle(texte_, debut_ + longueur_));
    long la_de = 0;
    long la_a = 0;
    lit_selection_de_la_vue(controle_, la_de, la_a);
    if (la_de != de || la_a != a) pose_selection_de_la_vue(controle_, de, a);
    montre_curseur_de_la_vue(controle_, a);
    lit_selection_de_la_vue(controle_, vu_de_, vu_a_);
    texte_a_ecrire_ = selection_a_ecrire_ = ecriture_ = false;
    return controle_.GetInsertionPoint() != avant;
}

void ZoneTexte::change() {
    if (!ecriture_) lu_ = false;
    // The bytes before the selection may have changed under it.
    vu_de_ = vu_a_ = -1;
}

void installe_texte(ZoneTexte& zone) {
    zone_txt = &zone;
    port.texte = {[]() -> const std::string& { return zone_txt->texte(); },
                  [](std::string&& texte) { zone_txt->pose_texte(std::move(texte)); },
                  [] { return zone_txt->debut(); },
                  [] { return zone_txt->longueur(); },
                  [](std::size_t debut, std::size_t longueur) {
                      zone_txt->pose_selection(debut, longueur);
                  }};
}
