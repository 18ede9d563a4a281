// A file that is opened and isn't in the sheet's code page: UTF-8 or UTF-16, as other programs write
// them. Shows a box for what is lost on the way; holds no state.
#pragma once

#include <string>
#include <string_view>

// Two marks, which only this program writes: every character stands for itself, a no-break space too.
inline constexpr std::string_view kMarqueExacte = "\xEF\xBB\xBF\xEF\xBB\xBF";

// True when the bytes are recognised as another coding than the code page: a mark of UTF-8 or UTF-16
// at the start, or UTF-8 throughout with more than ASCII in it, all of which has its place in a sheet.
bool est_unicode(std::string_view octets);

// What the file of a sheet holds so that it is read back as it was: the text itself, or, where that
// would be taken for another coding ("Ã©" is the UTF-8 of "é"), the text in UTF-8 after two marks.
std::string octets_du_fichier(std::string_view texte);

// Those bytes as a text of the code page. What has no place in it has left a question mark, and one box
// tells how many characters, which and where.
std::string amene_fichier(std::string_view octets);

// A recovery file as the sheet's file that it stands for; one that is damaged stays as it is, and a box
// tells.
std::string amene_reprise(std::string_view octets);
