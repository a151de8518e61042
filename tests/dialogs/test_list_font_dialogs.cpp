// Insert List, Insert Horizontal Line, Insert Marquee, Font and Base Font: the markup each
// writes for the fields set, how their fields enable each other, the colour box that keeps
// hex digits only, and where each one leaves the text, the selection and the undo steps.
#include "dialogs/font_dialogs.h"
#include "dialogs/frm_line.h"
#include "dialogs/frm_list.h"
#include "dialogs/frm_marquee.h"
#include "dialogs_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
// A dialog of the kind named, loaded, with the fields set.
std::unique_ptr<ElementDialog> loaded(const QString& kind, DialogContext& shell,
                                      const QString& fields) {
    std::unique_ptr<ElementDialog> form;
    if (kind == QLatin1String("list")) form = std::make_unique<frmList>(shell);
    if (kind == QLatin1String("line")) form = std::make_unique<frmLine>(shell);
    if (kind == QLatin1String("marquee")) form = std::make_unique<frmMarquee>(shell);
    if (kind == QLatin1String("font")) form = std::make_unique<fontSettings>(shell);
    if (kind == QLatin1String("basefont")) form = std::make_unique<frmBasefont>(shell);
    form->Form_Load();
    setFields(*form, fields);
    return form;
}

// The markup a dialog writes; the Font dialog's opening and closing tags with a "|" between.
QString markupOf(const QString& dialog, DialogContext& shell, const QString& fields) {
    const std::unique_ptr<ElementDialog> form = loaded(dialog, shell, fields);
    if (auto* f = dynamic_cast<frmList*>(form.get())) return f->markup();
    if (auto* f = dynamic_cast<frmLine*>(form.get())) return f->markup();
    if (auto* f = dynamic_cast<frmMarquee*>(form.get())) return f->markup();
    if (auto* f = dynamic_cast<frmBasefont*>(form.get())) return f->markup();
    const fontSettings::Tags tags = dynamic_cast<fontSettings&>(*form).tags();
    return tags.open + QLatin1Char('|') + tags.close;
}
} // namespace

class ListFontDialogsTest : public QObject {
    Q_OBJECT
    std::unique_ptr<TestShell> ts;
    ShellMDI& sh() { return **ts; }
    codeEditor& doc() { return ts->active(); }
    SourcePane& pane() { return doc().codebox(); }
    void startWith(const QString& text, int from, int to) {
        test::startWith(doc(), text, from, to);
    }
    QString selected() { return pane().SelText(); }

  private slots:
    void init() {
        ts = std::make_unique<TestShell>();
        ts->load();
    }

