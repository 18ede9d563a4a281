// Between UTF-16 and UTF-8, by the system's own conversion. Changes no state.
#include "platform/utf16_windows.hpp"

#include <windows.h>

std::wstring vers_utf16(std::string_view utf8) {
    const int octets = static_cast<int>(utf8.size());
    const int taille = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), octets, nullptr, 0);
    std::wstring sortie(static_cast<std::size_t>(taille), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), octets, sortie.data(), taille);
    return sortie;
}

std::string depuis_utf16(std::wstring_view utf16) {
    const int signes = static_cast<int>(utf16.size());
    const int taille =
        WideCharToMultiByte(CP_UTF8, 0, utf16.data(), signes, nullptr, 0, nullptr, nullptr);
    std::string sortie(static_cast<std::size_t>(taille), '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), signes, sortie.data(), taille, nullptr, nullptr);
    return sortie;
}
