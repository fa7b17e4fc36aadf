#pragma once

/// Distance in kilometres between two positions in degrees, by the spherical law of cosines on a
/// radius of 6378.137 km. Every position comparison of the program uses it.
float GreatCircleDistance(float latitude1, float longitude1, float latitude2, float longitude2);
