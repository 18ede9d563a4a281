// The instance of the table of procedures that the grammar calls.
#include "engine/operations.hpp"

Operations operations;
