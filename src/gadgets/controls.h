#pragma once
// Headless controls. A form's state is the current values of its controls; each control keeps
// the event rules the logic relies on, and tells the view through changed() when to redraw.
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

namespace tsl {

class Form;

class Control : public QObject {
    Q_OBJECT
  public:
    explicit Control(QString name = QString()) : name_(std::move(name)) {}
    // A control of a form: it registers with the form, which can then find it by name.
    Control(Form* owner, QString name);
    const QString& name() const { return name_; }

    bool Enabled() const { return enabled_; }
    void setEnabled(bool on);
    bool Visible() const { return visible_; }
    void setVisible(bool on);
    // Where the focus was last put by the logic; the view moves the real focus.
    void SetFocus() { emit focusRequested(); }
    QString ToolTipText;
    // Colours with red in the lowest byte; kDefaultColour leaves the desktop's own.
    static constexpr int kDefaultColour = -1;
    // The desktop's colour of a button's face, for a field that stands switched off.
    static constexpr int kButtonFace = -2;
    int BackColor() const { return backColor_; }
    void setBackColor(int colour);
    int ForeColor() const { return foreColor_; }
    void setForeColor(int colour);

  signals:
    void changed();
    void focusRequested();
    // A text box is asked to select all of its text.
    void selectAllRequested();

  private:
    QString name_;
    bool enabled_ = true;
    bool visible_ = true;
    int backColor_ = kDefaultColour;
    int foreColor_ = kDefaultColour;
};

// Switches several controls on or off together, as a choice that makes them apply does.
void enableControls(std::initializer_list<Control*> controls, bool on);

class Label : public Control {
  public:
    using Control::Control;
    Label(Form* owner, QString name, const QString& caption) : Control(owner, std::move(name)) {
        caption_ = caption;
    }
    const QString& Caption() const { return caption_; }
    void setCaption(const QString& caption);
    // The caption's font; an empty name or a size of 0 keeps the dialog's own.
    QString FontName() const { return font_.name; }
    void setFontName(const QString& name) { setFont(&LabelFont::name, name); }
    double FontSize() const { return font_.size; }
    void setFontSize(double size) { setFont(&LabelFont::size, size); }
    bool FontBold() const { return font_.bold; }
    void setFontBold(bool on) { setFont(&LabelFont::bold, on); }
    bool FontItalic() const { return font_.italic; }
    void setFontItalic(bool on) { setFont(&LabelFont::italic, on); }
    bool FontUnderline() const { return font_.underline; }
    void setFontUnderline(bool on) { setFont(&LabelFont::underline, on); }
    bool FontStrikethru() const { return font_.strikethru; }
    void setFontStrikethru(bool on) { setFont(&LabelFont::strikethru, on); }

  private:
    struct LabelFont {
        QString name;
        double size = 0;
        bool bold = false;
        bool italic = false;
        bool underline = false;
        bool strikethru = false;
    };
    template <typename T, typename V> void setFont(T LabelFont::*field, const V& value) {
        if (font_.*field == value) return;
        font_.*field = value;
        emit changed();
    }
    QString caption_;
    LabelFont font_;
};

// A picture the user can click, shown plain or highlighted, such as a region of a map.
class ImageBox : public Label {
  public:
    using Label::Label;
    bool Highlighted() const { return highlighted_; }
    void setHighlighted(bool on);
    std::function<void()> Click;
    void press() {
        if (Enabled() && Click) Click();
    }

  private:
    bool highlighted_ = false;
};

class CommandButton : public Label {
  public:
    enum Role { NoRole = 0, DefaultRole = 1, CancelRole = 2 };
    using Label::Label;
    CommandButton(Form* owner, QString name, const QString& caption, int roles)
        : Label(owner, std::move(name), caption), Cancel(roles & CancelRole),
          default_(roles & DefaultRole) {}
    // Enter presses the default button; Escape and the window's close box the cancel button.
    bool Default() const { return default_; }
    // The button Enter presses may change while the form shows, as a wizard's pages turn.
    void setDefault(bool on);
    bool Cancel = false;
    std::function<void()> Click;
    void press() {
        if (Enabled() && Click) Click();
    }

