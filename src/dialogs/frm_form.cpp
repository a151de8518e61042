#include "dialogs/frm_form.h"
#include "markup/markup_steps.h"
#include "runtime/int16.h"
#include "runtime/resume.h"
#include "runtime/vb_strings.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"
#include <cmath>

namespace tsl {

namespace {
const QString kButtonCaptions[] = {QStringLiteral("Button"), QStringLiteral("Submit"),
                                   QStringLiteral("Reset")};

// An attribute that is left out when its field is empty.
QString optional(const char* name, const TextBox& field) {
    return field.Text().isEmpty() ? QString() : attribute(QLatin1String(name), field.Text());
}

QString flag(const char* name, const CheckBox& box) {
    return box.Value() == 1 ? QLatin1Char(' ') + QLatin1String(name) : QString();
}
} // namespace

const QStringList& formComponentKinds() {
    static const QStringList kinds = {
        QStringLiteral("Button"),   QStringLiteral("Check Box"),
        QStringLiteral("List"),     QStringLiteral("Radio Button"),
        QStringLiteral("Text Box"), QStringLiteral("Multi-row Text Box"),
        QStringLiteral("Image"),    QStringLiteral("Hidden Field")};
    return kinds;
}

frmForm::frmForm(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmForm"), shell), cdOpen(shell.platform()) {
    setCaption(QStringLiteral("Form Components"));
    for (const QString& kind : formComponentKinds())
        cmbInputType.AddItem(kind);
    for (const char* align : {"(None)", "left", "right", "center", "absmiddle", "absbottom", "top",
                              "texttop", "middle", "baseline", "bottom"})
        cmbImgAlign.AddItem(QLatin1String(align));
    txtTextBoxValue.setText(kButtonCaptions[0]);
    txtListHeight.setText(QStringLiteral("1"));
    txtListHeight.MaxLength = 2;
    txtItems.setText(QStringLiteral("1"));
    txtItems.MaxLength = 2;
    useKeyFilter(numericKeyFilter, {&txtImgHeight, &txtImgWidth, &txtListHeight, &txtMax,
                                    &txtMultiHeight, &txtMultiWidth, &txtSize});
    cdOpen.DialogTitle = QStringLiteral("Image Finder");
    cdOpen.Filter =
        QStringLiteral("All Web Graphic File Formats (*.gif; *.jpeg; *.jpg)|*.gif; *.jpeg; *.jpg");
    cmdOK.ToolTipText = QStringLiteral("Insert Current and Close");
    cmdCancel.ToolTipText = QStringLiteral("Close the form");

    OptionButton::group({&optNorm, &optSubmit, &optReset});
    optNorm.setValue(true);
    optNorm.Click = [this] { optionClicked(kButtonCaptions[0]); };
    optSubmit.Click = [this] { optionClicked(kButtonCaptions[1]); };
    optReset.Click = [this] { optionClicked(kButtonCaptions[2]); };
    cmbInputType.Click = [this] { cmbInputType_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cancelDialog(); };
    for (Label* panel : panels())
        panel->setVisible(false);
}

std::vector<Label*> frmForm::panels() {
    return {&picButton, &picCheckbox, &picList,  &picOption,
            &picText,   &picMulti,    &picImage, &picHidden};
}

void frmForm::Form_Load() {
    document = shell().ActiveForm();
    cdOpen.InitDir = shell().OpenSave.InitDir;
    cmbImgAlign.setText(QStringLiteral("(None)"));
    if (!document) return;
    // The selection of the view the user works in becomes the text area's text.
    const QString selected = shell().bLayoutActive ? document->DHTMLEdit1().selectionText()
                                                   : document->codebox().SelText();
    if (!selected.isEmpty()) txtMultiText.setText(selected);
}

void frmForm::cmbInputType_Click() {
    const std::vector<Label*> all = panels();
    for (int i = 0; i < static_cast<int>(all.size()); ++i)
        all[i]->setVisible(i == cmbInputType.ListIndex());
}

void frmForm::optionClicked(const QString& caption) {
    for (const QString& standing : kButtonCaptions)
        if (txtTextBoxValue.Text() == standing) {
            txtTextBoxValue.setText(caption);
            return;
        }
}

QString frmForm::markup() const {
    const QString kind = cmbInputType.Text();
    const QString close = QStringLiteral(">");
    if (kind == QLatin1String("Text Box"))
        return QStringLiteral("<input type=\"text\"") + optional("name", txtName) +
               optional("value", txtValue) + optional("size", txtSize) +
               optional("maxlength", txtMax) + close;
    if (kind == QLatin1String("Image")) {
        const QString align = cmbImgAlign.Text();
        return QStringLiteral("<input type=\"image\"") + optional("name", txtImgName) +
               optional("src", txtImgSrc) + optional("width", txtImgWidth) +
               optional("height", txtImgHeight) +
               (align.isEmpty() || align == QLatin1String("(None)")
                    ? QString()
                    : attribute(QStringLiteral("align"), align)) +
               close;
    }
    if (kind == QLatin1String("Hidden Field"))
        return QStringLiteral("<input type=\"hidden\"") + optional("name", txtHiddenName) +
               optional("value", txtHiddenValue) + close;
    if (kind == QLatin1String("Radio Button"))
        return QStringLiteral("<input type=\"radio\"") + optional("name", txtGrName) +
               optional("value", txtOptVal) + flag("checked", chkSelected) + close;
    if (kind == QLatin1String("Check Box"))
        return QStringLiteral("<input type=\"checkbox\"") + optional("name", txtCheckboxName) +
               optional("value", txtCheckVal) + flag("checked", chkChecked) + close;
    if (kind == QLatin1String("Button")) {
        // Unlike the other inputs, a button says its type last.
        const char* type = optSubmit.Value() ? "submit" : optReset.Value() ? "reset" : "button";
        return QStringLiteral("<input") + optional("name", txtTextBoxName) +
               attribute(QStringLiteral("value"), txtTextBoxValue.Text()) +
               attribute(QStringLiteral("type"), QLatin1String(type)) + close;
    }
    if (kind == QLatin1String("Multi-row Text Box"))
        return QStringLiteral("<textarea") + optional("name", txtMultiName) +
               optional("rows", txtMultiHeight) + optional("cols", txtMultiWidth) + close +
               txtMultiText.Text() + QStringLiteral("</textarea>");
    if (kind == QLatin1String("List")) {
        // The size is written also when empty; the options have no text and no end tag.
        QString list = QStringLiteral("<select") + optional("name", txtListName) +
                       attribute(QStringLiteral("size"), txtListHeight.Text()) +
                       flag("multiple", chkMultiple) + QStringLiteral(">\n");
        const int count = toInt16(std::llround(toNumber(txtItems.Text())));
        for (int i = 0; i < count; ++i)
            list += QStringLiteral("   <option>\n");
        return list + QStringLiteral("</select>");
    }
    return QString();
}

void frmForm::cmdOK_Click() {
    DialogContext& s = shell();
    const int error = silentExit([&] {
        codeEditor& doc = required(document);
        s.bInsertingMarkup = true;
        const QString text = markup();
        SourcePane& pane = doc.codebox();
        if (s.bLayoutActive)
            doc.DHTMLEdit1().pasteHTML(text);
        else
            pane.setSelText(text);
        Unload();
        // Back to the start of "</textarea>", so the user types the default text.
        if (cmbInputType.Text() == QLatin1String("Multi-row Text Box"))
            pane.setSelStart(std::max(0, pane.SelStart() - 11));
        if (s.bLayoutActive) {
            doc.DHTMLEdit1().SetFocus();
        } else {
            pane.SetFocus();
            doc.AddInsertStep();
        }
        s.bInsertingMarkup = false;
        s.bCaretStepTaken = false;
    });
    if (error == 0) return;
    Unload();
    s.bInsertingMarkup = false;
    s.bCaretStepTaken = false;
    if (document) document->SetFocus();
    s.platform().msgBox(s.bLayoutActive
                            ? QStringLiteral("Error inserting form component. This may be because "
                                             "you have an object selected in the layout window.")
                            : QStringLiteral("Error inserting form component."),
                        MsgIcon::Exclamation);
}

frmFormSettings::frmFormSettings(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmFormSettings"), shell) {
    setCaption(QStringLiteral("Insert Form"));
    cmdMail.ToolTipText = QStringLiteral("Make a hyperlink that sends email");
    for (const char* method : {"POST", "GET"})
        cmbMethod.AddItem(QLatin1String(method));
    for (const char* type : {"application/x-www-form-urlencoded", "multipart/form-data"})
        cmbEncoding.AddItem(QLatin1String(type));
    for (const char* target : {"_self", "_parent", "_blank", "_top"})
        cmbTarget.AddItem(QLatin1String(target));
    cmdMail.Click = [this] { cmdMail_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cancelDialog(); };
}

void frmFormSettings::cmdMail_Click() {
    frmFormEmail email(*this);
    shell().forms().showModal(email);
}

QString frmFormSettings::openingTag() const {
    QString tag = QStringLiteral("<form");
    if (!txtAction.Text().isEmpty()) tag += attribute(QStringLiteral("action"), txtAction.Text());
    // The method alone goes without quotes.
    if (!cmbMethod.Text().isEmpty()) tag += QStringLiteral(" method=") + cmbMethod.Text();
    if (!cmbEncoding.Text().isEmpty())
        tag += attribute(QStringLiteral("enctype"), cmbEncoding.Text());
    if (!cmbTarget.Text().isEmpty()) tag += attribute(QStringLiteral("target"), cmbTarget.Text());
    return tag + QLatin1Char('>');
}

void frmFormSettings::cmdOK_Click() {
    DialogContext& s = shell();
    s.bInsertingMarkup = true;
    const QString open = openingTag();
    codeEditor& doc = required(s.ActiveForm());
    if (s.bLayoutActive) {
        doc.DHTMLEdit1().pasteHTML(open + QStringLiteral("&nbsp;&nbsp;</form>"));
        Unload();
        s.platform().msgBox(
            QStringLiteral("Your form details have been added. However, if you are using "
                           "Microsoft Internet Explorer 4.01 then the form area will not be "
                           "visible."),
            MsgIcon::Information);
        doc.DHTMLEdit1().SetFocus();
    } else {
        // Around the selection, which stays selected; else the caret on the empty line inside.
        const bool wrapped = writePair(
            s, doc, {open + QLatin1Char('\n'), QStringLiteral("\n</form>"), false, false});
        Unload();
        doc.codebox().SetFocus();
        if (!s.bCaretStepTaken)
            doc.CheckToAddStep(wrapped);
        else
            doc.AddStep();
        s.nStepCaretAdvance = 0;
        if (!wrapped) s.nStepCaretBack = 0;
    }
    s.bInsertingMarkup = false;
    s.bCaretStepTaken = false;
}

frmFormEmail::frmFormEmail(frmFormSettings& owner)
    : Form(QStringLiteral("frmFormEmail")), owner_(owner) {
    setCaption(QStringLiteral("Mail-to Form Address"));
    // No check of the address: an empty one gives the bare "mailto:".
    cmdOK.Click = [this] {
        owner_.txtAction.setText(QStringLiteral("mailto:") + txtAddress.Text());
        Unload();
    };
    cmdCancel.Click = [this] { Unload(); };
}

namespace {
void showFormComponent(DialogContext& shell, const QString& kind) {
    shell.CurrentDocument = shell.ActiveForm();
    frmForm form(shell);
    form.Form_Load();
    form.cmbInputType.setText(kind);
    shell.forms().showModal(form);
}
} // namespace

void bindFormDialogs(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertForm"),
                  [&shell] { showFormComponent(shell, formComponentKinds().first()); });
    commands.bind(QStringLiteral("mnuInsertFormSettings"),
                  [&shell] { showDialog<frmFormSettings>(shell); });
    // The forms toolbar's buttons, one for each kind.
    for (const QString& kind : formComponentKinds())
        commands.bindAction(QStringLiteral("formComponent:") + kind,
                            [&shell, kind] { showFormComponent(shell, kind); });
}

static const CommandSet formDialogCommands{bindFormDialogs};

} // namespace tsl
