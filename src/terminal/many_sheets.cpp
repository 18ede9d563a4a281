// Sheets side by side: the calculation has one state a process, so helpers, which are this program again, calculate
// sheets that they are handed in lots, and threads speak with them, one each. What a sheet writes is kept until its
// turn has come. Changes the standard streams while a sheet is calculated.
#include "terminal/many_sheets.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <optional>
#include <set>
#include <sstream>
#include <thread>
#include <tuple>
#include <utility>

#include "base/codepage.hpp"
#include "platform/console.hpp"
#include "platform/helper_process.hpp"
#include "platform/system_path.hpp"
#include "sheet/recalculation.hpp"
#include "terminal/terminal_port.hpp"

namespace {

constexpr std::size_t kLotMaxi = 32;   // sheets that a helper is handed at once
constexpr std::size_t kTampon = 65536;
constexpr auto kEntreSignes = std::chrono::seconds(2);
constexpr auto kEntreEnvois = std::chrono::milliseconds(20);   // what a helper has is not kept for longer

// What a sheet came to.
struct Reponse {
    int statut = kImpossible;
    std::string sortie, erreurs;
};

// While it lives, what goes to a stream is kept.
class Detourne {
public:
    explicit Detourne(std::ostream& flux) : flux_(flux), ancien_(flux.rdbuf(texte_.rdbuf())) {}
    ~Detourne() { flux_.rdbuf(ancien_); }
    Detourne(const Detourne&) = delete;
    Detourne& operator=(const Detourne&) = delete;
    std::string texte() const { return texte_.str(); }

private:
    std::ostringstream texte_;
    std::ostream& flux_;
    std::streambuf* ancien_;
};

// What is asked for each sheet, without the list of them, which may be long.
OptionsCalcul commande_d_une(const OptionsCalcul& options) {
    OptionsCalcul une = options;
    une.feuilles = {};
    return une;
}

// One sheet from a fresh beginning.
Reponse calcule_une(OptionsCalcul& options, const std::string& feuille, CalculeFeuille calcule) {
    options.feuille = feuille;
    terminal = Terminal{};
    reinitialise_calcul();
    applique_options(options);
    const Detourne sortie(std::cout), erreurs(std::cerr);
    const int statut = calcule(options);
    return {statut, sortie.texte(), erreurs.texte()};
}

// --- What a helper and its thread say to each other: numbers of eight bytes, and texts with their length. ---

void ajoute_nombre(std::string& message, std::uint64_t nombre) {
    for (int i = 0; i < 8; ++i) message += static_cast<char>(nombre >> (8 * i));
}

void ajoute_mot(std::string& message, const std::string& mot) {
    ajoute_nombre(message, mot.size());
    message += mot;
}

// Reads by `lit`, which fills a place with bytes and answers false where there are none.
template <class Lit>
bool lit_nombre(Lit&& lit, std::uint64_t& nombre) {
    std::array<char, 8> octets{};
    if (!lit(octets.data(), octets.size())) return false;
    nombre = 0;
    for (std::size_t i = 0; i < octets.size(); ++i)
        nombre |= static_cast<std::uint64_t>(static_cast<unsigned char>(octets[i])) << (8 * i);
    return true;
}

template <class Lit>
bool lit_mot(Lit&& lit, std::string& mot) {
    std::uint64_t taille = 0;
    if (!lit_nombre(lit, taille)) return false;
    mot.resize(taille);
    return lit(mot.data(), mot.size());
}

bool lit_de_l_entree(char* octets, std::size_t nombre) {
    return static_cast<bool>(std::cin.read(octets, static_cast<std::streamsize>(nombre)));
}

// --- The program that hands the sheets out. ---

// What the threads share.
struct Chantier {
    const OptionsCalcul& options;
    const std::vector<std::string>& mots;
    std::size_t lot = 1;
    std::mutex verrou{};
    std::condition_variable arrivee{};
    std::size_t prochaine = 0;                          // the first sheet that nobody has
    std::size_t attendue = 0;                           // the sheet that is to be written next
    std::vector<std::optional<Reponse>> reponses{};
};

// The next lot, empty when all are taken.
std::pair<std::size_t, std::size_t> prends_lot(Chantier& c) {
    const std::lock_guard garde(c.verrou);
    const std::size_t debut = c.prochaine;
    c.prochaine = std::min(debut + c.lot, c.reponses.size());
    return {debut, c.prochaine};
}

// Hands in the answers of the sheets from `debut` on, and wakes who waits for one of them.
void rends(Chantier& c, std::size_t debut, std::vector<Reponse> reponses) {
    const std::size_t fin = debut + reponses.size();
    const std::lock_guard garde(c.verrou);
    for (std::size_t rang = debut; rang < fin; ++rang) c.reponses[rang] = std::move(reponses[rang - debut]);
    if (c.attendue >= debut && c.attendue < fin) c.arrivee.notify_one();
}

// What a helper is told first: the command line.
std::string presentation(const std::vector<std::string>& mots) {
    std::string message;
    ajoute_nombre(message, mots.size());
    for (const std::string& mot : mots) ajoute_mot(message, mot);
    return message;
}

// What has come from a helper and isn't read yet.
class Tampon {
public:
    explicit Tampon(const ProcessusAide& aide) : aide_(aide) {}
    bool vide() const { return debut_ == fin_; }
    bool lit(char* octets, std::size_t nombre) {
        while (nombre > 0) {
            if (debut_ == fin_) {
                debut_ = 0;
                fin_ = recoit(aide_, octets_.data(), octets_.size());
                if (fin_ == 0) return false;
            }
            const std::size_t pris = std::min(nombre, fin_ - debut_);
            octets = std::copy_n(octets_.data() + debut_, pris, octets);
            debut_ += pris;
            nombre -= pris;
        }
        return true;
    }

private:
    const ProcessusAide& aide_;
    std::vector<char> octets_ = std::vector<char>(kTampon);
    std::size_t debut_ = 0, fin_ = 0;
};

bool recoit_reponse(Tampon& tampon, Reponse& reponse) {
    const auto lit = [&](char* octets, std::size_t nombre) { return tampon.lit(octets, nombre); };
    std::uint64_t statut = 0;
    if (!lit_nombre(lit, statut) || !lit_mot(lit, reponse.sortie) || !lit_mot(lit, reponse.erreurs)) return false;
    reponse.statut = static_cast<int>(statut);
    return true;
}

// Has a lot calculated; answers how many sheets were.
std::size_t demande_lot(Chantier& c, const ProcessusAide& aide, std::size_t debut, std::size_t fin) {
    std::string message;
    ajoute_nombre(message, debut);
    ajoute_nombre(message, fin);
    if (!envoie(aide, message)) return 0;
    Tampon tampon(aide);
    std::vector<Reponse> recues;   // handed in together, before more is waited for
    for (std::size_t rang = debut; rang < fin; ++rang) {
        Reponse reponse;
        const bool entiere = recoit_reponse(tampon, reponse);
        if (entiere) recues.push_back(std::move(reponse));
        if (entiere && rang + 1 < fin && !tampon.vide()) continue;
        const std::size_t borne = rang + (entiere ? 1 : 0), premiere = borne - recues.size();
        rends(c, premiere, std::exchange(recues, {}));
        if (!entiere) return borne - debut;
    }
    return fin - debut;
}

// Has the sheets from `debut` to `fin` calculated. A helper that ends in the middle of one is told as that sheet's
// answer, and another helper takes what is left. Answers that it kept are lost with it: what is left is asked for one by
// one, so that it is the right sheet. A helper that writes sheets back keeps none.
void calcule_lot(Chantier& c, ProcessusAide& aide, std::size_t debut, std::size_t fin) {
    bool une_a_une = false;
    while (debut < fin) {
        const std::size_t borne = une_a_une ? debut + 1 : fin;
        const bool sure = c.options.en_place || borne == debut + 1;
        debut += demande_lot(c, aide, debut, borne);
        if (debut == borne) continue;
        une_a_une = !c.options.en_place;
        if (sure) {
            rends(c, debut,
                  {{kImpossible, "", "voxtab-calc : " + c.options.feuilles[debut] + " : le calcul s'est arrêté\n"}});
            ++debut;
        }
        attend_aide(aide);
        if (lance_aide(aide)) envoie(aide, presentation(c.mots));
    }
}

// One thread: its helper calculates lots until there are none left.
void emploie(Chantier& c, ProcessusAide aide) {
    for (auto [debut, fin] = prends_lot(c); debut < fin; std::tie(debut, fin) = prends_lot(c))
        calcule_lot(c, aide, debut, fin);
    attend_aide(aide);
}

// Two sheets that are written back with one backup must not be written at once.
bool copies_distinctes(const OptionsCalcul& options) {
    if (!options.en_place) return true;
    std::set<std::string> copies;
    for (const std::string& feuille : options.feuilles) {
        std::error_code erreur;
        const auto chemin = std::filesystem::weakly_canonical(chemin_du_systeme(feuille), erreur);
        std::string copie = chemin_en_utf8(std::filesystem::path(chemin).replace_extension(".bak"));
        std::transform(copie.begin(), copie.end(), copie.begin(),
                       [](char c) { return est_lettre(c) ? static_cast<char>(c - 'A' + 'a') : c; });
        if (!copies.insert(std::move(copie)).second) return false;
    }
    return true;
}

// The helpers that could be started: one a core, none where one core does it as well. They start side by side before
// the first is spoken to.
std::vector<ProcessusAide> lance_aides(const OptionsCalcul& options, const std::vector<std::string>& mots) {
    std::vector<ProcessusAide> aides;
    const std::size_t coeurs = std::min<std::size_t>(std::thread::hardware_concurrency(), options.feuilles.size());
    for (ProcessusAide aide; coeurs > 1 && aides.size() < coeurs && lance_aide(aide);)
        aides.push_back(std::exchange(aide, {}));
    const std::string message = presentation(mots);
    std::erase_if(aides, [&](ProcessusAide& aide) {
        const bool prete = envoie(aide, message);
        if (!prete) attend_aide(aide);
        return !prete;
    });
    return aides;
}

// --- What the user sees and hears of it. ---

// How far the calculation has come, on a terminal that shows nothing else.
class Avancement {
public:
    explicit Avancement(const OptionsCalcul& options)
        : nombre_(options.feuilles.size()),
          montre_(erreurs_au_terminal() && (options.en_place || !sortie_au_terminal())) {}
    ~Avancement() { efface(); }
    Avancement(const Avancement&) = delete;
    Avancement& operator=(const Avancement&) = delete;

