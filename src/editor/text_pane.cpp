#include "editor/text_pane.h"
#include "runtime/runtime_error.h"
#include <algorithm>

namespace tsl {

void TextPane::setText(const QString& text) {
    text_ = text;
    selStart_ = 0;
    selLength_ = 0;
    raiseChange();
}

void TextPane::setSelStart(int position) {
    if (position < 0) raise(ErrInvalidPropertyValue);
    selStart_ = std::min(position, length());
    selLength_ = 0;
}

void TextPane::setSelLength(int length) {
    if (length < 0) raise(ErrInvalidPropertyValue);
    selLength_ = std::min(length, this->length() - selStart_);
}

void TextPane::setSelText(const QString& text) {
    text_.replace(selStart_, selLength_, text);
    selStart_ += static_cast<int>(text.size());
    selLength_ = 0;
    raiseChange();
}

} // namespace tsl
