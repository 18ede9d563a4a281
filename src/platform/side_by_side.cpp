// Pieces of one calculation on several threads, which end before the calculation goes on. Changes no state.
#include "platform/side_by_side.hpp"

#include <algorithm>
#include <exception>
#include <thread>
#include <vector>

int ouvriers_possibles() { return std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, 4); }

void cote_a_cote(int nombre, int ouvriers, std::atomic<bool>& arret, const std::function<void(int, int)>& fait) {
    std::vector<std::exception_ptr> sorties(static_cast<std::size_t>(nombre));
    std::atomic<int> prochaine = 0;
    const auto travaille = [&](int ouvrier) noexcept {
        while (!arret) {
            const int piece = prochaine++;
            if (piece >= nombre) return;
            try {
                fait(piece, ouvrier);
            } catch (const Arrete&) {
            } catch (...) {
                sorties[static_cast<std::size_t>(piece)] = std::current_exception();
                arret = true;
            }
        }
    };
    std::vector<std::jthread> aides;
    try {
        for (int ouvrier = 1; ouvrier < ouvriers; ++ouvrier) aides.emplace_back(travaille, ouvrier);
    } catch (...) {   // no thread to be had: those that are there do it all
    }
    travaille(0);
    aides.clear();   // waits for them
    for (const std::exception_ptr& sortie : sorties)
        if (sortie) std::rethrow_exception(sortie);
}
