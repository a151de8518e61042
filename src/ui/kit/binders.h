#pragma once
// Two-way bindings between the headless controls and their widgets. The control holds the
// state and the rules; the widget shows it and hands the user's input back to it. Every
// handler the user sets off runs through the shell's dispatcher. A binder may be a local of
// the code that builds a dialog: the bindings it makes do not refer to it.
// Open to every dialog view and to the window.
#include "gadgets/controls.h"
#include "gadgets/file_lists.h"
#include <functional>
#include <map>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QIcon;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QTreeView;
class QRadioButton;
class QWidget;

namespace tsl {

class DialogContext;

class Binder {
  public:
    explicit Binder(DialogContext& shell) : shell_(shell) {}

    void label(Label& control, QLabel* widget);
    void frame(Label& control, QGroupBox* widget);
    // A plain area in the label's back colour, such as a preview that holds other labels.
    void panel(Label& control, QWidget* widget);
    void textBox(TextBox& control, QLineEdit* widget);
    void checkBox(CheckBox& control, QCheckBox* widget);
    // An option, exclusive with the others of its group on screen as in the model.
    void optionButton(OptionButton& control, QRadioButton* widget);
    void comboBox(ComboBox& control, QComboBox* widget);
    void button(CommandButton& control, QAbstractButton* widget);
    // A picture that answers a click; checked while it is highlighted.
    void imageBox(ImageBox& control, QAbstractButton* widget);
    // A spinner as two small arrow buttons beside its text box, whose keys step it too.
    void upDown(UpDown& control, QLineEdit* box, QAbstractButton* up, QAbstractButton* down);
    // A list, with several entries chosen where the list allows it.
    void listBox(ListControl& control, QListWidget* widget);
    // A progress bar that paints as the run moves, the rest of the window with it.
    void progressBar(ProgressBar& control, QProgressBar* widget);
    void driveList(DriveListBox& control, QComboBox* widget);
    // The folders of the drive as a tree, the control's folder chosen.
    void folderTree(DirListBox& control, QTreeView* widget);

  private:
    // Enabled, Visible and focus requests, common to all controls.
    void common(Control& control, QWidget* widget);
    DialogContext& shell_;
    // The widget group of each option group bound so far.
    std::map<void*, QButtonGroup*> groups_;
};

} // namespace tsl
