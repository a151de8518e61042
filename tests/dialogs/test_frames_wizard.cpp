// The Frame Hanger: the frameset each layout writes, the pages and buttons as the user moves
// through them, the frames given by clicks on a map, and where the text lands.
#include "dialogs/frm_frames.h"
#include "dialogs_helpers.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QRegularExpression>

using namespace tsl;
using namespace tsl::test;

namespace {
// Runs a user's steps, ";" apart: next, back, finish, cancel, list=N (a layout picked), the
// name of a region (a click on it), or a field set as Name=value.
void drive(frmFrames& f, const QString& script) {
    const QMap<QString, CommandButton*> buttons{{"next", &f.NextButton},
                                                {"back", &f.cmdBack},
                                                {"finish", &f.cmdFinish},
                                                {"cancel", &f.Command3}};
    for (const QString& step : items(script)) {
        if (CommandButton* button = buttons.value(step))
            button->press();
        else if (auto* region = f.find<ImageBox>(step))
            region->press();
        else if (step.startsWith(QLatin1String("list=")))
            f.lstFrameType.setListIndex(step.mid(5).toInt());
        else
            setFields(f, step);
    }
}

// A frameset written out by hand: "|" is a line feed, {a} the frame visited with the
// defaults, {e} a frame never visited, <rows 25%, *> a frameset with borders off, </> its end.
QString frames(const char* text) {
    static const QRegularExpression frameset(QStringLiteral("<(rows|cols) ([^>]*)>"));
    return QString::fromUtf8(text)
        .replace(frameset, QStringLiteral(R"(<frameset \1="\2" border="0">)"))
        .replace(QLatin1String("</>"), QLatin1String("</frameset>"))
        .replace(QLatin1String("{a}"), QLatin1String(R"(<frame src="" name="" scrolling="auto">)"))
        .replace(QLatin1String("{e}"), QLatin1String(R"(<frame src="" name="">)"))
        .replace(QLatin1Char('|'), QLatin1Char('\n'));
}

// The page, preview and map showing, and the map's highlighted region.
QString shown(const frmFrames& f) {
    static const QRegularExpression kinds(QStringLiteral("^(Frame1_|Picture1_|pic)"));
    QStringList names;
    for (Control* c : f.controls())
        if (c->Visible() && kinds.match(c->name()).hasMatch() && !dynamic_cast<ImageBox*>(c))
            names.append(c->name());
    for (const FrameMap& map : f.maps())
        for (const auto& image : map.images)
            if (map.container->Visible() && image->Highlighted()) names.append(image->name());
    return names.join(u';');
}

// The four slots, each as its six fields, "-" when empty.
QString slotsOf(const frmFrames& f) {
    QStringList all;
    for (int n = 1; n <= 4; ++n) {
        const FrameSettings& s = f.slot(n);
        all.append(
            QStringList{s.name, s.src, s.scrolling, s.marginwidth, s.marginheight, s.noresize}
                .join(u',')
                .replace(QLatin1String(",,,,,"), "-"));
    }
    return all.join(u'/');
}
} // namespace

class FramesWizardTest : public QObject {
    Q_OBJECT
    std::unique_ptr<TestShell> ts;
    codeEditor& doc() { return ts->active(); }
    SourcePane& pane() { return doc().codebox(); }

    // The text in the document after the dialog, opened from the menu, ran the script, which
    // ends by closing it.
    QString writtenBy(const QString& script) {
        ts->forms.then<frmFrames>([script](frmFrames& f) {
            drive(f, script);
            QVERIFY(!f.isLoaded());
        });
        ts->run("mnuInsertFrames");
        return pane().Text();
    }
    // The dialog as loaded, driven by the row's script.
    std::unique_ptr<frmFrames> driven() {
        QFETCH(QString, script);
        auto f = std::make_unique<frmFrames>(**ts);
        f->Form_Load();
        drive(*f, script);
        return f;
    }

