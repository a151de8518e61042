#pragma once
// Where the caret goes by character and by word in the Source pane, as desktop text editors move
// it: a character is a whole grapheme cluster; a word move passes a word (or a run of
// punctuation) and the spaces after it; the end of each paragraph is a stop of its own. Only the
// neighbourhood of the caret is read, so a move in a line of megabytes costs what it costs in a
// short line. Positions are indices into the exact text.
// Internal to the Source pane.
#include <QString>

namespace tsl::moves {

// Characters that end a paragraph. A line separator only breaks the line within one.
inline bool isParagraphEnd(char16_t c) {
    return c == u'\n' || c == 0x2029 || c == 0xFDD0 || c == 0xFDD1;
}
// The characters as the pane shows them, one for one: a carriage return is its control picture.
QString shown(QStringView text);

int nextCharacter(const QString& text, int position);
int previousCharacter(const QString& text, int position);
int nextWord(const QString& text, int position);
int previousWord(const QString& text, int position);

struct Range {
    int start;
    int end;
};
// The word a double click takes.
Range wordAt(const QString& text, int position);
// The paragraph around a position: from its start to its end (the position of its break, or the
// end of the text).
Range paragraphAt(const QString& text, int position);

} // namespace tsl::moves
