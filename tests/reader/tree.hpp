// A disk C: of real files for the tests of the screen reader's files. On Linux it is a folder given
// by the test, found by names in whatever capitals, as the reader's own system does; on Windows it
// is the disk C: itself, so the tests run there in a Wine of their own. Changes the port's file
// slots.
#pragma once

#include <filesystem>

// The port's files are those of this disk; `racine` is the folder that stands for "C:\".
void installe_disque(const std::filesystem::path& racine);