  private slots:
    void init() {
        ts = std::make_unique<TestShell>();
        ts->load();
        pane().setText(QString());
    }

    // Every layout as loaded and with red borders on every frameset, then cases worth a look.
    void written_data() {
        columns<QString, QString>({"script", "text"});
        const char* layouts[] = {
            "<rows 25%, *>|  {a}|  {e}|</>",
            "<cols 25%, *>|  {a}|  {e}|</>",
            "<rows 25%, *>|  {e}|  <cols 25%, *>|    {a}|    {e}|  </>|</>",
            "<cols 25%, *>|  {a}|  <rows 25%, *>|    {e}|    {e}|  </>|</>",
            "<rows 75%, *>|  {a}|  {e}|</>",
            "<cols 25%, *>|  {a}|  <rows *, 25%>|    {e}|    {e}|  </>|</>",
            // The Contents frame visited is saved to the Body's slot.
            "<rows *, 25%>|  <cols 25%, *>|    {e}|    {a}|  </>|  {e}|</>",
            "<rows 25%, *, 25%>|  {a}|  {e}|  {e}|</>",
            "<cols 25%, *>|  {a}|  <rows 25%, *, 25%>|    {e}|    {e}|    {e}|  </>|</>",
            "<rows 25%, *, 25%>|  {e}|  <cols 25%, *>|    {a}|    {e}|  </>|  {e}|</>",
        };
        for (int i = 0; i < 10; ++i) {
            const QByteArray name = "list index " + QByteArray::number(i);
            row(name.constData(), QStringLiteral("next;list=%1;next;finish").arg(i),
                frames(layouts[i]));
            row((name + ", red borders").constData(),
                QStringLiteral("next;list=%1;chkBorders=1;txtBorderColor=#FF0000;next;finish")
                    .arg(i),
                frames(layouts[i])
                    .replace(QLatin1String(R"( border="0")"),
                             QLatin1String(" bordercolor=\"#FF0000\"")));
        }
        row("Header example", "next;next;finish",
            QStringLiteral("<frameset rows=\"25%, *\" border=\"0\">\n  <frame src=\"\" name=\"\" "
                           "scrolling=\"auto\">\n  <frame src=\"\" name=\"\">\n</frameset>"));
        auto header = [](const char* frame) {
            return frames("<rows 25%, *>|  %1|  {e}|</>").arg(QLatin1String(frame));
        };
        row("every setting",
            "next;next;txtFrameName=top;txtFrameURL=top.htm;cmbScrolling=No;txtMWidth=5;"
            "txtMHeight=6;chkNoResize=1;finish",
            header(R"(<frame src="top.htm" name="top" scrolling="no" marginwidth="5" )"
                   R"(marginheight="6" noresize>)"));
        row("scrolling yes, one margin", "next;next;cmbScrolling=Yes;txtMHeight=0;finish",
            header(R"(<frame src="" name="" scrolling="yes" marginheight="0">)"));
        row("a typed scrolling stays as typed", "next;next;cmbScrolling=Sometimes;finish",
            header(R"(<frame src="" name=""Sometimes>)"));
        row("borders without a colour", "next;chkBorders=1;next;finish",
            frames(R"(<frameset rows="25%, *">|  {a}|  {e}|</>)"));
        row("page 3 and back keep the page", "next;next;txtFrameName=top;next;back;next;finish",
            header(R"(<frame src="" name="top" scrolling="auto">)"));
        row("Footer & Contents 2: the Contents typed reaches the Body",
            "next;list=6;next;txtFrameName=side;finish",
            frames(R"(<rows *, 25%>|  <cols 25%, *>|    {e}|)"
                   R"(    <frame src="" name="side" scrolling="auto">|  </>|  {e}|</>)"));
        row("Footer & Contents 2: the Footer typed reaches the Contents",
            "next;list=6;next;imgF1Foot;txtFrameName=foot;finish",
            frames(R"(<rows *, 25%>|  <cols 25%, *>|)"
                   R"(    <frame src="" name="foot" scrolling="auto">|    {e}|  </>|  {e}|</>)"));
        row("HFC 1: the Header's No Resize on the Contents too",
            "next;list=8;next;imgHF1Head;chkNoResize=1;imgHF1Body;finish",
            frames(R"(<cols 25%, *>|  <frame src="" name="" scrolling="auto" noresize>|)"
                   R"(  <rows 25%, *, 25%>|    <frame src="" name="" scrolling="auto" noresize>|)"
                   R"(    {a}|    {e}|  </>|</>)"));
        row("HFC 1: the Contents' own No Resize is not written",
            "next;list=8;next;chkNoResize=1;finish",
            frames("<cols 25%, *>|  {a}|  <rows 25%, *, 25%>|    {e}|    {e}|    {e}|  </>|</>"));
        // The Header clicked last stays the region: its slot gets the emptied page.
        row("Finish on page 1 after Back: empty frames, no borders",
            "next;list=2;chkBorders=1;txtBorderColor=#00FF00;next;txtFrameName=x;"
            "imgHead1Head;txtFrameName=y;back;finish",
            frames("<rows 25%, *>|  {a}|  <cols 25%, *>|    {e}|    {e}|  </>|</>"));
    }
    void written() {
        QFETCH(QString, script);
        QTEST(writtenBy(script), "text");
    }

