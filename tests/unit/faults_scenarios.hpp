// What is done and what is due when a file operation fails, scenario by scenario. Constant data.
#pragma once

#include <string>
#include <vector>

// What is due when one operation of the scenario fails.
struct Rapport {
    // The boxes in order: "<N>" stands for the number of the failure, "démarrage:" and the name of
    // the first sheet for the words of start-up.
    std::vector<std::string> boites;
    bool continue_apres = true;  // the program runs on
};

struct Scenario {
    std::string nom;
    std::vector<std::string> avant;   // steps that go well
    std::vector<std::string> action;  // steps in which an operation fails
    std::vector<std::string> textes;  // texts of the user that must be somewhere afterwards
    std::vector<Rapport> rapports;    // one a file operation of the action
};

const std::vector<Scenario>& scenarios();

// Words of start-up for a failure; `feuille` is the first sheet, "" before it is chosen.
std::string boite_demarrage(const std::string& feuille, int numero);
