// The last handler of an exception that nobody caught.
#include "terminal/last_handler.hpp"

#include <cstdlib>
#include <exception>
#include <new>
#include <stdexcept>

#include "terminal/options.hpp"

namespace {

std::FILE* flux_final = stderr;
const char* mots_finaux = "";

[[noreturn]] void plus_de_memoire() {
    std::fputs(mots_finaux, flux_final);
    std::fflush(flux_final);
    std::_Exit(kImpossible);
}

[[noreturn]] void fin_sans_issue() {
    try {
        if (std::current_exception()) std::rethrow_exception(std::current_exception());
    } catch (const std::bad_alloc&) {
        plus_de_memoire();
    } catch (const std::length_error&) {
        plus_de_memoire();
    } catch (...) {
    }
    std::abort();
}

}  // namespace

void finit_sans_memoire(std::FILE* flux, const char* mots) {
    flux_final = flux;
    mots_finaux = mots;
    std::set_terminate(fin_sans_issue);
}
