// Runs scripts: the actions around the program and what was heard. Changes `script` and, through
// the events, every subsystem.
#include "support/script.hpp"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <utility>

#include "base/failure.hpp"
#include "platform/platform.hpp"
#include "settings/settings.hpp"
#include "shell/events.hpp"
#include "shell/reset.hpp"
#include "shell/window.hpp"
#include "support/memory.hpp"
#include "support/script_hand.hpp"
#include "support/script_look.hpp"
#include "support/script_recovery.hpp"
#include "support/script_words.hpp"

Script script;

namespace {

// --- The surroundings ---------------------------------------------------------------------------

void fichier(Etape& etape) {
    const std::string chemin = prend_texte(etape);
    pose_fichier(chemin, prend_texte(etape));
}

void dossier(Etape& etape) { pose_dossier(prend_texte(etape)); }

// The file or folder is gone.
void supprime(Etape& etape) {
    const std::string chemin = prend_texte(etape);
    exige(lit_memoire(chemin) || dossier_memoire(chemin), "un fichier", "absent : " + cite(chemin));
    supprime_memoire(chemin);
}

void repond(Etape& etape) {
    if (suit_texte(etape)) {
        memoire.reponses.emplace_back(prend_texte(etape));
        return;
    }
    const std::string mot = prend_mot(etape);
    exige(mot == "oui" || mot == "non", "oui, non ou un texte", mot);
    memoire.reponses.emplace_back(mot);
}

void annule(Etape&) { memoire.reponses.emplace_back(std::nullopt); }

// The K-th file operation from now on will fail.
void echec(Etape& etape) {
    memoire.echec_operation =
        memoire.operations_fichier + static_cast<int>(prend_rang(etape, 1, 1'000'000));
    memoire.echec_numero = suit_mot(etape) ? static_cast<int>(prend_entier(etape)) : kAccesFichier;
}

void presse_papiers(Etape& etape) { memoire.presse_papiers = vers_utf8(prend_texte(etape)); }

// The sound that plays comes to its end; with "absent" there was no device for it.
void fin_du_son(Etape& etape) { evenement_fin_de_son(!suit_mot(etape) || prend_mot(etape) != "absent"); }

void panne(Etape& etape) { memoire.echec_impression = static_cast<int>(prend_entier(etape)); }

// --- Start and end ------------------------------------------------------------------------------

// A new program on the files and answers that are there; the old one, if any, is gone.
void redemarre(Etape& etape) {
    memoire.ligne_commande = suit_texte(etape) ? prend_texte(etape) : "";
    memoire.texte.clear();
    memoire.sel_start = memoire.sel_length = 0;
    memoire.reprises_ratees.clear();
    memoire.reprises_a_effacer.clear();
    reinitialise_tout();
    script.commence = true;
    script.tenus = {};
    script.debut = memoire.journal.size();
    evenement_chargement();
}

void demarre_script(Etape& etape) {
    exige(!script.commence, "redémarre", "un programme déjà démarré");
    redemarre(etape);
}

void ferme(Etape&) {
    exige(programme_en_marche(), "un programme en marche", "aucun");
    evenement_fermeture();
}

// --- What was heard -----------------------------------------------------------------------------

// How a kind of thing heard is written in a script, and how many texts it has at least and at most.
struct Genre {
    std::string_view mot;    // UTF-8
    std::string_view genre;  // in the journal
    int minimum, maximum;
};
constexpr std::array kGenres = {
    Genre{"message", "message", 1, 1},       Genre{"boîte", "boite", 1, 1},
    Genre{"question", "question", 1, 1},     Genre{"saisie", "saisie", 1, 2},
    Genre{"dialogue", "dialogue", 1, 2},     Genre{"bip", "bip", 0, 0},
    Genre{"impression", "impression", 1, 2}, Genre{"fin", "fin", 0, 0},
    Genre{"son", "son", 1, 1},               Genre{"courbe", "courbe", 1, 1},
    Genre{"arrêt", "arret", 0, 0},
};

// What a step says was heard; a text that it leaves out isn't compared.
struct Attente {
    const Genre* genre;
    std::optional<std::string> texte, propose;
};

Attente prend_attente(Etape& etape, const std::string& mot) {
    const auto* const genre =
        std::find_if(kGenres.begin(), kGenres.end(), [&](const Genre& g) { return g.mot == mot; });
    exige(genre != kGenres.end(), "ce qui s'entend", mot);
    Attente attente{genre, {}, {}};
    if (genre->minimum > 0) attente.texte = prend_texte(etape);
    if (genre->maximum > 1 && suit_texte(etape)) attente.propose = prend_texte(etape);
    return attente;
}

bool convient(const Attente& attente, const Entendu& entendu) {
    return entendu.genre == attente.genre->genre &&
           (!attente.texte || entendu.texte == *attente.texte) &&
           (!attente.propose || entendu.propose == *attente.propose);
}

// A thing heard as a script would tell it.
std::string decrit(const Entendu& entendu) {
    const auto* const genre = std::find_if(
        kGenres.begin(), kGenres.end(), [&](const Genre& g) { return g.genre == entendu.genre; });
    if (genre == kGenres.end()) return entendu.genre;
    std::string mots(genre->mot);
    if (genre->minimum > 0) mots += " " + cite(entendu.texte);
    if (genre->maximum > 1) mots += " " + cite(entendu.propose);
    return mots;
}

// What was heard and not told, from that place of the journal on.
std::string decrit_reste(std::size_t depuis) {
    std::string mots;
    for (std::size_t i = depuis; i < memoire.journal.size(); ++i)
        mots += (mots.empty() ? "" : ", ") + decrit(memoire.journal[i]);
    return mots.empty() ? "rien" : mots;
}

void verifie_tout_raconte() {
    const std::size_t depuis = std::exchange(script.racontes, memoire.journal.size());
    exige(depuis == memoire.journal.size(), "entend rien", decrit_reste(depuis));
}

// Compares the next thing heard. After a difference the story goes on after the thing that was
// wanted, if it was heard later on.
void entend(Etape& etape) {
    const std::string mot = prend_mot(etape);
    if (mot == "rien") return verifie_tout_raconte();
    const Attente attente = prend_attente(etape, mot);
    const std::size_t depuis = script.racontes;
    const auto& journal = memoire.journal;
    for (std::size_t i = depuis; i < journal.size(); ++i) {
        if (!convient(attente, journal[i])) continue;
        script.racontes = i + 1;
        if (i == depuis) return;
        break;
    }
    const Entendu voulu{std::string(attente.genre->genre), attente.texte.value_or(""),
                        attente.propose.value_or("")};
    throw EtapeFausse{decrit(voulu), decrit_reste(depuis)};
}

void ignore(Etape&) { script.racontes = memoire.journal.size(); }

// --- Steps --------------------------------------------------------------------------------------

enum class Sorte { action, regard, oubli };

struct Verbe {
    std::string_view nom;
    Sorte sorte;
    void (*execute)(Etape&);
};
constexpr std::array kVerbes = {
    Verbe{"fichier", Sorte::action, fichier},     Verbe{"dossier", Sorte::action, dossier},
    Verbe{"supprime", Sorte::action, supprime},   Verbe{"répond", Sorte::action, repond},
    Verbe{"annule", Sorte::action, annule},       Verbe{"échec", Sorte::action, echec},
    Verbe{"panne", Sorte::action, panne},         Verbe{"démarre", Sorte::action, demarre_script},
    Verbe{"redémarre", Sorte::action, redemarre}, Verbe{"choisit", Sorte::action, choisit},
    Verbe{"clique", Sorte::action, clique},       Verbe{"touche", Sorte::action, touche},
    Verbe{"presse", Sorte::action, presse},       Verbe{"lâche", Sorte::action, lache},
    Verbe{"tape", Sorte::action, tape},           Verbe{"curseur", Sorte::action, curseur},
    Verbe{"ferme", Sorte::action, ferme},         Verbe{"entend", Sorte::regard, entend},
    Verbe{"jours", Sorte::action, jours},         Verbe{"panne_secours", Sorte::action, panne_secours},
    Verbe{"fin_session", Sorte::action, termine_session},
    Verbe{"fin_du_son", Sorte::action, fin_du_son},
    Verbe{"presse_papiers", Sorte::action, presse_papiers},
    Verbe{"voit", Sorte::regard, voit},           Verbe{"ignore", Sorte::oubli, ignore},
};

std::string sans_bords(std::string_view texte) {
    const std::size_t debut = texte.find_first_not_of(" \t\r");
    if (debut == std::string_view::npos) return "";
    return std::string(texte.substr(debut, texte.find_last_not_of(" \t\r") + 1 - debut));
}

// Runs one step to its end and adds to script.echecs what fails in it.
template <class Action>
void essaie(int ligne, std::string_view texte, Action&& action) {
    const auto note = [&](std::string attendu, std::string obtenu) {
        script.echecs.push_back({ligne, sans_bords(texte), std::move(attendu), std::move(obtenu)});
    };
    try {
        action();
    } catch (const EtapeFausse& fausse) {
        note(fausse.attendu, fausse.obtenu);
    } catch (const Defaillance& d) {
        note("un événement qui finit", "la défaillance " + std::to_string(d.numero));
    } catch (const std::exception& e) {
        note("un événement qui finit", e.what());
    }
}

void execute_verbe(Etape& etape) {
    const std::string nom = prend_mot(etape);
    const auto* const verbe =
        std::find_if(kVerbes.begin(), kVerbes.end(), [&](const Verbe& v) { return v.nom == nom; });
    exige(verbe != kVerbes.end(), "un verbe", nom);
    if (verbe->sorte == Sorte::regard) ++script.regards;
    verbe->execute(etape);
    exige(etape.pris == etape.mots.size(), "la fin de l'étape",
          std::to_string(etape.mots.size() - etape.pris) + " mots de trop");
}

bool est_action(const Etape& etape) {
    return std::any_of(kVerbes.begin(), kVerbes.end(), [&](const Verbe& v) {
        return v.sorte == Sorte::action && v.nom == etape.mots.front().texte;
    });
}

}  // namespace

