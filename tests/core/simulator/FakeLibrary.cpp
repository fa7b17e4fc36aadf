#include "FakeLibrary.h"

namespace {
FakeLibrary *fake = nullptr;

void Note(const QString &call)
{
    fake->calls.append(call);
}

QString Arguments(const char *function, double first, double second)
{
    return QString("%1 %2 %3").arg(function).arg(first).arg(second);
}

void SetConnected(bool on)
{
    Note(on ? "SetRailDriverConnected true" : "SetRailDriverConnected false");
}

bool GetConnected()
{
    Note("GetRailDriverConnected");
    return fake->connected;
}

const char *GetList()
{
    return fake->names;
}

float GetValue(int id, int kind)
{
    Note(Arguments("GetControllerValue", id, kind));
    return fake->values.value(10 * id + kind);
}

void SetValue(int id, float value)
{
    Note(Arguments("SetControllerValue", id, static_cast<double>(value)));
}

const char *GetName()
{
    return fake->locoName;
}

float GetRailSimValue(int id, int kind)
{
    Note(Arguments("GetRailSimValue", id, kind));
    return fake->railSimValues.value(id);
}

bool GetLocoChanged()
{
    return fake->locoChanged;
}

const QMap<QByteArray, QFunctionPointer> kFunctions{
    {"SetRailDriverConnected", reinterpret_cast<QFunctionPointer>(SetConnected)},
    {"GetRailDriverConnected", reinterpret_cast<QFunctionPointer>(GetConnected)},
    {"GetControllerList", reinterpret_cast<QFunctionPointer>(GetList)},
    {"GetControllerValue", reinterpret_cast<QFunctionPointer>(GetValue)},
    {"SetControllerValue", reinterpret_cast<QFunctionPointer>(SetValue)},
    {"GetLocoName", reinterpret_cast<QFunctionPointer>(GetName)},
    {"GetRailSimValue", reinterpret_cast<QFunctionPointer>(GetRailSimValue)},
    {"GetRailSimLocoChanged", reinterpret_cast<QFunctionPointer>(GetLocoChanged)},
};

class Library : public DynamicLibrary
{
public:
    ~Library() override { fake->loaded -= loaded ? 1 : 0; }

    bool Load(const QString &path) override
    {
        fake->tried.append(path);
        loaded = fake->files.contains(path);
        error = loaded ? QString() : "no file " + path;
        fake->loaded += loaded ? 1 : 0;
        return loaded;
    }
    bool IsLoaded() const override { return loaded; }
    QString ErrorText() const override { return error; }
    QFunctionPointer Resolve(const char *name) override
    {
        return fake->lacking.contains(name) ? nullptr : kFunctions.value(name);
    }

private:
    bool loaded = false;
    QString error;
};
} // namespace

FakeLibrary::FakeLibrary()
{
    fake = this;
}

FakeLibrary::~FakeLibrary()
{
    fake = nullptr;
}

DynamicLibraryFactory FakeLibrary::Factory()
{
    return [] { return std::make_unique<Library>(); };
}
