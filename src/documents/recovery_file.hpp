// The form of a recovery file: a sheet that differs from its file, with all that is needed to open it
// again as it was. docs/formats.md tells it. Holds no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// What a recovery file says of its sheet beside the text.
struct FicheReprise {
    std::string nom;                 // path of the sheet's file, Windows-1252; "" for the untitled sheet
    std::uint32_t rang = 0;          // the sheet's place among the open ones, from 1
    std::size_t curseur = 0;         // bytes before the selection
    std::size_t longueur = 0;        // bytes in the selection
    bool modifie = true;             // the sheet differs from its file
    std::uint64_t numero = 0;        // grows with every file: the highest is that of the sheet shown last
    // Sum of the bytes of the sheet's file as the sheet knows it, 0 where it has none. Nothing in a file
    // of form 1, which doesn't tell.
    std::optional<std::uint64_t> base{};

    bool operator==(const FicheReprise&) const = default;
};

enum class EtatReprise { bonne, vide, abimee, etrangere };

// The sum that tells bytes from others.
std::uint64_t somme_octets(std::string_view octets);

// The bytes of the file.
std::string forme_reprise(const FicheReprise& fiche, std::string_view texte);

// Whether bytes begin as a recovery file does, whole or not.
bool est_reprise(std::string_view octets);

// Reads a file. Anything but `bonne` leaves both targets as they were: no byte, a file that was cut or
// changed, or one that was never a recovery file.
EtatReprise lit_reprise(std::string_view octets, FicheReprise& fiche, std::string& texte);
