#include "dialogs/frm_hyperlink.h"
#include "markup/markup_steps.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
const QString kClose = QStringLiteral("</a>");

// The link written in the Source pane: around the selection in two steps, the selection kept
// on the wrapped text; or an empty pair with the caret between the tags.
void writeInSource(DialogContext& shell, codeEditor& doc, const QString& open) {
    wrapInSource(shell, doc, {open, kClose});
}

void invalid(DialogContext& shell, TextBox& focus, const QString& text, const QString& title,
             MsgIcon icon) {
    shell.platform().msgBox(text, icon, MsgButtons::OK, title);
    focus.SetFocus();
}
} // namespace

frmHyperlink::frmHyperlink(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmHyperlink"), shell), CLocal(shell.platform()) {
    setCaption(QStringLiteral("Insert Hyperlink"));
    cmdOpen.ToolTipText = QStringLiteral("Make a hyperlink to a local file on your computer");
    cmdMail.ToolTipText = QStringLiteral("Make a hyperlink that sends email");
    for (const char* target :
         {"Same frame", "Display page without frames", "New window", "Parent frame", "Other"})
        cmbTarget.AddItem(QLatin1String(target));
    CLocal.Filter = QStringLiteral("HTML Files (*.htm; *.html; *.shtml; *.asp)|*.htm; *.html; "
                                   "*.shtml; *.asp|All Files (*.*)|*.*");
    cmbTarget.Click = [this] { cmbTarget_Click(); };
    cmdOpen.Click = [this] { browseFile(CLocal, URLBox); };
    cmdMail.Click = [this] { cmdMail_Click(); };
    OK.Click = [this] { OK_Click(); };
    Command3.Click = [this] { cancelDialog(); };
}

void frmHyperlink::Form_Load() {
    URLBox.setText(QStringLiteral("http://"));
    enableControls({&lblFName, &FNameBox}, false);
    CLocal.InitDir = shell().OpenSave.InitDir;
    CLocal.Flags |= CommonDialog::FileMustExist;
}

void frmHyperlink::cmbTarget_Click() {
    const bool other = cmbTarget.Text() == QLatin1String("Other");
    enableControls({&lblFName, &FNameBox}, other);
}

void frmHyperlink::cmdMail_Click() {
    frmEmail email(*this);
    shell().forms().showModal(email);
}

QString frmHyperlink::openingTag() const {
    QString href = URLBox.Text();
    if (!AnchorBox.Text().isEmpty()) href += QLatin1Char('#') + AnchorBox.Text();
    static const QHash<QString, QString> targets = {
        {QStringLiteral("Same frame"), QStringLiteral("_self")},
        {QStringLiteral("Display page without frames"), QStringLiteral("_top")},
        {QStringLiteral("New window"), QStringLiteral("_blank")},
        {QStringLiteral("Parent frame"), QStringLiteral("_parent")}};
    QString target;
    if (cmbTarget.Text() == QLatin1String("Other"))
        target = attribute(QStringLiteral("target"), FNameBox.Text());
    else if (targets.contains(cmbTarget.Text()))
        target = attribute(QStringLiteral("target"), targets.value(cmbTarget.Text()));
    return QStringLiteral("<a href=\"") + href + QLatin1Char('"') + target + QLatin1Char('>');
}

void frmHyperlink::OK_Click() {
    DialogContext& s = shell();
    const bool mailto = URLBox.Text().left(7).toLower() == QLatin1String("mailto:");
    if (AnchorBox.Text().isEmpty() &&
        (URLBox.Text() == QLatin1String("http://") || URLBox.Text().isEmpty())) {
        invalid(s, URLBox, QStringLiteral("You must specify a valid URL!"),
                QStringLiteral("Invalid URL"), MsgIcon::Exclamation);
        return;
    }
    if (!AnchorBox.Text().isEmpty() && mailto) {
        invalid(s, URLBox, QStringLiteral("You can't link to an anchor with an e-mail address"),
                QStringLiteral("Anchor not allowed"), MsgIcon::Information);
        return;
    }
    if (mailto && !cmbTarget.Text().isEmpty()) {
        invalid(s, URLBox,
                QStringLiteral("You have set the hyperlink to mailto and used the frames target "
                               "box. This is not valid."),
                QStringLiteral("Frame target not allowed"), MsgIcon::Information);
        return;
    }
    const QString open = openingTag();
    // A failure while writing ends here with no message, the flags left as they stand.
    silentExit([&] {
        s.bInsertingMarkup = true;
        codeEditor& doc = required(s.ActiveForm());
        if (s.bLayoutActive) {
            const QString selected = doc.DHTMLEdit1().selectionText();
            doc.DHTMLEdit1().pasteHTML(open + (selected.isEmpty() ? URLBox.Text() : selected) +
                                       kClose);
        } else {
            writeInSource(s, doc, open);
        }
        s.bInsertingMarkup = false;
        s.bCaretStepTaken = false;
        Unload();
        if (s.bLayoutActive)
            doc.DHTMLEdit1().SetFocus();
        else
            doc.codebox().SetFocus();
    });
}

