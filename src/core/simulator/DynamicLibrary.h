#pragma once

#include <QString>

#include <functional>
#include <memory>

/// A library of foreign functions in this process. Tests put functions of their own behind it.
/// Destroying it unloads the library, so nothing that `Resolve` gave may be called afterwards.
class DynamicLibrary
{
public:
    virtual ~DynamicLibrary() = default;

    /// Loads that file, in place of what failed to load before.
    virtual bool Load(const QString &path) = 0;
    virtual bool IsLoaded() const = 0;
    /// Why the last `Load` failed.
    virtual QString ErrorText() const = 0;
    /// Null when the library has no function of that name.
    virtual QFunctionPointer Resolve(const char *name) = 0;
};

using DynamicLibraryFactory = std::function<std::unique_ptr<DynamicLibrary>()>;

/// Libraries as this platform loads them.
std::unique_ptr<DynamicLibrary> CreateDynamicLibrary();
