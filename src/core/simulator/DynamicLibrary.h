#pragma once

#include <QLibrary>
#include <QString>

/// A library of foreign functions in this process. Destroying it unloads the library, so nothing
/// that `Resolve` gave may be called afterwards.
class DynamicLibrary
{
public:
    DynamicLibrary() = default;
    // `QLibrary` alone would keep the file loaded until the program ends: a simulator that was
    // updated or moved between two connects would not be noticed.
    ~DynamicLibrary()
    {
        if (library.isLoaded())
            library.unload();
    }
    Q_DISABLE_COPY_MOVE(DynamicLibrary)

    /// Loads that file, in place of what failed to load before.
    bool Load(const QString &path)
    {
        library.setFileName(path);
        return library.load();
    }
    bool IsLoaded() const { return library.isLoaded(); }
    /// Why the last `Load` failed.
    QString ErrorText() const { return library.errorString(); }
    /// Null when the library has no function of that name.
    QFunctionPointer Resolve(const char *name) { return library.resolve(name); }

private:
    QLibrary library;
};