    void markup_data() {
        columns<QString, QString, QString>({"dialog", "fields", "markup"});
        // A list as loaded says type="Disc": the text is not the item "disc".
        row("list as loaded", "list", "", "<ul type=\"Disc\">\n<li>\n</ul>");
        row("list: disc from the list", "list", "cmbType=disc", "<ul>\n<li>\n</ul>");
        row("list: three squares", "list", "cmbType=square;ItemsBox=3",
            "<ul type=\"square\">\n<li>\n<li>\n<li>\n</ul>");
        row("list: numbered", "list", "NOpt=1", "<ol>\n<li>\n</ol>");
        row("list: numbered counts its own box", "list", "NOpt=1;ItemsBox=3;UItemsBox=2",
            "<ol>\n<li>\n<li>\n</ol>");
        row("list: start 5, no quotes", "list", "NOpt=1;StartBox=5", "<ol start=5>\n<li>\n</ol>");
        row("list: capitals from 0", "list", "NOpt=1;cmbOrdered=Capital Letters;StartBox=0",
            "<ol type=\"A\" start=0>\n<li>\n</ol>");
        for (const char* type :
             {"Small Letters a", "Upper Roman Numerals I", "Lower Roman Numerals i"})
            row(type, "list", "NOpt=1;cmbOrdered=" + QString(type).chopped(2),
                QStringLiteral("<ol type=\"%1\">\n<li>\n</ol>").arg(QString(type).right(1)));
        row("list: one line converted", "list", "rtfConverter=alpha;chkConvertSelected=1",
            "<ul type=\"Disc\">\n<li>alpha\n</ul>");
        row("list: three lines converted", "list",
            "NOpt=1;rtfConverter=a\nb\nc;chkConvertSelected=1", "<ol>\n<li>a\n<li>b\n<li>c\n</ol>");
        row("list: lines ending in a line feed", "list", "rtfConverter=a\nb\n;chkConvertSelected=1",
            "<ul type=\"Disc\">\n<li>a\n<li>b\n<li>\n</ul>");

        row("rule as loaded", "line", "", "<hr>");
        row("rule: half the width", "line", "WidthBox=50", "<hr width=\"50%\">");
        row("rule: pixels", "line", "WPixOpt=1;WidthBox=300", "<hr width=\"300\">");
        row("rule: 100 pixels is not full width", "line", "WPixOpt=1", "<hr width=\"100\">");
        row("rule: no width", "line", "WidthBox=0", "<hr>");
        row("rule: empty width", "line", "WidthBox=", "<hr>");
        row("rule: height", "line", "SizeBox=5", "<hr size=\"5\">");
        row("rule: height 0", "line", "SizeBox=0", "<hr>");
        row("rule: centred", "line", "CentreOpt=1", "<hr align=\"center\">");
        row("rule: right", "line", "RtOpt=1", "<hr align=\"right\">");
        row("rule: left again", "line", "RtOpt=1;LeftOpt=1", "<hr>");
        row("rule: no shading", "line", "Check1=1", "<hr noshade>");
        row("rule: no shading in red", "line", "Check1=1;Colour=ff0000",
            "<hr noshade color=#FF0000>");
        row("rule: a colour needs no shading", "line", "Colour=ff0000", "<hr>");
        row("rule: all", "line", "WidthBox=75;SizeBox=4;RtOpt=1;Check1=1;Colour=00FF00",
            "<hr width=\"75%\" size=\"4\" align=\"right\" noshade color=#00FF00>");

        row("marquee: text only", "marquee", "TextBox=Hi", "<marquee>Hi</marquee>");
        row("marquee: left, scroll, top", "marquee", "LeftOpt=1;ScrollOpt=1;TopOpt=1",
            "<marquee direction=\"left\" behavior=\"scroll\" align=\"top\"></marquee>");
        row("marquee: slide, middle", "marquee", "SlideOpt=1;MiddleOpt=1",
            "<marquee behavior=\"slide\" align=\"middle\"></marquee>");
        row("marquee: three times", "marquee", "chkInfinite=0;RepBox=3",
            "<marquee loop=\"3\"></marquee>");
        row("marquee: zero times", "marquee", "chkInfinite=0", "<marquee></marquee>");
        row("marquee: for ever", "marquee", "RepBox=3", "<marquee></marquee>");
        row("marquee: width unchecked", "marquee", "WidthBox=20", "<marquee></marquee>");
        row("marquee: percent height", "marquee", "chkHeight=1;HeightBox=50;HPerOpt=1",
            "<marquee height=\"50%\"></marquee>");
        row("marquee: all nine in order", "marquee",
            "BounceOpt=1;BottomOpt=1;RightOpt=1;AmountBox=6;DelayBox=85;chkInfinite=0;RepBox=2;"
            "chkWidth=1;WidthBox=300;chkHeight=1;HeightBox=40;ColourBox=FFFF00;TextBox=News",
            "<marquee direction=\"right\" scrollamount=\"6\" scrolldelay=\"85\" "
            "behavior=\"alternate\" loop=\"2\" align=\"bottom\" width=\"300\" height=\"40\" "
            "bgcolor=\"#FFFF00\">News</marquee>");
        row("marquee: percent width", "marquee", "chkWidth=1;WidthBox=80;PercentOpt=1",
            "<marquee width=\"80%\"></marquee>");

        row("font as loaded writes nothing", "font", "", "|");
        row("font: bold", "font", "Check1=1", "<b>|</b>");
        row("font: size and colour", "font", "TextBox=FF0000;Combo2=3",
            "<font size=\"3\" color=\"#FF0000\">|</font>");
        row("font: black is never written", "font", "TextBox=000000;Check2=1", "<i>|</i>");
        row("font: nor an empty colour", "font", "TextBox=;Check3=1", "<u>|</u>");
        row("font: face", "font", "Combo1=Arial", "<font face=\"Arial\">|</font>");
        row("font: five styles, tt outermost", "font",
            "Check1=1;Check2=1;Check3=1;Check4=1;Check5=1",
            "<tt><strike><b><i><u>|</u></i></b></strike></tt>");
        row("font: typewriter in place of the face", "font", "Combo1=Arial;Combo2=2;Check5=1",
            "<font size=\"2\"><tt>|</tt></font>");
        row("font: all three attributes in order", "font",
            "TextBox=0000FF;Combo2=7;Combo1=Arial;Check4=1",
            "<font face=\"Arial\" size=\"7\" color=\"#0000FF\"><strike>|</strike></font>");

        row("base font as loaded", "basefont", "", "<basefont size=\"3\">\n");
        row("base font with a face", "basefont", "cmbFace=Arial;cmbSize=5",
            "<basefont size=\"5\" face=\"Arial\">\n");
    }
    void markup() {
        QFETCH(QString, dialog);
        QFETCH(QString, fields);
        QTEST(markupOf(dialog, **ts, fields), "markup");
    }

