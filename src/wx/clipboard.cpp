// The system's clipboard behind the port: text alone. Changes the clipboard.
#include "wx/clipboard.hpp"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include <string>

#include "platform/platform.hpp"

namespace {

std::string lit() {
    const wxClipboardLocker ouvert;
    wxTextDataObject texte;
    if (!ouvert || !wxTheClipboard->IsSupported(wxDF_UNICODETEXT) || !wxTheClipboard->GetData(texte)) return "";
    return texte.GetText().utf8_string();
}

}  // namespace

void installe_presse_papiers() { port.presse_papiers = {lit, pose_presse_papiers}; }
