/* The system's own header where there is one; Windows has none and needs none. */
#if defined(__has_include_next)
#if __has_include_next(<features.h>)
#include_next <features.h>
#endif
#endif
