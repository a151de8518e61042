#pragma once
// What the logic needs of the three panes of a document. The view supplies real ones; the
// logic's own TextPane serves the hidden work areas and the tests.
#include "editor/text_file.h"
#include <QHash>
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
    // SelStart, then SelLength, in one move of the caret.
    virtual void select(int start, int length) {
        setSelStart(start);
        setSelLength(length);
    }
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
    void setFileName(const QString& path);
    const TextFormat& fileFormat() const { return format_; }
    // The file was changed or removed by another program since the pane last read or wrote it.
    bool changedOnDisk() const;
    // The file as it is now is taken as known: no more news of it until it changes again.
    void acceptDiskState();

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
    // The file as this pane last read or wrote it, and the last file it wrote (a Save As
    // names the document after the write).
    QString stampedPath_;
    FileStamp stamp_;
    QString writtenPath_;
    FileStamp written_;
    int rightMargin_ = 0;
    QString fontName_;
    double fontSize_ = 9;
    int indent_ = 0;
};

// The Layout surface: an editing surface that works on a copy of the page. It keeps its own
// history and rewrites the page into HTML text on demand.
class LayoutSurface {
  public:
    virtual ~LayoutSurface() = default;
    virtual QString DocumentHTML() const = 0;
    virtual void setDocumentHTML(const QString& html) = 0;
    // The folder that relative addresses of the page resolve against.
    virtual QString BaseURL() const { return baseUrl_; }
    virtual void setBaseURL(const QString& folder) { baseUrl_ = folder; }
    virtual bool IsDirty() const = 0;
    virtual bool Visible() const = 0;
    virtual void setVisible(bool on) = 0;
    // Table cells drawn with a border even where the page has none.
    virtual bool ShowBorders() const { return showBorders_; }
    virtual void setShowBorders(bool on) { showBorders_ = on; }
    // Empties the surface.
    virtual void NewDocument() { setDocumentHTML(QString()); }
    virtual void SetFocus() {}
    // Runs an editing command of the surface by its published id; option 2: no prompt. The
    // commands that read a value (block format, font name, font size) answer it.
    virtual QString ExecCommand(int id, int option = 0, const QString& value = QString()) = 0;
    // The state of a command: 0 not supported, 1 disabled, 3 enabled, 7 latched, 11 mixed.
    enum Status { NotSupported = 0, Disabled = 1, Enabled = 3, Latched = 7, Ninched = 11 };
    virtual int QueryStatus(int id) const = 0;
    // Replaces the surface's selection by markup.
    virtual void pasteHTML(const QString& markup) = 0;
    // The plain text of the surface's selection.
    virtual QString selectionText() const { return {}; }
    // The colours of the page's document object, "bgColor", "fgColor", "linkColor",
    // "alinkColor" and "vlinkColor", as the page spells them.
    virtual QString documentColour(const QString& property) const = 0;
    virtual void setDocumentColour(const QString& property, const QString& value) = 0;
    // Prints the page as the surface shows it, on the default printer.
    virtual void PrintDocument() = 0;
    // Raised at each change of caret or content.
    std::function<void()> DisplayChanged;

  protected:
    void raiseDisplayChanged() {
        if (DisplayChanged) DisplayChanged();
    }

  private:
    QString baseUrl_;
    bool showBorders_ = true;
};

// The ids of the surface's editing commands that the program sends.
namespace layoutcmd {
enum Id {
    Bold = 5000,
    Copy = 5002,
    Cut = 5003,
    DeleteCells = 5005,
    DeleteColumns = 5006,
    DeleteRows = 5007,
    FindText = 5008,
    FontDialog = 5009,
    GetBlockFormat = 5011,
    GetFontName = 5013,
    GetFontSize = 5014,
    Hyperlink = 5016,
    Indent = 5018,
    InsertColumn = 5020,
    InsertRow = 5021,
    Italic = 5023,
    JustifyCenter = 5024,
    JustifyLeft = 5025,
    JustifyRight = 5026,
    MergeCells = 5029,
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
    SplitCell = 5047,
    Underline = 5048,
    Undo = 5049,
    UnorderedList = 5051,
};
} // namespace layoutcmd

