// The thread that writes recovery files. Changes `atelier` alone, under its lock.
#include "platform/recovery_writer.hpp"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "base/failure.hpp"
#include "platform/platform.hpp"

namespace {

using Horloge = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kEntreDeux{1000};   // between two writes of one file
constexpr std::chrono::seconds kNouvelEssai{10};        // from a removal that failed to the next try

// What is to become of a file: these bytes, or nothing.
using Contenu = std::function<std::string()>;

struct Atelier {
    std::mutex verrou;
    std::condition_variable reveil;                     // an order, haste or the end
    std::condition_variable fini;                       // nothing is left
    std::map<std::string, Contenu> ordres;              // by path
    std::map<std::string, Horloge::time_point> ecrits;  // when each file was written last
    int presses = 0;                                    // how many wait for all to be done
    bool au_travail = false;                            // an order is being carried out
    bool arret = false;
    std::map<std::string, int> rates;                   // files whose last write failed, and why
    std::map<std::string, Horloge::time_point> restes;  // files that could not be removed: the next try
    PortFichiers fichiers{};
    std::thread fil;
};
// Never destroyed: the thread may be at work when the program is gone.
Atelier& atelier = *new Atelier;

std::string dossier(const std::string& chemin) {
    return chemin.substr(0, chemin.find_last_of("\\/"));
}

int ecrit(const std::string& chemin, const Contenu& contenu) {
    try {
        const std::string octets = contenu();
        const int echec = atelier.fichiers.remplace(chemin, octets);
        if (echec != kDossierAbsent) return echec;
        atelier.fichiers.cree_dossier(dossier(chemin));
        return atelier.fichiers.remplace(chemin, octets);
    } catch (...) {
        return kMemoire;
    }
}

// A file that isn't there needs no removal.
int efface(const std::string& chemin) {
    const int echec = atelier.fichiers.efface(chemin);
    return echec == kFichierAbsent || echec == kDossierAbsent ? 0 : echec;
}

// Carries out one order, the lock open.
void execute(std::unique_lock<std::mutex>& verrou, const std::string& chemin, Contenu contenu) {
    atelier.au_travail = true;
    verrou.unlock();
    const bool ecriture = static_cast<bool>(contenu);
    const int echec = ecriture ? ecrit(chemin, contenu) : efface(chemin);
    contenu = nullptr;   // the text goes while the lock is open
    verrou.lock();
    atelier.au_travail = false;
    atelier.ecrits.erase(chemin);
    atelier.rates.erase(chemin);
    atelier.restes.erase(chemin);
    if (ecriture) atelier.ecrits[chemin] = Horloge::now();
    if (echec != 0 && ecriture) atelier.rates[chemin] = echec;
    if (echec != 0 && !ecriture) atelier.restes[chemin] = Horloge::now() + kNouvelEssai;
}

// When the order may be carried out.
Horloge::time_point moment(const std::string& chemin, const Contenu& contenu) {
    const auto la = atelier.ecrits.find(chemin);
    const bool attend = contenu && la != atelier.ecrits.end() && atelier.presses == 0 && !atelier.arret;
    return attend ? la->second + kEntreDeux : Horloge::time_point::min();
}

// The order that comes first. There must be one.
auto premier_ordre() {
    auto premier = atelier.ordres.begin();
    for (auto i = premier; i != atelier.ordres.end(); ++i)
        if (moment(i->first, i->second) < moment(premier->first, premier->second)) premier = i;
    return premier;
}

// The files that could not be removed are ordered again when their time has come, or at the end: a text
// that is old by then must not be offered at the next start.
void reprend_restes() {
    for (auto i = atelier.restes.begin(); i != atelier.restes.end();) {
        if (!atelier.arret && i->second > Horloge::now()) {
            ++i;
            continue;
        }
        atelier.ordres.try_emplace(i->first, nullptr);
        i = atelier.restes.erase(i);
    }
}

// Nothing is left but what could not be removed.
void attend_ordre(std::unique_lock<std::mutex>& verrou) {
    if (atelier.restes.empty())
        atelier.reveil.wait(verrou);
    else
        atelier.reveil.wait_for(verrou, kNouvelEssai);
    reprend_restes();
}

void travaille() {
    std::unique_lock verrou(atelier.verrou);
    bool fin = false;   // the last try has been made
    for (;;) {
        if (atelier.ordres.empty()) {
            atelier.fini.notify_all();
            if (!atelier.arret) {
                attend_ordre(verrou);
            } else {
                if (std::exchange(fin, true)) return;
                reprend_restes();
            }
            continue;
        }
        const auto premier = premier_ordre();
        if (const auto quand = moment(premier->first, premier->second); quand > Horloge::now()) {
            atelier.reveil.wait_until(verrou, quand);
            continue;
        }
        auto ordre = atelier.ordres.extract(premier);
        execute(verrou, ordre.key(), std::move(ordre.mapped()));
    }
}

void ordonne(const std::string& chemin, Contenu contenu) {
    std::unique_lock verrou(atelier.verrou);
    if (!atelier.fil.joinable()) return execute(verrou, chemin, std::move(contenu));
    atelier.ordres[chemin] = std::move(contenu);
    atelier.reveil.notify_one();
}

}  // namespace

void ouvre_ecriture_reprises() {
    atelier.fichiers = port.fichiers;
    atelier.arret = false;
    try {
        atelier.fil = std::thread(travaille);
    } catch (const std::system_error&) {
        // The orders are carried out at once then.
    }
}

void ferme_ecriture_reprises() {
    if (!atelier.fil.joinable()) return;
    {
        const std::lock_guard verrou(atelier.verrou);
        atelier.arret = true;
        atelier.reveil.notify_one();
    }
    atelier.fil.join();
}

void ordonne_reprise(const std::string& chemin, std::function<std::string()> contenu) {
    ordonne(chemin, std::move(contenu));
}

void ordonne_effacement(const std::string& chemin) { ordonne(chemin, nullptr); }

void attend_reprises() {
    std::unique_lock verrou(atelier.verrou);
    if (!atelier.fil.joinable()) return;
    ++atelier.presses;
    atelier.reveil.notify_one();
    atelier.fini.wait(verrou, [] { return atelier.ordres.empty() && !atelier.au_travail; });
    --atelier.presses;
}

int echec_reprises() {
    const std::lock_guard verrou(atelier.verrou);
    return atelier.rates.empty() ? 0 : atelier.rates.begin()->second;
}

bool reprises_ecrites() {
    const std::lock_guard verrou(atelier.verrou);
    return atelier.ordres.empty() && !atelier.au_travail;
}
