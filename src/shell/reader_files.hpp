// Installation of the screen reader's files at the first start: finds its settings folder, asks, and
// copies. Changes files only.
#pragma once

#include <string>

void jaws(const std::string& nom) noexcept;   // base name of the files, "voxtab"
