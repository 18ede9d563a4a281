// How far the elementary functions of the calculation and those of the system are from the correctly
// rounded values, which MPFR gives, and how long a call takes. Built where MPFR is installed.
//   bench_accuracy [ARGUMENTS]      (how many in each range, 200,000 unless told)
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

#include <mpfr.h>

#include "base/maths.hpp"

namespace {

using Function = double (*)(double);
using Reference = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);

// Arguments from `low` to `high`, evenly spread, or evenly by their size.
struct Range {
    const char* name;
    Function ours, system;
    Reference reference;
    double low, high;
    bool by_size;
};

#define FUNCTION(name) maths::name, static_cast<Function>(std::name), mpfr_##name
constexpr double kHuge = 1e22;
const Range kRanges[] = {
    {"exp", FUNCTION(exp), -700, 700, false},    {"exp", FUNCTION(exp), -20, 20, false},
    {"log", FUNCTION(log), 1e-150, 1e150, true}, {"log", FUNCTION(log), 0.5, 2, false},
    {"sin", FUNCTION(sin), -10, 10, false},      {"sin", FUNCTION(sin), 1e-5, kHuge, true},
    {"cos", FUNCTION(cos), -10, 10, false},      {"cos", FUNCTION(cos), 1e-5, kHuge, true},
    {"tan", FUNCTION(tan), -10, 10, false},      {"tan", FUNCTION(tan), 1e-5, kHuge, true},
    {"atan", FUNCTION(atan), -10, 10, false},    {"atan", FUNCTION(atan), 1e-5, kHuge, true},
};
#undef FUNCTION

std::vector<double> arguments(const Range& range, int count) {
    std::mt19937_64 random(1);
    std::vector<double> values;
    for (int i = 0; i < count; ++i) {
        const double part = static_cast<double>(random() >> 11) * 0x1p-53;
        values.push_back(range.by_size ? range.low * std::pow(range.high / range.low, part)
                                       : range.low + (range.high - range.low) * part);
    }
    return values;
}

struct Accuracy {
    double worst = 0;       // units of the last place
    double misrounded = 0;  // per cent of the results
};

Accuracy accuracy(Function function, Reference reference, const std::vector<double>& values) {
    mpfr_t x, exact;
    mpfr_init2(x, 53);
    mpfr_init2(exact, 160);
    Accuracy found;
    int wrong = 0;
    for (const double value : values) {
        mpfr_set_d(x, value, MPFR_RNDN);
        reference(exact, x, MPFR_RNDN);
        const double rounded = mpfr_get_d(exact, MPFR_RNDN), result = function(value);
        const double next = std::nextafter(std::fabs(rounded), std::numeric_limits<double>::max());
        mpfr_sub_d(exact, exact, result, MPFR_RNDN);
        const double distance = std::fabs(mpfr_get_d(exact, MPFR_RNDN));
        found.worst = std::max(found.worst, distance / (next - std::fabs(rounded)));
        wrong += result != rounded;
    }
    found.misrounded = 100.0 * wrong / static_cast<double>(values.size());
    mpfr_clears(x, exact, static_cast<mpfr_ptr>(nullptr));
    return found;
}

// Nanoseconds a call, the best of some rounds.
double time_of(Function function, const std::vector<double>& values) {
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < 5; ++round) {
        const auto start = std::chrono::steady_clock::now();
        double sum = 0;
        for (const double value : values) sum += function(value);
        const volatile double kept = sum;
        static_cast<void>(kept);
        const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count() / static_cast<double>(values.size()));
    }
    return best;
}

void report(const char* whose, Function function, const Range& range,
            const std::vector<double>& values) {
    const Accuracy found = accuracy(function, range.reference, values);
    std::printf("  %s %6.4f ulp %7.4f %% %5.1f ns", whose, found.worst, found.misrounded,
                time_of(function, values));
}

}  // namespace

int main(int argc, char** argv) {
    const int count = argc > 1 ? std::atoi(argv[1]) : 200000;
    if (count < 1) return 2;
    std::printf("worst distance, results that are not correctly rounded, time a call\n");
    for (const Range& range : kRanges) {
        const std::vector<double> values = arguments(range, count);
        std::printf("%-4s %7g to %-7g", range.name, range.low, range.high);
        report("here", range.ours, range, values);
        report("system", range.system, range, values);
        std::printf("\n");
    }
}
