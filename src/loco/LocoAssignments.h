#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One entry of `locos.cfg`: the locos that share a configuration file.
struct LocoAssignment
{
    QString group; ///< name of the entry
    QString fileName; ///< as it stands in the file
    QStringList locos; ///< loco names as the simulator reports them

    /// The name in `lococonfig/`: `fileName` without any folder, whichever platform wrote it.
    QString ConfigFileName() const;
};

/// The file `locos.cfg` of the work folder, an INI file with one group an entry, the key
/// "filename" and the array "locos" of the key "loco".
class LocoAssignments
{
public:
    /// Replaces the entries by those of the file, in its order; a missing file has none. The
    /// order does not survive `Write`, which sorts the groups by name.
    void Read(const QString &path);

    /// Clears the file and writes all entries; false when that failed. Of two entries with one
    /// group the later one is kept.
    bool Write(const QString &path) const;

    /// The first entry that names exactly this loco; null when none does.
    const LocoAssignment *Find(const QString &locoName) const;

    QVector<LocoAssignment> entries;
};
