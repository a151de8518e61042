#pragma once
// The form kit: a dialog's view as a short description of its layout, a column of groups of
// rows, each piece bound to its control as it is built. A label + field row makes its label
// the field's buddy, which also gives the field its accessible name.
//
//   kit::build(dialog, shell, Column({
//       Group(form.fraSize, {Field(form.lblCols, Spin(form.ColBox, form.ColUpDown))}),
//       Buttons({&form.OK, &form.Cancel})}));
// Open to the dialog views: the one way a dialog is laid out.
#include "gadgets/controls.h"
#include "gadgets/file_lists.h"
#include "gadgets/tab_control.h"
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

class QLayout;
class QWidget;

namespace tsl {

class cToolbar;
class FormDialog;
class DialogContext;

namespace kit {

class Builder;

// What one piece builds: a widget or a layout; for a field, the widget its label names.
struct Built {
    QWidget* widget = nullptr;
    QLayout* layout = nullptr;
    QWidget* focus = nullptr;
    Label* caption = nullptr; // set on a label + field row
    int stretch = 0;          // its share of the room left in a row or column
    bool isStretch = false;   // room left empty
};
using Item = std::function<Built(Builder&)>;

// A field whose label stands elsewhere (an option above it, a frame around it) gets its
// name for assistive tools here.
Item Named(const QString& name, Item field);

// Arrangement.
Item Column(std::vector<Item> items);
Item Row(std::vector<Item> items);
// A frame with its caption, holding rows: label + field rows in two columns, anything else
// across both. A Stretch among the rows takes the room below.
Item Group(Label& frame, std::vector<Item> rows);
// The same in the desktop's form layout, with its spacing and label alignment.
Item FormGroup(Label& frame, std::vector<Item> rows);
// Label + field rows in the desktop's form layout, with no frame around them.
Item Rows(std::vector<Item> rows);
Item Stretch(int factor = 1);
Item Spacing(int pixels);
// The item with a share of the room left in its row or column.
Item Stretched(int factor, Item item);

// Fields.
Item Field(Label& caption, Item field);
Item Text(TextBox& box, int width = 0);
// A text box with its spinner's two arrows.
Item Spin(TextBox& box, UpDown& spinner);
Item Combo(ComboBox& box, int minimumWidth = 0);
Item Check(CheckBox& box);
Item Option(OptionButton& option);
// A text box with the button that fills it: a colour picker or a browse. With a width the
// box keeps it; without, it takes the room.
Item Picked(TextBox& box, CommandButton& button, int width = 0);
// An area in the label's back colour holding rows of its own, such as a colour preview.
Item Picture(Label& area, std::vector<Item> rows);
// The same with no frame: a panel that shows or hides with its control.
Item Panel(Label& area, std::vector<Item> rows);
// Panels in one place, shown one at a time as the logic makes one of them visible; the
// place keeps the room of the largest.
Item Panels(std::vector<Item> panels);
// A part of a drawn picture the user clicks, such as a region of a map: a box with its
// caption, plain or highlighted, in the desktop's colours. It reads as a toggle button, pressed
// while highlighted, named by its caption.
Item Image(ImageBox& image);
// A part of a drawn picture that only shows: a box with a caption.
Item Tile(const QString& caption);
// A piece of a picture on a grid, `width` by `height` cells from the cell at `x`, `y`.
struct Cell {
    Item item;
    int x, y, width, height;
};
// Pieces laid on a grid of `columns` by `rows` equal cells, at least `size` pixels wide and
// three quarters of that high.
Item Grid(int columns, int rows, int size, std::vector<Cell> cells);
enum NoteStyle { Plain = 0, Centered = 1, Wrapped = 2, Big = 4 };
// A label on its own: a heading of the rows below, or a note.
Item Note(Label& label, int style = Plain);
// A label that looks and acts like a link; a click runs the handler.
Item Link(Label& label, std::function<void()> click);
// The row of the dialog's buttons (OK, Cancel). The default button is the form's.
Item Buttons(std::vector<CommandButton*> buttons);
// One button standing on its own, as in a column of buttons beside the fields.
Item Button(CommandButton& button);
// A list of entries; `rows` gives it room for that many without scrolling.
Item List(ListControl& list, int rows = 6);
Item Progress(ProgressBar& bar);
// The places a chooser starts from, the folder tree of the chosen one, and its files.
Item Drives(DriveListBox& drives);
Item Folders(DirListBox& folders);

// Tabs: one page for each tab of the control, in its order; the control follows the tab shown
// and the tab shown follows the control.
Item Tabs(TabControl& tabs, std::vector<Item> pages);
// Several fields on one line, as one field: a label of the line names its first part. A part
// with a name in `names` gets it as its accessible name.
Item Inline(std::vector<Item> parts, QStringList names = {});
// A label right before its field on a line, the label the field's buddy.
Item Beside(Label& caption, Item field);
// The buttons of a toolbar model, with the pictures of its strip.
Item Toolbar(cToolbar& toolbar);

// Builds the layout into the dialog of a form.
void build(FormDialog& dialog, DialogContext& shell, const Item& root);

} // namespace kit
} // namespace tsl
