#include "PollingCadence.h"

#include <algorithm>
#include <limits>

namespace {
// The spelling is the one that users know from their logs. It names the rule, not the direction:
// from base + 5000 down to base + 1000 still reads "erhoeht".
const char kLonger[] = "Updateinterval erhoeht auf: %1 ms";
const char kShorter[] = "Updateinterval veringert auf: %1 ms";

struct Rule
{
    int fewest;
    int most;
    int surplusMs;
    const char *message;
};

constexpr int kNoLimit = std::numeric_limits<int>::max();
constexpr Rule kRules[] = {
    {31, 100, 1000, kLonger},
    {101, 200, 2000, kLonger},
    {201, kNoLimit, 5000, kLonger},
    {std::numeric_limits<int>::min(), 4, 0, kShorter},
};
} // namespace

CadenceStep NextInterval(int queued, int base, int current)
{
    for (const Rule &rule : kRules) {
        const int wanted = rule.surplusMs + std::min(base, kNoLimit - rule.surplusMs);
        if (queued >= rule.fewest && queued <= rule.most && current != wanted)
            return {wanted, QString::fromLatin1(rule.message).arg(wanted)};
    }
    return {current, QString()};
}
