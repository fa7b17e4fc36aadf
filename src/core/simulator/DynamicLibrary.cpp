#include "DynamicLibrary.h"

#include <QLibrary>

namespace {
class PlatformLibrary : public DynamicLibrary
{
public:
    // `QLibrary` alone would keep the file loaded until the program ends: a simulator that was
    // updated or moved between two connects would not be noticed.
    ~PlatformLibrary() override
    {
        if (library.isLoaded())
            library.unload();
    }

    bool Load(const QString &path) override
    {
        library.setFileName(path);
        return library.load();
    }
    bool IsLoaded() const override { return library.isLoaded(); }
    QString ErrorText() const override { return library.errorString(); }
    QFunctionPointer Resolve(const char *name) override { return library.resolve(name); }

private:
    QLibrary library;
};
} // namespace

std::unique_ptr<DynamicLibrary> CreateDynamicLibrary()
{
    return std::make_unique<PlatformLibrary>();
}