bool programme_en_marche() {
    const auto& journal = memoire.journal;
    // What has no end in it isn't looked at again.
    while (script.debut < journal.size() && journal[script.debut].genre != "fin") ++script.debut;
    return script.commence && !fenetre.fermee && script.debut >= journal.size();
}

void nouveau_script(bool strict) {
    installe_port_memoire();
    reinitialise_tout();
    script = Script{};
    script.strict = strict;
}

void execute_etape(int ligne, std::string_view texte) {
    essaie(ligne, texte, [&] {
        Etape etape = decoupe(texte);
        if (etape.mots.empty() || etape.mots.front().texte.starts_with('#')) return;
        if (script.strict && est_action(etape)) essaie(ligne, texte, verifie_tout_raconte);
        execute_verbe(etape);
    });
}

std::vector<EchecEtape> execute_script(std::string_view texte) {
    nouveau_script(true);
    int ligne = 0;
    while (!texte.empty()) {
        const std::size_t fin = std::min(texte.find('\n'), texte.size());
        execute_etape(++ligne, texte.substr(0, fin));
        texte.remove_prefix(std::min(fin + 1, texte.size()));
    }
    essaie(ligne, "la fin du script", verifie_tout_raconte);
    essaie(ligne, "la fin du script",
           [] { exige(script.regards > 0, "une étape qui regarde ou entend", "aucune"); });
    return script.echecs;
}