    // The page showing with its preview and map, and the buttons and border fields enabled.
    void pages_data() {
        columns<QString, QString, QString>({"script", "shown", "enabled"});
        row("loaded", "", "Frame1_2;Picture1_0", "NextButton");
        row("page 1", "next", "Frame1_0;Picture1_0", "cmdBack;NextButton");
        row("another preview, borders", "next;list=4;chkBorders=1", "Frame1_0;Picture1_4",
            "cmdBack;NextButton;Label13;txtBorderColor;cmdColor");
        row("back to Welcome", "next;back", "Frame1_2;Picture1_0", "NextButton");
        row("page 2 with its map", "next;list=9;chkBorders=1;next",
            "Frame1_1;Picture1_9;picHF2;imgHF2Cont",
            "cmdBack;NextButton;cmdFinish;Label13;txtBorderColor;cmdColor");
        row("page 3", "next;next;next", "Frame1_3;Picture1_0;picHead;imgHeadHead",
            "cmdBack;cmdFinish");
        row("back from page 3: no Finish", "next;next;next;back",
            "Frame1_1;Picture1_0;picHead;imgHeadHead", "cmdBack;NextButton");
        row("page 3 again", "next;next;next;back;next", "Frame1_3;Picture1_0;picHead;imgHeadHead",
            "cmdBack;cmdFinish");
        row("back from page 2: Finish stays, no borders", "next;list=3;chkBorders=1;next;back",
            "Frame1_0;Picture1_3", "cmdBack;NextButton;cmdFinish");
        row("another layout then", "next;list=3;next;back;list=1;next",
            "Frame1_1;Picture1_1;picContents;imgContSide", "cmdBack;NextButton;cmdFinish");
    }
    void pages() {
        const std::unique_ptr<frmFrames> driven = this->driven();
        const frmFrames& f = *driven;
        QTEST(shown(f), "shown");
        QTEST(enabledOf(f, "cmdBack;NextButton;cmdFinish;Label13;txtBorderColor;cmdColor"),
              "enabled");
        // Enter presses Finish once Next is gone; the colour box looks off with its button.
        QCOMPARE(f.defaultButton(), f.NextButton.Enabled() ? &f.NextButton : &f.cmdFinish);
        QCOMPARE(f.txtBorderColor.BackColor(),
                 f.cmdColor.Enabled() ? Control::kDefaultColour : Control::kButtonFace);
    }

