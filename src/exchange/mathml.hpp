// A formula in MathML, from what the reader of a formula has read. Holds no state.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/reading.hpp"

// The formula as French mathematics writes it. Nothing when the reader has refused it, has left a part unread, or
// has read it otherwise than it looks: such a line is shown as it was typed.
std::optional<std::string> mathml(std::string_view texte, const FormuleRelevee& lue);