    void efface() {
        if (taille_ != 0) std::cerr << '\r' << std::string(taille_, ' ') << '\r' << std::flush;
        taille_ = 0;
    }
    void dit(std::size_t faites) {
        const auto maintenant = std::chrono::steady_clock::now();
        if (!montre_ || maintenant - dernier_ < kEntreSignes) return;
        dernier_ = maintenant;
        efface();
        const std::string ligne = "feuilles : " + std::to_string(faites) + " sur " + std::to_string(nombre_);
        std::cerr << ligne << std::flush;
        taille_ = ligne.size();
    }

private:
    std::size_t nombre_;
    bool montre_;
    std::size_t taille_ = 0;                            // of the line that stands there
    std::chrono::steady_clock::time_point dernier_ = std::chrono::steady_clock::now();
};

// The messages of one sheet of several, each with its name; what the program itself refuses names it already.
void montre_erreurs(const std::string& feuille, const std::string& erreurs) {
    std::istringstream lignes(erreurs);
    std::string texte;   // written at once: each piece would be a call of the system
    for (std::string ligne; std::getline(lignes, ligne);) {
        if (!ligne.starts_with("voxtab-calc : ")) texte.append(feuille).append(" : ");
        texte.append(ligne) += '\n';
    }
    std::cerr << texte;
}

// Writes what a sheet came to; its status. A sheet ends its last line before the next begins.
int montre_reponse(const OptionsCalcul& options, std::size_t rang, const Reponse& reponse) {
    montre_erreurs(options.feuilles[rang], reponse.erreurs);
    std::cout << reponse.sortie;
    const bool suite = rang + 1 < options.feuilles.size();
    if (suite && !reponse.sortie.empty() && !reponse.sortie.ends_with('\n')) std::cout << '\n';
    return reponse.statut;
}

int termine_sortie() {
    if (std::cout.flush()) return 0;
    std::cerr << "voxtab-calc : la sortie ne peut pas être écrite\n";
    return kImpossible;
}

// Nobody takes another lot.
void arrete(Chantier& c) {
    const std::lock_guard garde(c.verrou);
    c.prochaine = c.reponses.size();
}

// The answer of a sheet. What was written before is on its way while there is something to wait for.
Reponse attend_reponse(Chantier& c, std::size_t rang, Avancement& avancement) {
    std::unique_lock garde(c.verrou);
    c.attendue = rang;
    if (!c.reponses[rang]) std::cout.flush();
    while (!c.arrivee.wait_for(garde, kEntreSignes, [&] { return c.reponses[rang].has_value(); })) avancement.dit(rang);
    return std::move(*c.reponses[rang]);
}

}  // namespace

