// The disk C: of the tests on Windows: the system's own.
#include "platform/files.hpp"
#include "reader/tree.hpp"

void installe_disque(const std::filesystem::path&) { installe_fichiers_reels(); }
