// The words of a line. Looks on while a pass runs, and takes the line that is asked for with the record of its
// reading; what a pass reads later or never (elements, the text of a function) is read here.
#include "verification/line_words.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "base/failure.hpp"
#include "base/number.hpp"
#include "editing/lines.hpp"
#include "engine/number_text.hpp"
#include "engine/reading.hpp"
#include "sheet/marks.hpp"
#include "sheet/observer.hpp"
#include "sheet/old_result.hpp"
#include "state/context.hpp"
#include "state/matrices.hpp"
#include "verification/old_text.hpp"
#include "verification/problem.hpp"
#include "verification/sign_words.hpp"
#include "verification/silent_pass.hpp"
#include "verification/words.hpp"

namespace {

// The line that is asked for, and what is known of it so far.
struct Attente {
    int numero = 0;
    bool vue = false;          // the pass has come by
    bool entete = false;       // it is a heading: the pass reads it with the line below
    std::string entiere;       // the heading
    std::string commentaire;   // and its comment, with its mark
    int variable = 0;          // of the last heading that the pass came by, 1 to 26
    LigneDite dite;
    int echec = 0;             // number of the failure that ended its words, which a pass would only box
};
Attente attente;

// A value as the sheet would show it; when that isn't all of it, it is said so.
std::string mots_valeur(double valeur) {
    std::string texte = FormatNombre(valeur);
    if (texte == "0" && valeur != 0) texte = texte_general(valeur);
    const bool exacte = texte == texte_general(valeur);
    return (exacte ? "" : "environ ") + signes_en_mots(texte);
}

// The name of a letter: "A" for 1.
std::string lettre(int rang) { return mots_lettre(static_cast<char>('A' + rang - 1)); }

// "2 lignes", "1 ligne".
std::string compte(int nombre, std::string_view mot) {
    std::string mots = chiffres(nombre);
    (mots += ' ') += mot;
    return nombre > 1 ? mots += 's' : mots;
}

// What a letter is worth where it is read, or how large a matrix is; the tables are those of the line.
std::string mots_operande(const Releve& releve, const Noeud& n) {
    if (n.genre == GenreNoeud::refuse) return "sans valeur";
    if (n.genre == GenreNoeud::lettre) {
        const bool sans = (releve.lettres_neuves >> n.numero & 1u) != 0;
        return sans ? "sans valeur" : "vaut " + mots_valeur(n.valeur);
    }
    const auto rang = static_cast<std::size_t>(n.numero);
    if (!moteur.matrice_definie[rang]) return "sans valeur";
    const TableMatrice& table = matrices.table[rang];
    return compte(table.lignes(), "ligne") + ' ' + compte(table.colonnes(), "colonne");
}

// The name of a letter or a matrix that a node reads, with or without a value; "" for anything else.
std::string nom_operande(std::string_view formule, const Noeud& n) {
    if (n.genre == GenreNoeud::lettre) return lettre(n.numero);
    if (n.genre == GenreNoeud::matrice) return "matrice " + lettre(n.numero);
    if (n.genre != GenreNoeud::refuse || n.debut < 1) return {};
    const std::string_view nom = texte_utile(formule, n);
    const bool variable = nom.size() == 1 && est_lettre(nom[0]);
    const bool matrice = nom.size() == 2 && nom[0] == 'M' && TestCarMatrice(nom.substr(1));
    return variable || matrice ? signes_en_mots(nom) : std::string();
}

// Adds the letters and matrices that a formula reads, each once; of the letter `sauf` nothing is known.
void ajoute_valeurs(std::string& valeurs, const FormuleRelevee& lue, int sauf = 0) {
    const std::vector<Noeud>& noeuds = lue.releve.noeuds;
    for (std::size_t i = debut_calcul(noeuds); i < noeuds.size(); ++i) {
        const std::string nom = nom_operande(lue.formule, noeuds[i]);
        if (nom.empty() || (noeuds[i].genre == GenreNoeud::lettre && noeuds[i].numero == sauf)) continue;
        const std::string tete = nom + ' ';
        if (valeurs.starts_with(tete) || valeurs.find(" et " + tete) != std::string::npos) continue;
        ajoute_mots(valeurs, valeurs.empty() ? "" : "et");
        ajoute_mots(valeurs, tete + mots_operande(lue.releve, noeuds[i]));
    }
}

// A formula in words, with what was not read of it. Where it failed, that is all that was read. What a call
// inside another one has overwritten is in the words and not in the value: it is told.
void ajoute_formule(LigneDite& dite, const FormuleRelevee& lue, std::string_view ecrit,
                    const std::vector<std::size_t>& places, int sauf = 0) {
    ajoute_mots(dite.mots, mots_lus(lue, ecrit));
    if (lue.releve.a(kTraitSommePerdue)) ajoute_mots(dite.mots, "attention une somme est perdue");
    if (lue.releve.a(kTraitArgumentPerdu)) ajoute_mots(dite.mots, "attention une valeur est perdue");
    if (!lue.erreur) ajoute_mots(dite.mots, mots_non_lus(lue, ecrit, places));
    ajoute_valeurs(dite.valeurs, lue, sauf);
}

// What stands behind a line that failed.
void ajoute_faute(LigneDite& dite, bool faute, std::string_view mots) {
    if (!faute) return;
    const std::string_view dits = sans_blancs(mots);
    ajoute_mots(dite.mots, "faute");
    ajoute_mots(dite.mots, dits.empty() ? "de calcul" : dits);   // told by the box of the calculation alone
}

// A text that is read as a formula of its own.
void ajoute_texte(LigneDite& dite, std::string_view ecrit) {
    const FormuleRelevee lue = lit_formule(ecrit);
    ajoute_formule(dite, lue, ecrit, places_dans_le_texte(ecrit, lue.formule));
    ajoute_faute(dite, lue.erreur, lue.releve.mots_faute);
}

// An element: a plain number is read and not calculated, up to where it can be read.
void ajoute_element(LigneDite& dite, std::string_view element) {
    const std::string_view ecrit = sans_blancs(element);
    if (ecrit.empty()) return ajoute_mots(dite.mots, "vide");
    if (ecrit.find_first_not_of("0123456789.-") != std::string_view::npos) return ajoute_texte(dite, ecrit);
    const std::size_t lus = longueur_prefixe(ecrit);
    ajoute_mots(dite.mots, lus == 0 ? "0" : signes_en_mots(ecrit.substr(0, lus)));
    if (lus < ecrit.size()) ajoute_mots(dite.mots, "non lu");
    ajoute_mots(dite.mots, signes_en_mots(ecrit.substr(lus)));
}

// The elements of a row, a data line or a list.
void ajoute_elements(LigneDite& dite, std::string_view ligne) {
    if (ligne.ends_with(',')) ligne.remove_suffix(1);
    while (true) {
        const std::size_t virgule = std::min(ligne.find(','), ligne.size());
        ajoute_element(dite, ligne.substr(0, virgule));
        if (virgule == ligne.size()) return;
        ajoute_mots(dite.mots, "puis");
        ligne.remove_prefix(virgule + 1);
    }
}

// The text of a function of the letter `rang`, which has no value yet: it is read with one. Its fault is said
// unless the line has one of its own.
void ajoute_fonction(LigneDite& dite, std::string_view ecrit, int rang, bool fautive) {
    if (rang < 1 || rang > 26) return ajoute_mots(dite.mots, mots_lus(lit_formule(ecrit), ecrit));
    const auto place = static_cast<std::size_t>(rang);
    const bool definie = std::exchange(moteur.variable_definie[place], true);
    const double valeur = moteur.valeur_variable[place];
    FormuleRelevee lue;
    for (const double essai : {valeur, 1.0, 2.0, 0.5, 10.0, -1.0}) {   // until one of them is refused nowhere
        moteur.valeur_variable[place] = essai;
        lue = lit_formule(ecrit);
        if (!lue.erreur) break;
    }
    moteur.valeur_variable[place] = valeur;
    moteur.variable_definie[place] = definie;
    ajoute_formule(dite, lue, ecrit, places_dans_le_texte(ecrit, lue.formule), rang);
    ajoute_faute(dite, lue.erreur && !fautive, lue.releve.mots_faute);
}

// The record of the pass as that of a formula.
FormuleRelevee relevee(const LigneObservee& o) {
    if (o.lue.empty()) return {.formule = {}, .releve = {}, .valeur = 0, .erreur = o.erreur};   // none was read
    return {std::string(o.lue), observation->releve, o.valeur, o.erreur};
}

// Where the characters of the formula come from: statistics have put counts in.
std::vector<std::size_t> places(const LigneObservee& o) {
    if (observation->groupes.empty()) return places_dans_le_texte(o.formule, o.lue);
    std::vector<std::size_t> places = observation->groupes;
    places.resize(o.lue.size() + 1, o.formule.size());
    return places;
}

// The comment of a line, behind its mark, is no part of what is calculated.
void ajoute_commentaire(LigneDite& dite, std::string_view ligne) {
    const std::size_t marque = ligne.find('!');
    if (marque == std::string_view::npos) return;
    ajoute_mots(dite.mots, "commentaire");
    ajoute_mots(dite.mots, sans_blancs(ligne.substr(marque + 1)));
}

// A line that ends a definition and is not calculated.
void ajoute_fermante(LigneDite& dite, std::string_view entiere) {
    const std::string_view texte = sans_blancs(entiere);
    if (texte.empty()) return ajoute_mots(dite.mots, "ligne vide");
    if (texte.starts_with('!')) return ajoute_commentaire(dite, texte);
    const std::string grandes = capitales(texte);
    const bool fin = grandes.find(kFin.mot) != std::string::npos;
    ajoute_mots(dite.mots, grandes == kFin.mot ? "ligne FIN" : fin ? "ligne non calculée car elle contient FIN"_fr
                                                                : "ligne non calculée"_fr);
    if (!fin) ajoute_mots(dite.mots, signes_en_mots(texte));
}

// The number of a heading's variable, 1 to 26; 0 for anything else.
int rang_entete(std::string_view ligne) {
    const char lettre = variable_entete(capitales(ligne)).lettre;
    return lettre == 0 ? 0 : rang_lettre(lettre);
}

// The heading of a table or an area, with its variable.
void ajoute_entete(LigneDite& dite, const FormuleRelevee& lue, std::string_view ecrit) {
    if (attente.variable > 0) ajoute_mots(dite.mots, "variable " + lettre(attente.variable));
    ajoute_formule(dite, lue, ecrit, places_dans_le_texte(ecrit, lue.formule));
}

// "définition de la matrice A" for "DEFMA".
void ajoute_definition(LigneDite& dite, std::string_view ligne) {
    const std::string grandes = capitales(ligne);
    ajoute_mots(dite.mots, "définition de la matrice"_fr);
    ajoute_mots(dite.mots, grandes.substr(std::min(grandes.find(kDefM.mot) + kDefM.mot.size(), grandes.size()), 1));
}

// "fonction de X égale X au carré plus 1" for "DEFFON=X^2+1".
void ajoute_deffon(LigneDite& dite, const LigneObservee& o) {
    const std::size_t egal = o.formule.find('=');
    ajoute_mots(dite.mots, "fonction");
    if (egal == std::string_view::npos) return;
    if (moteur.fonction_active > 0) ajoute_mots(dite.mots, "de " + lettre(moteur.fonction_active));
    ajoute_mots(dite.mots, "égale"_fr);
    ajoute_fonction(dite, sans_blancs(o.formule.substr(egal + 1)), moteur.fonction_active, o.erreur);
}

// A call of statistics; without its brackets it is the heading of two lists.
void ajoute_statistiques(LigneDite& dite, const LigneObservee& o) {
    if (!o.lue.empty()) return ajoute_formule(dite, relevee(o), o.formule, places(o));
    const bool appel = o.formule.find('(') != std::string_view::npos;
    ajoute_mots(dite.mots, appel ? "statistiques" : "début des deux listes"_fr);
    ajoute_faute(dite, appel, "manque )");   // the calculation tells it in a box
}

// A heading is said when the line below it has been read.
void retient_entete(const LigneObservee& o) {
    attente.entete = true;
    attente.entiere = o.formule;
    attente.commentaire = o.ligne.substr(std::min(o.ligne.find('!'), o.ligne.size()));
}

// A calculated line. One that was refused before it was read is read here.
void ajoute_calculee(LigneDite& dite, const LigneObservee& o) {
    if (!o.lue.empty() || !o.erreur) return ajoute_formule(dite, relevee(o), o.formule, places(o));
    const FormuleRelevee lue = lit_formule(o.formule);
    ajoute_formule(dite, lue, o.formule, places_dans_le_texte(o.formule, lue.formule));
}

// The words of a line by its role.
void ajoute_role(LigneDite& dite, const LigneObservee& o) {
    switch (o.role) {
        case RoleLigne::fermante: return ajoute_fermante(dite, o.entiere);
        case RoleLigne::copiee: return ajoute_mots(dite.mots, "ligne non calculée"_fr);
        case RoleLigne::refusee: return ajoute_mots(dite.mots, "ligne refusée"_fr);
        case RoleLigne::statistiques: return ajoute_statistiques(dite, o);
        case RoleLigne::formule: return ajoute_calculee(dite, o);
        case RoleLigne::fonction: return ajoute_deffon(dite, o);
        case RoleLigne::entete_matrice: return ajoute_definition(dite, o.formule);
        case RoleLigne::rangee: ajoute_mots(dite.mots, "ligne de matrice"); return ajoute_elements(dite, o.formule);
        case RoleLigne::entete_donnees: return ajoute_mots(dite.mots, "début des données"_fr);
        case RoleLigne::donnees: ajoute_mots(dite.mots, "données"_fr); return ajoute_elements(dite, o.ligne);
        case RoleLigne::liste: ajoute_mots(dite.mots, "liste"); return ajoute_elements(dite, o.ligne);
        case RoleLigne::entete: retient_entete(o); return;
        case RoleLigne::fonction_de_table:
            ajoute_mots(dite.mots, "fonction");
            return ajoute_fonction(dite, o.formule, attente.variable, false);
    }
}

// The words of a line's fault: those behind it, or those of the box that told it. The number of a failure says
// nothing here.
std::string_view mots_faute(const LigneObservee& o) {
    if (const std::string_view mots = sans_egal(o.resultat); !mots.empty()) return mots;
    const std::string_view boite = sans_blancs(moteur.faute.mots);
    return boite.empty() || est_chiffre(boite[0]) ? std::string_view() : boite;
}

// The words of a line's fault, behind those of its first report where another one has followed.
std::string toutes_les_fautes(const LigneObservee& o) {
    const std::string_view derniere = mots_faute(o), premiere = sans_blancs(observation->releve.mots_faute);
    const bool nombre = !premiere.empty() && est_chiffre(premiere[0]);
    if (o.role != RoleLigne::formule || o.lue.empty() || premiere.empty() || nombre || premiere == derniere)
        return std::string(derniere);
    std::string mots(premiere);
    if (derniere.empty()) return mots;
    return mots.append(" puis ").append(derniere);
}

// What the user has typed behind the line, from an "=" on, and what the calculation drops.
void ajoute_texte_efface(LigneDite& dite, const LigneObservee& o) {
    if (o.role != RoleLigne::formule && o.role != RoleLigne::fonction) return;
    const TexteEfface efface = texte_efface(o);
    if (efface.genre == GenreConstat::apres) return;
    ajoute_mots(dite.mots, "non lu");
    ajoute_mots(dite.mots, signes_en_mots(sans_blancs(o.entiere.substr(efface.place))));
}

// The line that is asked for, or the one below a heading.
void prend_ligne(const LigneObservee& o) {
    if (attente.entete && o.numero == attente.numero + 1 && o.role == RoleLigne::fonction_de_table) {
        attente.entete = false;
        ajoute_entete(attente.dite, relevee(o), attente.entiere);
        ajoute_faute(attente.dite, o.erreur, observation->releve.mots_faute);
        ajoute_commentaire(attente.dite, attente.commentaire);
    }
    if (o.role == RoleLigne::entete) attente.variable = rang_entete(o.formule);
    if (o.numero != attente.numero) return;
    attente.vue = true;
    ajoute_role(attente.dite, o);
    if (o.role == RoleLigne::entete) return;
    ajoute_faute(attente.dite, o.erreur, toutes_les_fautes(o));
    const bool elements = o.role == RoleLigne::donnees || o.role == RoleLigne::liste;   // read with their comment
    if (o.role != RoleLigne::fermante && !elements) ajoute_commentaire(attente.dite, o.ligne);
    ajoute_texte_efface(attente.dite, o);
}

// Each line of the pass. What fails here ends the command, not the pass.
void ecoute(const LigneObservee& o) {
    try {
        prend_ligne(o);
    } catch (const Defaillance& d) {
        attente.echec = d.numero;
    } catch (...) {
        attente.echec = kMemoire;
    }
}

// A line that the pass doesn't read: of a block that it writes anew, or the empty one at the end.
std::string hors_du_calcul(std::string_view texte, int numero) {
    const Etendue etendue = etendue_ligne(texte, numero);
    const std::string_view ligne = sans_blancs(mots_de(texte, etendue));
    return ligne.empty() ? "ligne vide" : std::string("ligne de résultat "_fr).append(ligne);
}

}  // namespace

LigneDite dit_ligne(const std::string& texte, int numero) {
    attente = Attente{};
    attente.numero = numero;
    const bool lue = parcourt_en_silence(texte, ecoute);
    if (attente.echec != 0) echoue(attente.echec);
    if (attente.entete) ajoute_mots(attente.dite.mots, "en-tête sans fonction"_fr);
    if (!attente.vue) attente.dite.mots = lue ? hors_du_calcul(texte, numero) : std::string("feuille non lue");
    if (attente.dite.valeurs.empty()) attente.dite.valeurs = "aucune lettre dans cette ligne";
    return std::move(attente.dite);
}