    // What a click saves and loads; the type and region as "FrameType/CurrentRegion".
    void regions_data() {
        columns<QString, QString, QString, QString, QString>(
            {"script", "shown", "where", "fields", "slots"});
        const char* hf = "Frame1_1;Picture1_7;picHF;";
        row("arrival", "next;list=7;next", hf + QString("imgHFHead"), "7/2", ";;Auto;;;0;0",
            "-/-/-/-");
        const char* typed = "next;list=7;next;txtFrameName=top;txtFrameURL=t.htm;cmbScrolling=No;"
                            "txtMWidth=1;txtMHeight=2;chkNoResize=1;imgHFFoot";
        row("a click keeps the frame left and loads the one clicked", typed,
            hf + QString("imgHFFoot"), "7/3", ";;Auto;;;0;0", "top,t.htm,No,1,2,1/-/-/-");
        row("clicking back brings it again", typed + QString(";txtFrameName=bottom;imgHFHead"),
            hf + QString("imgHFHead"), "7/2", "top;t.htm;No;1;2;1;0",
            "top,t.htm,No,1,2,1/-/bottom,,Auto,,,0/-");
        row("the region showing: saved, nothing seen to change",
            "next;list=7;next;txtFrameName=top;imgHFHead", hf + QString("imgHFHead"), "7/2",
            "top;;Auto;;;0;0", "top,,Auto,,,0/-/-/-");
        row("the map of Footer & Contents 2 keeps its own slots",
            "next;list=6;next;txtFrameName=side;imgF1Foot", "Frame1_1;Picture1_6;picF1;imgF1Foot",
            "5/3", ";;Auto;;;0;0", "-/-/side,,Auto,,,0/-");
        row("back clears the frames, the page and Borders",
            "next;list=7;chkBorders=1;next;txtFrameName=top;imgHFBody;txtMWidth=4;chkNoResize=1;"
            "back",
            "Frame1_0;Picture1_7", "7/1", ";;Auto;;;0;0", "-/-/-/-");
    }
    void regions() {
        const std::unique_ptr<frmFrames> driven = this->driven();
        const frmFrames& f = *driven;
        QTEST(shown(f), "shown");
        QTEST(QStringLiteral("%1/%2").arg(f.FrameType).arg(f.CurrentRegion), "where");
        QTEST(valuesOf(f, "txtFrameName;txtFrameURL;cmbScrolling;txtMWidth;txtMHeight;"
                          "chkNoResize;chkBorders"),
              "fields");
        QTEST(slotsOf(f), "slots");
    }

    // Over the selection in the Source pane, Layout view or not, as one step undo takes back;
    // Cancel changes nothing and takes no step.
    void document_data() {
        columns<QString, bool, bool, QString, int>(
            {"script", "layout", "caretStep", "text", "steps"});
        const QString framed = frames("<body>|<rows 25%, *>|  {a}|  {e}|</>|</body>");
        row("Source", "next;next;finish", false, false, framed, 1);
        row("Layout showing", "next;next;finish", true, false, framed, 1);
        row("after a caret step", "next;next;next;finish", false, true, framed, 1);
        row("cancel", "next;next;cancel", false, false, "<body>\nx\n</body>", 0);
    }
    void document() {
        QFETCH(QString, script);
        const QString before = QStringLiteral("<body>\nx\n</body>");
        pane().setText(before);
        pane().setSelStart(7);
        pane().setSelLength(1);
        doc().AddStep();
        const int steps = doc().nDoneIndex;
        QFETCH(bool, layout);
        QFETCH(bool, caretStep);
        ts->shell->bLayoutActive = layout;
        ts->shell->bCaretStepTaken = caretStep;
        QTEST(writtenBy(script), "text");
        QVERIFY(layoutOf(doc()).pasted.isEmpty() && !ts->shell->bInsertingMarkup &&
                !ts->shell->bCaretStepTaken);
        QTEST(doc().nDoneIndex - steps, "steps");
        ts->shell->bLayoutActive = false;
        if (doc().nDoneIndex > steps) ts->run("mnuEditUndo");
        QCOMPARE(pane().Text(), before);
    }
};

QTEST_GUILESS_MAIN(FramesWizardTest)
#include "test_frames_wizard.moc"
