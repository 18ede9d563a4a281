// The edit control of Windows: its text without a limit, its selection, one change of a part of it,
// the filter of what comes in, and the program's undo in the place of its own, which a command that
// rewrites the text would empty. The control counts a line end as two and keeps it as CR LF; here
// it is one, and LF. As no line is ever wrapped, a line of the control is a line of the text, and
// the number of the line tells both counts apart.
#include "wx/text_view.hpp"

#include <windows.h>

#include <commctrl.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include <memory>
#include <utility>

#include "base/typed_text.hpp"
#include "platform/utf16_windows.hpp"

namespace {

HWND poignee(const wxTextCtrl& controle) { return static_cast<HWND>(controle.GetHandle()); }

long demande(const wxTextCtrl& controle, UINT message, long valeur) {
    return static_cast<long>(
        SendMessageW(poignee(controle), message, static_cast<WPARAM>(valeur), 0));
}

// Start of a line with line ends as one.
long debut_ligne(const wxTextCtrl& controle, long ligne) {
    return demande(controle, EM_LINEINDEX, ligne) - ligne;
}

// The control's count of a position with line ends as one: that plus the number of its line.
long compte_du_controle(const wxTextCtrl& controle, long position) {
    long premiere = 0;
    long derniere = demande(controle, EM_GETLINECOUNT, 0) - 1;
    while (premiere < derniere) {
        const long milieu = (premiere + derniere + 1) / 2;
        if (debut_ligne(controle, milieu) <= position)
            premiere = milieu;
        else
            derniere = milieu - 1;
    }
    return position + premiere;
}

// The other way.
long compte_simple(const wxTextCtrl& controle, DWORD position) {
    const long compte = static_cast<long>(position);
    return compte - demande(controle, EM_LINEFROMCHAR, compte);
}

std::wstring texte_large(const wxTextCtrl& controle) {
    const int taille = GetWindowTextLengthW(poignee(controle));
    std::wstring texte(static_cast<std::size_t>(taille) + 1, L'\0');
    const int lus = GetWindowTextW(poignee(controle), texte.data(), taille + 1);
    texte.resize(static_cast<std::size_t>(lus));
    return texte;
}

// The text as the control takes it.
std::wstring avec_cr_lf(std::string_view utf8) {
    std::wstring sortie;
    sortie.reserve(utf8.size() + utf8.size() / 16);
    for (const wchar_t c : vers_utf16(utf8)) {
        if (c == L'\n') sortie += L'\r';
        sortie += c;
    }
    return sortie;
}

// Replaces the selection. The control's own menu offers undo from then on.
void remplace_selection(const wxTextCtrl& controle, std::string_view utf8) {
    SendMessageW(poignee(controle), EM_REPLACESEL, TRUE,
                 reinterpret_cast<LPARAM>(avec_cr_lf(utf8).c_str()));
}

// An accent that comes alone joins the letter in front of it. True when it did.
bool joint_accent(const wxTextCtrl& controle, char32_t accent) {
    DWORD de = 0;
    SendMessageW(poignee(controle), EM_GETSEL, reinterpret_cast<WPARAM>(&de), 0);
    if (!est_accent(accent) || de == 0) return false;
    const char32_t lettre = compose(texte_large(controle)[de - 1], accent);
    if (lettre == 0) return false;
    SendMessageW(poignee(controle), EM_SETSEL, de - 1, static_cast<LPARAM>(de));
    remplace_selection(controle, wxString(wxUniChar(lettre)).utf8_string());
    return true;
}

// What stands in the line in front of the selection, in UTF-8.
std::string ligne_devant(const wxTextCtrl& controle) {
    DWORD de = 0;
    SendMessageW(poignee(controle), EM_GETSEL, reinterpret_cast<WPARAM>(&de), 0);
    const std::wstring texte = texte_large(controle).substr(0, de);
    return depuis_utf16(texte.substr(texte.rfind(L'\n') + 1));
}

// What is typed goes in as the sheet can have it, or not at all.
void insere(const wxTextCtrl& controle, const FiltreSaisie& filtre, std::string_view utf8) {
    const TexteSaisi saisi = saisit(utf8, ligne_devant(controle));
    if (!saisi.refuse)
        remplace_selection(controle, saisi.texte);
    else if (joint_accent(controle, saisi.refuse->caractere))
        return;
    if (const std::string mots = mots_saisie(saisi, utf8); !mots.empty())
        filtre.dit(mots, saisi.refuse.has_value());
}

// The filter at work on one control.
struct Saisie {
    wxTextCtrl& controle;
    FiltreSaisie filtre;
    wchar_t moitie = 0;   // first half of a pair, until the second comes
};

// A typed character. The control puts plain ones in by itself.
void caractere_tape(Saisie& s, wxKeyEvent& e) {
    const wchar_t signe = static_cast<wchar_t>(e.GetUnicodeKey());
    if (signe < 0x80 || !s.controle.IsEditable()) {
        e.Skip();
        return;
    }
    if (IS_HIGH_SURROGATE(signe)) {
        s.moitie = signe;
        return;
    }
    const wchar_t avant = std::exchange(s.moitie, L'\0');
    const std::wstring tape =
        IS_LOW_SURROGATE(signe) ? std::wstring{avant, signe} : std::wstring{signe};
    insere(s.controle, s.filtre, depuis_utf16(tape));
}

// The clipboard's text replaces the selection, or nothing happens.
void colle(Saisie& s) {
    wxTextDataObject texte;
    if (!s.controle.IsEditable() || !wxTheClipboard->Open()) return;
    const bool lu = wxTheClipboard->GetData(texte);
    wxTheClipboard->Close();
    const TexteSaisi saisi =
        saisit(lu ? texte.GetText().utf8_string() : "", ligne_devant(s.controle));
    if (!saisi.refuse && saisi.caracteres > 0) remplace_selection(s.controle, saisi.texte);
    s.filtre.dit(mots_collage(saisi), saisi.refuse.has_value());
}

constexpr WPARAM kSigneAnnuler = 0x1A;   // what Ctrl+Z types
constexpr WPARAM kSigneEffacer = 0x7F;   // what Ctrl+Backspace types

// The control's menu, a paste, a reader or another program is about to change the text.
bool va_changer(UINT message) {
    return message == WM_CHAR || message == WM_PASTE || message == WM_CUT || message == WM_CLEAR ||
           message == EM_REPLACESEL || message == WM_SETTEXT;
}

// The ways to the control's own undo. Its menu and Alt+Backspace mean the program's; Ctrl+Z has
// reached that as it was pressed, and what the key types does nothing more.
bool demande_annuler(UINT message, WPARAM valeur) {
    return message == WM_UNDO || message == EM_UNDO ||
           (message == WM_SYSKEYDOWN && valeur == VK_BACK);
}
bool ne_fait_rien(UINT message, WPARAM valeur) {
    return (message == WM_CHAR && (valeur == kSigneAnnuler || valeur == kSigneEffacer)) ||
           (message == WM_SYSCHAR && valeur == VK_BACK);
}

// Messages on their way to the control, before anything else sees them.
LRESULT CALLBACK avant_controle(HWND fenetre, UINT message, WPARAM valeur, LPARAM suite,
                                UINT_PTR numero, DWORD_PTR donnees) {
    const auto& s = *reinterpret_cast<const Saisie*>(donnees);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(fenetre, avant_controle, numero);
    if (ne_fait_rien(message, valeur)) return 0;
    if (demande_annuler(message, valeur)) {
        s.filtre.annule();
        return TRUE;
    }
    if (va_changer(message) && !s.filtre.programme()) s.filtre.avant();
    return DefSubclassProc(fenetre, message, valeur, suite);
}

}  // namespace

