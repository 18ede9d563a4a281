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

int id_item(const LigneCommande& ligne) { return ids::kItems + ligne.numero; }

bool pareils(const EtatItem& a, const EtatItem& b) {
    return a.libelle == b.libelle && a.coche == b.coche && a.actif == b.actif &&
           a.visible == b.visible;
}

}  // namespace

BarreMenus::BarreMenus() : barre_(new wxMenuBar) {
    wxMenu* menu = nullptr;
    std::string_view courant;
    for (const LigneCommande& ligne : lignes_menu()) {
        if (menu == nullptr || ligne.menu != courant) {
            courant = ligne.menu;
            menu = new wxMenu;
            barre_->Append(menu, vers_wx(courant));
            if (fichier_ == nullptr) fichier_ = menu;
        }
        menu->Append(id_item(ligne), vers_wx(ligne.libelle) + mots_raccourci(ligne.raccourci), "",
                     ligne.cochable ? wxITEM_CHECK : wxITEM_NORMAL);
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
    for (std::size_t i = 0; i < menus.items.size(); ++i) {
        const LigneCommande& ligne = lignes_menu()[i];
        const int id = id_item(ligne);
        EtatItem& vu = montres_[id];
        const EtatItem& etat = menus.items[i];
        if (!ligne.cochable && vu.nom == etat.nom && pareils(vu, etat)) continue;
        wxMenu* menu = nullptr;
        barre_->FindItem(id, &menu);
        if (menu != nullptr) montre_item(*menu, id, etat, mots_raccourci(ligne.raccourci));
        vu = etat;
    }
}

std::string_view item_du_menu(int id, int& index) {
    index = 0;
    if (id > ids::kRecents && id <= ids::kRecents + kItemsRecents) {
        index = id - ids::kRecents;
        return kNomRecents;
    }
    const LigneCommande* const ligne = ligne_numero(id - ids::kItems);
    return ligne == nullptr ? "" : ligne->nom;
}
