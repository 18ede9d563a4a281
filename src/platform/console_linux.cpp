// Arguments and streams on Linux, where both are bytes already. Changes no state.
#include "platform/console.hpp"

std::vector<std::string> prepare_console(int argc, char** argv) {
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}
