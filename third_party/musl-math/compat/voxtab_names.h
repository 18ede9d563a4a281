/* Included by force in front of every file of src/. Gives each public name a prefix of our own; takes
   away what would make results depend on the processor or the system. */
#ifndef VOXTAB_NAMES_H
#define VOXTAB_NAMES_H

/* The system's declarations first, under their own names. */
#include <math.h>

#define exp voxtab_exp
#define log voxtab_log
#define sin voxtab_sin
#define cos voxtab_cos
#define tan voxtab_tan
#define atan voxtab_atan
#define scalbn voxtab_scalbn
#define __exp_data voxtab_exp_data
#define __log_data voxtab_log_data
#define __sin voxtab_kernel_sin
#define __cos voxtab_kernel_cos
#define __tan voxtab_kernel_tan
#define __sinl voxtab_kernel_sinl
#define __cosl voxtab_kernel_cosl
#define __tanl voxtab_kernel_tanl
#define __rem_pio2 voxtab_rem_pio2
#define __rem_pio2_large voxtab_rem_pio2_large
#define __math_divzero voxtab_math_divzero
#define __math_invalid voxtab_math_invalid
#define __math_oflow voxtab_math_oflow
#define __math_uflow voxtab_math_uflow
#define __math_xflow voxtab_math_xflow

/* musl marks what stays inside its library. */
#define hidden

double exp(double);
double log(double);
double sin(double);
double cos(double);
double tan(double);
double atan(double);
double scalbn(double, int);

/* A fused multiplication would give other last digits where the processor has one. */
#undef __FP_FAST_FMA

#endif