    // Which fields each choice turns on and off.
    void enabling_data() {
        columns<QString, QString, QString, QString>({"dialog", "fields", "names", "enabled"});
        const char* listFields = "chkConvertSelected;lblItems;ItemsBox;UpDown1;lblUItems;"
                                 "UItemsBox;UpDown2;StartBox";
        row("list with no selection", "list", "", listFields,
            "lblItems;ItemsBox;UpDown1;lblUItems;UItemsBox;UpDown2;StartBox");
        row("list converting", "list", "chkConvertSelected=1", listFields, "StartBox");
        row("list no longer converting", "list", "chkConvertSelected=1;chkConvertSelected=0",
            listFields, "lblItems;ItemsBox;UpDown1;lblUItems;UItemsBox;UpDown2;StartBox");
        const char* lineFields = "lblColour;Colour;cmdMore";
        row("rule shaded", "line", "", lineFields, "");
        row("rule unshaded", "line", "Check1=1", lineFields, "lblColour;Colour;cmdMore");
        row("rule shaded again", "line", "Check1=1;Check1=0", lineFields, "");
        const char* marqueeFields = "WidthBox;UpDown2;PixelOpt;PercentOpt;HeightBox;UpDown3;"
                                    "HPixOpt;HPerOpt;RepBox;UpDown4;lblTimes";
        row("marquee as loaded", "marquee", "", marqueeFields, "");
        row("marquee width", "marquee", "chkWidth=1", marqueeFields,
            "WidthBox;UpDown2;PixelOpt;PercentOpt");
        row("marquee height", "marquee", "chkHeight=1", marqueeFields,
            "HeightBox;UpDown3;HPixOpt;HPerOpt");
        row("marquee repeat", "marquee", "chkInfinite=0", marqueeFields, "RepBox;UpDown4;lblTimes");
        row("font typewriter", "font", "Check5=1", "Combo1", "");
        row("font typewriter off", "font", "Check5=1;Check5=0", "Combo1", "Combo1");
    }
    void enabling() {
        QFETCH(QString, dialog);
        QFETCH(QString, fields);
        QFETCH(QString, names);
        QTEST(enabledOf(*loaded(dialog, **ts, fields), names), "enabled");
    }

