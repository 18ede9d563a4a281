// The instance of the settings table.
#include "documents/settings.hpp"

Reglages reglages;
