#pragma once
// What the style dialog keeps between its openings for as long as the program runs: the link
// state of an "A" selector, the last rule, and the three flags of the saved-style commands.
#include <QString>

namespace tsl {

struct StyleSession {
    // The selector used for the tag "A": "A:Link", "A:Visited", "A:Active", "A" or empty.
    QString AType;
    QString CSSRule;
    // The fields changed since the last load, save, New or Delete.
    bool StyleDirty = false;
    // Set while a save puts its name into the name list; the load then does nothing.
    bool StyleSaving = false;
    // Set while Save steps through the name list; the load then does nothing.
    bool StyleListWalk = false;
};

// The one session of the program. Tests start each case from a fresh one.
StyleSession& styleSession();
void resetStyleSession();

} // namespace tsl
