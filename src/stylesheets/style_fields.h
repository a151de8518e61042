#pragma once
// The fields of the style dialog as a saved definition: each one a key, the control it comes
// from, the kind of the control and the default a load takes when the key is missing. Save
// and load walk these tables in their order, with the branches of the option groups between.
#include <QString>
#include <vector>

namespace tsl {

class frmStyle;

enum class FieldKind {
    Text,       // a text box
    EditCombo,  // a combo that takes any text
    ListCombo,  // a combo that takes only its items; an unknown value loads as the default
    FontCombo,  // a font list; a font that is not installed joins the list
    Check,      // "No" clears, "Yes" ticks, anything else leaves it
    LooseCheck, // "No" clears, anything else ticks
    LinkType,   // the selector of "A", kept outside the fields
};

struct StyleKey {
    const char* key;
    const char* field;
    FieldKind kind;
    const char* defaultValue;
    // The key a load reads, when it is not the one a save writes.
    const char* readKey = nullptr;
};

// An option group stored as one key: each option with the word it is stored as.
struct StyleChoice {
    const char* option;
    const char* value;
};

namespace styleKeys {
extern const std::vector<StyleKey> common, borderAll, borderSides, widthAll, widthSides, box,
    paddingAll, paddingSides, margins, fixedPosition, background;
extern const std::vector<StyleChoice> floating, clearing, repeat;
} // namespace styleKeys

// Writes the fields to the definition file key by key; keys of other branches stay.
void writeStyleFields(frmStyle& form, const QString& file);
// Puts the values of the definition file (or the defaults) into the fields.
void readStyleFields(frmStyle& form, const QString& file);

} // namespace tsl
