// The options of the menu Outils, kept in a small text file of their own, "outils.txt", beside the
// settings. One instance, `outils`; start-up reads it, the commands change it and write it at once.
#pragma once

#include <string>
#include <string_view>

struct OptionsOutils {
    bool son = false;                // a sound tells how a calculation has ended
    bool attention = false;          // a calculation warns of what is probably wrong
    bool attention_choisie = false;  // the user has said so, or not so: otherwise the window decides at its start
    std::string inconnues;           // lines of a later version, kept as they stand, CR LF after each
};
extern OptionsOutils outils;

// The options that such a file holds. A line is a name, "=" and a value, blanks around them don't
// count; what can't be understood, or is damaged, leaves the default.
OptionsOutils lis_outils(std::string_view contenu);
// The file that holds these options.
std::string texte_outils(const OptionsOutils& options);

void lit_outils();                   // from the file, if there is one; fails when it can't be read
void ecrit_outils();                 // fails when it can't be written: the old file stays
