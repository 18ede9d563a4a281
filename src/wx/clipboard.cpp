// The system's clipboard behind the port: text alone. Changes the clipboard.
#include "wx/clipboard.hpp"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include <string>
#include <string_view>

#include "platform/platform.hpp"

namespace {

std::string lit() {
    const wxClipboardLocker ouvert;
    wxTextDataObject texte;
    if (!ouvert || !wxTheClipboard->IsSupported(wxDF_UNICODETEXT) || !wxTheClipboard->GetData(texte)) return "";
    return texte.GetText().utf8_string();
}

bool pose(std::string_view utf8) {
    const wxClipboardLocker ouvert;
    if (!ouvert) return false;
    return wxTheClipboard->SetData(new wxTextDataObject(wxString::FromUTF8(utf8.data(), utf8.size())));
}

}  // namespace

void installe_presse_papiers() { port.presse_papiers = {lit, pose}; }
