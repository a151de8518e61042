#include "dialogs/new_image.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
const QString kImageFilter = QStringLiteral("All Formats|*.gif; *.jpeg; *.jpg|GIF Format "
                                            "(*.gif)|*.gif|JPEG Format (*.jpg; *.jpeg)|*.jpg; "
                                            "*.jpeg");
const QString kMovieFilter =
    QStringLiteral("Movie Files (*.avi; *.mpg; *.mpeg)|*.avi; *.mpg; *.mpeg");
} // namespace

NewImage::NewImage(DialogContext& shell)
    : ElementDialog(QStringLiteral("NewImage"), shell), ImageFiles(shell.platform()) {
    setCaption(QStringLiteral("Insert Image"));
    // The last two repeat the first two; kept as the list always was.
    for (const char* align : {"Left", "Right", "Top", "Bottom", "Middle", "Absmiddle", "Absbottom",
                              "Texttop", "Baseline", "Left", "Right"})
        Alignment.AddItem(QLatin1String(align));
    useKeyFilter(numericKeyFilter, {&WidthB, &HeightB, &Vspace, &HSpace});
    Browse.Click = [this] {
        ImageFiles.Filter = kImageFilter;
        browseFile(ImageFiles, FileName);
    };
    BrowseLS.Click = [this] {
        ImageFiles.Filter = kImageFilter;
        browseFile(ImageFiles, LowSrc);
    };
    Command1.Click = [this] {
        ImageFiles.Filter = kMovieFilter;
        browseFile(ImageFiles, AVIBox);
    };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
}

void NewImage::Form_Load() {
    ImageFiles.InitDir = shell().OpenSave.InitDir;
    ImageFiles.Filter = kImageFilter;
    ImageFiles.Flags |= CommonDialog::FileMustExist;
}

QString NewImage::markup() const {
    QString element = QStringLiteral("<img");
    const std::pair<const char*, QString> attributes[] = {
        {"src", FileName.Text()},   {"lowsrc", LowSrc.Text()},   {"dynsrc", AVIBox.Text()},
        {"alt", AltText.Text()},    {"align", Alignment.Text()}, {"width", WidthB.Text()},
        {"height", HeightB.Text()}, {"vspace", Vspace.Text()},   {"hspace", HSpace.Text()}};
    for (const auto& [name, value] : attributes)
        if (!value.isEmpty()) element += attribute(QLatin1String(name), value);
    return element + QLatin1Char('>');
}

void NewImage::OK_Click() {
    DialogContext& s = shell();
    if (FileName.Text().isEmpty() && AVIBox.Text().isEmpty()) {
        s.platform().msgBox(QStringLiteral("You must specify a static image file."),
                            MsgIcon::Exclamation, MsgButtons::OK,
                            QStringLiteral("No Static Image Defined"));
        FileName.SetFocus();
        return;
    }
    // Unlike the other element dialogs it leaves bInsertingMarkup and bCaretStepTaken alone.
    silentExit([&] {
        codeEditor* doc = s.ActiveForm();
        if (!doc) raise(ErrObjectRequired);
        if (s.bLayoutActive)
            doc->DHTMLEdit1().pasteHTML(markup());
        else
            (s.CurrentDocument ? s.CurrentDocument : doc)->codebox().setSelText(markup());
        Unload();
        doc->SetFocus();
        doc->AddInsertStep();
    });
}

void NewImage::Cancel_Click() {
    resumeNext([&] { Unload(); });
    if (codeEditor* doc = shell().ActiveForm()) doc->codebox().SetFocus();
}

void bindImageDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertImage"), [&shell] { showDialog<NewImage>(shell); });
}

static const CommandSet imageDialogCommands{bindImageDialog};

} // namespace tsl