    // The colour box keeps hex digits in capitals, one beep for each other character, and
    // the caret stays among what is kept; the preview shows the colour.
    void colourBoxKeepsHexDigits_data() {
        columns<QString, QString, int, int>({"arrives", "kept", "beeps", "at"});
        row("capitals", "ff00aa", "FF00AA", 0, 6);
        row("two digits, two foreign letters", "1g2h", "12", 2, 2);
        row("a blank and a hash", "#FF 00", "FF00", 2, 4);
        row("nothing left", "xyz", "", 3, 0);
    }
    void colourBoxKeepsHexDigits() {
        QFETCH(QString, arrives);
        frmLine line(**ts);
        line.Check1.setValue(1);
        line.Colour.receiveText(arrives);
        QTEST(line.Colour.Text(), "kept");
        QTEST(ts->platform.beeps, "beeps");
        QTEST(line.Colour.SelStart, "at");
    }
    void colourPreview() {
        frmLine line(**ts);
        line.Colour.setText(QStringLiteral("FF8000"));
        // Red in the lowest byte.
        QCOMPARE(line.Picture1.BackColor(), 0x0080FF);
    }

    // Percent caps the width at 100, pixels lets it reach 2000.
    void ruleWidthRange() {
        frmLine line(**ts);
        line.WPixOpt.setValue(true);
        QCOMPARE(line.UpDown1.Max, 2000);
        line.WidthBox.setText(QStringLiteral("640"));
        line.WPercOpt.setValue(true);
        QCOMPARE(line.UpDown1.Max, 100);
        QCOMPARE(line.WidthBox.Text(), QStringLiteral("100"));
    }

    // The preview label follows the styles, the size in points, the face and the colour.
    void fontPreview() {
        fontSettings f(**ts);
        QCOMPARE(f.Combo1.items().last(), QStringLiteral("(None)"));
        QCOMPARE(f.Combo1.items().mid(0, ts->platform.fonts.size()), ts->platform.fonts);
        QCOMPARE(f.Combo2.items().join(u' '), QStringLiteral("Normal 1 2 3 4 5 6 7"));
        setFields(f, "Check1=1;Check2=1;Check3=1;Check4=1;Combo2=6;Combo1=Arial");
        QVERIFY(f.Label6.FontBold() && f.Label6.FontItalic() && f.Label6.FontUnderline() &&
                f.Label6.FontStrikethru());
        QCOMPARE(f.Label6.FontSize(), 24.0);
        QCOMPARE(f.Label6.FontName(), QStringLiteral("Arial"));
        f.Combo1.setText(QStringLiteral("(None)"));
        QCOMPARE(f.Label6.FontName(), QStringLiteral("Times New Roman"));
        // Typewriter keeps the face chosen and brings it back.
        f.Combo1.setText(QStringLiteral("Arial"));
        f.Check5.setValue(1);
        QCOMPARE(f.Combo1.Text(), QStringLiteral("Courier New"));
        QCOMPARE(f.Label6.FontName(), QStringLiteral("Courier New"));
        f.Check5.setValue(0);
        QCOMPARE(f.Combo1.Text(), QStringLiteral("Arial"));
        ts->platform.colorAnswers.enqueue(0x0000FF);
        f.Command1.press();
        QCOMPARE(f.TextBox.Text(), QStringLiteral("FF0000"));
        QCOMPARE(f.Label6.ForeColor(), 0x0000FF);
    }

    void previewSizes_data() {
        columns<QString, double>({"size", "points"});
        const std::pair<const char*, double> sizes[] = {{"Normal", 12}, {"1", 8},  {"2", 10},
                                                        {"3", 12},      {"4", 14}, {"5", 18},
                                                        {"6", 24},      {"7", 36}};
        for (const auto& [size, points] : sizes)
            row(size, QString::fromLatin1(size), points);
    }
    void previewSizes() {
        QFETCH(QString, size);
        QTEST(fontPreviewPoints(size), "points");
    }

