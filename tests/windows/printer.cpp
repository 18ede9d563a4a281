// Installs a printer in a Wine that has none: PostScript, described by the file given, and the
// default one from then on.   printer DESCRIPTION.PPD
#include <windows.h>

#include <winspool.h>

#include <iostream>
#include <string>

#include "platform/console.hpp"
#include "platform/utf16_windows.hpp"

namespace {

constexpr DWORD kCopyFromFolder = 0x10;   // APD_COPY_FROM_DIRECTORY

bool add_driver(std::wstring name, std::wstring description) {
    std::wstring driver = L"wineps.drv";
    std::wstring type = L"RAW";
    DRIVER_INFO_3W d{};
    d.cVersion = 3;
    d.pName = name.data();
    d.pDriverPath = d.pConfigFile = driver.data();
    d.pDataFile = description.data();
    d.pDefaultDataType = type.data();
    return AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&d),
                               APD_COPY_NEW_FILES | kCopyFromFolder) != 0;
}

bool add_printer(std::wstring name) {
    std::wstring port = L"FILE:";
    std::wstring processor = L"WinPrint";
    std::wstring type = L"RAW";
    PRINTER_INFO_2W p{};
    p.pPrinterName = p.pDriverName = name.data();
    p.pPortName = port.data();
    p.pPrintProcessor = processor.data();
    p.pDatatype = type.data();
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&p));
    if (printer == nullptr) return false;
    ClosePrinter(printer);
    return SetDefaultPrinterW(name.c_str()) != 0;
}

}  // namespace

int main(int argc, char** argv) {
    const auto arguments = prepare_console(argc, argv);
    if (arguments.size() == 1 && add_driver(L"Essai", vers_utf16(arguments.front())) &&
        add_printer(L"Essai"))
        return 0;
    std::cerr << "printer: error " << GetLastError() << '\n';
    return 1;
}
