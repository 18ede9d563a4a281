// Plays the sounds that the program makes itself, beside its work. One file per system implements this header; the end
// of a sound, or that there is no device, is reported to the core as an event.
#pragma once

void installe_lecteur_de_son();   // in the port
