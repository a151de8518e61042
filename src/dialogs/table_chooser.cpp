#include "dialogs/table_chooser.h"
#include "dialogs/frm_table.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

void ChooserPicture::Cls() {
    cells.clear();
    label.clear();
    labelRect = QRect();
}

void TableChooser::ShowAtButton(const QString& toolbar, int index, Origin origin) {
    const QPoint at = DropDown.ButtonPosition ? DropDown.ButtonPosition(toolbar, index) : QPoint();
    ShowTableChooser(at.x(), at.y(), origin);
}

void TableChooser::ShowTableChooser(int xTwips, int yTwips, Origin origin) {
    SizeTableChooser();
    if (origin == MainToolbar)
        DropDown.Show(xTwips - 205, yTwips + 500);
    else
        DropDown.Show(xTwips + 100, yTwips + 1000);
    bool inside = false;
    int columns = 0;
    int rows = 0;
    DrawTableChooser(0, 0, 0, inside, columns, rows);
}

void TableChooser::SizeTableChooser() {
    // A grid that grew last time starts small again.
    picDropDown.ScaleWidth = kOpenSize;
    picDropDown.ScaleHeight = kOpenSize;
    picDropDown.Cls();
    DropDown.Resize(kOpenSize, kOpenSize);
}

void TableChooser::DrawTableChooser(int x, int y, int, bool& inside, int& columns, int& rows) {
    int& right = picDropDown.ScaleWidth;
    int& bottom = picDropDown.ScaleHeight;
    inside = x >= 0 && y >= 0 && x < right && y < bottom;
    if (!inside) {
        // Beyond the right or bottom edge the grid grows by one cell; beyond the top or left
        // edge alone the pointer means Cancel.
        const bool wider = x >= right;
        const bool taller = y >= bottom;
        if (wider) right += kCellStep;
        if (taller) bottom += kCellStep;
        if (wider || taller) {
            DropDown.Resize(right, bottom);
            inside = true;
        }
    }

    picDropDown.cells.clear();
    int largestX = 0;
    int largestY = 0;
    // The two tests differ on purpose: at or beyond the cell's left, strictly below its top.
    for (int cellX = 3; cellX <= right - 9; cellX += kCellStep) {
        for (int cellY = 3; cellY <= bottom - 51; cellY += kCellStep) {
            const bool lit = inside && x >= cellX + 1 && y > cellY + 1;
            picDropDown.cells.push_back(
                {QRect(QPoint(cellX + 1, cellY + 1), QPoint(cellX + 23, cellY + 23)), lit});
            if (!lit) continue;
            largestX = qMax(largestX, cellX);
            largestY = qMax(largestY, cellY);
        }
    }

    if (inside) {
        columns = largestX / kCellStep + 1;
        rows = largestY / kCellStep + 1;
        nTableColumns = columns;
        nTableRows = rows;
        picDropDown.label = QStringLiteral("%1 x %2 table").arg(columns).arg(rows);
    } else {
        columns = 0;
        rows = 0;
        nTableColumns = 0;
        nTableRows = 0;
        picDropDown.label = QStringLiteral("Cancel");
    }
    picDropDown.labelRect = QRect(QPoint(4, bottom - 24), QPoint(right - 3, bottom - 4));
    picDropDown.Refresh();
}

void TableChooser::drawAt(int xTwips, int yTwips, int button, bool& inside, int& columns,
                          int& rows) {
    DrawTableChooser(xTwips / DropDown.TwipsPerPixelX, yTwips / DropDown.TwipsPerPixelY, button,
                     inside, columns, rows);
}

void TableChooser::picDropDown_MouseDown(int button, int, int xTwips, int yTwips) {
    if (!DropDown.IsShowing()) return;
    if (!DropDown.PointInside(xTwips, yTwips)) DropDown.Hide();
    bool inside = false;
    int columns = 0;
    int rows = 0;
    drawAt(xTwips, yTwips, button, inside, columns, rows);
}

void TableChooser::picDropDown_MouseMove(int button, int, int xTwips, int yTwips) {
    bool inside = false;
    int columns = 0;
    int rows = 0;
    drawAt(xTwips, yTwips, button, inside, columns, rows);
}

void TableChooser::picDropDown_MouseUp(int button, int, int xTwips, int yTwips) {
    // The commit sequence without unloading a dialog. A failure skips the clearing of the
    // flags, which lies before the message.
    shell_.bInsertingMarkup = true;
    try {
        bool inside = false;
        int columns = 0;
        int rows = 0;
        drawAt(xTwips, yTwips, button, inside, columns, rows);
        DropDown.Hide();
        if (inside)
            shell_.InsertMarkup(
                tableMarkup(QStringLiteral(" width=\"100%\""), QString(), rows, columns));
        codeEditor* doc = shell_.ActiveForm();
        if (!doc) raise(ErrObjectRequired);
        doc->AddInsertStep();
        shell_.bCaretStepTaken = false;
        shell_.bInsertingMarkup = false;
    } catch (const RuntimeError&) {
        shell_.platform().msgBox(
            QStringLiteral("You can not insert a table on top of another table."),
            MsgIcon::Exclamation, MsgButtons::OK, QStringLiteral("Tessaline"));
    }
}

// The chooser opens from two buttons that have no menu item: the formatting toolbar's table
// button and the first button of a document's table strip in Layout view.
void bindTableChooser(DialogContext& context, Commands& commands) {
    TableChooser* chooser = &context.part<TableChooser>();
    commands.bindAction(QStringLiteral("tableChooserFromTags"), [chooser] {
        chooser->ShowAtButton(QStringLiteral("tbrTags"), 22, TableChooser::MainToolbar);
    });
    commands.bindAction(QStringLiteral("tableChooserFromTable"), [chooser] {
        chooser->ShowAtButton(QStringLiteral("tbrTable"), 0, TableChooser::TableToolbar);
    });
}

static const CommandSet tableChooserCommands{bindTableChooser};

} // namespace tsl
