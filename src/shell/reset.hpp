// Every subsystem back at its initial state. Run first in main and before every test.
#pragma once

void reinitialise_tout();
