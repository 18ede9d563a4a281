// What the start does with recovery files of a run that didn't end by itself: asks, opens the sheets or
// sets them aside. Changes the documents, the settings table, the text and `reprise`.
#pragma once

#include <cstddef>
#include <cstdint>

inline constexpr std::int64_t kJoursGardes = 30;      // a sheet set aside is kept that long
inline constexpr std::size_t kFeuillesGardees = 100;  // ... and so many of them

// Looks at the folder of recovery files once the first sheet is open. `donnee`: the user has named that
// sheet, and it stays the one shown. True when sheets were opened. Files of a program that may be at
// work are left alone.
bool reprend_feuilles(bool donnee);
