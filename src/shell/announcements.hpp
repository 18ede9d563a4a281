// What of an event a screen reader is told. The message line shows every message; told are the last two
// that say something of their own, and nothing that the reader reads by itself as the focus moves. One
// instance, `annonces`; its texts are in UTF-8. Every front end tells what this file answers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// What the event has brought and nobody has been told of, at most two texts.
struct Annonces {
    std::vector<std::string> attente;
};
extern Annonces annonces;

// What the reader does by itself as the event ends.
struct Lecture {
    std::string ligne;   // the line that the cursor is on
    std::string lu;      // what the control that gets the focus is about to read; "" when none does
    std::string titre;   // the new title of the window, where a reader reads it; "" when it is the old one
};

// Adds a text to those of one event that are told. What it repeats word for word at its end gives way to it;
// of more than two the first goes.
void retient_annonce(std::vector<std::string>& attente, std::string_view texte);

// Notes a message, or words beside the message line, among those of its event.
void note_annonce(std::string_view utf8);

// The texts to tell now, and nothing waits any more. An empty message on an empty line is told as
// "ligne vide", on another line it says nothing.
std::vector<std::string> prend_annonces(const Lecture& lecture);
