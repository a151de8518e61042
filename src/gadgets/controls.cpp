#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "runtime/runtime_error.h"
#include <algorithm>

namespace tsl {

Control::Control(Form* owner, QString name) : name_(std::move(name)) {
    if (owner) owner->controls_.push_back(this);
}

void Form::setCaption(const QString& caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    emit captionChanged();
}

Control* Form::control(const QString& name) const {
    for (Control* c : controls_)
        if (c->name() == name) return c;
    return nullptr;
}

CommandButton* Form::defaultButton() const {
    for (Control* c : controls_)
        if (auto* button = dynamic_cast<CommandButton*>(c); button && button->Default())
            return button;
    return nullptr;
}

CommandButton* Form::cancelButton() const {
    for (Control* c : controls_)
        if (auto* button = dynamic_cast<CommandButton*>(c); button && button->Cancel) return button;
    return nullptr;
}

void Form::closeBox() {
    if (CommandButton* cancel = cancelButton())
        cancel->press();
    else
        Unload();
}

void Control::setEnabled(bool on) {
    if (enabled_ == on) return;
    enabled_ = on;
    emit changed();
}

void Control::setVisible(bool on) {
    if (visible_ == on) return;
    visible_ = on;
    emit changed();
}

void Label::setCaption(const QString& caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    emit changed();
}

void Control::setBackColor(int colour) {
    if (backColor_ == colour) return;
    backColor_ = colour;
    emit changed();
}

void Control::setForeColor(int colour) {
    if (foreColor_ == colour) return;
    foreColor_ = colour;
    emit changed();
}

void enableControls(std::initializer_list<Control*> controls, bool on) {
    for (Control* control : controls)
        control->setEnabled(on);
}

void CommandButton::setDefault(bool on) {
    if (default_ == on) return;
    default_ = on;
    emit changed();
}

void ImageBox::setHighlighted(bool on) {
    if (highlighted_ == on) return;
    highlighted_ = on;
    emit changed();
}

namespace {
// Where two texts differ: the length of their common start and of their common end.
std::pair<int, int> difference(const QString& before, const QString& after) {
    const int shorter = static_cast<int>(std::min(before.size(), after.size()));
    int head = 0;
    while (head < shorter && before.at(head) == after.at(head))
        ++head;
    int tail = 0;
    while (tail < shorter - head &&
           before.at(before.size() - 1 - tail) == after.at(after.size() - 1 - tail))
        ++tail;
    return {head, tail};
}
} // namespace

void TextBox::receiveText(const QString& text) {
    if (!KeyPress) {
        setText(text);
        return;
    }
    const auto [head, tail] = difference(text_, text);
    const QString inserted = text.mid(head, text.size() - head - tail);
    if (inserted.isEmpty()) { // a deletion brings no character to filter
        setText(text);
        return;
    }
    SelStart = head;
    SelLength = static_cast<int>(text_.size()) - head - tail;
    typeText(inserted);
}

void ComboBox::receiveText(const QString& text) {
    if (!KeyPress) {
        setText(text);
        return;
    }
    const auto [head, tail] = difference(text_, text);
    const QString inserted = text.mid(head, text.size() - head - tail);
    QString kept;
    for (QChar c : inserted) {
        int key = c.unicode();
        KeyPress(key);
        if (key != 0) kept += QChar(key);
    }
    // As when typed: what the text replaced goes only with a character that was kept.
    if (!inserted.isEmpty() && kept.isEmpty()) return;
    setText(text.left(head) + kept + text.right(tail));
}

void TextBox::setText(const QString& text) {
    // The limit is on typing: a longer text put here (read from a page) stays whole.
    if (text == text_) return;
    text_ = text;
    SelStart = static_cast<int>(text_.size());
    SelLength = 0;
    emit changed();
    if (Change) Change();
}

void TextBox::typeKey(int keyAscii) {
    if (KeyPress) KeyPress(keyAscii);
    if (keyAscii == 0 || Locked) return;
    const int size = static_cast<int>(text_.size());
    int start = std::clamp(SelStart, 0, size);
    int length = std::clamp(SelLength, 0, size - start);
    // Backspace takes the selection, or the character before the caret.
    if (keyAscii == 8 && length == 0 && start > 0) {
        --start;
        length = 1;
    }
    const QString typed = keyAscii == 8 ? QString() : QString(QChar(keyAscii));
    // Beyond the limit only keys that shorten the text are taken.
    if (MaxLength > 0 && typed.size() > length && size - length + typed.size() > MaxLength) return;
    QString text = text_;
    text.replace(start, length, typed);
    const int caret = start + static_cast<int>(typed.size());
    setText(text);
    SelStart = caret;
    SelLength = 0;
}

void TextBox::typeText(const QString& text) {
    for (QChar c : text)
        typeKey(c.unicode());
}

void CheckBox::setValue(int value) {
    if (value_ == value) return;
    value_ = value;
    emit changed();
    if (Click) Click();
}

void OptionButton::setValue(bool on) {
    if (!on) {
        if (!value_) return;
        value_ = false;
        emit changed();
        return;
    }
    if (group_)
        for (OptionButton* other : *group_)
            if (other != this) other->setValue(false);
    const bool was = value_;
    value_ = true;
    if (!was) emit changed();
    if (Click) Click();
}

void OptionButton::group(std::initializer_list<OptionButton*> members) {
    auto shared = std::make_shared<std::vector<OptionButton*>>(members);
    for (OptionButton* member : members)
        member->group_ = shared;
}

QString ListControl::List(int index) const {
    if (index < 0 || index >= items_.size()) return QString();
    return items_.at(index);
}

void ListControl::AddItem(const QString& item) {
    items_.append(item);
    selected_.append(false);
    emit changed();
}

void ListControl::AddItem(const QString& item, int index) {
    if (index < 0 || index > items_.size()) raise(ErrInvalidProcedureCall);
    items_.insert(index, item);
    selected_.insert(index, false);
    if (listIndex_ >= index) ++listIndex_;
    emit changed();
}

void ListControl::RemoveItem(int index) {
    if (index < 0 || index >= items_.size()) raise(ErrInvalidProcedureCall);
    items_.removeAt(index);
    selected_.removeAt(index);
    if (listIndex_ == index)
        listIndex_ = -1;
    else if (listIndex_ > index)
        --listIndex_;
    emit changed();
}

void ListControl::Clear() {
    items_.clear();
    selected_.clear();
    listIndex_ = -1;
    emit changed();
}

void ListControl::setListIndex(int index) {
    if (index < -1 || index >= items_.size()) raise(ErrInvalidPropertyValue);
    if (index == listIndex_) return;
    listIndex_ = index;
    selectionChanged();
    emit changed();
    if (Click) Click();
}

bool ListControl::Selected(int index) const {
    if (index < 0 || index >= items_.size()) raise(ErrInvalidPropertyValue);
    return MultiSelect ? selected_.at(index) : index == listIndex_;
}

void ListControl::setSelected(int index, bool on) {
    if (index < 0 || index >= items_.size()) raise(ErrInvalidPropertyValue);
    if (!MultiSelect) {
        if (on) setListIndex(index);
        return;
    }
    if (selected_.at(index) == on) return;
    selected_[index] = on;
    emit changed();
}

int ListControl::SelCount() const {
    if (!MultiSelect) return listIndex_ >= 0 ? 1 : 0;
    return static_cast<int>(selected_.count(true));
}

void ProgressBar::setValue(int value) {
    if (value < Min || value > Max) raise(ErrInvalidPropertyValue);
    if (value == value_) return;
    value_ = value;
    emit changed();
}

QString ComboBox::Text() const {
    if (style_ == DropDownList) return List(listIndex_);
    return text_;
}

void ComboBox::setText(const QString& text) {
    if (style_ == DropDownList) {
        const int index = static_cast<int>(items_.indexOf(text));
        if (index < 0) raise(ErrPropertyReadOnly, QStringLiteral("'Text' property is read-only"));
        setListIndex(index);
        return;
    }
    if (text == text_) return;
    text_ = text;
    emit changed();
    if (Change) Change();
}

void ComboBox::selectionChanged() {
    if (style_ != DropDownList) text_ = List(listIndex_);
}

int UpDown::current() const {
    bool ok = false;
    const int typed = buddy ? buddy->Text().trimmed().toInt(&ok) : 0;
    return ok ? typed : value_;
}

void UpDown::setValue(int value) {
    value = std::clamp(value, Min, Max);
    if (value != value_) {
        value_ = value;
        emit changed();
    }
    // The box shows the value, also where the user typed one beyond the range.
    if (buddy) buddy->setText(QString::number(value_));
}

} // namespace tsl
