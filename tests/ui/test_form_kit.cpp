// The form kit and the form host, once, against a small dialog: its view as a description,
// every field named by its label, the title following Caption, Escape pressing Cancel, a
// modeless form owned by the host beside the main window, and a form with no view.
#include "frm_tiny.h"
#include "program_fixture.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

using namespace tsl;
using namespace tsl::test;

namespace {
// The whole view of the small dialog.
void buildTinyView(frmTiny& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({Group(f.fraTiny, {Field(f.lblSize, Spin(f.txtSize, f.udSize)),
                                    Field(f.lblColour, Picked(f.txtColour, f.cmdColour, 70)),
                                    Field(f.lblFile, Picked(f.txtFile, f.cmdFile))}),
                  Buttons({&f.OK, &f.Cancel})}));
}
} // namespace

class FormKitTest : public QObject {
    Q_OBJECT

  private slots:
    void aModelessDialogBuiltByTheKit() {
        ProgramFixture p;
        p.start();
        p.bench->forms().registerView(buildTinyView);
        auto owned = std::make_unique<frmTiny>(p.shell());
        QPointer<frmTiny> form = owned.get();
        p.shell().forms().showModeless(std::move(owned));
        QPointer<FormDialog> d = p.window().findChild<FormDialog*>(QStringLiteral("frmTiny"));
        QVERIFY(d && d->isVisible() && !d->isModal());
        QCOMPARE(d->parentWidget(), &p.window());
        QCOMPARE(d->windowTitle(), QStringLiteral("Insert Tiny"));
        form->setCaption(QStringLiteral("Tiny"));
        QCOMPARE(d->windowTitle(), QStringLiteral("Tiny"));

        // Every field is named by its label.
        for (QLineEdit* edit : d->findChildren<QLineEdit*>()) {
            QAccessibleInterface* access = QAccessible::queryAccessibleInterface(edit);
            QVERIFY2(access && !access->text(QAccessible::Name).isEmpty(),
                     qPrintable(edit->objectName()));
        }
        QCOMPARE(
            QAccessible::queryAccessibleInterface(ProgramFixture::child<QLineEdit>(*d, "txtSize"))
                ->text(QAccessible::Name),
            QStringLiteral("Size:"));
        QVERIFY(ProgramFixture::child<QPushButton>(*d, "OK")->isDefault());
        QVERIFY(!ProgramFixture::child<QPushButton>(*d, "cmdFile")->autoDefault());

        ProgramFixture::child<QWidget>(*d, "udSizeUp")->setFocus();
        qobject_cast<QAbstractButton*>(ProgramFixture::child<QWidget>(*d, "udSizeUp"))->click();
        QCOMPARE(form->txtSize.Text(), QStringLiteral("2"));
        QTest::keyClick(d, Qt::Key_Escape); // presses Cancel, which unloads the form
        QTRY_VERIFY(d.isNull());
        QVERIFY(form.isNull());
    }

    void aFormWithNoViewSaysSo() {
        ProgramFixture p;
        p.start();
        Form form(QStringLiteral("frmNothing"));
        p.shell().forms().showModal(form);
        QVERIFY(!form.isLoaded());
        QCOMPARE(p.platform.messages.size(), 1);
        QCOMPARE(p.platform.messages.first().text, Platform::notAvailableText());
    }
};

QTEST_MAIN(FormKitTest)
#include "test_form_kit.moc"
