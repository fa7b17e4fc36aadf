#pragma once

#include "Controllers.h"

#include <QStringList>
#include <QVector>

/// The controllers of the driven loco. The position of a controller equals its id.
class ControllerList
{
public:
    /// Reads "id::name::min::max::" groups and appends one controller for each whole group.
    /// Empty parts count as fields, so a controller without a name shifts nothing.
    void ParseControllerList(const QString &text, bool clear);

    /// Reads "id::name::min::max::value::" groups and takes over the values. A group whose id is
    /// no position of the list is skipped.
    void ParseControllerValues(const QString &text);

    /// Copies the first controller with that id into `out`; false when there is none.
    bool FindById(int id, VControllerBase &out) const;

    /// Copies the first controller with that name, whatever its case, into `out`.
    bool FindByName(const QString &name, VControllerBase &out) const;

    int Count() const { return controllers.size(); }
    void Clear() { controllers.clear(); }
    QStringList Names() const;

    /// One text a controller, "name min:lowest max:highest".
    QStringList Describe() const;

    /// Writes the lines of `Describe`. On failure the old file stays and false is returned.
    bool SaveToFile(const QString &path) const;

    const QVector<VControllerBase> &Controllers() const { return controllers; }

private:
    template <typename Predicate>
    bool Find(Predicate matches, VControllerBase &out) const;

    QVector<VControllerBase> controllers;
};
