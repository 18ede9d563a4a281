// Runs the tables of jobs: each line of a .jsonl file is a job of the development probe with the
// fields of its result that are expected. Prints every difference; exit status 1 when there is one.
//   jobs_runner FILE.jsonl... [NAME]     (with a name: that job alone, with its whole result)
#include <cmath>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/stack.hpp"
#include "support/job.hpp"

namespace {

using nlohmann::json;

// A text of the table: a string, {"repete": [text, times]}, or a list of these joined.
std::string texte(const json& valeur) {
    if (valeur.is_string()) return valeur.get<std::string>();
    std::string sortie;
    if (valeur.is_array()) {
        for (const json& morceau : valeur) sortie += texte(morceau);
        return sortie;
    }
    const json& repete = valeur.at("repete");
    const std::string motif = texte(repete.at(0));
    for (int i = 0; i < repete.at(1).get<int>(); ++i) sortie += motif;
    return sortie;
}

// Lines joined by CR LF.
std::string lignes(const json& liste) {
    std::string sortie;
    for (const json& ligne : liste) {
        if (&ligne != &liste.front()) sortie += "\r\n";
        sortie += texte(ligne);
    }
    return sortie;
}

// The object with "lignes" turned into "text" and the repetitions written out.
json developpe(json objet) {
    if (objet.contains("lignes")) {
        objet["text"] = lignes(objet["lignes"]);
        objet.erase("lignes");
    } else if (objet.contains("text")) {
        objet["text"] = texte(objet["text"]);
    }
    for (const char* liste : {"messages", "boites"})
        if (objet.contains(liste))
            for (json& element : objet[liste]) element = texte(element);
    return objet;
}

// Equality, except that {"proche": x} asks for x within 1e-12 (relative above 1, absolute below).
bool egal(const json& attendu, const json& obtenu) {
    if (attendu.is_object() && attendu.contains("proche")) {
        if (!obtenu.is_number()) return false;
        const double a = attendu["proche"].get<double>(), o = obtenu.get<double>();
        return std::fabs(a - o) <= 1e-12 * std::fmax(1, std::fabs(a));
    }
    if (attendu.is_object() && obtenu.is_object()) {
        if (attendu.size() != obtenu.size()) return false;
        for (const auto& [cle, valeur] : attendu.items())
            if (!obtenu.contains(cle) || !egal(valeur, obtenu[cle])) return false;
        return true;
    }
    return attendu == obtenu;
}

std::string court(const json& valeur) {
    const std::string texte_json = valeur.dump();
    return texte_json.size() > 600 ? texte_json.substr(0, 600) + "..." : texte_json;
}

// Runs one line of the table; true when all that is expected came.
bool execute(const json& cas) {
    const json obtenu = traite_tache(developpe(cas.at("tache")));
    const json attendu = developpe(cas.at("attendu"));
    bool juste = !obtenu.contains("erreur") && !attendu.empty();
    if (!juste) std::cout << "FAILED " << cas.at("nom") << ": " << court(obtenu) << '\n';
    for (const auto& [champ, valeur] : attendu.items()) {
        if (obtenu.contains(champ) && egal(valeur, obtenu[champ])) continue;
        juste = false;
        std::cout << "FAILED " << cas.at("nom").get<std::string>() << "\n  " << champ
                  << " expected " << court(valeur) << "\n  " << champ << " obtained "
                  << court(obtenu.value(champ, json())) << '\n';
    }
    return juste;
}

int justes = 0, faux = 0;

// Runs the jobs of one table, or the one that has that name. A table without any job has failed.
void execute_table(const std::string& nom, const std::string& seul) {
    std::ifstream fichier(nom);
    const int avant = justes + faux;
    for (std::string ligne; std::getline(fichier, ligne);) {
        if (ligne.empty()) continue;
        const json cas = json::parse(ligne);
        if (!seul.empty() && cas.at("nom") != seul) continue;
        if (!seul.empty()) std::cout << traite_tache(developpe(cas.at("tache"))).dump(1) << '\n';
        execute(cas) ? ++justes : ++faux;
    }
    if (justes + faux > avant) return;
    ++faux;
    std::cout << "FAILED " << nom << ": no job\n";
}

}  // namespace

int main(int argc, char** argv) {
    agrandit_pile(argv);
    std::vector<std::string> tables(argv + 1, argv + argc);
    std::string seul;
    if (!tables.empty() && !tables.back().ends_with(".jsonl")) {
        seul = tables.back();
        tables.pop_back();
    }
    for (const std::string& table : tables) {
        if (tables.size() > 1) std::cerr << table << '\n';   // the last one named is where the program ended
        execute_table(table, seul);
    }
    std::cout << justes << " passed, " << faux << " failed\n";
    return faux == 0 && justes > 0 ? 0 : 1;
}
