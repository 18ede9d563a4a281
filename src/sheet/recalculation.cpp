// The pass over the sheet. Reads each line once, decides what it is, calculates it and appends it,
// with its result, to the rebuilt text; blocks of results wait until the old ones below are dropped.
// Changes `feuille`, the context and the definitions.
#include "sheet/recalculation.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/codepage.hpp"
#include "base/count.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "editing/lines.hpp"
#include "engine/identifiers.hpp"
#include "functions/install.hpp"
#include "platform/boxes.hpp"
#include "platform/hooks.hpp"
#include "platform/message.hpp"
#include "platform/patience.hpp"
#include "sheet/data_definition.hpp"
#include "sheet/fault.hpp"
#include "sheet/line.hpp"
#include "sheet/marks.hpp"
#include "sheet/matrix_definition.hpp"
#include "sheet/observer.hpp"
#include "sheet/old_result.hpp"
#include "sheet/pass.hpp"
#include "sheet/rendering.hpp"
#include "sheet/sorted_block.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/formula_error.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

namespace {

// The heading that waits goes back to the text as it stood: no function follows it.
void rend_entete(Passe& p) {
    if (!p.attente_fonction) return;
    p.attente_fonction = false;
    commence_ligne(p, static_cast<std::int16_t>(p.numero - 1), p.entete_entiere);
    fin_de_ligne(p);
}

// The line with what the user wrote after its "=": a heading that isn't calculated loses only a result, which
// begins with a blank.
std::string_view sans_resultat(const Passe& p) {
    const std::string_view coupe = p.ligne_avant.substr(p.ligne.size());
    return coupe.starts_with(" = ") ? p.ligne : p.ligne_avant;
}

// Holds back the heading of a tabulation or an area until its function has been read.
Suite retient_entete(Passe& p) {
    if (!kMotInc.possible(p.signes) && !kMotAir.possible(p.signes)) return Suite::continuer;
    const std::size_t limite = std::min(p.ligne.find('!'), p.ligne.size());
    const auto avant = [&](const Marque& marque) {
        return p.contient(marque) && p.majuscule.find(marque.mot) <= limite;
    };
    const bool inc = avant(kMotInc);
    if (!inc && !avant(kMotAir)) return Suite::continuer;
    // The echo of a statistics result stands for itself, whatever words it holds.
    bool echo = false;
    Tente(kRecalcul, [&] { echo = feuille.formule_ligne(p.numero).empty(); });
    if (echo) return Suite::continuer;
    rend_entete(p);
    note_role(RoleLigne::entete);
    p.attente_fonction = true;
    p.entete_inc = inc;
    garde(p, [&] {
        p.entete = p.ligne;
        p.entete_entiere = sans_resultat(p);
        p.commentaire_inc = p.ligne.substr(limite);
    });
    return Suite::finie;
}

// Writes the heading of the function on the line that is being read.
void ecrit_entete(Passe& p, std::int16_t entete) {
    garde(p, [&] {
        const std::string_view formule = feuille.formule_ligne(entete);
        commence_ligne(p, entete, formule);
        // A heading that could not be cut into formula and comment must not be lost.
        if (formule.size() + p.commentaire_inc.size() != p.entete.size()) p.texte_complet = false;
    });
    ajoute(p, p.commentaire_inc);
    ajoute_resultat(p, entete);
    fin_de_ligne(p);
}

// The line below a held-back heading is its function: both are written now.
Suite prend_fonction(Passe& p) {
    if (!p.attente_fonction) return Suite::continuer;
    p.attente_fonction = false;
    const auto entete = static_cast<std::int16_t>(p.numero - 1);
    calcul_chaine(entete);
    note_role(RoleLigne::fonction_de_table);
    crochets.ligne_calculee(entete);
    ecrit_entete(p, entete);
    commence_ligne(p, p.numero, p.ligne);
    // Below a function that fails the sheet is only copied, and no table is written but at the end.
    if (!p.entete_inc || (moteur.erreur_formule && !p.fin)) return ligne_suivante(p);
    return pose_bloc(p, GenreBloc::table);
}

// Opens a matrix or data-set definition on its heading line.
bool ouvre_definition(Passe& p) {
    note_role(RoleLigne::entete_matrice);
    if (p.contient(kDefM) && TestMatrice(p.numero)) return true;
    if (!p.contient(kMotStatX) || !TestStatX(p.numero)) return false;
    note_role(RoleLigne::entete_donnees);
    p.ligne_donnees = feuille.colonne_resultat.size();
    return true;
}

// A data line of an open STATX block; a comma at its end is dropped.
Suite ajoute_donnees(Passe& p) {
    note_role(RoleLigne::donnees);
    Tente(kRecalcul, [&] {
        std::string_view donnees = p.ligne;
        if (donnees.ends_with(',')) donnees.remove_suffix(1);
        (statistiques.texte_definition_statx += donnees) += '\r';
    });
    return ligne_suivante(p);
}

// The heading line of a data set that was refused carries the words.
void refuse_donnees(Passe& p) {
    const std::int16_t entete = statistiques.ligne_definition_statx;
    Tente(kRecalcul, [&] { feuille.resultat_ligne.pose(entete, " =" + moteur.l_texte_erreur); });
    garde(p, [&] {
        insere_texte_reconstruit(static_cast<std::size_t>(statistiques.position_definition_statx),
                                 feuille.resultat_ligne(entete));
    });
}

// Closes the matrix. Its result moves a heading of a data set that stands below its own.
void ferme_matrice() {
    const std::size_t avant = feuille.texte_reconstruit.size();
    FinDefinitionMatrice();
    crochets.ligne_calculee(definition_de_matrice.ligne_definition_matrice);
    const std::size_t ajoutes = feuille.texte_reconstruit.size() - avant;
    if (statistiques.position_definition_statx > definition_de_matrice.position_definition_matrice)
        statistiques.position_definition_statx += static_cast<std::int32_t>(ajoutes);
}

// An empty line, a comment or a line with FIN: it ends an open definition and is never calculated. Kept:
// see the oddities, fin-anywhere.
Suite ferme_definitions(Passe& p) {
    if (definition_de_matrice.definition_matrice) ferme_matrice();
    if (!statistiques.definition_statx) return ligne_suivante(p);
    FinDefinitionStatX();
    crochets.ligne_calculee(statistiques.ligne_definition_statx);
    if (moteur.erreur_formule) {
        refuse_donnees(p);
        return ligne_suivante(p);
    }
    feuille.colonne_resultat[p.ligne_donnees - 1] = -statistiques.ligne_definition_statx;
    return pose_bloc(p, GenreBloc::statistiques);
}

// Calculates the line and writes its result after it.
Suite calcule_ligne(Passe& p) {
    note_role(RoleLigne::formule);
    calcul_chaine(p.numero);
    crochets.ligne_calculee(p.numero);
    ajoute_resultat(p, p.numero);
    if (moteur.erreur_formule) {
        prend_curseur(p);
        return ligne_suivante(p);
    }
    return retient_blocs(p);
}

// True when one of the forms of an old error text that holds FIN begins at `position`; `fin` is then its end.
bool est_non_definie(std::string_view majuscule, std::size_t position, std::size_t& fin) {
    constexpr std::string_view kGenres[] = {" = VARIABLE ?"_fr, " = MATRICE M?"_fr, " = FONCTION"_fr};
    constexpr std::string_view kNonDefinie = " NON DÉFINIE"_fr;
    for (const std::string_view genre : kGenres) {
        fin = position + genre.size();
        const std::string_view tete = genre.substr(0, genre.find('?'));
        if (majuscule.substr(position).starts_with(tete) && fin <= majuscule.size() &&
            majuscule.substr(fin).starts_with(kNonDefinie)) {
            fin += kNonDefinie.size();
            return true;
        }
    }
    return false;
}

// Blanks out the error texts of an earlier pass that hold the letters FIN, so that the line that gave one is
// calculated again.
void efface_non_definie(std::string& majuscule) {
    std::size_t fin = 0;
    for (std::size_t i = majuscule.find(" = "); i != std::string::npos; i = majuscule.find(" = ", i + 1))
        if (est_non_definie(majuscule, i, fin))
            std::fill(majuscule.begin() + static_cast<std::ptrdiff_t>(i),
                      majuscule.begin() + static_cast<std::ptrdiff_t>(fin), ' ');
}

// The marks that the steps of a line look for.
constexpr Marque kMarquesDeLigne[] = {kFin, kMotInc, kMotAir, kDefM, kMotStatX, kMotTriStatX};

// Takes the next line of the source: trimmed, numbered, its signs and where needed its capitals beside it.
void prepare_ligne(Passe& p) {
    ++p.numero;
    const std::string_view sans = sans_blancs(p.ligne);
    p.retrait = static_cast<std::size_t>(sans.data() - p.ligne.data());
    p.ligne = sans;
    p.ligne_avant = sans;
    p.signes = signes_de(sans);
    if ((p.signes & kLettresDeForme) == 0) return;
    bool possible = false;
    for (const Marque& marque : kMarquesDeLigne) possible |= marque.possible(p.signes);
    if (!possible) return;
    range_capitales(p.majuscule, sans);
    if (p.contient(kFin)) efface_non_definie(p.majuscule);
}

// A line that is no part of a block that waits: it opens, fills or closes a definition, or is calculated.
Suite calcule_ou_definit(Passe& p) {
    commence_ligne(p, p.numero, p.ligne);
    bool vide = true;
    Tente(kRecalcul, [&] {
        const std::string_view formule = feuille.formule_ligne(p.numero);
        const std::string_view garde = sans_blancs(formule);
        if (garde.size() != formule.size()) feuille.formule_ligne.pose(p.numero, garde);
        vide = garde.empty();
    });
    if (ouvre_definition(p)) return ligne_suivante(p);
    if (vide || p.contient(kFin)) {
        const Suite suite = ferme_definitions(p);
        note_role(RoleLigne::fermante);
        return suite;
    }
    if (statistiques.definition_statx) return ajoute_donnees(p);
    return calcule_ligne(p);
}

// The line steps, in their order.
Suite etapes_de_ligne(Passe& p) {
    garde(p, [&] { prepare_ligne(p); });
    note_role(RoleLigne::copiee);
    if (moteur.erreur_formule) {
        commence_ligne(p, p.numero, p.ligne);   // below a failed line the sheet is only copied
        return ligne_suivante(p);
    }
    if (p.listes_attendues > 0) {
        const Suite suite = prend_liste(p);
        note_role(RoleLigne::liste);
        return suite;
    }
    note_role(RoleLigne::refusee);
    bool correct = true;
    effaceEgalite(p.ligne, p.signes, p.numero, correct);
    if (!correct) {
        rend_entete(p);
        commence_ligne(p, p.numero, p.ligne);
        prend_curseur(p);
        return ligne_suivante(p);
    }
    if (retient_entete(p) == Suite::finie || prend_fonction(p) == Suite::finie)
        return Suite::finie;
    return calcule_ou_definit(p);
}

// The same; the first line that fails leaves its fault for who asks for it. A heading that waits is written above
// the line.
Suite traite_ligne(Passe& p) {
    const bool deja = moteur.erreur_formule;
    const std::size_t ecrite = feuille.colonne_resultat.size() + (p.attente_fonction ? 1 : 0);
    oublie_faute();
    const Suite suite = etapes_de_ligne(p);
    if (!deja && moteur.erreur_formule) Tente(kRecalcul, [&] { garde_faute(p.numero, ecrite); });
    return suite;
}

// Everything that a pass begins without.
void vide_definitions() {
    moteur.debut_hasard.reset();
    moteur.definition_fonction_active = false;
    moteur.fonction_active = 0;
    moteur.nom_fonction.clear();
    definition_de_matrice.definition_matrice = false;
    statistiques.definition_statx = statistiques.statx_trie = false;
    statistiques.table_statx.libere();
    statistiques.table_x = statistiques.table_y = TableRepetee();
    feuille.statx_present = feuille.statxy_present = false;
    feuille.resultat_bloc.clear();
}

// The tables at the size of the sheet, of which they keep a copy. False when the sheet has more lines than can be
// numbered. The values and results are empty already, see razVar.
bool ouvre_tables(const std::string& texte) {
    const auto lignes = static_cast<double>(compte_octets(texte, '\r')) + 1;
    return Tente(kRecalcul, [&] {
        const auto nombre = static_cast<std::size_t>(vers_16_tronque(lignes));
        feuille.nombre_ligne = static_cast<std::int16_t>(nombre);
        feuille.valeur_ligne.redimensionne(nombre);
        feuille.resultat_ligne.redimensionne(nombre);
        feuille.formule_ligne.commence(nombre, texte);
        feuille.colonne_resultat.reserve(nombre);
        feuille.colonne_resultat.assign(1, 0);
    });
}

// Gives a copy of the new text away and keeps what is asked for later; without memory for both the text is given away
// alone. A text that could not be written whole is dropped, and nothing is known of its lines.
void rend_texte(const Passe& p, Calcul& calcul) {
    const bool garde_texte =
        p.texte_complet && Tente(kRecalcul, [&] { calcul.texte = feuille.texte_reconstruit; });
    if (garde_texte) {
        feuille.texte_ecrit.swap(feuille.texte_reconstruit);
    } else {
        if (p.texte_complet) calcul.texte = std::move(feuille.texte_reconstruit);
        feuille.texte_ecrit.clear();
        feuille.colonne_resultat.clear();
    }
    feuille.texte_reconstruit.clear();
    calcul.issue = p.texte_complet ? Issue::ecrite : Issue::incomplete;
}

// The cursor goes to the end of its line, after the result; that line is to be said.
void place_curseur(const Passe& p, Calcul& calcul) {
    const auto ancienne = static_cast<std::size_t>(p.ligne_curseur);
    const std::string_view montre = p.texte_complet ? std::string_view(calcul.texte) : p.source;
    const Etendue ligne =
        etendue_ligne(montre, static_cast<std::int32_t>(p.texte_complet ? p.curseur_ecrit : ancienne));
    calcul.debut = ligne.debut;
    calcul.curseur = ligne.fin;
}

// Tells who looks on of the line that is done; an old block below it has been passed over then.
void raconte_ligne(const Passe& p, std::int16_t numero, std::size_t ecrite) {
    const RoleLigne role = observation->role;
    const bool coupee = role != RoleLigne::copiee && role != RoleLigne::liste;
    observation->ligne({.numero = numero, .numero_ecrit = static_cast<int>(ecrite), .role = role,
                        .retrait = p.retrait, .entiere = coupee ? p.ligne_avant : p.ligne, .ligne = p.ligne,
                        .formule = feuille.formule_ligne(numero), .lue = observation->lue,
                        .resultat = feuille.resultat_ligne(numero), .valeur = feuille.valeur_ligne(numero),
                        .erreur = moteur.erreur_formule, .derniere = p.fin});
    if (observation->poursuit) moteur.erreur_formule = false;
}

// One line, and the old block below it.
void traite_suivante(Passe& p) {
    if (observation == nullptr) {
        traite_ligne(p);
        return;
    }
    const auto numero = static_cast<std::int16_t>(p.numero + 1);
    const std::size_t ecrite = feuille.colonne_resultat.size();
    ouvre_releve();
    traite_ligne(p);
    moteur.releve = nullptr;
    Tente(kRecalcul, [&] { raconte_ligne(p, numero, ecrite); });
}

// Reads the sheet from its first line to its last.
void parcourt(Passe& p) {
    bool trouve = true;
    while (trouve) {
        LireLigne(p.ligne, p.source, p.position, p.fin, trouve);
        if (trouve) traite_suivante(p);
    }
    if (p.attente_fonction) commence_ligne(p, p.numero, p.entete_entiere);   // the sheet ends with its heading
}

// The pass over a text that is not empty.
Calcul calcule_texte(const std::string& texte, std::size_t curseur) {
    Calcul calcul;
    moteur.erreur_formule = false;
    feuille.faute = FauteDePasse{};
    moteur.muet_erreur = false;   // a table that was broken off may have left it
    razVar();
    feuille.passe_refusee = !ouvre_tables(texte);
    calcul.issue = Issue::refusee;
    if (feuille.passe_refusee) return calcul;
    Passe p;
    p.source = feuille.formule_ligne.source();
    Tente(kRecalcul, [&] { p.ligne_curseur = NumeroTxt(p.source, curseur); });
    vide_definitions();
    Tente(kRecalcul, [&] { feuille.texte_reconstruit.reserve(p.source.size() + p.source.size() / 2); });
    parcourt(p);
    Tente(kRecalcul, [] { ferme_boites(); });
    rend_texte(p, calcul);
    place_curseur(p, calcul);
    return calcul;
}

}  // namespace