int calcule_feuilles(const OptionsCalcul& options, const std::vector<std::string>& mots, CalculeFeuille calcule) {
    const std::size_t nombre = options.feuilles.size();
    Avancement avancement(options);
    std::vector<ProcessusAide> aides;
    if (copies_distinctes(options)) aides = lance_aides(options, mots);
    Chantier chantier{.options = options, .mots = mots};
    chantier.lot = std::clamp<std::size_t>(nombre / (8 * std::max<std::size_t>(aides.size(), 1)), 1, kLotMaxi);
    chantier.reponses.resize(nombre);
    std::vector<std::jthread> fils;
    for (const ProcessusAide& aide : aides) fils.emplace_back([&chantier, aide] { emploie(chantier, aide); });
    OptionsCalcul une = commande_d_une(options);
    int statut = 0;
    for (std::size_t rang = 0; rang < nombre; ++rang) {
        const Reponse reponse = aides.empty() ? calcule_une(une, options.feuilles[rang], calcule)
                                              : attend_reponse(chantier, rang, avancement);
        if (!reponse.erreurs.empty() || !reponse.sortie.empty()) avancement.efface();
        statut = std::max(statut, montre_reponse(options, rang, reponse));
        if (!std::cout) break;
        avancement.dit(rang + 1);
    }
    arrete(chantier);
    return std::max(statut, termine_sortie());
}

