#pragma once

#include <QString>

/// One scenario of a route. Only `displayName` and `description` are filled.
struct ScenarioInfo
{
    QString id;
    QString path;
    QString displayName;
    QString description;
    QString extra; ///< tool tip of its list item
};

/// Reads the display name of a `RouteProperties.xml` into `out`: the last "English" or "German"
/// element with more than 2 characters, wherever in the file it stands, so that a German name,
/// which comes later, wins. False when the file cannot be opened or is malformed.
bool ReadRouteProperties(const QString &path, QString &out);

/// Reads name and description of a `ScenarioProperties.xml`. Here only the elements inside
/// "DisplayName" and "Description" count. False as above.
bool ReadScenarioProperties(const QString &path, ScenarioInfo &out);
