#include "ControllerList.h"

#include <cstdlib>

// The text of a list, and, behind the first line feed, that of its values.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const int end = input.indexOf('\n');
    const QString text = QString::fromUtf8(input.left(end));
    ControllerList list;
    list.ParseControllerValues(text); // into an empty list
    list.ParseControllerList(text, true);
    const int count = list.Count();
    if (end >= 0)
        list.ParseControllerValues(QString::fromUtf8(input.mid(end + 1)));
    if (list.Count() != count || list.Describe().size() != count)
        std::abort();

    for (const VControllerBase &each : list.Controllers()) {
        VControllerBase copy;
        copy.ReadConfigText(each.ToConfigText());
        // One line of a configuration brings everything back, unless the name breaks its form.
        if (!each.name.contains(QLatin1Char(':')) && copy.ToConfigText() != each.ToConfigText())
            std::abort();
    }
    VControllerBase found;
    list.FindByName(text.left(8), found);
    list.ParseControllerList(text, false);
    return list.Count() == 2 * count ? 0 : (std::abort(), 0);
}
