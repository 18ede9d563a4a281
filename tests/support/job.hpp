// One job of the development probe: a fresh program on the in-memory port, some operations, and all
// that the user would have seen and heard. Changes every subsystem.
#pragma once

#include <nlohmann/json.hpp>

// Runs the job and gives its result; a job that can't be understood, or that asks for an operation
// that doesn't exist, gives a result with a field "erreur".
nlohmann::json traite_tache(const nlohmann::json& tache) noexcept;
