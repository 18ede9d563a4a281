// The study of a function as a part of the page: its facts as a list, its variations as a table. Holds no state.
#pragma once

#include <string>

#include "study/sheet_study.hpp"

std::string section_d_etude(const EtudeDeFeuille& etude);
