// Insert Image: the attributes in their fixed order, the one message, and its own way of
// committing (the insert flag untouched, a step of its own).
#include "dialogs/new_image.h"
#include "shell/code_editor.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

class NewImageTest : public QObject {
    Q_OBJECT

  private slots:
    void attributes_data() {
        columns<QStringList, QString>({"fields", "markup"});
        QTest::newRow("image") << QStringList{"FileName=a.gif"} << "<img src=\"a.gif\">";
        QTest::newRow("movie alone") << QStringList{"AVIBox=a.avi"} << "<img dynsrc=\"a.avi\">";
        QTest::newRow("zero is a width")
            << QStringList{"FileName=a.gif", "WidthB=0"} << "<img src=\"a.gif\" width=\"0\">";
        QTest::newRow("all, in the element's order")
            << QStringList{"HSpace=4",      "Vspace=3",     "HeightB=2",    "WidthB=1",
                           "AltText=a cat", "AVIBox=m.avi", "LowSrc=l.gif", "FileName=a.gif"}
            << "<img src=\"a.gif\" lowsrc=\"l.gif\" dynsrc=\"m.avi\" alt=\"a cat\" width=\"1\" "
               "height=\"2\" vspace=\"3\" hspace=\"4\">";
    }
    void attributes() {
        QFETCH(QStringList, fields);
        TestShell t;
        t.load();
        NewImage form(*t.shell);
        form.Form_Load();
        for (const QString& field : fields)
            form.find<TextBox>(field.section(QLatin1Char('='), 0, 0))
                ->setText(field.section(QLatin1Char('='), 1));
        QTEST(form.markup(), "markup");
    }

    void alignmentIsWrittenAsListed() {
        TestShell t;
        t.load();
        NewImage form(*t.shell);
        QCOMPARE(form.Alignment.ListCount(), 11);
        QCOMPARE(form.Alignment.List(9), QStringLiteral("Left"));
        QCOMPARE(form.Alignment.Text(), QString());
        form.FileName.setText(QStringLiteral("a.gif"));
        form.Alignment.setText(QStringLiteral("Absmiddle"));
        QCOMPARE(form.markup(), QStringLiteral("<img src=\"a.gif\" align=\"Absmiddle\">"));
    }

    void okWritesAtTheCaretAsOneStepAndLeavesTheInsertFlag() {
        TestShell t;
        t.load();
        t.active().codebox().setText(QStringLiteral("ab"));
        t.active().AddStep();
        t.active().codebox().setSelStart(1);
        const Int16 done = t.active().nDoneIndex;
        t->bInsertingMarkup = true;
        t.forms.then<NewImage>([](NewImage& f) {
            f.LowSrc.setText(QStringLiteral("l.gif"));
            f.OK.press();
            QVERIFY(f.isLoaded());
            f.FileName.setText(QStringLiteral("a.gif"));
            f.OK.press();
        });
        t.run("mnuInsertImage");
        QCOMPARE(t.platform.messageTexts(),
                 QStringList{QStringLiteral("You must specify a static image file.")});
        QCOMPARE(t.platform.messages.first().title, QStringLiteral("No Static Image Defined"));
        QCOMPARE(t.active().codebox().Text(),
                 QStringLiteral("a<img src=\"a.gif\" lowsrc=\"l.gif\">b"));
        QCOMPARE(t.active().nDoneIndex, Int16(done + 1));
        QVERIFY(t->bInsertingMarkup);
    }

    void inLayoutTheElementIsPasted() {
        TestShell t;
        t.load();
        t->bLayoutActive = true;
        t.forms.then<NewImage>([](NewImage& f) {
            f.AVIBox.setText(QStringLiteral("m.avi"));
            f.OK.press();
        });
        t.run("mnuInsertImage");
        QCOMPARE(layoutOf(t.active()).pasted,
                 QStringList{QStringLiteral("<img dynsrc=\"m.avi\">")});
    }

    void theMovieButtonKeepsItsFilter() {
        TestShell t;
        t.load();
        NewImage form(*t.shell);
        form.Form_Load();
        QVERIFY(form.ImageFiles.hasFlag(CommonDialog::FileMustExist));
        t.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        form.Command1.press();
        QCOMPARE(form.ImageFiles.Filter,
                 QStringLiteral("Movie Files (*.avi; *.mpg; *.mpeg)|*.avi; *.mpg; *.mpeg"));
        int key = 'x';
        form.WidthB.KeyPress(key);
        QCOMPARE(key, 0);
    }
};

QTEST_GUILESS_MAIN(NewImageTest)
#include "test_new_image.moc"