Calcul calcule_feuille(const std::string& texte, std::size_t curseur) noexcept {
    feuille.passe_refusee = false;
    patience = Patience{};
    if (texte.empty()) return {};
    ++feuille.passes;
    ouvre_boites();
    Calcul calcul = calcule_texte(texte, curseur);
    Tente(kRecalcul, [] { ferme_boites(); });   // a pass that was refused has not come so far
    calcul.erreur = moteur.erreur_formule;
    return calcul;
}

void recrit_resultats() noexcept {
    for (std::int16_t numero = 1; numero <= feuille.nombre_ligne; ++numero) {
        // The line in calculation takes the elements of its matrix; the formula tells how a value is written.
        feuille.ligne_courante = numero;
        Tente(kRecalcul, [&] { moteur.p_formule = capitales(feuille.formule_ligne(numero)); });
        affiche_valeur(numero);
    }
}

void reinitialise_calcul() {
    crochets.donnees_triees = ecrit_bloc_tri;
    installe_fonctions();
    reinitialise_moteur();
    signalement.marque_formule = marque_defaillance;
    boites_de_passe = BoitesDePasse{};
    reinitialise_feuille();
    matrices = Matrices{};
    definition_de_matrice = DefinitionMatrice{};
    statistiques = Statistiques{};
    ligne_message = LigneMessage{};
    patience = Patience{};
}
