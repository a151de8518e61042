// A style saved and loaded again: every branch of the field table, the keys a save leaves
// alone, and what a load makes of odd values in a file.
#include "style_fixture.h"
#include "stylesheets/profile_file.h"
#include "test_rows.h"

using namespace tsl;
using namespace tsl::test;

namespace {
QStringList keysOf(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QStringList keys;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.contains('=')) keys << QString::fromUtf8(line.left(line.indexOf('=')));
    return keys;
}

QString read(const QString& path, const char* key) {
    return GetPrivateProfileString("Tessaline 2", key, "<none>", path);
}

void write(const QString& path, const char* key, const QString& value) {
    QVERIFY(WritePrivateProfileString("Tessaline 2", key, value, path));
}

// Saves the form under a new name through Save and its name question.
void saveAs(StyleFixture& fx, frmStyle& form, const QString& name) {
    fx.ts.platform.inputAnswers.enqueue(name);
    form.tbrStyle_ButtonClick(2);
}
} // namespace

class TestStyleFields : public QObject {
    Q_OBJECT

  private slots:
    void a_fresh_file_receives_the_keys_in_their_order() {
        StyleFixture fx;
        auto form = fx.open();
        form->NoneOpt.setValue(false); // Float has no option on: its key is not written
        saveAs(fx, *form, "plain");
        const QStringList expected =
            words(
                "Tag Class AType Font1 SecondFontOn SecondFont GenFontOn GenFont Alignment VAlign1 "
                "VAlign2 LineHeight1 LineHeight2 LtrSpace1 LtrSpace2 WrdSpace1 WrdSpace2 Indent1 "
                "Indent2 FontSize1 FontSize2 FontSize3 Weight Italic Decoration Case SmallCaps "
                "ForeColour BdrAllType BdrAllClr BdrAllOn SizeAllCmb SizeAllBox BAllCmb BAllOn "
                "Clear "
                "ConWidth ConWidth2 ConWidth3 ConHeight ConHeight2 ConHeight3 Display White_Space "
                "List_Style List_Position List_Image AllPaddingOn PallBox PACmb MarginLeft "
                "MarginLeftCmb MarginRight MarginRightCmb MarginTop MarginTopCmb MarginBottom "
                "MarginBottomCmb Repeat BGColour ImgURL Attachment")
                .replaceInStrings("_", " ");
        QCOMPARE(keysOf(fx.file("plain")), expected);
    }

