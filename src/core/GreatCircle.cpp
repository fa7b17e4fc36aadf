#include "GreatCircle.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double kEarthRadiusKm = 6378.137;

double Radians(double degrees)
{
    return degrees * 3.141592653589793 / 180.0;
}
} // namespace

float GreatCircleDistance(float latitude1, float longitude1, float latitude2, float longitude2)
{
    if (latitude1 == latitude2 && longitude1 == longitude2)
        return 0.0F;
    const double lat1 = Radians(latitude1);
    const double lat2 = Radians(latitude2);
    const double dlon = Radians(static_cast<double>(longitude2) - static_cast<double>(longitude1));
    const double c =
        std::cos(lat1) * std::cos(lat2) * std::cos(dlon) + std::sin(lat1) * std::sin(lat2);
    if (c > 1.0)
        return 0.0F;
    // Rounding can also undershoot -1 at the antipodes; a NaN would poison the running distance.
    return static_cast<float>(std::acos(std::max(c, -1.0)) * kEarthRadiusKm);
}
