#pragma once
// A toolbar as the logic sees it: buttons by zero-based index, separators counted, each with a
// tool tip, an image index in its strip and a style; the logic sets Enabled, Checked, Visible.
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

namespace tsl {

class cToolbar : public QObject {
    Q_OBJECT
  public:
    enum Style { Normal = 0, Separator = 1, Check = 2, DropDown = 8 };
    struct Button {
        QString toolTip;
        int image = -1;
        int style = Normal;
        bool enabled = true;
        bool checked = false;
        bool visible = true;
    };

    explicit cToolbar(QString name) : name_(std::move(name)) {}
    const QString& name() const { return name_; }

    // Where the strip of button images comes from, relative to the program's folder.
    QString ImageFile;
    void CreateToolbar(int imageSize) { imageSize_ = imageSize; }
    int imageSize() const { return imageSize_; }
    void AddButton(const QString& toolTip, int image, int style = Normal);
    void AddSeparator() { AddButton(QString(), -1, Separator); }

    int ButtonCount() const { return static_cast<int>(buttons_.size()); }
    const Button& button(int index) const;
    bool ButtonEnabled(int index) const { return button(index).enabled; }
    void setButtonEnabled(int index, bool on);
    bool ButtonChecked(int index) const { return button(index).checked; }
    void setButtonChecked(int index, bool on);
    bool ButtonVisible(int index) const { return button(index).visible; }
    void setButtonVisible(int index, bool on);

    // A press of a button (or of a drop-down button's arrow when `arrow` is set).
    std::function<void(int index)> ButtonClick;
    std::function<void(int index)> ButtonDropDown;
    void press(int index);
    void pressArrow(int index);

  signals:
    void buttonChanged(int index);

  private:
    Button& at(int index);
    QString name_;
    int imageSize_ = 16;
    std::vector<Button> buttons_;
};

} // namespace tsl
