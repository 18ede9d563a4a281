/* The tables of the exponential and the logarithm, for the loops that compute many values at once. */
#ifndef VOXTAB_MATHS_TABLES_H
#define VOXTAB_MATHS_TABLES_H

#include <features.h>
#include <stdint.h>

#define hidden
#define __exp_data voxtab_exp_data
#define __log_data voxtab_log_data
#ifdef __cplusplus
extern "C" {
#endif
#include "../src/exp_data.h"
#include "../src/log_data.h"
#ifdef __cplusplus
}
#endif
#undef hidden
#undef __exp_data
#undef __log_data

#endif
