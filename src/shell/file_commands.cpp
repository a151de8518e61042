// New, Open, Save, Save As, Save All, Close and Close All.
#include "runtime/int16.h"
#include "runtime/resume.h"
#include "shell/shell_mdi.h"

namespace tsl {

namespace {
const QString kSeparator = QStringLiteral("/");

QString cssDocFor(const QString& path) {
    return path.right(4) == QLatin1String(".css") ? QStringLiteral("Yes") : QStringLiteral("No");
}

const QString kAlreadyOpenName = QStringLiteral(
    "This is the name of a file that is currently open.\n\nFile has not been saved.");

bool isDocumentOneUntouched(codeEditor* doc) {
    return doc && doc->Caption() == QLatin1String("Document 1") &&
           doc->Tag == QLatin1String("Clean");
}
} // namespace

codeEditor* ShellMDI::createDocumentWindow() {
    auto window =
        std::make_unique<codeEditor>(*this, surfaces_.createSourcePane(),
                                     surfaces_.createLayoutSurface(), surfaces_.createBrowser());
    codeEditor* doc = window.get();
    owned_.push_back(std::move(window));
    NewDocWindow = doc;
    documentLoaded(doc);
    doc->Form_Load();
    return doc;
}

void ShellMDI::newDocument(bool html) {
    bNewDocument = true;
    LockWindowUpdate(true);
    ++nDocumentCount;
    bNewIsHtml = html;
    codeEditor* doc = createDocumentWindow();
    doc->setCaption(QStringLiteral("Document ") + QString::number(nDocumentCount));
    doc->Show();
    doc->Tag = QStringLiteral("Clean");
    doc->CSSDoc = html ? QStringLiteral("No") : QStringLiteral("Yes");
    doc->txtFileName = doc->Caption();
    TabStrip1.add(doc->Caption(), doc->Caption());
    TabStrip1.selectLast();
    LockWindowUpdate(false);
    bNewIsHtml = false;
    bNewDocument = false;
}

codeEditor* ShellMDI::OpenDocumentWindow(const QString& path) {
    codeEditor* doc = createDocumentWindow();
    if (!path.isEmpty()) {
        doc->codebox().LoadFile(path, 1);
        doc->setCaption(path);
        doc->Tag = QStringLiteral("Clean");
        doc->txtFileName = path;
        doc->txtFileTitle = OpenSave.FileTitle;
    }
    doc->Show();
    return doc;
}

void ShellMDI::CheckFileOpen(const QString& path) {
    for (codeEditor* doc : documents_)
        if (doc->Caption() == path) bFileAlreadyOpen = true;
}

QString ShellMDI::StripItem(QString& s, const QString& delimiter) {
    Int16 position = 1;
    while (s.mid(position - 1, 1) != delimiter)
        position = incrementInt16(position);
    const QString item = s.left(position - 1);
    s = s.mid(position);
    return item;
}

void ShellMDI::mnuFileOpen_Click() {
    List1.Clear();
    CurrentDocument = ActiveForm();
    OpenSave.FileName.clear();
    try {
        OpenSave.ShowOpen();
    } catch (const RuntimeError& e) {
        if (e.number() == ErrCancelled) {
            LockWindowUpdate(false);
            return;
        }
    }
    openChosenFiles();
}

void ShellMDI::openDroppedFiles(const QStringList& paths) {
    // Each file as if chosen alone in the Open dialog.
    for (const QString& path : paths) {
        List1.Clear();
        CurrentDocument = ActiveForm();
        OpenSave.FileName = path;
        OpenSave.FileTitle = fileTitleOf(path);
        openChosenFiles();
    }
}

void ShellMDI::openChosenFiles() {
    const QString result = OpenSave.FileName;
    // A dialog left without an error on Cancel (after Save All) gives an empty name.
    if (result.isEmpty()) return;
    LockWindowUpdate(true);

    int i = 0;
    bool loadFailed = false;
    // Every statement from here resumes at the next; a file that cannot be read closes the
    // window made for it.
    auto guarded = [&](const std::function<void()>& statement) {
        if (resumeNext(statement) != ErrPathFileAccess) return;
        resumeNext([&] { required(ActiveForm()).Tag = QStringLiteral("Clean"); });
        platform_.msgBox(QStringLiteral("The file ") + List1.List(i) +
                             QStringLiteral(" could not be found."),
                         MsgIcon::Exclamation);
        resumeNext([&] { unloadDocument(ActiveForm()); });
        loadFailed = true;
    };

    QString copy = result + QChar(0) + QChar(0);
    QStringList items;
    guarded([&] {
        for (qsizetype n = 0; n < result.size(); ++n) {
            const QString item = StripItem(copy, QString(QChar(0)));
            if (item.isEmpty()) break;
            items.append(item);
        }
    });
    for (qsizetype n = 1; n < items.size(); ++n)
        List1.AddItem(items.at(n));

    if (items.size() == 1) {
        const QString path = items.at(0);
        CheckFileOpen(path);
        if (bFileAlreadyOpen) {
            LockWindowUpdate(false);
            platform_.msgBox(QStringLiteral("File is already open."), MsgIcon::Information);
            resumeNext([&] { required(ActiveForm()).SetFocus(); });
            bFileAlreadyOpen = false;
            return;
        }
        guarded([&] { OpenDocumentWindow(path); });
        if (!loadFailed) {
            guarded([&] { required(ActiveForm()).AddStep(); });
            if (isDocumentOneUntouched(CurrentDocument))
                guarded([&] { unloadDocument(CurrentDocument); });
            TabStrip1.add(path, OpenSave.FileTitle);
            AddRecentFile(result, OpenSave.FileTitle);
        }
    } else if (items.size() > 1) {
        const QString folder = items.at(0);
        const QString prefix = folder.endsWith(kSeparator) ? folder : folder + kSeparator;
        for (i = 0; i < List1.ListCount(); ++i) {
            const QString entry = List1.List(i);
            const QString path = prefix + entry;
            loadFailed = false;
            CheckFileOpen(path);
            if (bFileAlreadyOpen) {
                LockWindowUpdate(false);
                platform_.msgBox(QStringLiteral("The file ") + path +
                                     QStringLiteral(" is already open."),
                                 MsgIcon::Information);
                resumeNext([&] { required(ActiveForm()).SetFocus(); });
                bFileAlreadyOpen = false;
                continue;
            }
            guarded([&] { OpenDocumentWindow(path); });
            if (loadFailed) continue;
            guarded([&] { required(ActiveForm()).AddStep(); });
            if (i == 0 && isDocumentOneUntouched(CurrentDocument))
                guarded([&] { unloadDocument(CurrentDocument); });
            TabStrip1.add(path, entry);
            AddRecentFile(path, entry);
        }
    }

    resumeNext([&] { TabStrip1.selectLast(); });
    // The last name chosen decides; a window whose file could not be read takes nothing.
    if (!loadFailed) resumeNext([&] { required(ActiveForm()).CSSDoc = cssDocFor(result); });
    OpenSave.InitDir.clear();
    LockWindowUpdate(false);
    EnableDocumentCommands();
    setOpenButtons();
}

void ShellMDI::mnuFileSave_Click() {
    CurrentDocument = ActiveForm();
    silentExit([&] {
        codeEditor& doc = required(CurrentDocument);
        SourcePane& pane = doc.codebox();
        const Int16 caret = toInt16(pane.SelStart());
        OpenSave.FileName.clear();
        if (!pane.FileName().isEmpty()) {
            // A change another program made to the file is not overwritten unasked.
            if (!mayOverwriteChangedFile(doc)) return;
            if (bLayoutActive) pane.setText(doc.DHTMLEdit1().DocumentHTML());
            pane.SaveFile(pane.FileName(), 1);
            doc.Tag = QStringLiteral("Clean");
            doc.SetFocus();
            AddRecentFile(pane.FileName(), doc.txtFileTitle);
            OpenSave.InitDir.clear();
            return;
        }
        OpenSave.ShowSave();
        const QString path = OpenSave.FileName;
        CheckFileOpen(path);
        if (bFileAlreadyOpen) {
            platform_.msgBox(kAlreadyOpenName, MsgIcon::Information);
            required(ActiveForm()).SetFocus();
            bFileAlreadyOpen = false;
            return;
        }
        if (bLayoutActive) pane.setText(doc.DHTMLEdit1().DocumentHTML());
        pane.SaveFile(path, 1);
        pane.setFileName(path);
        doc.setCaption(path);
        required(ActiveForm()).CSSDoc = cssDocFor(path);
        const int tab = TabStrip1.selectedIndex();
        TabStrip1.setCaption(tab, OpenSave.FileTitle);
        TabStrip1.setKey(tab, path);
        doc.Tag = QStringLiteral("Clean");
        doc.SetFocus();
        doc.txtFileName = OpenSave.FileName;
        doc.txtFileTitle = OpenSave.FileTitle;
        AddRecentFile(path, OpenSave.FileTitle);
        OpenSave.InitDir.clear();
        pane.setSelStart(caret);
    });
}

void ShellMDI::mnuFileSaveas_Click() {
    CurrentDocument = ActiveForm();
    silentExit([&] {
        codeEditor& doc = required(CurrentDocument);
        SourcePane& pane = doc.codebox();
        const Int16 caret = toInt16(pane.SelStart());
        OpenSave.FileName.clear();
        OpenSave.ShowSave();
        const QString path = OpenSave.FileName;
        if (path != doc.Caption()) {
            CheckFileOpen(path);
            if (bFileAlreadyOpen) {
                platform_.msgBox(kAlreadyOpenName, MsgIcon::Information);
                required(ActiveForm()).SetFocus();
                bFileAlreadyOpen = false;
                return;
            }
        }
        // No copy from Layout here: Save As writes the Source text of the last view switch.
        pane.SaveFile(path, 1);
        pane.setFileName(path);
        doc.setCaption(path);
        doc.Tag = QStringLiteral("Clean");
        doc.CSSDoc = cssDocFor(path);
        doc.SetFocus();
        doc.txtFileName = OpenSave.FileName;
        doc.txtFileTitle = OpenSave.FileTitle;
        AddRecentFile(path, OpenSave.FileTitle);
        const int tab = TabStrip1.selectedIndex();
        TabStrip1.setKey(tab, OpenSave.FileName);
        TabStrip1.setCaption(tab, OpenSave.FileTitle);
        OpenSave.InitDir.clear();
        pane.setSelStart(caret);
        TabStrip1.setCaption(tab, OpenSave.FileTitle);
        TabStrip1.setKey(tab, OpenSave.FileName);
    });
}

void ShellMDI::mnuFileSaveAll_Click() {
    codeEditor* kept = ActiveForm();
    const std::vector<codeEditor*> forms = documents_;
    for (codeEditor* form : forms) {
        CurrentDocument = form;
        OpenSave.FileName.clear();
        bLayoutActive = form->DHTMLEdit1().Visible();
        SourcePane& pane = form->codebox();
        bool endAll = false;
        try {
            if (!pane.FileName().isEmpty()) {
                resumeNext([&] {
                    if (bLayoutActive) pane.setText(form->DHTMLEdit1().DocumentHTML());
                });
                resumeNext([&] { pane.SaveFile(pane.FileName(), 1); });
                form->Tag = QStringLiteral("Clean");
                form->SetFocus();
                AddRecentFile(pane.FileName(), form->txtFileTitle);
                OpenSave.InitDir.clear();
                continue;
            }
            form->ZOrder();
            selectTabOf(form);
            OpenSave.CancelError = false;
            OpenSave.ShowSave();
            if (OpenSave.FileName.isEmpty()) continue;
            OpenSave.CancelError = true;
            const QString path = OpenSave.FileName;
            CheckFileOpen(path);
            if (bFileAlreadyOpen) {
                platform_.msgBox(kAlreadyOpenName, MsgIcon::Information);
                resumeNext([&] { required(ActiveForm()).SetFocus(); });
                bFileAlreadyOpen = false;
                endAll = true;
            } else {
                resumeNext([&] {
                    if (bLayoutActive) pane.setText(form->DHTMLEdit1().DocumentHTML());
                });
                resumeNext([&] { pane.SaveFile(path, 1); });
                pane.setFileName(path);
                form->setCaption(path);
                resumeNext([&] { required(ActiveForm()).CSSDoc = cssDocFor(path); });
                const int tab = TabStrip1.selectedIndex();
                resumeNext([&] { TabStrip1.setCaption(tab, OpenSave.FileTitle); });
                resumeNext([&] { TabStrip1.setKey(tab, path); });
                form->Tag = QStringLiteral("Clean");
                form->SetFocus();
                form->txtFileName = OpenSave.FileName;
                form->txtFileTitle = OpenSave.FileTitle;
                AddRecentFile(path, OpenSave.FileTitle);
                OpenSave.InitDir.clear();
            }
        } catch (const RuntimeError&) {
            // A cancelled dialog goes on with the next window; anything else resumes.
            continue;
        }
        if (endAll) return;
    }
    if (kept && kept->isLoaded()) kept->ZOrder();
}

void ShellMDI::mnuFileClose_Click() {
    silentExit([&] { unloadDocument(&required(ActiveForm())); });
}

void ShellMDI::mnuFileCloseAll_Click() {
    bClosingAll = true;
    while (!documents_.empty()) {
        unloadDocument(ActiveForm());
        if (bCloseAllCancelled) {
            bCloseAllCancelled = false;
            break;
        }
    }
    bClosingAll = false;
}

void bindFileCommands(ShellMDI& shell, Commands& commands) {
    using S = QString;
    ShellMDI* s = &shell;
    commands.bind(S("mnuFileNewHTML"), [s] { s->mnuFileNewHTML_Click(); });
    commands.bind(S("mnuFileNewCSS"), [s] { s->mnuFileNewCSS_Click(); });
    commands.bind(S("mnuFileOpen"), [s] { s->mnuFileOpen_Click(); });
    commands.bind(S("mnuFileClose"), [s] { s->mnuFileClose_Click(); });
    commands.bind(S("mnuFileCloseAll"), [s] { s->mnuFileCloseAll_Click(); });
    commands.bind(S("mnuFileSave"), [s] { s->mnuFileSave_Click(); });
    commands.bind(S("mnuFileSaveas"), [s] { s->mnuFileSaveas_Click(); });
    commands.bind(S("mnuFileSaveAll"), [s] { s->mnuFileSaveAll_Click(); });
    for (int i = 0; i < 4; ++i)
        commands.bind(S("mnuFileMRU(%1)").arg(i), [s, i] { s->mnuFileMRU_Click(i); });
    commands.bind(S("mnuFileExit"), [s] { s->mnuFileExit_Click(); });
}

} // namespace tsl
