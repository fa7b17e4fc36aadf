#pragma once

#include "TrainModel.h"

#include <QString>

namespace practice {

/// The commands that a person types while the practice train runs.
class Console
{
public:
    explicit Console(TrainModel &itsModel) : model(itsModel) { }

    struct Answer
    {
        QString text; ///< for the person, may be empty
        bool quit = false;
    };

    Answer Run(const QString &line);

    static QString Help();

private:
    QString ChangeLoco(const QString &name);
    QString ChangeTimetable(const QString &name);
    QString SetController(const QString &arguments);
    QString List() const;
    int FindController(const QString &name) const;

    TrainModel &model;
};

} // namespace practice
