#pragma once
// The rule of the style dialog's fields, assembled by fixed concatenation, and its place in a
// style sheet or a page.
#include <QString>

namespace tsl {

class frmStyle;
class SourcePane;

// The separator behind every property: ";", a line feed and four blanks.
inline const QString kRuleSeparator = QStringLiteral(";\n    ");

// The selector of the fields: the link type for the tag "A", else the tag.
QString styleSelector(const frmStyle& form, const QString& aType);
// The whole rule: two blanks, selector, class, " {", a line feed, four blanks, the properties
// each behind its separator, and "}".
QString styleRule(const frmStyle& form, const QString& aType);

// Where the rule went.
enum class RulePlace {
    Replaced, // over the rule of the same selector
    Appended, // at the end of a style sheet
    InBlock,  // into the page's style block
    NewBlock, // into a new style block behind "</head>"
};

// Writes the rule into the Source text: over the rule of the same selector, at the end of a
// style sheet, or into the page's style block, made when there is none. A failure of the
// surface ends it, as far as it got.
RulePlace placeRule(SourcePane& source, bool styleSheet, const QString& selector,
                    const QString& className, const QString& rule);

} // namespace tsl
