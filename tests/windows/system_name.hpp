// What the test's programs find out of a window as the system's readers do.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

#include "platform/utf16_windows.hpp"

inline std::string class_of(HWND window) {
    wchar_t name[64];
    return depuis_utf16({name, static_cast<std::size_t>(GetClassNameW(window, name, 64))});
}

// The name of a part of an accessible object, which is let go.
inline std::string take_name(IAccessible* object, const VARIANT& part) {
    BSTR words = nullptr;
    object->get_accName(part, &words);
    const std::string name = words == nullptr ? "" : depuis_utf16(words);
    SysFreeString(words);
    object->Release();
    return name;
}

// The name that the system makes of a window for readers.
inline std::string system_name(HWND window) {
    IAccessible* object = nullptr;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                          reinterpret_cast<void**>(&object))))
        return "";
    VARIANT self{};
    self.vt = VT_I4;
    return take_name(object, self);
}
