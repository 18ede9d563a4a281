// The virtual codes of Windows as the core's keys, for who reads its messages.
#pragma once

// The key of a virtual code, kToucheAutre for one that the core doesn't know.
int touche_du_code(int code);
