#pragma once
// What the logic needs of the three panes of a document. The view supplies real ones; the
// logic's own TextPane serves the hidden work areas and the tests.
#include "editor/text_file.h"
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace tsl {

// The Source pane: plain text with a selection. Writing Text or SelText raises Change before
// it returns; writing SelStart collapses the selection and raises nothing.
class SourcePane {
  public:
    virtual ~SourcePane() = default;

    virtual QString Text() const = 0;
    virtual void setText(const QString& text) = 0;
    virtual int SelStart() const = 0;
    virtual void setSelStart(int position) = 0;
    virtual int SelLength() const = 0;
    virtual void setSelLength(int length) = 0;
    virtual QString SelText() const = 0;
    virtual void setSelText(const QString& text) = 0;
    virtual int length() const { return static_cast<int>(Text().size()); }

    // Finds text from `start` up to `end` (-1: the end of the text), selects it and answers
    // its position, or -1 when it is not there.
    enum FindOptions { WholeWord = 2, MatchCase = 4, NoHighlight = 8 };
    virtual int Find(const QString& what, int start = 0, int end = -1, int options = 0);

    // File type 1 is plain text, the only kind the program uses. A failure raises error 75.
    void LoadFile(const QString& path, int fileType = 1);
    void SaveFile(const QString& path, int fileType = 1);
    const QString& FileName() const { return fileName_; }
    void setFileName(const QString& path) { fileName_ = path; }
    const TextFormat& fileFormat() const { return format_; }

    // Twips: 0 wraps at the pane's edge, a large margin does not wrap.
    virtual int RightMargin() const { return rightMargin_; }
    virtual void setRightMargin(int twips) { rightMargin_ = twips; }
    virtual QString FontName() const { return fontName_; }
    virtual void setFontName(const QString& name) { fontName_ = name; }
    virtual double FontSize() const { return fontSize_; }
    virtual void setFontSize(double points) { fontSize_ = points; }
    // The left indent of the text, in twips.
    virtual void setSelIndent(int twips) { indent_ = twips; }
    int SelIndent() const { return indent_; }
    virtual void SetFocus() {}

    std::function<void()> Change;

  protected:
    void raiseChange() {
        if (Change) Change();
    }

  private:
    QString fileName_;
    TextFormat format_;
    int rightMargin_ = 0;
    QString fontName_;
    double fontSize_ = 9;
    int indent_ = 0;
};

// The Layout surface as the file commands see it. The editing surface proper arrives with
// the view switch; until a document has shown Layout it holds no page.
class LayoutSurface {
  public:
    virtual ~LayoutSurface() = default;
    virtual QString DocumentHTML() const = 0;
    virtual void setDocumentHTML(const QString& html) = 0;
    virtual bool IsDirty() const = 0;
    virtual bool Visible() const = 0;
    virtual void setVisible(bool on) = 0;
    virtual void SetFocus() {}
    // Runs an editing command of the surface by its published id; option 2: no prompt.
    virtual void ExecCommand(int id, int option = 0, const QString& value = QString()) = 0;
    // Replaces the surface's selection by markup.
    virtual void pasteHTML(const QString& markup) = 0;
};

// The ids of the surface's editing commands that the program sends.
namespace layoutcmd {
enum Id {
    Bold = 5000,
    Copy = 5002,
    Cut = 5003,
    FontDialog = 5009,
    Indent = 5018,
    Italic = 5023,
    JustifyCenter = 5024,
    JustifyLeft = 5025,
    JustifyRight = 5026,
    OrderedList = 5030,
    Outdent = 5031,
    Paste = 5032,
    Redo = 5033,
    RemoveFormat = 5034,
    SelectAll = 5035,
    SetBlockFormat = 5043,
    SetFontName = 5044,
    SetFontSize = 5045,
    SetForeColor = 5046,
    Underline = 5048,
    Undo = 5049,
    UnorderedList = 5051,
};
} // namespace layoutcmd

// A Layout surface without an engine: it keeps the page it was given.
class DetachedLayout : public LayoutSurface {
  public:
    QString DocumentHTML() const override { return html_; }
    void setDocumentHTML(const QString& html) override {
        html_ = html;
        dirty_ = false;
    }
    bool IsDirty() const override { return dirty_; }
    void markDirty() { dirty_ = true; }
    bool Visible() const override { return visible_; }
    void setVisible(bool on) override { visible_ = on; }
    // Without an engine the commands are only recorded.
    struct Command {
        int id;
        int option;
        QString value;
    };
    QList<Command> commands;
    QStringList pasted;
    int focusCount = 0;
    void ExecCommand(int id, int option, const QString& value) override {
        commands.append({id, option, value});
    }
    void pasteHTML(const QString& markup) override { pasted.append(markup); }
    void SetFocus() override { ++focusCount; }

  private:
    QString html_;
    bool dirty_ = false;
    bool visible_ = false;
};

// Makes the panes of a new document window.
class SurfaceFactory {
  public:
    virtual ~SurfaceFactory() = default;
    virtual std::unique_ptr<SourcePane> createSourcePane() = 0;
    virtual std::unique_ptr<LayoutSurface> createLayoutSurface() = 0;
};

} // namespace tsl
