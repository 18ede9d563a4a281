// The sounds that the program makes: the beep, and the two ends of a calculation. One file per system
// implements this header.
#pragma once

void installe_sons();   // in the port
