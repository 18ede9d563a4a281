// The sheets that change when they are calculated again, and how.
#pragma once

// Runs `nombre` sheets of each kind; the number of those that are wrong.
int essaie_instables(int nombre);
