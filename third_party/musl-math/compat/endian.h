/* The byte order under the names of POSIX, which Windows lacks; elsewhere the system's own header. */
#if defined(__has_include_next)
#if __has_include_next(<endian.h>)
#include_next <endian.h>
#endif
#endif
#ifndef __BYTE_ORDER
#define __LITTLE_ENDIAN __ORDER_LITTLE_ENDIAN__
#define __BIG_ENDIAN __ORDER_BIG_ENDIAN__
#define __BYTE_ORDER __BYTE_ORDER__
#endif
