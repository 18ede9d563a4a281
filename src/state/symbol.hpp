// A symbol of a formula, a value that is made anew at each step of the reader: up to eight characters, as nearly all
// have, stand in one word. Holds no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "base/eight_bytes.hpp"

class Symbole {
public:
    static constexpr std::size_t kCourt = 8;

    Symbole() = default;
    Symbole& operator=(std::string_view texte) {
        pose(texte, 0, texte.size());
        return *this;
    }

    // Takes `taille` characters of `texte`, from `debut` on.
    void pose(std::string_view texte, std::size_t debut, std::size_t taille) {
        if (taille > kCourt) [[unlikely]]
            long_ = texte.substr(debut, taille);
        pose_court(texte, debut, taille < kCourt ? taille : kCourt);
        taille_ = taille;
    }
    // The same for at most kCourt of them.
    void pose_court(std::string_view texte, std::size_t debut, std::size_t taille) {
        mot_ = huit_octets(texte, debut, taille);
        taille_ = taille;
    }
    void vide() { mot_ = taille_ = 0; }

    operator std::string_view() const {
        if (taille_ > kCourt) [[unlikely]]
            return long_;
        return {reinterpret_cast<const char*>(&mot_), taille_};
    }
    std::size_t size() const { return taille_; }
    bool empty() const { return taille_ == 0; }
    char back() const { return std::string_view(*this).back(); }
    char operator[](std::size_t rang) const { return std::string_view(*this)[rang]; }

    // The first character; 0 of an empty symbol.
    char front() const { return *reinterpret_cast<const char*>(&mot_); }

    // True when there is surely no letter in it.
    bool sans_lettre() const { return taille_ <= kCourt && (mot_ & kBitDesLettres) == 0; }

    bool operator==(std::string_view mot) const {
        if (mot.size() > kCourt) return std::string_view(*this) == mot;
        return taille_ == mot.size() && mot_ == huit_octets(mot, 0, mot.size());
    }

private:
    static constexpr std::uint64_t kBitDesLettres = 0x4040404040404040;   // of both cases, accents or not

    std::uint64_t mot_ = 0;     // the first eight characters, zeros behind the last one
    std::size_t taille_ = 0;
    std::string long_;          // all of them, when there are more
};
