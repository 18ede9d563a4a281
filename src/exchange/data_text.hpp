// The text of a file of data, in the code page, and its cells. Holds no state.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The bytes as text with LF or CR LF as line ends; nothing, and the sentence that tells why in `refus`, for a
// workbook, for what is no text, and for more than a sheet could hold.
std::optional<std::string> texte_des_donnees(std::string_view octets, std::string& refus);

// One line of the file that has something in it.
struct RangeeLue {
    std::size_t ligne = 0;                   // its number in the file, from 1
    std::string_view entiere;                // as it stands
    std::vector<std::string_view> cellules;  // without the quotes and the blanks around; closing empty ones are gone
};

// The lines of a text, cut. The cells lie in the text, or in `sans_guillemets`.
struct RangeesLues {
    std::vector<RangeeLue> rangees;
    std::deque<std::string> sans_guillemets;   // cells in which a quote stood twice
    std::string refus;                         // a quote that isn't closed: the sentence; else empty
};

inline constexpr char kBlancs = ' ';   // as separator: any number of blanks; cells have no quotes then
inline constexpr char kAucun = '\x01';  // nothing parts the cells: a line is one, and no text has this code

// Cuts the text at that separator. Lines without anything in them are left out.
RangeesLues coupe_en_cellules(std::string_view texte, char separateur);
