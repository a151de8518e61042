#pragma once
// Replacing a string in files on disk, each file read, changed and written back whole. Files
// keep their bytes except for the replacements: line ends, byte-order mark and 8-bit text.
#include <QString>
#include <QStringList>
#include <functional>

namespace tsl {

class Platform;

// The search options of the work area: 2 whole word, 4 match case, added up for both.
enum ReplaceOptions { ReplaceWholeWord = 2, ReplaceMatchCase = 4 };

// Every match of `what` replaced, the search going on behind each inserted text; a whole word
// has no letter or digit on either side in the text as it stands at that moment. An empty
// search text matches nothing.
QString replaceEveryMatch(const QString& text, const QString& what, const QString& replacement,
                          int options, int* count = nullptr);

// Rewrites each file in order, also those without a match, reporting the number done before
// each one. The first failure shows its message and ends the run, keeping what was done;
// answers false then.
bool ReplaceInFiles(const QStringList& files, const QString& what, const QString& replacement,
                    int options, Platform& platform, const std::function<void(int)>& progress);

} // namespace tsl