    void the_other_branches_write_their_own_keys_in_their_order() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, {"SpecBdrOpt=1", "BSpecOpt=1", "PSpecOpt=1", "FixOpt=1"});
        saveAs(fx, *form, "sides");
        const QStringList keys = keysOf(fx.file("sides"));
        const auto slice = [&](const char* first, int count) {
            return keys.mid(keys.indexOf(QLatin1String(first)), count);
        };
        QCOMPARE(slice("BdrAllOn", 9),
                 words("BdrAllOn BdrLftType BdrRtType BdrTopType BdrBotType ClrL ClrR ClrT ClrB"));
        QCOMPARE(slice("SizeLft", 13),
                 words("SizeLft SizeRt SizeTop SizeBot SizeBoxL SizeBoxR SizeBoxT SizeBoxB "
                       "MeasureSizeL MeasureSizeR MeasureSizeT MeasureSizeB BAllOn"));
        QCOMPARE(slice("AllPaddingOn", 9),
                 words("AllPaddingOn PLBox PLCmb PRBox PRCmb PTBox PTCmb PBBox PBCmb"));
        QCOMPARE(slice("Repeat", 10),
                 words("Repeat RepeatXCmb RepeatXBox RepeatXCmbMeasure RepeatYCmb RepeatYBox "
                       "RepeatYCmbMeasure BGColour ImgURL Attachment"));
        QVERIFY(!keys.contains("BdrAllType"));
        QVERIFY(!keys.contains("SizeAllCmb"));
        QVERIFY(!keys.contains("PallBox"));
    }

    void round_trips_data() {
        test::columns<QStringList, QStringList>({"fields", "changedByTheLoad"});
        QTest::newRow("font tab") << QStringList{"TagName=H2",
                                                 "ClassBox=big",
                                                 "FontFaceCmb=Arial",
                                                 "SecondFontChk=1",
                                                 "FontFaceCmb2=Times New Roman",
                                                 "GenFontChk=1",
                                                 "FontGenCmb=Monospace",
                                                 "FntSizeCmb=custom",
                                                 "FontSizeBox=12",
                                                 "FontSizeCmb=px",
                                                 "BoldCmb=Bold",
                                                 "ItalicCmb=Italic",
                                                 "SmlCaps=1",
                                                 "ColourBox=1, 2, 3",
                                                 "AlignCmb=Center",
                                                 "VCmb=Percentage",
                                                 "ValignBox=20",
                                                 "LineHtBox=3",
                                                 "LineHtCmb=em",
                                                 "LtrSpaceBox=2",
                                                 "LtrSpaceCmb=px",
                                                 "WrdSpaceBox=4",
                                                 "WrdSpaceCmb=cm",
                                                 "IndentBox=-5",
                                                 "IndentCmb=mm",
                                                 "CaseCmb=UPPER CASE",
                                                 "TextDecoCmb=Underline"}
                                  << QStringList{};
        QTest::newRow("one border for all sides")
            << QStringList{"BdrAllCmb=Dotted", "ColourBBox=9, 9, 9", "SizeAllCmb=Custom",
                           "BallCWBox=3", "BallCmb=px"}
            << QStringList{};
        QTest::newRow("each side its own border")
            << QStringList{"SpecBdrOpt=1",      "BdrLeftCmb=Dashed",
                           "LBCBox=1, 1, 1",    "BdrRtCmb=Solid",
                           "RBCBox=2, 2, 2",    "BdrTopCmb=Groove",
                           "BdrBotCmb=Inset",   "BBCBox=4, 4, 4",
                           "BSpecOpt=1",        "LeftSizeCmb=Custom",
                           "BLBox=2",           "BLCmb=em",
                           "RtSizeCmb=Thin",    "TopSizeCmb=Thick",
                           "BotSizeCmb=Custom", "BBBox=7",
                           "BBCmb=mm"}
            << QStringList{};
        QTest::newRow("float, clear and the container")
            << QStringList{"RightOpt=1", "BothOpt=1",        "WidthCmb=Custom", "CWBox=50",
                           "CWCmb=px",   "HeightCmb=Custom", "CHBox=20",        "CHCmb=in"}
            << QStringList{};
        QTest::newRow("a list item")
            << QStringList{"DisplayCmb=List-item", "WhiteSpCmb=Pre", "ListCmb=Upper Roman",
                           "LPosCmb=Inside", "URLBox=b.gif"}
            << QStringList{};
        QTest::newRow("margins and one padding")
            << QStringList{"LeftBox=-5",  "LMCmb=em", "RightBox=3", "RMCmb=%", "TopBox=1",
                           "BottomBox=2", "BMCmb=cm", "PallBox=4",  "PACmb=px"}
            << QStringList{};
        QTest::newRow("padding for each side")
            << QStringList{"PSpecOpt=1", "PLBox=1",  "PLCmb=px", "PRBox=2",
                           "PTBox=3",    "PTCmb=em", "PBBox=4",  "PBCmb=%"}
            << QStringList{};
        QTest::newRow("a repeated background")
            << QStringList{"RepVertOpt=1", "BGColour=5, 6, 7", "ImgURL=img/bg.png",
                           "AttachCmb=Fixed"}
            << QStringList{};
        QTest::newRow("a fixed background loses its units")
            << QStringList{"FixOpt=1",       "XFixCmb=Custom", "Xbox=10", "XCmb=px",
                           "YFixCmb=Custom", "YBox=30",        "YCmb=px", "ImgURL=a.gif"}
            << QStringList{"XCmb=%", "YCmb=%"};
    }
    void round_trips() {
        QFETCH(QStringList, fields);
        QFETCH(QStringList, changedByTheLoad);
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, fields);
        QMap<QString, QString> expected = fieldValues(*form);
        for (const QString& change : changedByTheLoad)
            expected[change.section('=', 0, 0)] = change.section('=', 1);
        saveAs(fx, *form, "mine");
        QCOMPARE(form->cmbItemName.Text(), QString("mine"));

        // A new opening of the dialog, then the saved name chosen.
        form.reset();
        auto again = fx.open();
        QCOMPARE(fieldValues(*again)["TagName"], QString());
        again->cmbItemName.setText("mine");
        QCOMPARE(fieldValues(*again), expected);
        QVERIFY(!again->session().StyleDirty);
    }

    void the_link_type_travels_with_the_style() {
        StyleFixture fx;
        auto form = fx.open();
        form->session().AType = "A:Visited";
        saveAs(fx, *form, "links");
        form->session().AType.clear();
        auto again = fx.open();
        again->cmbItemName.setText("links");
        QCOMPARE(again->session().AType, QString("A:Visited"));
    }

    void keys_of_the_branch_not_taken_stay_and_are_not_read() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, {"BSpecOpt=1", "LeftSizeCmb=Thick"});
        saveAs(fx, *form, "both");
        setFields(*form, {"BAllOpt=1", "SizeAllCmb=Thin"});
        form->tbrStyle_ButtonClick(2);
        QCOMPARE(read(fx.file("both"), "SizeLft"), QString("Thick"));
        QCOMPARE(read(fx.file("both"), "BAllOn"), QString("Yes"));
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("both");
        QCOMPARE(form->SizeAllCmb.Text(), QString("Thin"));
        QCOMPARE(form->LeftSizeCmb.Text(), QString("Medium"));
    }

    void a_group_with_no_option_on_leaves_its_keys_as_they_were() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, {"LeftOpt=1", "NoRepOpt=1", "PSpecOpt=1", "PLBox=6"});
        saveAs(fx, *form, "kept");
        setFields(*form, {"LeftOpt=0", "NoRepOpt=0", "PSpecOpt=0", "PLBox=0"});
        form->tbrStyle_ButtonClick(2);
        QCOMPARE(read(fx.file("kept"), "Float"), QString("Left"));
        QCOMPARE(read(fx.file("kept"), "Repeat"), QString("No-repeat"));
        QCOMPARE(read(fx.file("kept"), "AllPaddingOn"), QString("No"));
        QCOMPARE(read(fx.file("kept"), "PLBox"), QString("6"));
    }

    void odd_values_in_a_file_data() {
        test::columns<QString, QString, QString, QString>({"key", "value", "field", "shown"});
        QTest::newRow("a unit the list does not hold shows the default") << "LineHeight2"
                                                                         << "PT"
                                                                         << "LineHtCmb"
                                                                         << "pt";
        QTest::newRow("a weight the list does not hold shows the default") << "Weight"
                                                                           << "heavy"
                                                                           << "BoldCmb"
                                                                           << "[None]";
        QTest::newRow("a font that is not installed joins the list") << "Font1"
                                                                     << "Frutiger"
                                                                     << "FontFaceCmb"
                                                                     << "Frutiger";
        QTest::newRow("the first font, left out of the lists, comes back the same way")
            << "Font1"
            << "Aharoni"
            << "FontFaceCmb"
            << "Aharoni";
        QTest::newRow("the secondary check ignores a word it does not know") << "SecondFontOn"
                                                                             << "Maybe"
                                                                             << "SecondFontChk"
                                                                             << "0";
        QTest::newRow("small caps take any word but No as on") << "SmallCaps"
                                                               << "Maybe"
                                                               << "SmlCaps"
                                                               << "1";
        QTest::newRow("an unknown float changes nothing") << "Float"
                                                          << "Centre"
                                                          << "NoneOpt"
                                                          << "on";
        QTest::newRow("an unknown border switch reads no border keys") << "BdrAllOn"
                                                                       << "Perhaps"
                                                                       << "BdrAllOpt"
                                                                       << "on";
        QTest::newRow("a long value is cut at 254 characters")
            << "ImgURL" << QString(300, 'u') << "ImgURL" << QString(254, 'u');
    }
    void odd_values_in_a_file() {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QString, field);
        QFETCH(QString, shown);
        StyleFixture fx;
        auto form = fx.open();
        saveAs(fx, *form, "odd");
        write(fx.file("odd"), qPrintable(key), value);
        write(fx.file("odd"), "Class", "still-read"); // the load goes on past the odd value
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("odd");
        QCOMPARE(fieldValues(*form)[field], shown);
        QCOMPARE(form->ClassBox.Text(), QString("still-read"));
    }

    void a_missing_file_loads_every_default() {
        StyleFixture fx;
        auto form = fx.open();
        const auto defaults = fieldValues(*form);
        QCOMPARE(form->LineHtCmb.Text(), QString("pt")); // the load's default, not "%"
        QCOMPARE(form->FontFaceCmb.Text(), QString("(None)"));
        QCOMPARE(form->BdrAllOpt.Value(), true);
        QCOMPARE(form->RepOpt.Value(), true);
        saveAs(fx, *form, "gone");
        setFields(*form, {"TagName=P", "BoldCmb=Bold"});
        form->session().StyleDirty = false;
        QVERIFY(QFile::remove(fx.file("gone")));
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("gone");
        QCOMPARE(fieldValues(*form), defaults);
    }
};

QTEST_GUILESS_MAIN(TestStyleFields)
#include "test_style_fields.moc"
