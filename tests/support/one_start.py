"""For tests that run a program some hundred times. The program gives itself a large stack by starting again
(src/platform/stack_linux.cpp); with a large one it starts once, in half the time. The tests that start it less
often leave that to the program."""
import resource

STACK = 512 << 20   # as in src/platform/stack.hpp


def large_stack() -> None:
    """What this test starts from now on finds the large stack, where the system allows one."""
    hard = resource.getrlimit(resource.RLIMIT_STACK)[1]
    if hard == resource.RLIM_INFINITY or hard >= STACK:
        resource.setrlimit(resource.RLIMIT_STACK, (STACK, hard))
