// The library of the stand-in reader, built under the names of two readers' own: loaded into the
// program by the reader's hook, it is the system's store of names there, and notes each name where the
// test finds it. Changes the shared names and the class registered for the store.
#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

#include <string_view>

#include "names.hpp"
#include "property_store.hpp"

namespace {

Factory factory;

void take(HWND window, DWORD object, DWORD child, const GUID& property, const wchar_t* text,
          const LONG*) {
    if (property == PROPID_ACC_NAME && object == static_cast<DWORD>(OBJID_CLIENT) && child == 0)
        note_name(window, text);
}

bool in_the_program() {
    wchar_t path[1024];
    const std::wstring_view file(path, GetModuleFileNameW(nullptr, path, 1024));
    return file.ends_with(L"\\VOXTAB.EXE");
}

bool begin() {
    for (auto& row : names()->row) row.window = nullptr;   // of a program that has ended
    const bool done = factory.begin(take);
    names()->process = static_cast<LONG>(GetCurrentProcessId());
    return done;
}

}  // namespace

// Every message that a program gets passes here; the first one in ours begins the store.
extern "C" __declspec(dllexport) LRESULT CALLBACK message_comes(int code, WPARAM value, LPARAM data) {
    static const bool begun = in_the_program() && begin();
    (void)begun;
    return CallNextHookEx(nullptr, code, value, data);
}
