#pragma once
// The quick table chooser: a grid of cells dropped down under a toolbar button. The pointer
// picks a size, the grid grows one cell per move beyond its right or bottom edge, and a
// release inserts a bare table of that size. Geometry in pixels of the picture's client area.
#include "dialogs/drop_down_window.h"
#include <QRect>
#include <vector>

namespace tsl {

class DialogContext;

// picDropDown as last drawn, for the view to paint: client size, cells, label panel.
class ChooserPicture : public Control {
  public:
    using Control::Control;
    struct Cell {
        QRect rect;
        bool highlighted = false;
    };
    int ScaleWidth = 0;  // right edge R
    int ScaleHeight = 0; // bottom edge B
    std::vector<Cell> cells;
    QString label;
    QRect labelRect;

    void Cls();
    void Refresh() { emit changed(); }
};

class TableChooser {
  public:
    // Which toolbar opened it: each puts the window at its own offset from the button.
    enum Origin { MainToolbar, TableToolbar };
    static constexpr int kCellStep = 24;
    static constexpr int kOpenSize = 126;

    explicit TableChooser(DialogContext& shell) : shell_(shell) {}

    ChooserPicture picDropDown{QStringLiteral("picDropDown")};
    cDropDownToolWindow DropDown{QStringLiteral("DropDown")};
    // The size last reported; 0 and 0 after a Cancel.
    int nTableColumns = 0;
    int nTableRows = 0;

    // Opens under a toolbar button, at the place the view reports for it.
    void ShowAtButton(const QString& toolbar, int index, Origin origin);
    void ShowTableChooser(int xTwips, int yTwips, Origin origin = MainToolbar);
    void SizeTableChooser();
    // x and y in pixels of the client area.
    void DrawTableChooser(int x, int y, int button, bool& inside, int& columns, int& rows);

    // The surface's mouse events; coordinates in twips.
    void picDropDown_MouseDown(int button, int shift, int xTwips, int yTwips);
    void picDropDown_MouseMove(int button, int shift, int xTwips, int yTwips);
    void picDropDown_MouseUp(int button, int shift, int xTwips, int yTwips);

  private:
    void drawAt(int xTwips, int yTwips, int button, bool& inside, int& columns, int& rows);
    DialogContext& shell_;
};

} // namespace tsl
