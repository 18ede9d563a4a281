// The instance of the hooks.
#include "platform/hooks.hpp"

Crochets crochets;
