#pragma once
// File names by their bytes. To the system a file name is bytes, not always valid UTF-8
// ("caf\xE9.htm" written by an 8-bit program); such a name must open, save and be listed like
// any other. A byte that is not part of valid UTF-8 is held in the name as the character
// U+DC00 + byte, which no valid name can hold, so that the name gives back its exact bytes.
#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tsl {

QString fileNameFromBytes(const QByteArray& bytes);
QByteArray fileNameBytes(const QString& name);
// A character of a name that stands for a byte that is not valid UTF-8.
bool isFileNameEscape(QChar c);
// Texts of files follow the same rule; how much of their bytes is UTF-8: the sequences of more
// than one byte, and the bytes that are part of no valid sequence.
struct Utf8Survey {
    qsizetype multiByte = 0;
    qsizetype stray = 0;
};
Utf8Survey surveyUtf8(const QByteArray& bytes);
// The names of the files in a folder (links to files too), by their bytes, in order.
QStringList filesInFolder(const QString& folder);

} // namespace tsl
