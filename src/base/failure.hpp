// A failure of the arithmetic or of the run-time environment, and the one way to survive it:
// Tente runs one statement; a failure raised in it shows one box and the procedure goes on.
// Holds no state but the way to the user, `signalement`, which the floors above fill in.
#pragma once

#include <string_view>
#include <utility>

// Failure numbers, as the user hears them in the box.
enum NumeroDefaillance : int {
    kHorsDomaine = 5,        // a function outside its domain
    kDepassement = 6,        // overflow, invalid operation, conversion out of range
    kMemoire = 7,            // memory exhausted
    kIndice = 9,             // table index out of bounds
    kDivisionZero = 11,      // division by zero
    kPile = 28,              // stack exhausted
    kFichierAbsent = 53,     // file not found
    kDisquePlein = 61,       // disk full
    kAccesFichier = 75,      // file can't be read or written
    kDossierAbsent = 76,     // folder not found
    kAbandon = 1000          // the user gave up a long calculation: told once, in words
};

// What is thrown, up to the next Tente or Essaie.
struct Defaillance {
    int numero;
};

// How a procedure words its failure box, and whether the failure marks the formula as failed.
struct Procedure {
    std::string_view mots;   // Windows-1252, with or without its leading blank
    bool marque_erreur;      // true: sets erreur_formule
    bool numero_seul = false;   // true: the number stands once, with its leading blank
};

// A failure that no procedure has caught ends the command: the box has the number alone, twice.
inline constexpr Procedure kCommande{"", false};

// Raises failure `numero`. Never returns.
[[noreturn]] void echoue(int numero);

// How a failure reaches the user and the formula. Nothing happens until it is filled in, at the start.
struct Signalement {
    void (*boite)(std::string_view texte) = [](std::string_view) {};   // shows a box, Windows-1252
    void (*abandon)() = [] {};         // tells that the user gave up, the first time that it is called
    void (*marque_formule)() = [] {};  // sets erreur_formule
};
extern Signalement signalement;

// Shows the box "N N<words>" and sets erreur_formule when the procedure does so. A calculation that the
// user gave up is told once, "calcul interrompu", and marks the formula in any procedure.
void signale_defaillance(const Procedure& procedure, int numero) noexcept;

#ifdef VOXTAB_INJECTION
// Test build only: makes the k-th statement of a run fail (0: none), and counts the statements.
struct Injection {
    long compte = 0;         // statements tried since the last reset
    long echec_a = 0;        // number of the statement that fails, from 1
};
extern Injection injection;
void compte_instruction();
#endif

// Runs one statement; its failure goes to `rapport` as a number, and the caller goes on with its next
// statement. True when the statement ran to its end.
template <class Instruction, class Rapport>
inline bool Essaie(Instruction&& instruction, Rapport&& rapport) noexcept {
    try {
#ifdef VOXTAB_INJECTION
        compte_instruction();
#endif
        std::forward<Instruction>(instruction)();
        return true;
    } catch (const Defaillance& d) {
        rapport(d.numero);
    } catch (...) {
        // What the standard library throws (std::bad_alloc, std::length_error) is memory's.
        rapport(kMemoire);
    }
    return false;
}

// Runs one statement of a procedure: a failure shows the procedure's box.
template <class Instruction>
inline bool Tente(const Procedure& procedure, Instruction&& instruction) noexcept {
    return Essaie(std::forward<Instruction>(instruction),
                  [&procedure](int numero) { signale_defaillance(procedure, numero); });
}
