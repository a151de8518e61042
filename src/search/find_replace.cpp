#include "search/find_replace.h"
#include "editor/surfaces.h"
#include "platform/platform.h"

namespace tsl {

namespace {
const QString kFinished = QStringLiteral("Tessaline has finished searching the document.");
const QString kNotFound = QStringLiteral(" The search item was not found.");

// The text and the search text as the search compares them.
struct Pair {
    QString text;
    QString what;
};

Pair comparedPair(const FindState& state, const SourcePane& codebox) {
    if (state.FindMatchCase != 0) return {codebox.Text(), state.FindText};
    return {upperFolded(codebox.Text()), upperFolded(state.FindText)};
}

// The step keeps a repeated search from finding the match it stands on.
Int16 startPosition(const FindState& state, const SourcePane& codebox, int activeSelStart) {
    const Int16 step = !state.FindChanged && activeSelStart == state.FindLastPos ? 1 : 0;
    return toInt16(toInt16(codebox.SelStart()) + step);
}

// The 1-based position of the first occurrence at or after the 1-based `p`, or 0. An empty
// search text is found nowhere: it would otherwise be found everywhere, for ever.
Int16 searchDown(const Pair& pair, Int16 p) {
    if (pair.what.isEmpty() || p < 1) return 0;
    const qsizetype at = pair.text.indexOf(pair.what, p - 1);
    return at < 0 ? Int16(0) : toInt16(at + 1);
}

// Upward, position by position, from the 1-based `p`: the position found, 0, or `p` itself
// when it was negative from the start.
Int16 searchUp(const Pair& pair, Int16 p) {
    if (pair.what.isEmpty()) return p < 0 ? p : Int16(0);
    while (p > 0) {
        if (QStringView(pair.text).mid(p - 1, pair.what.size()) == pair.what) break;
        p = toInt16(p - 1);
    }
    return p;
}

Int16 upwardStart(const FindState& state, Int16 p) {
    if (state.FindText.size() == 1 && state.FindChanged) p = toInt16(p + 1);
    return toInt16(p - 1);
}

void finished(Platform& platform, const QString& text) {
    platform.messageBox({text, QString(), MsgIcon::Information, MsgButtons::OK, true});
}
} // namespace

QString upperFolded(const QString& text) {
    QString folded = text;
    for (QChar& c : folded) {
        const char16_t u = c.unicode();
        if (u < 0x80)
            c = QChar(u >= 'a' && u <= 'z' ? char16_t(u - 32) : u);
        else
            c = c.toUpper();
    }
    return folded;
}

QString lowerFolded(const QString& text) {
    QString folded = text;
    for (QChar& c : folded)
        c = c.toLower();
    return folded;
}

void FindNextMatch(FindState& state, SourcePane& codebox, int activeSelStart, Platform& platform) {
    Int16 p = startPosition(state, codebox, activeSelStart);
    const Pair pair = comparedPair(state, codebox);
    if (state.FindDirection == 1)
        p = searchDown(pair, toInt16(p + 1));
    else
        p = searchUp(pair, upwardStart(state, p));

    if (p == 0) {
        finished(platform, state.FindHits > 0 ? kFinished : kFinished + kNotFound);
    } else if (state.FindDirection == 0 && codebox.SelStart() == 0) {
        finished(platform, kFinished + kNotFound);
        return;
    } else {
        codebox.setSelStart(p - 1);
        codebox.setSelLength(toInt16(state.FindText.size()));
        codebox.SetFocus();
        state.FindHits = incrementInt16(state.FindHits);
    }
    state.FindLastPos = toInt16(codebox.SelStart());
    state.FindChanged = false;
}

int ReplaceAllMatches(FindState& state, SourcePane& codebox, const QString& replacement,
                      Platform& platform) {
    Int16 count = 0;
    // The compared text is kept in step with the pane's, replacement by replacement, rather
    // than fetched and folded whole in every pass.
    Pair pair = comparedPair(state, codebox);
    const QString foldedReplacement =
        state.FindMatchCase != 0 ? replacement : upperFolded(replacement);
    for (;;) {
        Int16 p = startPosition(state, codebox, codebox.SelStart());
        if (state.FindDirection == 1) {
            if (codebox.SelStart() == 0) p = toInt16(p + 1);
            p = searchDown(pair, p);
        } else {
            p = searchUp(pair, upwardStart(state, p));
        }
        if (p == 0) break;
        // A negative position fails here, as the pane refuses it.
        codebox.select(p - 1, toInt16(state.FindText.size()));
        codebox.setSelText(replacement);
        pair.text.replace(p - 1, state.FindText.size(), foldedReplacement);
        count = incrementInt16(count);
        if (state.FindDirection == 0)
            codebox.setSelStart(toInt16(codebox.SelStart() - replacement.size()));
        state.FindLastPos = toInt16(codebox.SelStart());
        state.FindChanged = false;
    }
    if (count == 0) {
        finished(platform, QStringLiteral("Tessaline has finished searching for ") +
                               state.FindText + QStringLiteral(".") + kNotFound);
    } else {
        platform.messageBox({QStringLiteral("Tessaline has finished searching the document and "
                                            "replaced %1 items.")
                                 .arg(count),
                             QStringLiteral("Tessaline"), MsgIcon::Exclamation, MsgButtons::OK,
                             true});
    }
    return count;
}

} // namespace tsl
