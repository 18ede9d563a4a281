// Paths between the program, which has them in UTF-8, and the standard library, which takes those
// of the system. Holds no state.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

inline std::filesystem::path chemin_du_systeme(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string chemin_en_utf8(const std::filesystem::path& chemin) {
    const std::u8string texte = chemin.u8string();
    return std::string(texte.begin(), texte.end());
}
