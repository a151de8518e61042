#include "dialogs/frm_list.h"
#include "runtime/int16.h"
#include "runtime/resume.h"
#include "runtime/vb_strings.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"
#include <cmath>

namespace tsl {

QString listItemsOf(const QString& lines) {
    QString items = QStringLiteral("<li>") + lines;
    return items.replace(QLatin1Char('\n'), QStringLiteral("\n<li>"));
}

frmList::frmList(DialogContext& shell) : ElementDialog(QStringLiteral("frmList"), shell) {
    setCaption(QStringLiteral("Insert List"));
    for (const char* item : {"disc", "square", "circle"})
        cmbType.AddItem(QLatin1String(item));
    for (const char* item : {"Numbered", "Capital Letters", "Small Letters", "Upper Roman Numerals",
                             "Lower Roman Numerals"})
        cmbOrdered.AddItem(QLatin1String(item));
    ItemsBox.MaxLength = 3;
    UItemsBox.MaxLength = 3;
    useKeyFilter(numericKeyFilter, {&ItemsBox, &UItemsBox, &StartBox});
    ItemsBox.setText(QStringLiteral("1"));
    UItemsBox.setText(QStringLiteral("1"));
    StartBox.setText(QStringLiteral("1"));
    rtfConverter.setVisible(false);
    chkConvertSelected.setEnabled(false);

    OptionButton::group({&BOpt, &NOpt});
    BOpt.Click = [this] { BOpt_Click(); };
    NOpt.Click = [this] { NOpt_Click(); };
    chkConvertSelected.Click = [this] { chkConvertSelected_Click(); };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
    BOpt.setValue(true);
}

void frmList::Form_Load() {
    // "Disc" is not the item "disc": a list written as loaded says so in its type.
    cmbType.setText(QStringLiteral("Disc"));
    cmbOrdered.setText(QStringLiteral("Numbered"));
    codeEditor* doc = shell().ActiveForm();
    if (doc && doc->codebox().SelLength() > 0) {
        chkConvertSelected.setEnabled(true);
        rtfConverter.setText(doc->codebox().SelText());
    }
}

void frmList::BOpt_Click() {
    picBullet.setVisible(true);
    picOrdered.setVisible(false);
}

void frmList::NOpt_Click() {
    picOrdered.setVisible(true);
    picBullet.setVisible(false);
}

void frmList::chkConvertSelected_Click() {
    enableControls({&lblItems, &ItemsBox, &UpDown1, &lblUItems, &UItemsBox, &UpDown2},
                   chkConvertSelected.Value() != 1);
}

QString frmList::markup() const {
    QString items;
    if (chkConvertSelected.Value() == 1) {
        items = listItemsOf(rtfConverter.Text());
    } else {
        const TextBox& count = BOpt.Value() ? ItemsBox : UItemsBox;
        const int n = toInt16(std::llround(toNumber(count.Text())));
        for (int item = 1; item <= n; ++item)
            items += item == 1 ? QStringLiteral("<li>") : QStringLiteral("\n<li>");
    }
    if (BOpt.Value()) {
        QString open = QStringLiteral("<ul");
        if (cmbType.Text() != QLatin1String("disc"))
            open += attribute(QStringLiteral("type"), cmbType.Text());
        return open + QStringLiteral(">\n") + items + QStringLiteral("\n</ul>");
    }
    static const std::pair<const char*, const char*> kTypes[] = {{"Capital Letters", "A"},
                                                                 {"Small Letters", "a"},
                                                                 {"Upper Roman Numerals", "I"},
                                                                 {"Lower Roman Numerals", "i"}};
    QString open = QStringLiteral("<ol");
    for (const auto& [item, type] : kTypes)
        if (cmbOrdered.Text() == QLatin1String(item))
            open += attribute(QStringLiteral("type"), QLatin1String(type));
    // The one attribute written without quotes.
    if (StartBox.Text() != QLatin1String("1")) open += QStringLiteral(" start=") + StartBox.Text();
    return open + QStringLiteral(">\n") + items + QStringLiteral("\n</ol>");
}

void frmList::OK_Click() {
    DialogContext& s = shell();
    // A failure ends it here: the dialog stays open and the flags stay set.
    silentExit([&] {
        codeEditor& doc = required(s.ActiveForm());
        s.bInsertingMarkup = true;
        doc.AddSelectionToStack();
        const QString list = markup();
        bool hadSelection = false;
        if (s.bLayoutActive) {
            doc.DHTMLEdit1().pasteHTML(list);
            Unload();
        } else {
            Unload();
            SourcePane& pane = doc.codebox();
            hadSelection = pane.SelLength() > 0;
            pane.setSelText(list);
            pane.SetFocus();
        }
        if (!s.bCaretStepTaken)
            doc.CheckToAddStep(hadSelection);
        else
            doc.AddStep();
        s.bInsertingMarkup = false;
        s.bCaretStepTaken = false;
    });
}

void bindListDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertBullet"), [&shell] { showDialog<frmList>(shell); });
}

static const CommandSet listDialogCommands{bindListDialog};

} // namespace tsl
