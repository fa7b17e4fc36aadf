// show_and_close VERSION PROGRAM [OPTION...]
//
// Starts a program that carries this version, waits until the main window of Zugblick is on the
// screen, closes it as a user does, and waits for the program's end. Fails, and says why, when one
// of these does not happen or when the program reports a failure.

#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {
constexpr DWORD kPatienceMs = 120000;
constexpr DWORD kPauseMs = 100;

int Fail(const wchar_t *what, const std::wstring &which)
{
    std::fwprintf(stderr, L"show_and_close: %ls %ls\n", what, which.c_str());
    return 1;
}

std::wstring VersionOf(const std::wstring &program)
{
    DWORD unused = 0;
    std::vector<char> record(GetFileVersionInfoSizeW(program.c_str(), &unused));
    void *text = nullptr;
    UINT length = 0;
    if (record.empty()
        || !GetFileVersionInfoW(program.c_str(), 0, static_cast<DWORD>(record.size()),
                                record.data())
        || !VerQueryValueW(record.data(), L"\\StringFileInfo\\040904b0\\FileVersion", &text,
                           &length))
        return L"(no version record)";
    return static_cast<const wchar_t *>(text);
}

std::wstring CommandLine(int count, wchar_t **parts)
{
    std::wstring line;
    for (int part = 0; part < count; ++part)
        line += L'"' + std::wstring(parts[part]) + L"\" ";
    return line;
}

/// Takes the main window once it is shown at a size that can be used.
BOOL CALLBACK TakeMainWindow(HWND window, LPARAM taken)
{
    wchar_t title[200] = {};
    RECT place{};
    GetWindowTextW(window, title, 200);
    if (IsWindowVisible(window) && std::wstring(title) == L"Zugblick x64"
        && GetWindowRect(window, &place) && place.right - place.left > 200
        && place.bottom - place.top > 200)
        *reinterpret_cast<HWND *>(taken) = window;
    return TRUE;
}

BOOL CALLBACK TellWindow(HWND window, LPARAM)
{
    wchar_t title[200] = {};
    if (IsWindowVisible(window) && GetWindowTextW(window, title, 200) > 0)
        std::fwprintf(stderr, L"  on the screen: %ls\n", title);
    return TRUE;
}

HWND WaitForMainWindow(HANDLE process)
{
    HWND window = nullptr;
    const DWORD start = GetTickCount();
    while (window == nullptr && GetTickCount() - start < kPatienceMs
           && WaitForSingleObject(process, kPauseMs) == WAIT_TIMEOUT)
        EnumWindows(&TakeMainWindow, reinterpret_cast<LPARAM>(&window));
    return window;
}

int ShowAndClose(HANDLE process, const std::wstring &name)
{
    const HWND window = WaitForMainWindow(process);
    if (window == nullptr) {
        EnumWindows(&TellWindow, 0);
        return Fail(L"no window of", name);
    }
    // A window that is still being painted by the time it is closed would show little.
    DWORD_PTR unused = 0;
    if (SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &unused) == 0)
        return Fail(L"no answer from the window of", name);
    PostMessageW(window, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(process, kPatienceMs) != WAIT_OBJECT_0) {
        EnumWindows(&TellWindow, 0);
        return Fail(L"no end of", name);
    }
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return code == 0 ? 0 : Fail(L"failure reported by", name + L": " + std::to_wstring(code));
}
} // namespace

int wmain(int argc, wchar_t **argv)
{
    if (argc < 3)
        return Fail(L"usage:", L"show_and_close VERSION PROGRAM [OPTION...]");
    const std::wstring program = argv[2];
    const std::wstring version = VersionOf(program);
    if (version != argv[1])
        return Fail(L"wrong version of", program + L": " + version);

    std::wstring line = CommandLine(argc - 2, argv + 2);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &started))
        return Fail(L"cannot start", line);
    const int result = ShowAndClose(started.hProcess, program);
    if (result != 0)
        TerminateProcess(started.hProcess, 1);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return result;
}
