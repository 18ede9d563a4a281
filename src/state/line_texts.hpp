// The texts of a sheet's lines, numbered from 1. A text that is a part of the sheet stands in the sheet's copy, which
// is kept here; the others lie one behind the other. So a line has no memory of its own. Holds no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.hpp"

class TextesDeLignes {
public:
    // So many empty texts; those given to them may be parts of `source()`, a copy of this one. The memory stays in use.
    void commence(std::size_t lignes, std::string_view source = {});
    std::string_view source() const { return source_; }
    std::size_t taille() const { return places_.size(); }

    // The text of a line, which stays where it is until one is given. Refuses a line that isn't there with failure 9.
    std::string_view operator()(std::ptrdiff_t ligne) const {
        const Place& place = places_[rang(ligne)];
        const bool de_source = place.debut < source_.size();
        return de_source ? std::string_view(source_.data() + place.debut, place.taille)
                         : std::string_view(autres_.data() + (place.debut - source_.size()), place.taille);
    }

    // Gives a text to a line; it may be that of a line. Refuses a line that isn't there with failure 9.
    void pose(std::ptrdiff_t ligne, std::string_view texte) {
        Place& place = places_[rang(ligne)];
        const std::less_equal<const char*> pas_apres;
        const char* const fin = source_.data() + source_.size();
        if (!pas_apres(source_.data(), texte.data()) || !pas_apres(texte.data() + texte.size(), fin))
            return pose_ailleurs(place, texte);
        place.debut = static_cast<std::uint32_t>(texte.data() - source_.data());
        place.taille = static_cast<std::uint32_t>(texte.size());
        place.libre = 0;
    }

    void efface();                                // all texts become empty
    void redimensionne(std::size_t lignes);       // lines at the end go, or come and are empty
    std::size_t memoire() const;                  // bytes that are kept

private:
    struct Place {
        std::uint32_t debut = 0;     // in source_, or behind it in autres_
        std::uint32_t taille = 0;
        std::uint32_t libre = 0;     // bytes of autres_ that are this line's
    };
    std::size_t rang(std::ptrdiff_t ligne) const {
        if (ligne < 1 || static_cast<std::size_t>(ligne) > places_.size()) echoue(kIndice);
        return static_cast<std::size_t>(ligne) - 1;
    }
    void pose_ailleurs(Place& place, std::string_view texte);

    std::vector<Place> places_;
    std::string source_;
    std::string autres_;
};
