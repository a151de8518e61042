#include "shell/frm_options.h"
#include "runtime/resume.h"
#include "runtime/vb_strings.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
QString yesNo(bool on) {
    return on ? QStringLiteral("Yes") : QStringLiteral("No");
}

// The font size a text gives a pane; what is no size at all is refused.
double fontSizeOf(const QString& text) {
    const double size = toNumber(text);
    if (size <= 0) raise(ErrInvalidPropertyValue);
    return size;
}
} // namespace

frmOptions::frmOptions(DialogContext& shell)
    : Form(QStringLiteral("frmOptions")), Browser(shell.platform()), shell_(shell) {
    setCaption(QStringLiteral("Preferences"));
    Browser.CancelError = true;
    Browser.Filter = QStringLiteral("Programs|*");

    Size.KeyPress = [this](int& key) { Size_KeyPress(key); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
}

void frmOptions::Form_Load() {
    const SettingsStore& settings = shell_.settings();
    for (const QString& font : shell_.FontNames)
        FontFace.AddItem(font);
    FontFace.setText(settings.get(keys::Fuzzies, keys::FontName, QStringLiteral("Courier New")));
    // The spinner first: it writes its clamped value into Size, which then shows the stored
    // size as it is, even one outside the spinner's range.
    const QString size = settings.get(keys::Fuzzies, keys::FontSize, QStringLiteral("9"));
    resumeNext([&] { UpDown1.setValue(static_cast<int>(toNumber(size))); });
    Size.setText(size);
    // The box reads "0" as its default while the documents wrap by default: kept that way.
    chkWordWrap.setValue(
        static_cast<int>(Val(settings.get(keys::Fuzzies, keys::WordWrap, QStringLiteral("0")))));
    chkAutoClose.setValue(shell_.bAutoCloseTag ? 1 : 0);
    Text1.setText(settings.get(keys::Browser, keys::BrowserLoc, QStringLiteral("None")));
    PreviewBox.setText(settings.get(keys::Fuzzies, keys::DefaultDir));
    chkRelative.setValue(settings.get(keys::Fuzzies, keys::UseRelative, QStringLiteral("Yes")) ==
                                 QLatin1String("Yes")
                             ? 1
                             : 0);
}

void frmOptions::Size_KeyPress(int& keyAscii) {
    if (keyAscii == 8) return;
    if (keyAscii < '0' || keyAscii > '9') keyAscii = 0;
}

void frmOptions::Command1_Click() {
    QString folder;
    if (codeEditor* doc = shell_.CurrentDocument)
        folder = doc->txtFileName.left(doc->txtFileName.size() - doc->txtFileTitle.size());
    try {
        Browser.ShowOpen();
    } catch (const RuntimeError&) {
        return;
    }
    Text1.setText(Browser.FileName);
    shell_.OpenSave.InitDir = folder;
}

void frmOptions::Command2_Click() {
    const std::optional<QString> chosen =
        shell_.platform().browseForFolder(QStringLiteral("Please select a default folder"));
    if (!chosen) return;
    QString path = chosen->left(260);
    const int nul = static_cast<int>(path.indexOf(QChar(0)));
    if (nul >= 0) path.truncate(nul);
    PreviewBox.setText(path);
}

void frmOptions::OK_Click() {
    SettingsStore& settings = shell_.settings();
    if (Val(Size.Text()) > 72) {
        shell_.platform().msgBox(QStringLiteral("An integer higher than 72 was entered. The size "
                                                "has now been reduced to 9 points."),
                                 MsgIcon::Information);
        settings.save(keys::Fuzzies, keys::FontSize, QStringLiteral("9"));
    } else {
        resumeNext([&] {
            required(shell_.CurrentDocument).codebox().setFontSize(fontSizeOf(Size.Text()));
        });
        settings.save(keys::Fuzzies, keys::FontSize, Size.Text());
    }
    settings.save(keys::Fuzzies, keys::FontName, FontFace.Text());
    settings.save(keys::Browser, keys::BrowserLoc,
                  Text1.Text().isEmpty() ? QStringLiteral("None") : Text1.Text());
    shell_.sSecondaryBrowser = Text1.Text();
    if (PreviewBox.Text() != settings.get(keys::Fuzzies, keys::DefaultDir))
        shell_.OpenSave.InitDir = PreviewBox.Text();
    settings.save(keys::Fuzzies, keys::DefaultDir, PreviewBox.Text());
    settings.save(keys::Fuzzies, keys::WordWrap, QString::number(chkWordWrap.Value()));
    shell_.bUseRelative = chkRelative.Value() == 1;
    settings.save(keys::Fuzzies, keys::UseRelative, yesNo(shell_.bUseRelative));
    shell_.bAutoCloseTag = chkAutoClose.Value() == 1;
    settings.save(keys::Fuzzies, keys::AutoCloseTag, yesNo(shell_.bAutoCloseTag));
    // Open windows take the size as typed, even one the 72 rule refused for new windows.
    for (codeEditor* doc : shell_.documents()) {
        if (!doc->isShown()) continue;
        SourcePane& pane = doc->codebox();
        resumeNext([&] { pane.setFontName(FontFace.Text()); });
        resumeNext([&] { pane.setFontSize(fontSizeOf(Size.Text())); });
        resumeNext([&] { pane.setRightMargin(chkWordWrap.Value() == 1 ? 0 : kNoWrapMargin); });
    }
    closeAndReturn();
}

void frmOptions::Cancel_Click() {
    closeAndReturn();
}

void frmOptions::closeAndReturn() {
    Unload();
    resumeNext([&] { required(shell_.CurrentDocument).SetFocus(); });
}

void bindOptionsDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuEditPrefs"), [&shell] { showDialog<frmOptions>(shell); });
}

static const CommandSet optionsDialogCommands{bindOptionsDialog};

} // namespace tsl
