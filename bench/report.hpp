// The printed table: one row a comparison, with what is wanted of it and whether it holds. Counts
// the wanted values that were missed.
#pragma once

#include <string>

struct Rangee {
    std::string quoi;    // what is measured
    std::string ici;     // this program's value
    std::string autre;   // the value beside it; "" for none
    double rapport = 0;  // ratio of the two; 0 for none
    std::string voulu;   // what is wanted, in words; "" when the row only informs
    bool tenu = true;    // it holds
};

void titre(const std::string& texte);
void note(const std::string& texte);  // a sentence below a row
void affiche(const Rangee& rangee);
int buts_manques();  // rows that didn't hold, so far
void affiche_bilan();

std::string duree(double secondes);  // "0.93 us", "12.4 ms", "1.20 s"
std::string decimal(double x, int decimales);
std::string milliers(int n);  // "30,000"
