// The menu bar of the window. A hidden recent file isn't in its menu at all.
#include "wx/menus.hpp"

#include <cstddef>
#include <string_view>

#include "wx/announce.hpp"
#include "wx/appearance.hpp"
#include "wx/ids.hpp"

namespace {

// A shortcut as the toolkit reads it after a caption: "\tCtrl+F5".
std::string mots_raccourci(const Raccourci& r) {
    if (r.touche == kToucheAucune) return "";
    std::string mots = "\t";
    if (r.ctrl) mots += "Ctrl+";
    if (r.maj) mots += "Shift+";
    if (r.touche >= kToucheF1 && r.touche <= kToucheF12)
        return mots + "F" + std::to_string(r.touche - kToucheF1 + 1);
    return mots + static_cast<char>(r.touche);
}

// The name of a file has no access key: its "&" is a character.
wxString legende_recent(const std::string& libelle) {
    wxString legende = vers_wx(libelle);
    legende.Replace("&", "&&");
    return legende;
}

int id_item(std::size_t rang) { return ids::kItems + static_cast<int>(rang); }

bool pareils(const EtatItem& a, const EtatItem& b) {
    return a.libelle == b.libelle && a.coche == b.coche && a.actif == b.actif &&
           a.visible == b.visible;
}

}  // namespace

BarreMenus::BarreMenus() : barre_(new wxMenuBar) {
    wxMenu* menu = nullptr;
    std::string_view courant;
    const auto& lignes = lignes_menu();
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        if (menu == nullptr || lignes[i].menu != courant) {
            courant = lignes[i].menu;
            menu = new wxMenu;
            barre_->Append(menu, vers_wx(courant));
            if (fichier_ == nullptr) fichier_ = menu;
        }
        const bool coche = lignes[i].nom == "mnuDerniereFeuilleItem";
        menu->Append(id_item(i), vers_wx(lignes[i].libelle) + mots_raccourci(lignes[i].raccourci), "",
                     coche ? wxITEM_CHECK : wxITEM_NORMAL);
    }
}

void BarreMenus::montre_item(wxMenu& menu, int id, const EtatItem& etat,
                             const std::string& raccourci) {
    wxMenuItem* item = menu.FindItem(id);
    if (item == nullptr) return;
    const wxString legende = vers_wx(etat.libelle) + raccourci;
    if (item->GetItemLabel() != legende) item->SetItemLabel(legende);
    item->Enable(etat.actif && etat.visible);
    // The toolkit moves the mark itself when the item is chosen.
    if (item->IsCheckable() && item->IsChecked() != etat.coche) item->Check(etat.coche);
}

void BarreMenus::montre_recents() {
    std::size_t place = 0;
    for (int i = 1; i <= kItemsRecents; ++i) {
        const EtatItem& etat = *etat_recent(i);
        const int id = ids::kRecents + i;
        wxMenuItem* item = fichier_->FindItem(id);
        if (!etat.visible) {
            if (item != nullptr) fichier_->Destroy(item);
            continue;
        }
        const wxString legende = legende_recent(etat.libelle);
        if (item == nullptr)
            item = fichier_->Insert(place, id, legende);
        else if (item->GetItemLabel() != legende)
            item->SetItemLabel(legende);
        // An open sheet is heard with the arrows everywhere; choosing it only says it.
        item->Enable(etat.actif || !menu_lit_ce_qui_est_grise());
        ++place;
    }
}

void BarreMenus::montre() {
    bool recents_changes = false;
    for (int i = 1; i <= kItemsRecents; ++i) {
        EtatItem& vu = montres_[ids::kRecents + i];
        recents_changes = recents_changes || !pareils(vu, *etat_recent(i));
        vu = *etat_recent(i);
    }
    if (recents_changes) montre_recents();
    const auto& lignes = lignes_menu();
    for (std::size_t i = 0; i < lignes.size() && i < menus.items.size(); ++i) {
        EtatItem& vu = montres_[id_item(i)];
        const EtatItem& etat = menus.items[i];
        const bool marque = lignes[i].nom == "mnuDerniereFeuilleItem";
        if (!marque && vu.nom == etat.nom && pareils(vu, etat)) continue;
        wxMenu* menu = nullptr;
        barre_->FindItem(id_item(i), &menu);
        if (menu != nullptr)
            montre_item(*menu, id_item(i), etat, mots_raccourci(lignes[i].raccourci));
        vu = etat;
    }
}

std::string_view item_du_menu(int id, int& index) {
    index = 0;
    if (id > ids::kRecents && id <= ids::kRecents + kItemsRecents) {
        index = id - ids::kRecents;
        return kNomRecents;
    }
    const auto rang = static_cast<std::size_t>(id - ids::kItems);
    return id >= ids::kItems && rang < lignes_menu().size() ? lignes_menu()[rang].nom : "";
}
