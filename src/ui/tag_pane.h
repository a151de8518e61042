#pragma once
// The tag list pane at the side of the main window, with the sizer that sets its width.
#include <QListWidget>
#include <QWidget>

namespace tsl {

class ShellMDI;

// The list of tags: a double click inserts, a drag carries the tag into a Source pane.
class TagListView : public QListWidget {
    Q_OBJECT
  public:
    TagListView(ShellMDI& shell, QWidget* parent);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    // Enter and Space insert the tag in front, as a double-click does.
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions actions) override;

  private:
    void insertTag(int row);
    ShellMDI& shell_;
};

class TagPane : public QWidget {
    Q_OBJECT
  public:
    TagPane(ShellMDI& shell, QWidget* parent);
    TagListView* list() const { return list_; }

  private:
    TagListView* list_;
};

// The thin handle between the documents and the pane; the pane's width is the logic's.
class PaneSizer : public QWidget {
    Q_OBJECT
  public:
    PaneSizer(ShellMDI& shell, QWidget* parent);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    int twips(int pixels) const;
    ShellMDI& shell_;
};

} // namespace tsl