  private:
    bool default_ = false;
};

class TextBox : public Control {
  public:
    using Control::Control;
    const QString& Text() const { return text_; }
    // Assigning a different text raises Change before it returns.
    void setText(const QString& text);
    int MaxLength = 0; // what typing may reach; 0: no limit
    bool Locked = false;
    std::function<void()> Change;
    // Key filter: may set the key code to 0 to drop the key.
    std::function<void(int& keyAscii)> KeyPress;
    // A key typed by the user at the caret, over the selection: KeyPress first, then the edit.
    void typeKey(int keyAscii);
    void typeText(const QString& text);
    // Text that arrives whole (a paste, a drop, an assistive tool): what it inserts goes
    // through KeyPress a character at a time, as if typed over what it replaced.
    void receiveText(const QString& text);
    void SelectAll() { emit selectAllRequested(); }
    // The caret and the selection as the user left them; a new text puts the caret at its end.
    int SelStart = 0;
    int SelLength = 0;

  private:
    QString text_;
};

class CheckBox : public Label {
  public:
    using Label::Label;
    int Value() const { return value_; }
    // A change of value raises Click.
    void setValue(int value);
    std::function<void()> Click;

  private:
    int value_ = 0;
};

class OptionButton : public Label {
  public:
    using Label::Label;
    bool Value() const { return value_; }
    // Turning an option on turns its group's others off and raises its Click.
    void setValue(bool on);
    std::function<void()> Click;
    // Options that exclude each other share a group.
    static void group(std::initializer_list<OptionButton*> members);
    // The options of its group, itself among them; empty when it stands alone.
    std::vector<OptionButton*> groupMembers() const {
        return group_ ? *group_ : std::vector<OptionButton*>{};
    }

  private:
    bool value_ = false;
    std::shared_ptr<std::vector<OptionButton*>> group_;
};

class ListControl : public Control {
  public:
    using Control::Control;
    const QStringList& items() const { return items_; }
    int ListCount() const { return static_cast<int>(items_.size()); }
    QString List(int index) const;
    void AddItem(const QString& item);
    void AddItem(const QString& item, int index);
    void RemoveItem(int index);
    void Clear();
    int ListIndex() const { return listIndex_; }
    // A change of selection raises Click; an index outside the list is a run-time error.
    void setListIndex(int index);
    std::function<void()> Click;
    std::function<void()> DblClick;

    // A list that lets the user pick several entries; ListIndex is then the one with the
    // focus, and Selected tells each entry apart.
    bool MultiSelect = false;
    bool Selected(int index) const;
    void setSelected(int index, bool on);
    int SelCount() const;

  protected:
    virtual void selectionChanged() {}
    QStringList items_;
    QList<bool> selected_;
    int listIndex_ = -1;
};

class ListBox : public ListControl {
  public:
    using ListControl::ListControl;
};

class ComboBox : public ListControl {
  public:
    enum Style { DropDownCombo = 0, SimpleCombo = 1, DropDownList = 2 };
    explicit ComboBox(QString name = QString(), Style style = DropDownCombo)
        : ListControl(std::move(name)), style_(style) {}
    ComboBox(Form* owner, QString name, Style style = DropDownCombo)
        : ListControl(owner, std::move(name)), style_(style) {}
    Style style() const { return style_; }
    QString Text() const;
    // An editable combo takes any text (and raises Change); a list combo takes only an item it
    // holds, selecting it, and refuses anything else with a run-time error.
    void setText(const QString& text);
    std::function<void()> Change;
    // Key filter of the editable text: may set the key code to 0 to drop the key.
    std::function<void(int& keyAscii)> KeyPress;
    // Text that arrives whole: each character it brings goes through KeyPress first.
    void receiveText(const QString& text);

  protected:
    void selectionChanged() override;

  private:
    Style style_;
    QString text_;
};

// A bar that shows how far a long run has come.
class ProgressBar : public Control {
  public:
    using Control::Control;
    int Min = 0;
    int Max = 100;
    int Value() const { return value_; }
    void setValue(int value);

  private:
    int value_ = 0;
};

class UpDown : public Control {
  public:
    using Control::Control;
    // A spinner bound to its text box, with its range.
    UpDown(Form* owner, QString name, TextBox& buddyBox, int min, int max)
        : Control(owner, std::move(name)), Min(min), Max(max), buddy(&buddyBox) {}
    int Min = 0;
    int Max = 10;
    int Increment = 1;
    int Value() const { return value_; }
    void setValue(int value);
    // The text box the spinner writes its value to.
    TextBox* buddy = nullptr;
    // A step starts from what the buddy shows, as the user may have typed there.
    void stepUp() { step(1); }
    void stepDown() { step(-1); }
    void step(int increments) { setValue(current() + increments * Increment); }

  private:
    int current() const;
    int value_ = 0;
};

} // namespace tsl
