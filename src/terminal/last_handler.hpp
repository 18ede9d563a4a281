// The end of a program in the terminal whose memory is exhausted where nothing can go on. Changes the last
// handler of exceptions.
#pragma once

#include <cstdio>

// From here on such an end writes `mots` to `flux` and gives exit status 2. The words must stay ready:
// nothing is asked of the memory then.
void finit_sans_memoire(std::FILE* flux, const char* mots);
