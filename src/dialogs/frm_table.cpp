#include "dialogs/frm_table.h"
#include "runtime/int16.h"
#include "runtime/vb_strings.h"
#include "shell/command_registry.h"
#include <cmath>

namespace tsl {

namespace {
const QString kNone = QStringLiteral("[None]");

// The whole number a count box holds; an empty or foreign text is a type mismatch.
int countOf(const TextBox& box) {
    return toInt16(std::llround(toNumber(box.Text())));
}
} // namespace

QString tableMarkup(const QString& tableAttributes, const QString& rowAttributes, int rows,
                    int columns) {
    QString markup = QStringLiteral("<table") + tableAttributes + QStringLiteral(">\n");
    for (int row = 1; row <= rows; ++row) {
        markup += QStringLiteral("   <tr") + rowAttributes + QStringLiteral(">\n");
        for (int column = 1; column <= columns; ++column)
            markup += QStringLiteral("      <td>&nbsp;</td>\n");
        markup += QStringLiteral("   </tr>\n");
    }
    return markup + QStringLiteral("</table>");
}

frmTable::frmTable(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmTable"), shell), cdTable(shell.platform()) {
    setCaption(QStringLiteral("Insert Table"));
    for (TextBox* box : {&ColBox, &RowBox, &Spacing, &Padding})
        box->MaxLength = 2;
    for (TextBox* box : {&txtBGColour, &txtBC, &txtLB, &txtDB})
        box->MaxLength = 6;
    useKeyFilter(numericKeyFilter, {&ColBox, &RowBox, &Spacing, &Padding, &WidthBox});
    useKeyFilter(hexKeyFilter, {&txtBGColour, &txtBC, &txtLB, &txtDB});

    ColBox.setText(QStringLiteral("2"));
    RowBox.setText(QStringLiteral("2"));
    Spacing.setText(QStringLiteral("2"));
    Padding.setText(QStringLiteral("1"));
    BorderBox.setText(QStringLiteral("0"));
    WidthBox.setText(QStringLiteral("100"));
    for (const char* item : {"[None]", "left", "right"})
        Alignment.AddItem(QLatin1String(item));
    for (const char* item : {"[None]", "top", "center", "bottom"})
        cmbVAlign.AddItem(QLatin1String(item));
    Alignment.setListIndex(0);
    cmbVAlign.setListIndex(0);

    OptionButton::group({&PercentOpt, &PixelsOpt});
    OptionButton::group({&optNone, &optAllSides, &optSpecLD});
    WidthCheck.setValue(1);
    PercentOpt.setValue(true);
    optNone.setValue(true);
    optAllSides.setEnabled(false);
    optSpecLD.setEnabled(false);
    setBorderColour(false);
    setLighterDarker(false);

    cdTable.CancelError = true;
    wireHandlers();
}

void frmTable::wireHandlers() {
    BorderBox.Change = [this] { BorderBox_Change(); };
    optNone.Click = [this] { optNone_Click(); };
    optAllSides.Click = [this] { optAllSides_Click(); };
    optSpecLD.Click = [this] { optSpecLD_Click(); };
    WidthCheck.Click = [this] { WidthCheck_Click(); };
    PercentOpt.Click = [this] { PercentOpt_Click(); };
    PixelsOpt.Click = [this] { PixelsOpt_Click(); };
    BGBrowse.Click = [this] { pickColour(cdTable, txtBGColour); };
    cmdBC.Click = [this] { pickColour(cdTable, txtBC); };
    cmdLB.Click = [this] { pickColour(cdTable, txtLB); };
    cmdDB.Click = [this] { pickColour(cdTable, txtDB); };
    Browse.Click = [this] { browseFile(cdTable, BackgroundBox); };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
}

void frmTable::Form_Load() {
    cdTable.Filter = QStringLiteral("All Formats|*.gif; *.jpeg; *.jpg|GIF Format (*.gif)|*.gif|"
                                    "JPEG Format (*.jpg; *.jpeg)|*.jpg; *.jpeg");
    cdTable.InitDir = shell().OpenSave.InitDir;
}

void frmTable::BorderBox_Change() {
    const bool noBorder = BorderBox.Text() == QLatin1String("0") || BorderBox.Text().isEmpty();
    if (noBorder) optNone.setValue(true);
    enableControls({&optSpecLD, &optAllSides}, !noBorder);
}

void frmTable::setBorderColour(bool on) {
    enableControls({&txtBC, &lblBC, &cmdBC}, on);
}

void frmTable::setLighterDarker(bool on) {
    enableControls({&txtLB, &lblLB, &cmdLB, &txtDB, &lblDB, &cmdDB}, on);
}

void frmTable::optNone_Click() {
    txtBC.setText(QString());
    txtLB.setText(QString());
    txtDB.setText(QString());
    setBorderColour(false);
    setLighterDarker(false);
}

void frmTable::optAllSides_Click() {
    setBorderColour(true);
    setLighterDarker(false);
    txtLB.setText(QString());
    txtDB.setText(QString());
}

void frmTable::optSpecLD_Click() {
    setBorderColour(false);
    setLighterDarker(true);
    txtBC.setText(QString());
}

void frmTable::WidthCheck_Click() {
    const bool custom = WidthCheck.Value() == 1;
    enableControls({&PercentOpt, &PixelsOpt, &WidthBox}, custom);
}

QString frmTable::markup() const {
    QString table;
    if (Spacing.Text() != QLatin1String("2"))
        table += attribute(QStringLiteral("cellspacing"), Spacing.Text());
    if (Padding.Text() != QLatin1String("1"))
        table += attribute(QStringLiteral("cellpadding"), Padding.Text());
    // Written for every value, "0" and empty included.
    table += attribute(QStringLiteral("border"), BorderBox.Text());
    if (WidthCheck.Value() == 1 && (PercentOpt.Value() || PixelsOpt.Value()))
        table +=
            attribute(QStringLiteral("width"),
                      WidthBox.Text() + (PercentOpt.Value() ? QStringLiteral("%") : QString()));
    if (!txtBGColour.Text().isEmpty())
        table += attribute(QStringLiteral("bgcolor"), QLatin1Char('#') + txtBGColour.Text());
    if (!BackgroundBox.Text().isEmpty())
        table += attribute(QStringLiteral("background"), BackgroundBox.Text());
    // The border colours go without "#", unlike bgcolor.
    if (optAllSides.Value()) table += attribute(QStringLiteral("bordercolor"), txtBC.Text());
    if (optSpecLD.Value())
        table += attribute(QStringLiteral("bordercolorlight"), txtLB.Text()) +
                 attribute(QStringLiteral("bordercolordark"), txtDB.Text());

    // Alignment belongs to the rows here, never to the table.
    QString row;
    if (Alignment.Text() != kNone) row += attribute(QStringLiteral("align"), Alignment.Text());
    if (cmbVAlign.Text() != kNone) row += attribute(QStringLiteral("valign"), cmbVAlign.Text());
    return tableMarkup(table, row, countOf(RowBox), countOf(ColBox));
}

void frmTable::OK_Click() {
    commitMarkup([this] { return markup(); });
}

void bindTableDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertTable"), [&shell] { showDialog<frmTable>(shell); });
}

static const CommandSet tableDialogCommands{bindTableDialog};

} // namespace tsl
