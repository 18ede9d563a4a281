// Lines into pages. A line is never wrapped. Changes no state.
#include "wx/pages.hpp"

#include <utility>

std::vector<Page> pages_de(std::string_view texte, std::size_t maxi) {
    std::vector<Page> pages(1);
    std::string ligne;
    const auto range = [&] {
        if (pages.back().size() >= maxi) pages.emplace_back();
        pages.back().push_back(std::exchange(ligne, {}));
    };
    for (const char c : texte) {
        if (c == '\n' || c == '\f') range();
        if (c == '\f') pages.emplace_back();
        if (c != '\n' && c != '\f' && c != '\r') ligne += c;
    }
    if (!ligne.empty()) range();
    if (pages.back().empty()) pages.pop_back();
    return pages;
}
