// A call to the top of the core: see src/CMakeLists.txt.
#include "shell/reset.hpp"

int main() { reinitialise_tout(); }
