// The end of the system's session: the sheets go to their recovery files and the program ends at once,
// without a question. One file per system implements this header.
#pragma once

void suit_fin_de_session();   // once, when the window is there
