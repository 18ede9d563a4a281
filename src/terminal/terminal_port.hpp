// The port of a calculation in a terminal: messages and boxes are lines of standard error, at once. Nobody
// answers, and no file is asked for through it. One instance of state, `terminal`.
#pragma once

struct Terminal {
    bool boite_vue = false;   // a box was shown: some line has no result
};
extern Terminal terminal;

void installe_port_terminal();
