// Under Wine this is osmfilter.exe: it hands its arguments to Debian's osmfilter, with paths of
// that side. Wine gives no handle to wait for a program of that side, so a shell leaves a file
// behind when it has ended.

#include <windows.h>

#include <string>

namespace {
constexpr DWORD kPatienceMs = 60000;
constexpr DWORD kPauseMs = 20;

/// `C:\x` and `-o=C:/x` as the other side knows them; anything else as it is.
std::wstring OnOtherSide(const std::wstring &argument)
{
    const std::size_t colon = argument.find(L":");
    if (colon == std::wstring::npos || colon == 0)
        return argument;
    using UnixName = char *(__cdecl *)(const wchar_t *);
    const auto unixName = reinterpret_cast<UnixName>(reinterpret_cast<void *>(
        GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
    char *path = unixName == nullptr ? nullptr : unixName(argument.substr(colon - 1).c_str());
    if (path == nullptr)
        return argument;
    wchar_t wide[1000] = {};
    MultiByteToWideChar(CP_UTF8, 0, path, -1, wide, 999);
    HeapFree(GetProcessHeap(), 0, path);
    return argument.substr(0, colon - 1) + wide;
}
} // namespace

int wmain(int argc, wchar_t **argv)
{
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring ended =
        std::wstring(folder) + L"osmfilter" + std::to_wstring(GetCurrentProcessId());

    std::wstring line = L"/bin/sh -c \"/usr/bin/osmfilter \\\"$@\\\"; : > \\\"$0\\\"\" \""
        + OnOtherSide(ended) + L'"';
    for (int i = 1; i < argc; ++i)
        line += L" \"" + OnOtherSide(argv[i]) + L'"';
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(L"Z:\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &started))
        return 1;
    for (DWORD waited = 0; waited < kPatienceMs; waited += kPauseMs) {
        if (DeleteFileW(ended.c_str()))
            return 0;
        Sleep(kPauseMs);
    }
    return 1;
}
