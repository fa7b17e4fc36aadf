#pragma once

#include <QByteArray>
#include <QFile>
#include <QTest>

/// All of a file, or "(missing)". With `QIODevice::Text` its lines end alike on every platform.
inline QByteArray ContentOf(const QString &path, QIODevice::OpenMode mode = {})
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | mode) ? file.readAll() : QByteArray("(missing)");
}

/// A file with that content, in place of what was there.
inline void WriteFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(content), qint64(content.size()));
}
