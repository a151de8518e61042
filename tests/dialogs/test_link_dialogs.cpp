// Hyperlinks, anchors and style sheet links: the wrap around a selection, the empty pair with
// the caret inside, the validation messages in their order, the e-mail helper, the Layout
// path, and the link element before the body tag.
#include "dialogs/frm_hyperlink.h"
#include "shell/code_editor.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
struct Links : TestShell {
    explicit Links(const QString& text, int selStart = 0, int selLength = 0) {
        load();
        SourcePane& pane = active().codebox();
        pane.setText(text);
        active().AddStep();
        pane.setSelStart(selStart);
        pane.setSelLength(selLength);
    }
    SourcePane& pane() { return active().codebox(); }
    void hyperlink(const std::function<void(frmHyperlink&)>& fill) {
        forms.then<frmHyperlink>([fill](frmHyperlink& f) {
            fill(f);
            f.OK.press();
        });
        run("mnuInsertHyperlink");
    }
};
} // namespace

class LinkDialogsTest : public QObject {
    Q_OBJECT

  private slots:
    // The menu items and the buttons of the tag bar reach the element dialogs.
    void theMenusAndButtonsOpenTheDialogs_data() {
        columns<QString, int, QString>({"item", "button", "form"});
        QTest::newRow("page properties") << "mnuEditProperties" << 11 << "Colours";
        QTest::newRow("anchor") << "mnuInsertAnchor" << 13 << "frmAnchor";
        QTest::newRow("hyperlink") << "mnuInsertHyperlink" << 14 << "frmHyperlink";
        QTest::newRow("image") << "mnuInsertImage" << 16 << "NewImage";
        QTest::newRow("style sheet link") << "mnuInsertLink" << -1 << "frmLink";
    }
    void theMenusAndButtonsOpenTheDialogs() {
        QFETCH(QString, item);
        QFETCH(int, button);
        QFETCH(QString, form);
        TestShell ts;
        ts.load();
        const auto close = [](Form& f) { f.Unload(); };
        ts.forms.scripts.enqueue(close);
        ts.run(item.toUtf8().constData());
        if (button >= 0) {
            ts.forms.scripts.enqueue(close);
            ts->tbrTags.press(button);
        } else {
            ts.forms.scripts.enqueue(close);
            ts->tbrMain.press(20);
        }
        QCOMPARE(ts.forms.shown, (QStringList{form, form}));
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void aSelectionIsWrappedAndStaysSelected() {
        Links t(QStringLiteral("click here now"), 6, 4);
        t.hyperlink([](frmHyperlink& f) { f.URLBox.setText(QStringLiteral("a.htm")); });
        QCOMPARE(t.pane().Text(), QStringLiteral("click <a href=\"a.htm\">here</a> now"));
        QCOMPARE(t.pane().SelText(), QStringLiteral("here"));
        QVERIFY(!t->bInsertingMarkup);
        t.active().Undo();
        QCOMPARE(t.pane().Text(), QStringLiteral("click here now"));
    }

    void withoutASelectionTheCaretStandsBetweenTheTags() {
        Links t(QStringLiteral("ab"), 1);
        t.hyperlink([](frmHyperlink& f) {
            f.URLBox.setText(QStringLiteral("a.htm"));
            f.AnchorBox.setText(QStringLiteral("top"));
            f.cmbTarget.setText(QStringLiteral("New window"));
        });
        QCOMPARE(t.pane().Text(), QStringLiteral("a<a href=\"a.htm#top\" target=\"_blank\"></a>b"));
        QCOMPARE(t.pane().SelStart(), 37);
        QCOMPARE(t->nStepCaretAdvance, Int16(0));
        t.active().Undo();
        QCOMPARE(t.pane().Text(), QStringLiteral("ab"));
    }

    void targets_data() {
        columns<QString, QString, QString>({"target", "name", "tag"});
        QTest::newRow("none") << ""
                              << ""
                              << "<a href=\"x\">";
        QTest::newRow("same") << "Same frame"
                              << ""
                              << "<a href=\"x\" target=\"_self\">";
        QTest::newRow("top") << "Display page without frames"
                             << ""
                             << "<a href=\"x\" target=\"_top\">";
        QTest::newRow("parent") << "Parent frame"
                                << ""
                                << "<a href=\"x\" target=\"_parent\">";
        QTest::newRow("other") << "Other"
                               << "main"
                               << "<a href=\"x\" target=\"main\">";
        QTest::newRow("other, no name") << "Other"
                                        << ""
                                        << "<a href=\"x\" target=\"\">";
    }
    void targets() {
        QFETCH(QString, target);
        QFETCH(QString, name);
        Links t{QString()};
        frmHyperlink f(*t.shell);
        f.Form_Load();
        QVERIFY(!f.FNameBox.Enabled());
        f.URLBox.setText(QStringLiteral("x"));
        if (!target.isEmpty()) f.cmbTarget.setText(target);
        QCOMPARE(f.FNameBox.Enabled(), target == QLatin1String("Other"));
        f.FNameBox.setText(name);
        QTEST(f.openingTag(), "tag");
    }

    void validationInItsOrder_data() {
        columns<QString, QString, QString, QString, QString>(
            {"url", "anchor", "target", "message", "title"});
        QTest::newRow("no URL") << "http://"
                                << ""
                                << ""
                                << "You must specify a valid URL!"
                                << "Invalid URL";
        QTest::newRow("empty URL") << ""
                                   << ""
                                   << "New window"
                                   << "You must specify a valid URL!"
                                   << "Invalid URL";
        QTest::newRow("mail with anchor") << "MAILTO:a@b"
                                          << "top"
                                          << "New window"
                                          << "You can't link to an anchor with an e-mail address"
                                          << "Anchor not allowed";
        QTest::newRow("mail with target")
            << "mailto:a@b"
            << ""
            << "New window"
            << "You have set the hyperlink to mailto and used the frames target box. This is "
               "not valid."
            << "Frame target not allowed";
        QTest::newRow("anchor alone passes") << "http://"
                                             << "top"
                                             << ""
                                             << ""
                                             << "";
        QTest::newRow("mail alone passes") << "mailto:a@b"
                                           << ""
                                           << ""
                                           << ""
                                           << "";
    }
    void validationInItsOrder() {
        QFETCH(QString, url);
        QFETCH(QString, anchor);
        QFETCH(QString, target);
        QFETCH(QString, message);
        Links t{QString()};
        bool stayed = false;
        t.forms.then<frmHyperlink>([&](frmHyperlink& f) {
            f.URLBox.setText(url);
            f.AnchorBox.setText(anchor);
            if (!target.isEmpty()) f.cmbTarget.setText(target);
            f.OK.press();
            stayed = f.isLoaded();
        });
        t.run("mnuInsertHyperlink");
        QCOMPARE(stayed, !message.isEmpty());
        QCOMPARE(t.platform.messageTexts(),
                 message.isEmpty() ? QStringList() : QStringList{message});
        if (!message.isEmpty()) QTEST(t.platform.messages.first().title, "title");
        if (message.isEmpty())
            QVERIFY(t.pane().Text().startsWith(QStringLiteral("<a href=\"") + url));
    }

    void theEmailHelperComposesTheAddress() {
        Links t{QString()};
        t.hyperlink([&t](frmHyperlink& f) {
            QCOMPARE(f.URLBox.Text(), QStringLiteral("http://"));
            t.forms.then<frmEmail>([](frmEmail& e) {
                e.cmdOK.press();
                QVERIFY(e.isLoaded());
                e.txtAddress.setText(QStringLiteral("me@example.org"));
                e.txtSubject.setText(QStringLiteral("two words"));
                e.cmdOK.press();
            });
            f.cmdMail.press();
            QCOMPARE(f.URLBox.Text(), QStringLiteral("mailto:me@example.org?subject=two words"));
        });
        QCOMPARE(t.platform.messageTexts(),
                 QStringList{QStringLiteral("You must define an e-mail address.")});
        QCOMPARE(t.platform.messages.first().title, QStringLiteral("Invalid E-mail Address"));
        QCOMPARE(t.pane().Text(),
                 QStringLiteral("<a href=\"mailto:me@example.org?subject=two words\"></a>"));
    }

    void inLayoutTheLinkTakesThePlainTextOrTheUrl() {
        Links t(QStringLiteral("<p>x</p>"));
        t->bLayoutActive = true;
        t.hyperlink([](frmHyperlink& f) {
            f.URLBox.setText(QStringLiteral("a.htm"));
            f.AnchorBox.setText(QStringLiteral("top"));
        });
        layoutOf(t.active()).selected = QStringLiteral("bold words");
        t.hyperlink([](frmHyperlink& f) { f.URLBox.setText(QStringLiteral("b.htm")); });
        QCOMPARE(layoutOf(t.active()).pasted,
                 (QStringList{QStringLiteral("<a href=\"a.htm#top\">a.htm</a>"),
                              QStringLiteral("<a href=\"b.htm\">bold words</a>")}));
        QCOMPARE(t.pane().Text(), QStringLiteral("<p>x</p>"));
    }

    void anAnchorIsNamedAndWrittenToSourceInAnyView() {
        Links t(QStringLiteral("top of page"), 0, 3);
        t->bLayoutActive = true;
        t.forms.then<frmAnchor>([](frmAnchor& f) {
            f.OK.press();
            QVERIFY(f.isLoaded());
            f.AnchorBox.setText(QStringLiteral("top"));
            f.OK.press();
        });
        t.run("mnuInsertAnchor");
        QCOMPARE(t.platform.messageTexts(),
                 QStringList{QStringLiteral("Invalid Anchor / Bookmark")});
        QCOMPARE(t.pane().Text(), QStringLiteral("<a name=\"top\">top</a> of page"));
        QVERIFY(layoutOf(t.active()).pasted.isEmpty());
    }

    void theStyleSheetLinkGoesBeforeTheBody_data() {
        columns<QString, QString>({"text", "result"});
        QTest::newRow("body") << "<html><BODY>x</BODY>"
                              << "<html><link rel=\"stylesheet\" type=\"text/css\" "
                                 "href=\"s.css\">\n<BODY>x</BODY>";
        QTest::newRow("no body") << "ab"
                                 << "<link rel=\"stylesheet\" type=\"text/css\" href=\"s.css\">ab";
    }
    void theStyleSheetLinkGoesBeforeTheBody() {
        QFETCH(QString, text);
        Links t(text);
        const Int16 done = t.active().nDoneIndex;
        t.forms.then<frmLink>([](frmLink& f) {
            QVERIFY(!f.cmdOK.Enabled());
            f.txtLinkTo.setText(QStringLiteral("s.css"));
            QVERIFY(f.cmdOK.Enabled());
            f.cmdOK.press();
        });
        t.run("mnuInsertLink");
        QTEST(t.pane().Text(), "result");
        QCOMPARE(t.active().nDoneIndex, Int16(done + 1));
    }
};

QTEST_GUILESS_MAIN(LinkDialogsTest)
#include "test_link_dialogs.moc"
