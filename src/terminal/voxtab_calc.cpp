// The calculation in a terminal: sheets from files, or one from standard input, the calculated ones to
// standard output or back into the files. Messages and boxes go to standard error, one a line.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/typed_text.hpp"
#include "documents/recovery_file.hpp"
#include "platform/console.hpp"
#include "platform/files.hpp"
#include "platform/helper_process.hpp"
#include "platform/message.hpp"
#include "platform/stack.hpp"
#include "platform/system_path.hpp"
#include "sheet/column.hpp"
#include "sheet/recalculation.hpp"
#include "state/pass_result.hpp"
#include "state/variables.hpp"
#include "terminal/exchange_files.hpp"
#include "terminal/findings_output.hpp"
#include "terminal/last_handler.hpp"
#include "terminal/many_sheets.hpp"
#include "terminal/options.hpp"
#include "terminal/sheet_file.hpp"
#include "terminal/study_files.hpp"
#include "terminal/terminal_port.hpp"
#include "verification/check.hpp"

namespace {

int refuse(const std::string& mots) {
    std::cerr << "voxtab-calc : " << mots << '\n';
    return kImpossible;
}

std::string mots_fichier(int numero) {
    switch (numero) {
        case kFichierAbsent: return "fichier introuvable";
        case kDossierAbsent: return "dossier introuvable";
        case kDisquePlein: return "disque plein";
        case kMemoire: return "fichier trop long";
        default: return "accès impossible";
    }
}

// What a path that can't be read or written is, where that tells why.
std::string mots_chemin(const std::string& chemin, int numero) {
    std::error_code erreur;
    const auto etat = std::filesystem::status(chemin_du_systeme(chemin), erreur);
    if (std::filesystem::is_directory(etat)) return "c'est un dossier";
    if (std::filesystem::is_character_file(etat) || std::filesystem::is_block_file(etat))
        return "c'est un périphérique";
    return mots_fichier(numero);
}

// One French line for what a file refused.
int refuse_fichier(const std::string& chemin, int numero) {
    return refuse(chemin + " : " + mots_chemin(chemin, numero));
}

int refuse_texte(const std::string& nom, const RefusFeuille& refus) {
    const std::string lieu = nom + ", ligne " + std::to_string(refus.ligne) + " : ";
    if (refus.caractere == 0)
        return refuse(lieu + "ce n'est pas de l'UTF-8 ; essayez --codage windows-1252");
    return refuse(lieu + "le caractère " + code_unicode(refus.caractere) +
                  " n'existe pas dans une feuille");
}

// Writes to standard output.
int montre(const std::string& texte) {
    std::cout << texte << std::flush;
    return std::cout ? kReussite : refuse("la sortie ne peut pas être écrite");
}

// How the bytes are coded: as the option says, or as the file itself shows.
Codage codage_entree(const OptionsCalcul& options, const std::string& octets, bool fichier) {
    if (options.codage == "windows-1252") return Codage::windows_1252;
    const Codage devine = devine_codage(octets);
    if (devine == Codage::utf16_petit || devine == Codage::utf16_grand) return devine;
    return fichier && options.codage.empty() ? devine : Codage::utf8;
}

// Path of the backup: the sheet's name with the extension "bak".
std::string chemin_sauvegarde(const std::string& chemin) {
    return chemin_en_utf8(chemin_du_systeme(chemin).replace_extension(".bak"));
}

// True when the file still holds what was read.
bool inchangee(const std::string& chemin, const std::string& anciens) {
    std::string octets;
    return lit_fichier(chemin, octets) == 0 && octets == anciens;
}

// Writes the sheet back, its former content kept in the backup, which is as private as the sheet. What
// another program has written meanwhile stays.
int ecrit_en_place(const OptionsCalcul& options, const std::string& anciens,
                   const std::string& nouveaux) {
    const SansInterruption garde;
    const std::string& feuille_ecrite = options.feuille;
    if (!inchangee(feuille_ecrite, anciens))
        return refuse(feuille_ecrite + " : le fichier a changé pendant le calcul, rien n'a été écrit");
    const std::string copie = chemin_sauvegarde(feuille_ecrite);
    if (copie != feuille_ecrite)
        if (const int numero = remplace_fichier(copie, anciens, feuille_ecrite); numero != 0)
            return refuse_fichier(copie, numero);
    const int numero = a_d_autres_noms(feuille_ecrite)
                           ? recrit_fichier(feuille_ecrite, anciens, nouveaux)
                           : remplace_fichier(feuille_ecrite, nouveaux);
    return numero == 0 ? kReussite : refuse_fichier(feuille_ecrite, numero);
}

int ecrit(const OptionsCalcul& options, const TexteFeuille& feuille, const std::string& octets) {
    if (options.en_place)
        return ecrit_en_place(options, octets,
                              ecrit_feuille(feuille.texte, feuille.codage, FinsDeLigne::cr_lf, true));
    const Codage sortie = options.codage == "windows-1252" ? Codage::windows_1252 : Codage::utf8;
    return montre(ecrit_feuille(feuille.texte, sortie, feuille.fins, feuille.fin_finale));
}

// A file that can't be written back is refused before anything is calculated.
int verifie_en_place(const OptionsCalcul& options, bool fichier) {
    if (!options.en_place) return kReussite;
    if (!fichier) return refuse("--en-place demande une feuille");
    const int numero = verifie_ecriture(options.feuille);
    return numero == 0 ? kReussite : refuse_fichier(options.feuille, numero);
}

// Reads standard input whole; the exit status of what went wrong.
int lit_entree(std::string& octets) {
    std::array<char, 65536> bloc;
    while (std::cin) {
        std::cin.read(bloc.data(), bloc.size());
        octets.append(bloc.data(), static_cast<std::size_t>(std::cin.gcount()));
        if (octets.size() > kOctetsMaxi) return refuse("entrée standard : trop longue");
    }
    return std::cin.bad() ? refuse("entrée standard : accès impossible") : kReussite;
}

// Reads the sheet's file or standard input; the exit status of what went wrong.
int lit_octets(const OptionsCalcul& options, bool fichier, std::string& octets) {
    if (!fichier) return lit_entree(octets);
    const int numero = lit_fichier(options.feuille, octets);
    return numero == 0 ? kReussite : refuse_fichier(options.feuille, numero);
}

// A recovery file stands for its sheet, in the code page. It isn't written back: it may be the only copy,
// and a sheet in its place would not be offered at the next start.
int prend_reprise(const OptionsCalcul& options, const std::string& nom, std::string& octets) {
    FicheReprise fiche;
    std::string texte;
    if (lit_reprise(octets, fiche, texte) != EtatReprise::bonne)
        return refuse(nom + " : copie de secours abîmée ; ouvrez-la dans Voxtab pour la lire");
    if (options.en_place)
        return refuse(nom + " : c'est une copie de secours, elle n'est pas récrite ; calculez-la sans -i");
    octets = std::move(texte) + "\r\n";
    return kReussite;
}

// A file with code 0 is no text: it must not be written back as one.
int verifie_texte(const OptionsCalcul& options, const std::string& texte) {
    const std::size_t nul = options.en_place ? texte.find('\0') : std::string::npos;
    if (nul == std::string::npos) return kReussite;
    const auto ligne = std::count(texte.begin(), texte.begin() + static_cast<std::ptrdiff_t>(nul), '\n') + 1;
    return refuse(options.feuille + ", ligne " + std::to_string(ligne) +
                  " : le code 0 n'existe pas dans une feuille");
}

// Adds the column total to the sheet and says it. A total that fails leaves the sheet as it is.
void ajoute_total(std::string& texte) {
    Tente(kCommande, [&] {
        Total total = total_colonne(texte);
        texte = std::move(total.texte);
        dit(total.resultat);
    });
}

// Puts the calculated sheet in the place of `texte` and says the line that the pass is to say. True when every
// line is calculated.
bool calcule_texte(std::string& texte, bool colonne) {
    Calcul calcul = calcule_feuille(texte, 0);
    if (calcul.issue == Issue::ecrite) texte = std::move(calcul.texte);
    const bool faite = calcul.issue == Issue::ecrite || calcul.issue == Issue::incomplete;
    if (faite) garde_le_hasard();
    if (faite) Tente(kRecalcul, [&] { dit(calcul.message(texte)); });
    if (colonne && faite && !calcul.erreur) ajoute_total(texte);
    return !calcul.erreur && !terminal.boite_vue;
}

// What is wrong with a file beside the sheet.
int dit_refus(const RefusEchange& refus) {
    if (!refus.refuse()) return kReussite;
    return refus.mots.empty() ? refuse_fichier(refus.chemin, refus.numero) : refuse(refus.chemin + " : " + refus.mots);
}

// Prints what a check of the sheet finds, and nothing else.
int verifie(const OptionsCalcul& options, const std::string& texte) {
    verifie_feuille(texte);
    const int statut = montre(texte_constats(verification.constats, options.json));
    if (statut != kReussite) return statut;
    if (verification.arretee) return refuse("la feuille ne peut pas être vérifiée");
    if (faux_probables(verification.constats) > 0) return kFauxProbable;
    return verification.lignes_en_erreur > 0 ? kLigneEnErreur : kReussite;
}

int calcule(const OptionsCalcul& options) {
    if (const int refus = dit_refus(verifie_chemins(options)); refus != kReussite) return refus;
    const bool fichier = !options.feuille.empty() && options.feuille != "-";
    std::string octets;
    const bool donnees_seules = options.feuille.empty() && !options.importe.empty();
    if (const int statut = donnees_seules ? kReussite : lit_octets(options, fichier, octets); statut != kReussite)
        return statut;
    if (const int refus = verifie_en_place(options, fichier); refus != kReussite) return refus;
    const std::string nom = fichier ? options.feuille : "entrée standard";
    const bool reprise = est_reprise(octets);
    if (const int statut = reprise ? prend_reprise(options, nom, octets) : kReussite; statut != kReussite)
        return statut;
    RefusFeuille refus;
    auto lue = lit_feuille(
        octets, reprise ? Codage::windows_1252 : codage_entree(options, octets, fichier), refus);
    if (!lue) return refuse_texte(nom, refus);
    if (const int nul = verifie_texte(options, lue->texte); nul != kReussite) return nul;
    if (const int echange = dit_refus(importe_devant(options, lue->texte)); echange != kReussite) return echange;
    if (options.verifier) return verifie(options, lue->texte);
    const bool reussi = calcule_texte(lue->texte, options.colonne);
    const int ecriture = ecrit(options, *lue, octets);
    if (ecriture != kReussite) return ecriture;
    for (const auto ecris : {ecrit_echanges, ecrit_etudes})
        if (const int echange = dit_refus(ecris(options, lue->texte)); echange != kReussite) return echange;
    return reussi ? kReussite : kLigneEnErreur;
}

}  // namespace

int main(int argc, char** argv) {
    finit_sans_memoire(stderr, "voxtab-calc : mémoire insuffisante\n");   // nothing has been written then
    agrandit_pile(argv);
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> mots = prepare_console(argc, argv);
    installe_port_terminal();
    if (mots.size() == 1 && mots.front() == kMotAide) return sers_d_aide(calcule);
    const LectureOptions lecture = lis_options(mots);
    if (lecture.statut) {
        if (*lecture.statut != kReussite) return refuse(lecture.erreur);
        return montre(lecture.sortie);
    }
    if (!lecture.options.feuilles.empty() && lecture.options.verifier)
        return refuse("--verifier ne prend qu'une feuille");
    if (!lecture.options.feuilles.empty()) return calcule_feuilles(lecture.options, mots, calcule);
    reinitialise_calcul();
    applique_options(lecture.options);
    return calcule(lecture.options);
}
