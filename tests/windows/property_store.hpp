// The system's store of what readers are told of a window, which Wine has as an empty shell: this one
// hands on what it is given. Holds nothing but the procedure that takes it.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <functional>

// Takes a property of a window: a text or a number; neither when the property is taken back.
using TakeProperty = std::function<void(HWND window, DWORD object, DWORD child, const GUID& property,
                                        const wchar_t* text, const LONG* number)>;

// The store: one object that lives as long as the program.
struct Store : IAccPropServices {
    TakeProperty take;

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
        take(window, object, child, property, nullptr, value.vt == VT_I4 ? &value.lVal : nullptr);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD object, DWORD child,
                                             MSAAPROPID property, LPCWSTR value) override {
        take(window, object, child, property, value, nullptr);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int,
                                                IAccPropServer*, AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND window, DWORD object, DWORD child,
                                             const MSAAPROPID* properties, int count) override {
        for (int i = 0; i < count; ++i) take(window, object, child, properties[i], nullptr, nullptr);
        return S_OK;
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

// Gives that store to whoever asks the system for one in this process.
struct Factory : IClassFactory {
    Store store;
    DWORD registered = 0;

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

    bool begin(TakeProperty take) {
        store.take = std::move(take);
        return SUCCEEDED(CoRegisterClassObject(CLSID_AccPropServices, this, CLSCTX_INPROC_SERVER,
                                               REGCLS_MULTIPLEUSE, &registered));
    }
    void end() const { CoRevokeClassObject(registered); }
};
