// Data in front of a sheet, its page, its data: files of voxtab-calc. Changes files, and nothing of the sheet.
#include "terminal/exchange_files.hpp"

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "base/codepage.hpp"
#include "exchange/data_file.hpp"
#include "exchange/data_lines.hpp"
#include "exchange/data_reader.hpp"
#include "exchange/page.hpp"
#include "exchange/sheet_report.hpp"
#include "platform/files.hpp"
#include "platform/message.hpp"
#include "platform/system_path.hpp"

namespace {

// The sheet's name without folder and extension.
std::string nom_de_feuille(const OptionsCalcul& options) {
    const std::string nom = options.feuille.empty() ? options.importe : options.feuille;
    if (nom.empty() || nom == "-") return "Feuille Voxtab";
    return depuis_utf8(chemin_en_utf8(chemin_du_systeme(nom).stem())).value_or("Feuille Voxtab");
}

// The table that the options ask for; nothing, and why in `mots`.
std::optional<TableDonnees> table_choisie(const OptionsCalcul& options, const Rapport& rapport, std::string& mots) {
    std::vector<DonneesDeFeuille> toutes = donnees_de(rapport);
    if (toutes.empty()) {
        mots = "la feuille n'a ni table, ni série, ni matrice";
    } else if (options.table == 0 && toutes.size() > 1) {
        mots = "choisissez avec --table :";
        for (std::size_t i = 0; i < toutes.size(); ++i)
            mots += (i == 0 ? " " : " ; ") + std::to_string(i + 1) + " " + vers_utf8(toutes[i].nom);
    } else if (static_cast<std::size_t>(options.table) > toutes.size()) {
        mots = toutes.size() == 1 ? "la feuille n'a qu'une table"
                                  : "la feuille n'a que " + std::to_string(toutes.size()) + " tables";
    } else {
        return std::move(toutes[static_cast<std::size_t>(options.table == 0 ? 0 : options.table - 1)].table);
    }
    return std::nullopt;
}

RefusEchange ecrit_donnees(const OptionsCalcul& options, const Rapport& rapport) {
    RefusEchange refus{options.donnees, 0, ""};
    const std::optional<TableDonnees> table = table_choisie(options, rapport, refus.mots);
    if (table)
        refus.numero = remplace_fichier(
            options.donnees, fichier_de_donnees(*table, options.point ? Convention::point : Convention::virgule));
    return refus;
}

// Whether both paths lead to one file, or would.
bool meme_fichier(const std::string& un, const std::string& autre) {
    if (un.empty() || autre.empty()) return false;
    std::error_code erreur;
    const auto a = std::filesystem::absolute(chemin_du_systeme(un), erreur);
    const auto b = std::filesystem::absolute(chemin_du_systeme(autre), erreur);
    if (std::filesystem::equivalent(a, b, erreur)) return true;
    const std::filesystem::path entier = std::filesystem::weakly_canonical(a, erreur);
    return !erreur && entier == std::filesystem::weakly_canonical(b, erreur);
}

}  // namespace

RefusEchange verifie_chemins(const OptionsCalcul& options) {
    const std::array<const std::string*, 4> ecrits = {&options.page, &options.donnees, &options.etude, &options.son};
    for (std::size_t i = 0; i < ecrits.size(); ++i) {
        const std::string& chemin = *ecrits[i];
        if (capitales(chemin).ends_with(".VXT") || meme_fichier(chemin, options.feuille))
            return {chemin, 0, "ce nom est celui d'une feuille"};
        if (meme_fichier(chemin, options.importe)) return {chemin, 0, "ce fichier est celui des nombres à importer"};
        for (std::size_t k = 0; k < i; ++k)
            if (meme_fichier(chemin, *ecrits[k])) return {chemin, 0, "deux options écrivent ce fichier"};
    }
    return {};
}

RefusEchange importe_devant(const OptionsCalcul& options, std::string& texte) {
    RefusEchange refus{options.importe, 0, ""};
    if (options.importe.empty()) return refus;
    std::string octets, mots;
    refus.numero = lit_fichier(options.importe, octets);
    if (refus.numero != 0) return refus;
    const std::optional<DonneesLues> donnees = lis_donnees(octets, mots);
    const std::optional<std::string> lignes =
        donnees ? lignes_de_feuille(*donnees, options.forme.empty() ? forme_proposee(*donnees, texte)
                                                                    : depuis_utf8(options.forme).value_or(""), mots)
                : std::nullopt;
    if (!lignes) {
        refus.mots = vers_utf8(mots);
        return refus;
    }
    texte = texte.empty() ? *lignes : *lignes + "\r\n" + texte;
    dit(mots_donnees(*donnees));   // nobody is asked here: what is left aside must be told
    return refus;
}

RefusEchange ecrit_echanges(const OptionsCalcul& options, const std::string& texte) {
    if (options.page.empty() && options.donnees.empty()) return {};
    const Rapport rapport = rapport_de(texte, !options.page.empty());
    if (!rapport.complet)
        return {options.page.empty() ? options.donnees : options.page, 0, "la feuille n'a pas été calculée en entier"};
    RefusEchange refus;
    if (!options.page.empty()) {
        const auto etudes = options.etude.empty() ? std::vector<EtudeDeFeuille>{} : etudie_tout(rapport.texte);
        refus = {options.page, remplace_fichier(options.page, page_html(rapport, nom_de_feuille(options), etudes)), ""};
    }
    if (!refus.refuse() && !options.donnees.empty()) refus = ecrit_donnees(options, rapport);
    return refus;
}