frmEmail::frmEmail(frmHyperlink& owner) : Form(QStringLiteral("frmEmail")), owner_(owner) {
    setCaption(QStringLiteral("Link to e-mail address"));
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { Unload(); };
}

void frmEmail::cmdOK_Click() {
    if (txtAddress.Text().isEmpty()) {
        owner_.shell().platform().msgBox(QStringLiteral("You must define an e-mail address."),
                                         MsgIcon::Exclamation, MsgButtons::OK,
                                         QStringLiteral("Invalid E-mail Address"));
        return;
    }
    QString url = QStringLiteral("mailto:") + txtAddress.Text();
    if (!txtSubject.Text().isEmpty()) url += QStringLiteral("?subject=") + txtSubject.Text();
    owner_.URLBox.setText(url);
    Unload();
}

frmAnchor::frmAnchor(DialogContext& shell) : ElementDialog(QStringLiteral("frmAnchor"), shell) {
    setCaption(QStringLiteral("Insert Anchor / Bookmark"));
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { cancelDialog(); };
}

void frmAnchor::OK_Click() {
    DialogContext& s = shell();
    if (AnchorBox.Text().isEmpty()) {
        s.platform().msgBox(QStringLiteral("Invalid Anchor / Bookmark"), MsgIcon::Exclamation);
        return;
    }
    // The Source pane whatever the view: the surface has no anchors of its own.
    silentExit([&] {
        s.bInsertingMarkup = true;
        codeEditor& doc = required(s.ActiveForm());
        writeInSource(s, doc,
                      QStringLiteral("<a name=\"") + AnchorBox.Text() + QStringLiteral("\">"));
        s.bInsertingMarkup = false;
        s.bCaretStepTaken = false;
        Unload();
        doc.codebox().SetFocus();
    });
}

frmLink::frmLink(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmLink"), shell), cdLinkTo(shell.platform()) {
    setCaption(QStringLiteral("Link to ..."));
    cdLinkTo.Filter = QStringLiteral("CSS Documents (*.css)|*.css");
    cmdOK.setEnabled(false);
    txtLinkTo.Change = [this] { cmdOK.setEnabled(!txtLinkTo.Text().isEmpty()); };
    cmdBrowse.Click = [this] { browseFile(cdLinkTo, txtLinkTo); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cancelDialog(); };
}

void frmLink::Form_Load() {
    cdLinkTo.InitDir = shell().OpenSave.InitDir;
}

void frmLink::cmdOK_Click() {
    DialogContext& s = shell();
    codeEditor& doc = required(s.ActiveForm());
    SourcePane& pane = doc.codebox();
    if (s.bLayoutActive) pane.setText(doc.DHTMLEdit1().DocumentHTML());
    const QString element = QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"") +
                            txtLinkTo.Text() + QStringLiteral("\">");
    const int body = pane.Find(QStringLiteral("<BODY"), 0);
    if (body >= 0) {
        pane.setSelStart(body);
        pane.setSelText(element + QLatin1Char('\n'));
    } else {
        pane.setSelText(element);
    }
    Unload();
    if (s.bLayoutActive) {
        doc.DHTMLEdit1().setDocumentHTML(pane.Text());
        doc.DHTMLEdit1().SetFocus();
    } else {
        pane.SetFocus();
        doc.AddStep();
    }
}

void bindLinkDialogs(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertHyperlink"),
                  [&shell] { showDialog<frmHyperlink>(shell); });
    commands.bind(QStringLiteral("mnuInsertAnchor"), [&shell] { showDialog<frmAnchor>(shell); });
    commands.bind(QStringLiteral("mnuInsertLink"), [&shell] { showDialog<frmLink>(shell); });
}

static const CommandSet linkDialogsCommands{bindLinkDialogs};

} // namespace tsl
