#pragma once
// The link a browse button writes for a chosen file: the bare name in the document's folder,
// a path down into a sub-folder, or "../" steps up. Works on the strings alone, so the folder
// separator is a parameter; the program uses the system's own.
#include <QChar>
#include <QString>

namespace tsl {

inline constexpr QChar kPathSeparator = QLatin1Char('/');

struct RelativeLink {
    QString link;
    bool up = false; // the link climbs out of the document's folder
};

// `documentPath` and `documentTitle` name the active document ("" while it is untitled);
// `fileName` and `fileTitle` the chosen file. Raises a run-time error where the string steps
// fail (a climb that cuts more than the folder holds).
RelativeLink relativeLink(const QString& documentPath, const QString& documentTitle,
                          const QString& fileName, const QString& fileTitle,
                          QChar separator = kPathSeparator);

} // namespace tsl
