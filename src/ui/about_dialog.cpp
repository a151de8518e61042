// The About box on screen.
#include "shell/frm_about.h"
#include "shell/shell_mdi.h"
#include "ui/binders.h"
#include "ui/form_host.h"
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tsl {

namespace {
// A label that looks and acts like a link; the click goes to the form's handler.
QLabel* linkLabel(tsl::Label& control, Binder& bind, std::function<void()> click) {
    auto* label = new QLabel;
    bind.label(control, label);
    label->setText(QStringLiteral("<a href=\"#\">%1</a>").arg(control.Caption().toHtmlEscaped()));
    label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    label->setAlignment(Qt::AlignCenter);
    QObject::connect(label, &QLabel::linkActivated, label, [click] { click(); });
    return label;
}
} // namespace

void buildAboutView(Form& base, FormDialog& dialog, ShellMDI& shell) {
    auto& form = static_cast<frmAbout&>(base);
    Binder bind(shell);
    auto* layout = new QVBoxLayout(&dialog);
    auto* name = new QLabel;
    bind.label(form.lblName, name);
    QFont big = name->font();
    big.setPointSizeF(big.pointSizeF() * 2);
    big.setBold(true);
    name->setFont(big);
    name->setAlignment(Qt::AlignCenter);
    auto* version = new QLabel;
    bind.label(form.lblVersion, version);
    version->setAlignment(Qt::AlignCenter);
    layout->addWidget(name);
    layout->addWidget(version);
    layout->addSpacing(8);
    layout->addWidget(
        linkLabel(form.Label, bind, [&] { shell.dispatch([&] { form.Label_Click(); }); }));
    layout->addWidget(
        linkLabel(form.Labels, bind, [&] { shell.dispatch([&] { form.Labels_Click(); }); }));
    auto* buttons = new QDialogButtonBox;
    auto* ok = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    ok->setDefault(true);
    bind.button(form.OK, ok);
    QObject::disconnect(buttons, nullptr, &dialog, nullptr);
    layout->addWidget(buttons);
    dialog.setMinimumWidth(320);
    dialog.onCloseBox = [&] { shell.dispatch([&] { form.OK_Click(); }); };
}

} // namespace tsl
