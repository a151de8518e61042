#pragma once
// Find and replace in the Source text of the document in front. The search state outlives the
// dialog, so that closing and reopening it keeps the last search. Positions are 16-bit: past
// 32767 the routines fail with an overflow, which the dispatcher reports.
#include "runtime/int16.h"
#include <QString>

namespace tsl {

class Platform;
class SourcePane;

struct FindState {
    QString FindText;
    Int16 FindMatchCase = 0;
    // 1 down, 0 up; down again each time the dialog loads.
    Int16 FindDirection = 1;
    bool FindChanged = false;
    Int16 FindLastPos = 0;
    // Successful finds of the whole run; never reset, it chooses the words of the end message.
    Int16 FindHits = 0;
};

// What the search keeps for the whole run: the search of Find & Replace and the folder last
// shown when choosing files to replace in.
struct SearchSession {
    FindState Search;
    QString sLastChooseDir;
};

// Selects the next match of FindText from the caret in the chosen direction, or says that the
// search has reached the end. `activeSelStart` is the caret of the window's active control.
void FindNextMatch(FindState& state, SourcePane& codebox, int activeSelStart, Platform& platform);

// Replaces every match from the caret to the end of the text in the chosen direction and
// answers how many it replaced, after its closing message.
int ReplaceAllMatches(FindState& state, SourcePane& codebox, const QString& replacement,
                      Platform& platform);

// The text folded letter by letter, its length unchanged, as the search compares it.
QString upperFolded(const QString& text);
QString lowerFolded(const QString& text);

} // namespace tsl
