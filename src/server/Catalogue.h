#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// What is known about a file of the catalogue, compared with the one in the work folder.
enum FileState : quint8 {
    FileNotCompared = 0,
    FileNew = 1, ///< no readable local file
    FileUpdate = 2, ///< the server's version is higher
    FilePresent = 3, ///< the same version
    FileNewerHere = 4, ///< the local version is higher
};

/// The kinds of file that the server keeps; a catalogue may name others, which nothing shows.
enum FileType : int {
    FileRoutePlan = 1,
    FileTimeTable = 2,
    FileLocoConfig = 3,
};

/// One row of the catalogue.
struct FileEntry
{
    quint8 state = FileNotCompared;
    QString name;
    QString author;
    QString version; ///< the server's
    QString localVersion; ///< set by the comparison
    int type = 0;
    QString description;
    QString lastUpdate;
    QString scenario;
    QString filename; ///< path on the server, behind one character that is dropped
    QString basename; ///< name of the local file
    QString uid;
};
Q_DECLARE_TYPEINFO(FileEntry, Q_MOVABLE_TYPE);

struct Catalogue
{
    QVector<FileEntry> entries;
    QString error; ///< empty for a well-formed document; the entries before it count all the same
};

/// Reads the catalogue:
///
///     <Files><Category Name="Fahrplan"/>
///       <File Type="2" Author="" Version=""><Name/><LastUpdate/><Filename/><Basename/><UID/>
///         <Description/><Scenario/></File>...</Files>
///
/// A `Category` gives its type to the files behind it, and so does the `Type` of a file. What is
/// unknown is passed over; a file that is cut off by an error does not count.
Catalogue ReadCatalogue(const QByteArray &xml);

/// True when one of the texts that people know a file by holds the text, in any case.
bool MatchesSearch(const FileEntry &entry, const QString &text);
