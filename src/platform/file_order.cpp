// The alphabetical order of names. Changes no state.
#include "platform/file_order.hpp"

#include <algorithm>

#include "base/codepage.hpp"

void range_noms(std::vector<std::string>& noms) {
    std::sort(noms.begin(), noms.end(), [](const std::string& a, const std::string& b) {
        const std::string grand_a = capitales(a), grand_b = capitales(b);
        return grand_a != grand_b ? grand_a < grand_b : a < b;
    });
}