// A Layout surface without an engine: it keeps the page it was given, records the commands
// sent to it, and answers the states a test gives it.
class DetachedLayout : public LayoutSurface {
  public:
    QString DocumentHTML() const override { return html_; }
    void setDocumentHTML(const QString& html) override {
        html_ = html;
        dirty_ = false;
    }
    bool IsDirty() const override { return dirty_; }
    // An edit made on the surface by the user.
    void edit(const QString& html) {
        html_ = html;
        dirty_ = true;
        raiseDisplayChanged();
    }
    void markDirty() { dirty_ = true; }
    bool Visible() const override { return visible_; }
    void setVisible(bool on) override { visible_ = on; }
    struct Command {
        int id;
        int option;
        QString value;
    };
    QList<Command> commands;
    QStringList pasted;
    int focusCount = 0;
    int newDocuments = 0;
    QHash<int, int> statuses;   // QueryStatus answers; 0 for a command not listed
    QHash<int, QString> values; // answers of the commands that read a value
    QString ExecCommand(int id, int option, const QString& value) override {
        commands.append({id, option, value});
        return values.value(id);
    }
    int QueryStatus(int id) const override { return statuses.value(id, NotSupported); }
    // The editing surface refuses markup where it cannot go, inside a table for one.
    bool refusePaste = false;
    void pasteHTML(const QString& markup) override;
    QString selected; // the plain text the user selected on the surface
    QString selectionText() const override { return selected; }
    QHash<QString, QString> colours;
    QString documentColour(const QString& property) const override {
        return colours.value(property);
    }
    void setDocumentColour(const QString& property, const QString& value) override {
        colours.insert(property, value);
        dirty_ = true;
    }
    void SetFocus() override { ++focusCount; }
    int printed = 0;
    void PrintDocument() override { ++printed; }
    void NewDocument() override {
        ++newDocuments;
        setDocumentHTML(QString());
    }

  private:
    QString html_;
    bool dirty_ = false;
    bool visible_ = false;
};

// The browser of the Preview view: it shows a file by its path.
class BrowserSurface {
  public:
    virtual ~BrowserSurface() = default;
    virtual void Navigate(const QString& path) = 0;
    virtual void GoBack() = 0;
    virtual void GoForward() = 0;
    virtual void Stop() = 0;
    virtual void Refresh() = 0;
    virtual bool Visible() const = 0;
    virtual void setVisible(bool on) = 0;
    // Runs a command of the browser; printing with the prompt shows the browser's own dialog.
    enum { OLECMDID_PRINT = 6 };
    enum { OLECMDEXECOPT_DODEFAULT = 0, OLECMDEXECOPT_PROMPTUSER = 1 };
    virtual void ExecWB(int command, int option) = 0;
    // Raised before the browser goes to a new address.
    std::function<void()> BeforeNavigate2;
};

// A browser without an engine: it remembers where it was sent.
class DetachedBrowser : public BrowserSurface {
  public:
    QStringList navigated;
    QStringList calls;
    // Going back or forward with no history is an error of the browser.
    bool hasHistory = false;
    void Navigate(const QString& path) override {
        navigated.append(path);
        if (BeforeNavigate2) BeforeNavigate2();
    }
    void GoBack() override { history(QStringLiteral("GoBack")); }
    void GoForward() override { history(QStringLiteral("GoForward")); }
    void Stop() override { calls.append(QStringLiteral("Stop")); }
    void Refresh() override { calls.append(QStringLiteral("Refresh")); }
    void ExecWB(int command, int option) override {
        calls.append(QStringLiteral("ExecWB %1 %2").arg(command).arg(option));
    }
    bool Visible() const override { return visible_; }
    void setVisible(bool on) override { visible_ = on; }

  private:
    void history(const QString& call);
    bool visible_ = false;
};

// Makes the panes of a new document window.
class SurfaceFactory {
  public:
    virtual ~SurfaceFactory() = default;
    virtual std::unique_ptr<SourcePane> createSourcePane() = 0;
    virtual std::unique_ptr<LayoutSurface> createLayoutSurface() = 0;
    virtual std::unique_ptr<BrowserSurface> createBrowser() {
        return std::make_unique<DetachedBrowser>();
    }
};

} // namespace tsl