std::string texte_de_la_vue(const wxTextCtrl& controle) {
    std::wstring texte = texte_large(controle);
    std::erase(texte, L'\r');
    return depuis_utf16(texte);
}

void remplace_dans_la_vue(wxTextCtrl& controle, long de, long a, std::string_view utf8) {
    SendMessageW(poignee(controle), EM_SETSEL,
                 static_cast<WPARAM>(compte_du_controle(controle, de)),
                 compte_du_controle(controle, a));
    remplace_selection(controle, utf8);
}

void lit_selection_de_la_vue(const wxTextCtrl& controle, long& de, long& a) {
    DWORD debut = 0;
    DWORD fin = 0;
    SendMessageW(poignee(controle), EM_GETSEL, reinterpret_cast<WPARAM>(&debut),
                 reinterpret_cast<LPARAM>(&fin));
    de = compte_simple(controle, debut);
    a = compte_simple(controle, fin);
}

void pose_selection_de_la_vue(wxTextCtrl& controle, long de, long a) {
    SendMessageW(poignee(controle), EM_SETSEL,
                 static_cast<WPARAM>(compte_du_controle(controle, de)),
                 compte_du_controle(controle, a));
}

// The line is shown from its beginning whenever the cursor can be seen so: back to the left edge first,
// and from there only as far as the cursor asks for.
void montre_curseur_de_la_vue(wxTextCtrl& controle, long) {
    SendMessageW(poignee(controle), WM_HSCROLL, SB_LEFT, 0);
    demande(controle, EM_SCROLLCARET, 0);
}

void pose_police_de_la_vue(wxTextCtrl& controle, const wxFont& police) { controle.SetFont(police); }

void pose_couleurs_de_la_vue(wxTextCtrl& controle, const wxColour& caracteres, const wxColour& fond) {
    controle.SetForegroundColour(caracteres);
    controle.SetBackgroundColour(fond);
}

// A reader asks by itself what the text has become.
void tait_les_changements(const wxTextCtrl&, bool) {}

void filtre_la_saisie(wxTextCtrl& controle, FiltreSaisie filtre) {
    controle.SetMaxLength(0);   // otherwise a sheet ends at 32,767 characters
    const auto saisie = std::make_shared<Saisie>(Saisie{controle, std::move(filtre)});
    controle.Bind(wxEVT_CHAR, [saisie](wxKeyEvent& e) { caractere_tape(*saisie, e); });
    controle.Bind(wxEVT_TEXT_PASTE, [saisie](wxClipboardTextEvent&) { colle(*saisie); });
    controle.Bind(wxEVT_TEXT, [saisie](wxCommandEvent& e) {
        saisie->filtre.change();
        e.Skip();
    });
    SetWindowSubclass(poignee(controle), avant_controle, 1,
                      reinterpret_cast<DWORD_PTR>(saisie.get()));
}
