// What the window tells readers through the system's store of properties, which Wine has as an empty
// shell: a store of our own takes its place in this process and writes down what it is given. One JSON
// line for each property. Changes nothing but the class registered for the store.
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
#include "shell/wx/announce.hpp"

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

void tell(HWND window, DWORD object, DWORD child, const GUID& property, const nlohmann::json& value) {
    std::cout << nlohmann::json{{"window", windows[window]},
                                {"whole", object == static_cast<DWORD>(OBJID_CLIENT) && child == 0},
                                {"property", name_of(property)},
                                {"value", value}}
                     .dump()
              << std::endl;
}

// The store, and the factory that makes it: one object that lives as long as the program.
struct Store : IAccPropServices {
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        if (id != IID_IUnknown && id != IID_IAccPropServices) return E_NOINTERFACE;
        *out = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int,
                                            IAccPropServer*, AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                          VARIANT value) override {
        tell(window, object, child, property, value.vt == VT_I4 ? nlohmann::json(value.lVal) : nullptr);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD object, DWORD child,
                                             MSAAPROPID property, LPCWSTR value) override {
        tell(window, object, child, property, depuis_utf16(value));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int,
                                                IAccPropServer*, AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*,
                                                          DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                 AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*,
                                                           DWORD*) override {
        return E_NOTIMPL;
    }
};
Store store;

struct Factory : IClassFactory {
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
        *out = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** out) override {
        return store.QueryInterface(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};
Factory factory;

}  // namespace

int main(int argc, char** argv) {
    wxApp::SetInstance(new wxApp);
    if (!wxEntryStart(argc, argv)) return 1;
    DWORD registered = 0;
    if (FAILED(CoRegisterClassObject(CLSID_AccPropServices, &factory, CLSCTX_INPROC_SERVER,
                                     REGCLS_MULTIPLEUSE, &registered)))
        return 1;
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "");
    auto* const line = new wxStaticText(frame, wxID_ANY, "");
    auto* const bar = new wxPanel(frame);
    windows = {{static_cast<HWND>(line->GetHandle()), "line"}, {static_cast<HWND>(bar->GetHandle()), "bar"}};
    prepare_ligne(*line);
    nomme(*bar, "Écran");
    declare_barre_etat(*bar);
    CoRevokeClassObject(registered);
    frame->Destroy();
    wxEntryCleanup();
    return 0;
}
