// Every subsystem back at its initial state. Run first by the window's program and before every test.
#pragma once

void reinitialise_tout();
