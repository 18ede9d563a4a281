// What the reader of a formula has read, for who asks for it: a list of nodes in post-order (a node's
// children stand in front of it), where reading stopped, and what was passed over. The engine fills it in
// while it evaluates, when `moteur.releve` points to one; an ordinary evaluation has none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What a node is. Operands have no children; `numero` says which one.
enum class GenreNoeud : std::uint8_t {
    nombre,           // a literal; what its value took ends at `utile`
    lettre,           // a variable; numero 1 to 26
    matrice,          // MA to MJ; numero 1 to 10; what stands behind the two characters is not read
    mot,              // OR, XOR, AND or NOT where a value is due: the value read before it
    refuse,           // what no value can be read from; it has been reported
    appel,            // a function; numero is its number in the table; its arguments are the children
    parenthese,       // "(" and ")" around the child
    remplace,         // two operands in a row: the second one takes the place of the first
    plus_unaire, moins_unaire, complement,   // "+", "-", "!" in front of a first term
    non,              // NOT
    puissance, fois, divise, et,             // "^" "*" "/" AND
    plus, moins, ou, oux,                    // "+" "-" OR XOR
    plus_pourcent, moins_pourcent,           // "a + b %" and "a - b %"
    egale             // the assignment; numero is its letter, 0 for none, -1 to -10 for a matrix
};

// What an operator worked on.
enum class SorteCalcul : std::uint8_t { nombres, matrices, matrice_par_nombre };

struct Noeud {
    GenreNoeud genre;
    SorteCalcul sorte = SorteCalcul::nombres;
    std::int16_t numero = 0;   // see GenreNoeud
    std::int32_t arite = 0;    // children
    std::int32_t debut = 0;    // first and last character in p_formule, from 1
    std::int32_t fin = 0;
    std::int32_t signe = 0;    // where the operator stands; the "(" of a call, 0 where it has none
    std::int32_t utile = 0;    // of an operand: the last character that took part in its value
    double valeur = 0;         // what the node gave; of a matrix 0
};

// What a formula holds that asks for a second look, noted while it is read: a set of bits.
enum TraitLecture : std::uint32_t {
    kTraitRemplace = 1,         // an operand was replaced by the one behind it
    kTraitPartiel = 2,          // an operand has characters that its value did not take
    kTraitMot = 4,              // an operator word stood for a value
    kTraitSommePerdue = 8,      // a call in an argument made the sum outside another one
    kTraitArgumentPerdu = 16,   // a call in an argument replaced an earlier argument of the call outside
    kTraitPuissance = 32,       // a power
    kTraitMatrice = 64,         // a matrix
    kTraitAppel = 128,          // a function
    kTraitNon = 256,            // NOT
    kTraitBits = 512,           // AND, OR or XOR
    kTraitPourcent = 1024,      // a percentage
    kTraitHexa = 2048,          // a hexadecimal literal with a character that is no digit and counts as 0
    kTraitSansInverse = 4096    // INVMAT of a matrix whose determinant is 0
};

struct Releve {
    std::vector<Noeud> noeuds;             // post-order
    std::vector<std::int32_t> racines;     // of the parts that wait for their parent, while reading
    std::uint32_t traits = 0;              // bits of TraitLecture
    std::int32_t perdue = 0;               // where the first lost sum or argument was lost, a position in p_formule
    std::int32_t symbole_debut = 0, symbole_fin = 0;   // the current symbol, in p_formule from 1
    std::int32_t lu = 0;                   // last character that was used so far
    std::int32_t arret = 0;                // first character that was not read; beyond the end: all was
    std::uint32_t lettres = 0;             // variables read, bit 1 for A to bit 26 for Z
    std::uint32_t lettres_neuves = 0;      // of these the ones that had no value yet
    std::int16_t affectee = 0;             // variable assigned, 1 to 26; -1 to -10 a matrix; 0 none
    std::int32_t faute = 0;                // where the reader stood at the first report; 0: none
    std::int32_t faute_fin = 0;            // the end of the symbol there
    std::string mots_faute;                // and its words
    bool symbole_refuse = false;           // the current symbol has been reported

    bool a(std::uint32_t bits) const { return (traits & bits) != 0; }
};

// Empties a record for the next formula; its memory stays.
void vide_releve(Releve& releve) noexcept;

// Notes the report of an error at the current symbol: its words the first time.
void note_faute(Releve& releve, std::string_view mots) noexcept;