int sers_d_aide(CalculeFeuille calcule) {
    finis_avec_le_programme();
    std::uint64_t nombre = 0;
    if (!lit_nombre(lit_de_l_entree, nombre)) return kImpossible;
    std::vector<std::string> mots(nombre);
    for (std::string& mot : mots)
        if (!lit_mot(lit_de_l_entree, mot)) return kImpossible;
    const OptionsCalcul options = lis_options(mots).options;
    OptionsCalcul une = commande_d_une(options);
    std::uint64_t debut = 0, fin = 0;
    while (lit_nombre(lit_de_l_entree, debut) && lit_nombre(lit_de_l_entree, fin)) {
        std::string message;
        for (auto envoi = std::chrono::steady_clock::now(); debut < fin; ++debut) {
            const Reponse reponse = calcule_une(une, options.feuilles.at(debut), calcule);
            ajoute_nombre(message, static_cast<std::uint64_t>(reponse.statut));
            ajoute_mot(message, reponse.sortie);
            ajoute_mot(message, reponse.erreurs);
            const auto maintenant = std::chrono::steady_clock::now();
            if (!une.en_place && message.size() < kTampon && maintenant - envoi < kEntreEnvois && debut + 1 < fin)
                continue;
            std::cout << std::exchange(message, {}) << std::flush;
            envoi = maintenant;
        }
    }
    return 0;
}
