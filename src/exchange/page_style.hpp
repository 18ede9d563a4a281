// How the page looks: dark text on light or light on dark, as the reader's system wants it, and dark on light on
// paper. Holds no state.
#pragma once

#include <string_view>

extern const std::string_view kStyleDePage;
