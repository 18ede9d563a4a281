// The message line: the program's voice. One instance of state, `ligne_message`; every call to
// message changes the label, so that the screen reader speaks each time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct Dit {
    std::string texte;
    bool boite = false;              // the words of a box, which the user has closed
};

struct LigneMessage {
    std::string dernier_message;     // text last put into the label
    std::string LblMessage;          // caption of the label
    std::vector<Dit> dits;           // texts since they were last taken, told words too; the last ones alone
};
extern LigneMessage ligne_message;

// Says a text. It comes back in the form displayed: without blanks at both ends, or, when it repeats the
// last message, with one blank in front and two after, so that the label still changes. Kept: see the
// oddities, same-words-twice.
void message(std::string& p_message);

// Says a text that the caller doesn't need back.
void dit(std::string_view texte);

// Tells the screen reader words that the message line doesn't show.
void souffle(std::string_view texte);

// Keeps the words of a box that is shown, for who asks what was said: the port's boxes call it.
void note_boite_montree(std::string_view texte) noexcept;
