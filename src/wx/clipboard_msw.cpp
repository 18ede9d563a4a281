// A text on the clipboard of Windows. Flushed at once: the system keeps it itself from then on.
#include "wx/clipboard.hpp"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

bool pose_presse_papiers(std::string_view utf8) {
    const wxClipboardLocker ouvert;
    if (!ouvert) return false;
    if (!wxTheClipboard->SetData(new wxTextDataObject(wxString::FromUTF8(utf8.data(), utf8.size())))) return false;
    wxTheClipboard->Flush();
    return true;
}
