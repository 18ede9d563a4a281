// Giving a text that is no part of the sheet to a line: over the one that the line had, or behind all others. Holds no
// state.
#include "state/line_texts.hpp"

#include <limits>

void TextesDeLignes::commence(std::size_t lignes, std::string_view source) {
    autres_.clear();
    places_.assign(lignes, Place{});
    source_ = source;
}

void TextesDeLignes::efface() {
    autres_.clear();
    places_.assign(places_.size(), Place{});
}

void TextesDeLignes::redimensionne(std::size_t lignes) { places_.resize(lignes); }

std::size_t TextesDeLignes::memoire() const {
    return places_.capacity() * sizeof(Place) + source_.capacity() + autres_.capacity();
}

// A text that grows goes to the end; the line keeps the room that it has for those that are shorter. What is lost so is
// less than what has been written.
void TextesDeLignes::pose_ailleurs(Place& place, std::string_view texte) {
    if (texte.empty()) {
        place.taille = 0;
        return;
    }
    if (texte.size() <= place.libre) {
        autres_.replace(place.debut - source_.size(), texte.size(), texte);
    } else {
        const std::size_t debut = source_.size() + autres_.size();
        if (debut + texte.size() > std::numeric_limits<std::uint32_t>::max()) echoue(kMemoire);
        autres_ += texte;
        place.debut = static_cast<std::uint32_t>(debut);
        place.libre = static_cast<std::uint32_t>(texte.size());
    }
    place.taille = static_cast<std::uint32_t>(texte.size());
}
