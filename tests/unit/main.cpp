// The unit tests' program.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include "support/reset_listener.hpp"
