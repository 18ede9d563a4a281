// What every target starts from: the bytes of one run, taken piece by piece, and the one way to say
// that something is wrong. Holds no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The bytes of a run; after their end all numbers are 0 and all texts empty.
class Octets {
public:
    Octets(const std::uint8_t* debut, std::size_t taille)
        : reste_(reinterpret_cast<const char*>(debut), taille) {}

    bool vide() const { return reste_.empty(); }
    // The next byte as a number.
    int octet();
    // The next byte as a number from 0 to `nombre` - 1.
    int parmi(int nombre) { return octet() % nombre; }
    // As many bytes as the next one tells, `maximum` at most.
    std::string texte(std::size_t maximum = 255);
    // All that is left.
    std::string reste();

private:
    std::string_view reste_;
};

// The text with CR LF for each LF, so that one byte changed or moved is a line end whole.
std::string avec_lignes(std::string_view texte);

// Stops the run with what is wrong when it doesn't hold; `vu` shows what was there.
void verifie(bool tient, std::string_view faute, std::string_view vu = {});

// A fresh program on the in-memory port with a stack of one megabyte below here, so that deep
// recursions end at once: the formulas that need more are tested elsewhere.
void programme_de_fuzz();

// One run; the entry point of every target. Answers 0, or -1 for bytes that are not worth keeping.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* debut, std::size_t taille);
