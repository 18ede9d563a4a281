// Numbers as a CSV file that other programs read, every bit of them. Holds no state.
#pragma once

#include <string>
#include <string_view>

#include "exchange/data_table.hpp"

// How spreadsheets write numbers: French ones with ";" between cells and a decimal comma, most others with "," and a
// decimal point.
enum class Convention { virgule, point };

// The file: a line of headings, then the numbers, in UTF-8 (with its mark where the convention is French, as French
// spreadsheets need it), with CR LF.
std::string fichier_de_donnees(const TableDonnees& table, Convention convention);
