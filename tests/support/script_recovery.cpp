// Recovery files in scripts. Changes the memory, and through the event of the session's end `reprise`.
#include "support/script_recovery.hpp"

#include <optional>
#include <string>
#include <utility>

#include "documents/recovery.hpp"
#include "platform/paths.hpp"
#include "shell/events.hpp"
#include "support/memory.hpp"
#include "support/script.hpp"

namespace {

constexpr std::int64_t kSecondesParJour = 86'400;

// Calls `action` with every recovery file that is whole.
template <class Action>
void parcourt(Action&& action) {
    for (const auto& [chemin, fichier] : memoire.fichiers) {
        FicheReprise fiche;
        std::string texte;
        if (cheminSeul(chemin) == dossier_secours() &&
            lit_reprise(fichier.contenu, fiche, texte) == EtatReprise::bonne)
            action(fiche, texte);
    }
}

}  // namespace

void panne_secours(Etape& etape) { memoire.echec_reprise = static_cast<int>(prend_entier(etape)); }

void jours(Etape& etape) { memoire.horloge += prend_entier(etape) * kSecondesParJour; }

void termine_session(Etape&) {
    exige(programme_en_marche(), "un programme en marche", "aucun");
    exige(evenement_fin_session(), "des copies de secours", "une panne");
    script.commence = false;
}

void voit_secours(Etape& etape) {
    const std::string nom = prend_texte(etape);
    std::optional<std::string> trouve;
    parcourt([&](const FicheReprise& fiche, const std::string& texte) {
        if (fiche.nom == nom) trouve = texte;
    });
    exige(trouve.has_value(), "une copie de secours de " + cite(nom), "aucune");
    compare(prend_texte(etape), *trouve);
}

void voit_combien(Etape& etape) {
    long combien = 0;
    parcourt([&](const FicheReprise&, const std::string&) { ++combien; });
    const long voulu = prend_entier(etape);
    exige(combien == voulu, std::to_string(voulu), std::to_string(combien));
}
