#include "InstallFile.h"

#include <QRegularExpression>
#include <QSaveFile>
#include <QTextCodec>
#include <QTextStream>

bool LooksLikeWorkFile(const QByteArray &body)
{
    static const QRegularExpression keyLine(QStringLiteral("^\\w+="),
                                            QRegularExpression::MultilineOption);
    // The heads stand at the top; no need to go through megabytes of something else.
    constexpr int kFarEnough = 4096;
    return !body.contains('\0') && !body.trimmed().startsWith('<')
        && keyLine.match(QString::fromUtf8(body.left(kFarEnough))).hasMatch();
}

InstallResult InstallTextFile(const QString &path, const QByteArray &body)
{
    if (!LooksLikeWorkFile(body))
        return InstallResult::Failed;
    QTextCodec *utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    utf8->toUnicode(body.constData(), body.size(), &state);
    const bool isUtf8 = state.invalidChars == 0 && state.remainingChars == 0;

    // Text mode would make "\r\r\n" of the line ends that a file from Windows has already.
    const QIODevice::OpenMode lineEnds =
        body.contains("\r\n") ? QIODevice::NotOpen : QIODevice::Text;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | lineEnds))
        return InstallResult::Failed;
    QTextStream stream(&file);
    stream.setCodec(utf8);
    stream << QString::fromUtf8(body);
    stream.flush();
    if (stream.status() != QTextStream::Ok || !file.commit())
        return InstallResult::Failed;
    return isUtf8 ? InstallResult::Written : InstallResult::WrittenWithLosses;
}
