// What the window tells readers through the system's store of properties: a store of our own takes its
// place in this process and writes down what it is given. One JSON line for each property. Changes
// nothing but the class registered for the store.
#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/stattext.h>

#include <iostream>
#include <map>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/utf16_windows.hpp"
#include "property_store.hpp"
#include "wx/announce.hpp"

namespace {

std::map<HWND, std::string> windows;   // by their names here

// A property as the systems' headers call it, told apart by its number.
std::string name_of(const GUID& property) {
    wchar_t text[64];
    StringFromGUID2(property, text, 64);
    return property == PROPID_ACC_NAME   ? "name"
           : property == PROPID_ACC_ROLE ? "role"
                                         : depuis_utf16(text);
}

void noted(HWND window, DWORD object, DWORD child, const GUID& property, const wchar_t* text,
           const LONG* number) {
    nlohmann::json value;
    if (text != nullptr) value = depuis_utf16(text);
    if (number != nullptr) value = *number;
    std::cout << nlohmann::json{{"window", windows[window]},
                                {"whole", object == static_cast<DWORD>(OBJID_CLIENT) && child == 0},
                                {"property", name_of(property)},
                                {"value", value}}
                     .dump()
              << std::endl;
}

Factory factory;

}  // namespace

int main(int argc, char** argv) {
    wxApp::SetInstance(new wxApp);
    if (!wxEntryStart(argc, argv)) return 1;
    if (!factory.begin(noted)) return 1;
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "");
    auto* const line = new wxStaticText(frame, wxID_ANY, "");
    auto* const bar = new wxPanel(frame);
    windows = {{static_cast<HWND>(line->GetHandle()), "line"}, {static_cast<HWND>(bar->GetHandle()), "bar"}};
    prepare_ligne(*line);
    nomme(*bar, "Écran");
    declare_barre_etat(*bar);
    factory.end();
    frame->Destroy();
    wxEntryCleanup();
    return 0;
}
