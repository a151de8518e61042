#pragma once
// The tag list pane at the side of the main window, with the sizer that sets its width.
// Internal to the window.
#include <QListWidget>
#include <QWidget>

namespace tsl {

class ShellCore;
class TagList;

// The list of tags: a double click inserts, a drag carries the tag into a Source pane.
class TagListView : public QListWidget {
    Q_OBJECT
  public:
    TagListView(ShellCore& shell, QWidget* parent);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    // Enter and Space insert the tag in front, as a double-click does.
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions actions) override;

  private:
    void insertTag(int row);
    ShellCore& shell_;
    TagList& tags_;
};

class TagPane : public QWidget {
    Q_OBJECT
  public:
    TagPane(ShellCore& shell, QWidget* parent);
    TagListView* list() const { return list_; }

  private:
    TagListView* list_;
};

// The thin handle between the documents and the pane; the pane's width is the logic's.
class PaneSizer : public QWidget {
    Q_OBJECT
  public:
    PaneSizer(ShellCore& shell, QWidget* parent);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    int twips(int pixels) const;
    ShellCore& shell_;
};

} // namespace tsl
