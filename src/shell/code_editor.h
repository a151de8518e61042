#pragma once
// One document window: its identity fields, its panes and its life-cycle handlers.
#include "editor/surfaces.h"
#include <QObject>
#include <QString>
#include <memory>

namespace tsl {

class ShellMDI;

class codeEditor : public QObject {
    Q_OBJECT
  public:
    codeEditor(ShellMDI& shell, std::unique_ptr<SourcePane> codebox,
               std::unique_ptr<LayoutSurface> layout);
    ~codeEditor() override;

    // Identity. An untitled window keeps the label's design text "Label2" as its title.
    QString Caption() const { return caption_; }
    void setCaption(const QString& caption);
    QString Tag = QStringLiteral("Clean");
    QString txtFileName;
    QString txtFileTitle = QStringLiteral("Label2");
    QString CSSDoc = QStringLiteral("No");
    QString lblOnlineFile = QStringLiteral("No");
    bool bSaveAsked = false;

    SourcePane& codebox() const { return *codebox_; }
    LayoutSurface& DHTMLEdit1() const { return *layout_; }

    bool isShown() const { return shown_; }
    bool isLoaded() const { return loaded_; }

    // Handlers.
    void Form_Load();
    void Form_Activate();
    // Answers the Cancel value: non-zero keeps the window.
    int Form_QueryUnload();
    void Form_Unload();
    void codebox_Change();

    // The undo stack's entry points that the file commands use.
    void AddStep();

    // Window operations.
    void Show();
    void SetFocus();
    void ZOrder();

  signals:
    void captionChanged();
    void focusRequested();

  private:
    friend class ShellMDI;
    void askToSave(int& cancel, bool fromLayout);

    ShellMDI& shell_;
    std::unique_ptr<SourcePane> codebox_;
    std::unique_ptr<LayoutSurface> layout_;
    QString caption_ = QStringLiteral("codeEditor");
    bool shown_ = false;
    bool loaded_ = true;
};

} // namespace tsl
