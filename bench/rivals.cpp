// Runs muParser, bc and the two Luas. Holds no state.
#include "rivals.hpp"

#include <fcntl.h>
#include <muParser.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <sstream>
#include <stdexcept>

#include "measure.hpp"

namespace {

// A temporary file that goes with its handle.
using Fichier = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

Fichier fichier_temporaire(const std::string& contenu) {
    Fichier fichier(std::tmpfile(), std::fclose);
    if (!fichier ||
        std::fwrite(contenu.data(), 1, contenu.size(), fichier.get()) != contenu.size() ||
        std::fflush(fichier.get()) != 0)
        throw std::runtime_error("no temporary file");
    std::rewind(fichier.get());
    return fichier;
}

std::string contenu(std::FILE* fichier) {
    std::rewind(fichier);
    std::string texte;
    std::array<char, 65536> tampon;
    for (std::size_t n; (n = std::fread(tampon.data(), 1, tampon.size(), fichier)) > 0;)
        texte.append(tampon.data(), n);
    return texte;
}

// Starts a program between three files and waits for its end. Answers its processor seconds.
double execute(std::vector<std::string> mots, std::FILE* entree, std::FILE* sortie, std::FILE* plaintes) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(entree), 0);
    posix_spawn_file_actions_adddup2(&actions, fileno(sortie), 1);
    posix_spawn_file_actions_adddup2(&actions, fileno(plaintes), 2);
    std::vector<char*> arguments;
    for (std::string& mot : mots) arguments.push_back(mot.data());
    arguments.push_back(nullptr);
    pid_t enfant = 0;
    const int refus = posix_spawnp(&enfant, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (refus != 0) throw std::runtime_error(mots[0] + " can't be started");
    int statut = 0;
    rusage usage{};
    wait4(enfant, &statut, 0, &usage);
    if (statut != 0) throw std::runtime_error(mots[0] + ": " + contenu(plaintes));
    const auto secondes = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    return secondes(usage.ru_utime) + secondes(usage.ru_stime);
}

// Runs bc on a text; it must not complain.
double lance_bc(const std::string& entree, std::FILE* sortie) {
    const Fichier formules = fichier_temporaire(entree), plaintes = fichier_temporaire("");
    const double secondes = execute({"bc", "-l"}, formules.get(), sortie, plaintes.get());
    const std::string mots = contenu(plaintes.get());
    if (!mots.empty()) throw std::runtime_error("bc: " + mots.substr(0, mots.find('\n')));
    return secondes;
}

// The names of muParser's functions for a Lua, and the variables.
constexpr const char* kPrologueLua =
    "sin,cos,tan,atan,sqrt,abs,exp,ln=math.sin,math.cos,math.tan,math.atan,math.sqrt,math.abs,math.exp,math.log "
    "_pi,rad=math.pi,math.pi/180 log10=function(x) return math.log(x)/math.log(10) end "
    "for c=65,90 do _G[string.char(c)]=0 end ";

constexpr const char* kLignesLua =
    "local lines,values={},{} for l in io.lines() do lines[#lines+1]=l end "
    "local text local t=os.clock() "
    "for i=1,#lines do local v=load(lines[i])() values[i]=v text=string.format('%.2f',v) end "
    "t=os.clock()-t print(t) for i=1,#values do print(string.format('%.17g',values[i])) end";

// Runs a Lua on a program; what it prints, as numbers.
std::vector<double> sortie_lua(const std::string& nom, const std::string& programme, const std::string& entree) {
    const Fichier lignes = fichier_temporaire(entree), sortie = fichier_temporaire(""), plaintes = fichier_temporaire("");
    execute({nom, "-e", kPrologueLua + programme}, lignes.get(), sortie.get(), plaintes.get());
    std::istringstream textes(contenu(sortie.get()));
    std::vector<double> nombres;
    for (double x = 0; textes >> x;) nombres.push_back(x);
    return nombres;
}

}  // namespace

bool lua_present(const std::string& nom) { return std::system(("command -v " + nom + " >/dev/null 2>&1").c_str()) == 0; }

double temps_lua(const std::string& nom, const std::vector<std::string>& formules, std::vector<double>& valeurs) {
    std::string entree;
    for (const std::string& formule : formules) {
        const bool affecte = formule.size() > 1 && formule[1] == '=';
        entree += affecte ? formule + " return " + formule[0] : "return " + formule;
        entree += '\n';
    }
    valeurs = sortie_lua(nom, kLignesLua, entree);
    if (valeurs.size() != formules.size() + 1) throw std::runtime_error(nom + " printed too little");
    const double secondes = valeurs.front();
    valeurs.erase(valeurs.begin());
    return secondes;
}

double temps_aire_lua(const std::string& nom, const std::string& formule, double debut, int nombre, double& aire) {
    const std::string programme =
        "local sin,exp,ln=sin,exp,ln local function f(X) return " + formule + " end local n,x1=" +
        std::to_string(nombre) + "," + std::to_string(debut) +
        " local h,s=1/n,0 local t=os.clock() for k=1,n do local a=f((k-1)*h+x1) local b=f(h*k+x1) s=s+(a+b)/2*h end "
        "print(os.clock()-t) print(string.format('%.17g',s))";
    const std::vector<double> nombres = sortie_lua(nom, programme, "");
    if (nombres.size() != 2) throw std::runtime_error(nom + " printed no area");
    aire = nombres[1];
    return nombres[0];
}

double temps_muparser(const std::vector<std::string>& formules, std::vector<double>& valeurs) {
    std::array<double, 26> variables{};
    mu::Parser analyseur;
    for (std::size_t i = 0; i < variables.size(); ++i)
        analyseur.DefineVar(std::string(1, static_cast<char>('A' + i)), &variables[i]);
    analyseur.DefineConst("rad", std::numbers::pi / 180);
    valeurs.assign(formules.size(), 0);
    const double debut = temps_processeur();
    for (std::size_t i = 0; i < formules.size(); ++i) {
        analyseur.SetExpr(formules[i]);
        valeurs[i] = analyseur.Eval();
    }
    return temps_processeur() - debut;
}

double temps_aire_muparser(const std::string& formule, double debut_x, int nombre, Bouts bouts, double& aire) {
    double x = debut_x, somme = 0;
    mu::Parser analyseur;
    analyseur.DefineVar("X", &x);
    analyseur.SetExpr(formule);
    double b = analyseur.Eval();  // the first evaluation makes the bytecode
    const double h = 1.0 / nombre;
    const double debut = temps_processeur();
    for (double k = 1; k <= nombre; k += 1) {
        x = (k - 1) * h + debut_x;
        const double a = bouts == Bouts::deux_fois ? analyseur.Eval() : b;
        x = h * k + debut_x;
        b = analyseur.Eval();
        somme += (a + b) / 2 * h;
    }
    const double secondes = temps_processeur() - debut;
    aire = somme;
    return secondes;
}

bool bc_present() { return std::system("command -v bc >/dev/null 2>&1") == 0; }

double temps_bc(const std::string& entree) {
    const Fichier rien(std::fopen("/dev/null", "w"), std::fclose);
    return lance_bc(entree, rien.get());
}

std::string sortie_bc(const std::string& entree) {
    const Fichier sortie = fichier_temporaire("");
    lance_bc(entree, sortie.get());
    return contenu(sortie.get());
}
