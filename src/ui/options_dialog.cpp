// The Preferences dialog on screen.
#include "shell/frm_options.h"
#include "shell/shell_mdi.h"
#include "ui/binders.h"
#include "ui/form_host.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tsl {

namespace {
QToolButton* arrowButton(Qt::ArrowType arrow, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setArrowType(arrow);
    button->setFixedSize(18, 12);
    return button;
}

// A text box with its browse button.
QWidget* withBrowse(QLineEdit* edit, QPushButton* browse) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit, 1);
    browse->setFixedWidth(32);
    layout->addWidget(browse);
    return row;
}
} // namespace

void buildOptionsView(Form& base, FormDialog& dialog, ShellMDI& shell) {
    auto& form = static_cast<frmOptions&>(base);
    Binder bind(shell);

    auto* editor = new QGroupBox;
    bind.frame(form.fraEditor, editor);
    auto* editorRows = new QFormLayout(editor);
    auto* fontFace = new QComboBox;
    fontFace->setMinimumWidth(220);
    bind.comboBox(form.FontFace, fontFace);
    auto* fontLabel = new QLabel;
    bind.label(form.lblFontFace, fontLabel);
    fontLabel->setBuddy(fontFace);
    editorRows->addRow(fontLabel, fontFace);

    auto* sizeRow = new QWidget;
    auto* sizeLayout = new QHBoxLayout(sizeRow);
    sizeLayout->setContentsMargins(0, 0, 0, 0);
    sizeLayout->setSpacing(1);
    auto* size = new QLineEdit;
    size->setFixedWidth(48);
    bind.textBox(form.Size, size);
    auto* arrows = new QVBoxLayout;
    arrows->setSpacing(0);
    auto* up = arrowButton(Qt::UpArrow, sizeRow);
    auto* down = arrowButton(Qt::DownArrow, sizeRow);
    arrows->addWidget(up);
    arrows->addWidget(down);
    bind.upDown(form.UpDown1, up, down);
    up->setObjectName(QStringLiteral("UpDown1Up"));
    down->setObjectName(QStringLiteral("UpDown1Down"));
    sizeLayout->addWidget(size);
    sizeLayout->addLayout(arrows);
    sizeLayout->addStretch(1);
    auto* sizeLabel = new QLabel;
    bind.label(form.lblSize, sizeLabel);
    sizeLabel->setBuddy(size);
    editorRows->addRow(sizeLabel, sizeRow);

    auto* wrap = new QCheckBox;
    bind.checkBox(form.chkWordWrap, wrap);
    editorRows->addRow(wrap);
    auto* autoClose = new QCheckBox;
    bind.checkBox(form.chkAutoClose, autoClose);
    editorRows->addRow(autoClose);

    auto* locations = new QGroupBox;
    bind.frame(form.fraLocations, locations);
    auto* locationRows = new QFormLayout(locations);
    auto* browser = new QLineEdit;
    bind.textBox(form.Text1, browser);
    auto* browseBrowser = new QPushButton;
    bind.button(form.Command1, browseBrowser);
    auto* browserLabel = new QLabel;
    bind.label(form.lblBrowser, browserLabel);
    browserLabel->setBuddy(browser);
    locationRows->addRow(browserLabel, withBrowse(browser, browseBrowser));
    auto* folder = new QLineEdit;
    bind.textBox(form.PreviewBox, folder);
    auto* browseFolder = new QPushButton;
    bind.button(form.Command2, browseFolder);
    auto* folderLabel = new QLabel;
    bind.label(form.lblDefaultDir, folderLabel);
    locationRows->addRow(folderLabel, withBrowse(folder, browseFolder));
    auto* relative = new QCheckBox;
    bind.checkBox(form.chkRelative, relative);
    locationRows->addRow(relative);
    auto* note = new QLabel;
    bind.label(form.Label1, note);
    note->setWordWrap(true);
    locationRows->addRow(note);

    auto* buttons = new QDialogButtonBox;
    auto* ok = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    auto* cancel = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    // The buttons run the form's handlers themselves, not the box's accept and reject.
    ok->setAutoDefault(true);
    ok->setDefault(true);
    bind.button(form.OK, ok);
    bind.button(form.Cancel, cancel);
    QObject::disconnect(buttons, nullptr, &dialog, nullptr);

    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(editor);
    layout->addWidget(locations);
    layout->addWidget(buttons);
    dialog.setMinimumWidth(460);
    dialog.onCloseBox = [&form, &shell] { shell.dispatch([&form] { form.Cancel_Click(); }); };
}

} // namespace tsl
