// The sheet's text and positions, and those of the text control of GTK: the sheet has bytes of
// Windows-1252 with CR LF as two; the control has UTF-8, counts characters, and a line end is one.
// Holds no state and knows no toolkit.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The text as the control takes it: UTF-8, LF. Any of CR LF, CR and LF is a line end; code 0, which
// the control can't hold, stands there as its symbol (U+2400).
std::string texte_du_controle(std::string_view feuille);

// The text as the sheet has it: Windows-1252, CR LF. A character that the code page lacks can't be in
// the control, which refuses it on its way in.
std::string texte_de_la_feuille(std::string_view controle);

// Position of a byte of the sheet in the control; one past the end is held at the end. Between CR and
// LF it is the start of the line below: that is the line that the commands mean and say.
std::size_t position_du_controle(std::string_view feuille, std::size_t octet);

// Position in the sheet of a character of the control, held at the end.
std::size_t position_de_la_feuille(std::string_view feuille, std::size_t caractere);
