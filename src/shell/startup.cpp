// Start-up, the command line, and shutdown of the main window.
#include "editor/file_system.h"
#include "runtime/resume.h"
#include "shell/shell_mdi.h"

namespace tsl {

namespace {
const QString kFileFilter =
    QStringLiteral("HTML Files (*.htm, *.html, *.shtml; *.asp)|*.htm; *.html; *.shtml; *.asp|"
                   "CSS Documents (*.css)|*.css|Text Documents (*.txt)|*.txt");

bool isYes(const QString& value) {
    return value == QLatin1String("Yes");
}
} // namespace

void ShellMDI::MDIForm_Load(const QString& commandLine) {
    FontNames = platform_.fontNames();
    bMainLoading = true;
    setShortcutCaptions();

    OpenSave.MaxFileSize = 4096;
    OpenSave.Flags =
        CommonDialog::Explorer | CommonDialog::AllowMultiSelect | CommonDialog::OverwritePrompt;
    OpenSave.InitDir = settings_.get(keys::Fuzzies, keys::DefaultDir);
    OpenSave.CancelError = true;
    OpenSave.Filter = kFileFilter;
    runMenuClick(QStringLiteral("mnuInsert"));

    // Start-up reads "UseRelative"; the dialog keeps "Use Relative". Nothing writes the first,
    // so relative paths are on at every start.
    bUseRelative =
        isYes(settings_.get(keys::Fuzzies, keys::UseRelativeAtStart, QStringLiteral("Yes")));
    bAutoCloseTag = isYes(settings_.get(keys::Fuzzies, keys::AutoCloseTag, QStringLiteral("Yes")));

    // Step 13: each band shown as its setting says, and its flag with it.
    bFormsToolbarOpen =
        isYes(settings_.get(keys::Fuzzies, keys::FormsToolbarOpen, QStringLiteral("No")));
    cReBar1.setBandVisible(BandForms, bFormsToolbarOpen);
    bStandardToolbarOpen =
        isYes(settings_.get(keys::Fuzzies, keys::StandardToolbarOpen, QStringLiteral("Yes")));
    cReBar1.setBandVisible(BandStandard, bStandardToolbarOpen);
    bTagsToolbarOpen =
        isYes(settings_.get(keys::Fuzzies, keys::TagsToolbarOpen, QStringLiteral("Yes")));
    cReBar1.setBandVisible(BandTags, bTagsToolbarOpen);
    bTagListOpen = isYes(settings_.get(keys::Fuzzies, keys::TagListOpen, QStringLiteral("No")));
    Picture1.setVisible(bTagListOpen);
    if (hasMenu(QStringLiteral("mnuViewTagList")))
        menu(QStringLiteral("mnuViewTagList")).setChecked(bTagListOpen);

    NewHtmlDocument();
    LoadRecentFiles();
    // Saves cut short in the last run (a crash, a power cut) may have left copies beside the
    // files the user worked on last.
    for (int i = 0; i < 4; ++i)
        if (hasMenu(QStringLiteral("mnuFileMRU(%1)").arg(i)))
            removeStrayCopies(menu(QStringLiteral("mnuFileMRU(%1)").arg(i)).Caption());
    const QString wrap = settings_.get(keys::Fuzzies, keys::WordWrap, QStringLiteral("1"));
    if (codeEditor* doc = ActiveForm()) doc->codebox().setRightMargin(rightMarginFor(wrap));
    bMainLoading = false;
    emit paneChanged();

    if (!commandLine.isEmpty()) openCommandLine(commandLine);
}

void ShellMDI::openCommandLine(const QString& commandLine) {
    const QString last3 = commandLine.right(3);
    if (last3.toLower() == QLatin1String("exe") || last3 == QLatin1String("dll") ||
        last3 == QLatin1String("hlp")) {
        platform_.msgBox(
            QStringLiteral("Hey! You shouldn't be attempting to open stuff like that should you?"),
            MsgIcon::Exclamation);
        return;
    }
    codeEditor* doc = ActiveForm();
    if (!doc) return;
    try {
        doc->codebox().LoadFile(commandLine, 1);
    } catch (const RuntimeError&) {
        // "Document 1" stays as it was.
        platform_.msgBox(QStringLiteral("The file ") + commandLine +
                             QStringLiteral(" could not be opened."),
                         MsgIcon::Exclamation);
        doc->Tag = QStringLiteral("Clean");
        return;
    }
    int at = static_cast<int>(commandLine.size()) - 1;
    while (at >= 0 && commandLine.at(at) != QLatin1Char('/') &&
           commandLine.at(at) != QLatin1Char('\\'))
        --at;
    const QString title = commandLine.mid(at + 1);
    doc->txtFileTitle = title;
    AddRecentFile(commandLine, title);
    doc->setCaption(commandLine);
    doc->Tag = QStringLiteral("Clean");
    doc->CSSDoc = commandLine.right(4).toLower() == QLatin1String(".css") ? QStringLiteral("Yes")
                                                                          : QStringLiteral("No");
}

int ShellMDI::MDIForm_QueryUnload() {
    settings_.save(keys::Fuzzies, keys::FormsToolbarOpen, ViewFlag(bFormsToolbarOpen));
    settings_.save(keys::Fuzzies, keys::StandardToolbarOpen, ViewFlag(bStandardToolbarOpen));
    settings_.save(keys::Fuzzies, keys::TagListOpen, ViewFlag(bTagListOpen));
    // Drawing stays frozen: the window is going. A Cancel in a document releases it.
    LockWindowUpdate(true);
    return 0;
}

void ShellMDI::MDIForm_Unload() {}

bool ShellMDI::requestExit() {
    // The find window closes before anything else.
    if (frmFind) frmFind->Unload();
    if (MDIForm_QueryUnload() != 0) return false;
    while (!documents_.empty()) {
        if (!unloadDocument(ActiveForm())) return false;
    }
    MDIForm_Unload();
    emit exitAccepted();
    return true;
}

void ShellMDI::mnuFileExit_Click() {
    requestExit();
}

} // namespace tsl
