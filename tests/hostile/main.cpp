// The hostile tests' program: it has the stack that the deepest formula needs, as the real
// programs.
#define DOCTEST_CONFIG_IMPLEMENT
#include "platform/stack.hpp"
#include "support/reset_listener.hpp"

int main(int argc, char** argv) {
    agrandit_pile(argv);
    doctest::Context contexte(argc, argv);
    contexte.setOption("duration", true);
    return contexte.run();
}