    // A list from three selected lines replaces them, in one step that undo takes back.
    void listConvertsTheSelection() {
        const QString lines = QStringLiteral("one\ntwo\nthree");
        startWith("<p>\n" + lines + "\n</p>", 4, 4 + lines.size());
        ts->forms.then<frmList>([&](frmList& f) {
            QVERIFY(f.chkConvertSelected.Enabled() && f.chkConvertSelected.Value() == 0);
            f.chkConvertSelected.setValue(1);
            f.OK.press();
        });
        ts->run("mnuInsertBullet");
        QCOMPARE(
            pane().Text(),
            QStringLiteral("<p>\n<ul type=\"Disc\">\n<li>one\n<li>two\n<li>three\n</ul>\n</p>"));
        QVERIFY(!sh().bInsertingMarkup);
        ts->run("mnuEditUndo");
        QCOMPARE(pane().Text(), "<p>\n" + lines + "\n</p>");
    }

    // An empty count fails silently: the dialog stays, the flag stays set, nothing changes.
    void listWithoutACountStaysOpen() {
        startWith(QStringLiteral("ab"), 1, 1);
        ts->forms.then<frmList>([&](frmList& f) {
            QVERIFY(!f.chkConvertSelected.Enabled());
            f.ItemsBox.setText(QString());
            f.OK.press();
            QVERIFY(f.isLoaded());
            QVERIFY(sh().bInsertingMarkup);
            QCOMPARE(pane().Text(), QStringLiteral("ab"));
            f.Cancel.press();
        });
        ts->run("mnuInsertBullet");
        QVERIFY(ts->platform.messages.isEmpty());
    }

    // In Layout the markup goes to the surface, the Source text waits for the switch back.
    void layoutTakesTheListAndTheRule() {
        startWith(QStringLiteral("<body></body>"), 6, 6);
        sh().bLayoutActive = true;
        ts->forms.then<frmList>([](frmList& f) { f.OK.press(); });
        ts->run("mnuInsertBullet");
        ts->forms.then<frmLine>([](frmLine& f) { f.OK.press(); });
        ts->run("mnuInsertHR");
        QCOMPARE(layoutOf(doc()).pasted,
                 QStringList({"<ul type=\"Disc\">\n<li>\n</ul>", QStringLiteral("<hr>")}));
        QCOMPARE(pane().Text(), QStringLiteral("<body></body>"));
    }

    // The rule goes over the selection and is a step of its own.
    void ruleReplacesTheSelection() {
        startWith(QStringLiteral("a--b"), 1, 3);
        const int steps = doc().nDoneIndex;
        ts->forms.then<frmLine>([](frmLine& f) {
            setFields(f, "CentreOpt=1");
            f.OK.press();
        });
        ts->run("mnuInsertHR");
        QCOMPARE(pane().Text(), QStringLiteral("a<hr align=\"center\">b"));
        QCOMPARE(doc().nDoneIndex, steps + 1);
    }

    // The marquee's text is the selection, and ends up selected between the tags; the step
    // remembers the caret beyond the closing tag and ten characters back.
    void marqueeSelectsItsText() {
        startWith(QStringLiteral("[Hi]"), 1, 3);
        ts->forms.then<frmMarquee>([](frmMarquee& f) {
            QCOMPARE(f.TextBox.Text(), QStringLiteral("Hi"));
            f.OK.press();
        });
        ts->run("mnuInsertMarquee");
        QCOMPARE(pane().Text(), QStringLiteral("[<marquee>Hi</marquee>]"));
        QCOMPARE(selected(), QStringLiteral("Hi"));
        QCOMPARE(pane().SelStart(), 10);
        const UndoStep& step = doc().Steps[static_cast<size_t>(doc().nDoneIndex)];
        QCOMPARE(step.SelStart, 22);
        QCOMPARE(step.CaretBack, 10);
        QVERIFY(!sh().bInsertingMarkup && sh().nStepCaretAdvance == 0 && sh().nStepCaretBack == 0);
    }

