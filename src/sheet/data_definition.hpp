// Data sets as the user types them: one-line calls, STATX blocks and the two lists of a bare
// STATXY. All of them become a call in which every group has its frequency. Changes `statistiques`,
// formule_ligne of `feuille` and p_formule.
#pragma once

#include <cstdint>
#include <string_view>

// True when the line opens a STATX block and needs nothing more.
bool TestStatX(std::int16_t numero_ligne) noexcept;

// Closes the STATX block and calculates it on its heading line.
void FinDefinitionStatX() noexcept;

// Evaluates one value of the block and stores it at `index` of table_x.
void RangeChiffreStatX(std::string_view element, std::int32_t index) noexcept;

// Joins the two lists of a bare STATXY into a call on line `numero_ligne` and calculates it.
void rangeStatxy(std::string_view ligne_x, std::string_view ligne_y,
                 std::int16_t numero_ligne) noexcept;
