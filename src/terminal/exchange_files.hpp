// The files of voxtab-calc beside the sheet: data that go in front of it, its page, its data. Changes files.
#pragma once

#include <string>

#include "terminal/options.hpp"

// Why a file could not be read, used or written; neither number nor words: all went well.
struct RefusEchange {
    std::string chemin;
    int numero = 0;        // of the failure of the file
    std::string mots;      // UTF-8, what is wrong with its content

    bool refuse() const { return numero != 0 || !mots.empty(); }
};

// Refuses a file to be written that is a sheet, one of those that are read, or named twice.
RefusEchange verifie_chemins(const OptionsCalcul& options);

// Puts the data of the file that the options name in front of the sheet.
RefusEchange importe_devant(const OptionsCalcul& options, std::string& texte);

// Writes the page and the data that the options ask for. The text is that of the calculated sheet.
RefusEchange ecrit_echanges(const OptionsCalcul& options, const std::string& texte);