    // Around a selection the text stays selected; at the caret the caret lands inside.
    void fontWrites_data() {
        columns<QString, int, int, QString, QString, int>(
            {"fields", "from", "to", "text", "selected", "caret"});
        row("bold around x", "Check1=1", 1, 2, "a<b>x</b>b", "x", 4);
        row("colour and size around x", "TextBox=FF0000;Combo2=3", 1, 2,
            "a<font size=\"3\" color=\"#FF0000\">x</font>b", "x", 32);
        row("all five at the caret", "Check1=1;Check2=1;Check3=1;Check4=1;Check5=1", 1, 1,
            "a<tt><strike><b><i><u></u></i></b></strike></tt>xb", "", 22);
        row("nothing at the caret", "", 1, 1, "axb", "", 1);
    }
    void fontWrites() {
        QFETCH(QString, fields);
        QFETCH(int, from);
        QFETCH(int, to);
        startWith(QStringLiteral("axb"), from, to);
        ts->forms.then<fontSettings>([&](fontSettings& f) {
            setFields(f, fields);
            f.Command2.press();
            QVERIFY(!f.isLoaded());
        });
        ts->run("mnuInsertFont");
        QTEST(pane().Text(), "text");
        QTEST(selected(), "selected");
        QTEST(pane().SelStart(), "caret");
    }

    // The Font dialog's two step rules.
    void fontStepCalls_data() {
        columns<bool, bool, bool, int>({"font", "nothing", "caretStepTaken", "call"});
        using C = StepCall;
        row("font element", true, false, false, int(C::CheckToAddStep));
        row("font element after a caret step", true, false, true, int(C::AddStep));
        row("tags", false, false, false, int(C::CheckToAddStep));
        row("tags after a caret step: that was the step", false, false, true, int(C::None));
        row("nothing", false, true, false, int(C::DecreaseNDoneIndex));
        row("nothing after a caret step", false, true, true, int(C::DecreaseNDoneIndex));
    }
    void fontStepCalls() {
        QFETCH(bool, font);
        QFETCH(bool, nothing);
        QFETCH(bool, caretStepTaken);
        QTEST(int(fontStepCall(font, nothing, caretStepTaken)), "call");
    }

    // How the step count moves after each dialog writes, and the caret step a font records.
    void steps_data() {
        columns<QString, QString, int, int>({"item", "fields", "steps", "caretBack"});
        row("font, nothing", "mnuInsertFont", "", -1, 0);
        row("font, bold", "mnuInsertFont", "Check1=1", 1, 0);
        row("font element", "mnuInsertFont", "Combo2=2", 1, 7);
        row("base font", "mnuInsertBasefont", "", 1, 0);
        row("list", "mnuInsertBullet", "", 1, 0);
        row("rule", "mnuInsertHR", "", 1, 0);
    }
    void steps() {
        QFETCH(QString, item);
        QFETCH(QString, fields);
        startWith(QStringLiteral("<html><body></body></html>"), 12, 12);
        const int before = doc().nDoneIndex;
        ts->forms.scripts.enqueue([&](Form& f) {
            setFields(f, fields);
            for (const char* ok : {"OK", "Command2"})
                if (auto* button = dynamic_cast<CommandButton*>(f.control(ok))) button->press();
        });
        ts->run(qPrintable(item));
        QTEST(doc().nDoneIndex - before, "steps");
        QTEST(doc().Steps[static_cast<size_t>(doc().nDoneIndex)].CaretBack, "caretBack");
    }

    // The base font goes right before the body tag whatever the case, or at the caret.
    void baseFontPlace_data() {
        columns<QString, int, QString>({"text", "caret", "after"});
        row("before the body", "<html><BODY>x</BODY></html>", 13,
            "<html><basefont size=\"3\">\n<BODY>x</BODY></html>");
        row("at the caret without one", "<p>x</p>", 3, "<p><basefont size=\"3\">\nx</p>");
    }
    void baseFontPlace() {
        QFETCH(QString, text);
        QFETCH(int, caret);
        startWith(text, caret, caret);
        ts->forms.then<frmBasefont>([](frmBasefont& f) { f.OK.press(); });
        ts->run("mnuInsertBasefont");
        QTEST(pane().Text(), "after");
    }
};

QTEST_GUILESS_MAIN(ListFontDialogsTest)
#include "test_list_font_dialogs.moc"
