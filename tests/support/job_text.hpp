// Texts and answers of a job, in the sheet's code page. Changes the answers of the in-memory port.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

// A text of the job in the sheet's code page. Refuses what the code page lacks.
std::string texte_tache(const nlohmann::json& valeur);

// Prepares the answers of the job's questions; null is Cancel.
void prepare_reponses(const nlohmann::json& tache);
