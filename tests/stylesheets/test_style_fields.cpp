// The definition files of saved styles: read and written key by key, with the bytes of the
// file kept; and a style saved and loaded again through every branch of the field table, the
// keys a save leaves alone, and what a load makes of odd values in a file.
#include "style_fixture.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kSection = QStringLiteral("Tessaline 2");

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void put(const QString& path, const QString& text) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}
} // namespace

class TestStyleFields : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString path() const { return dir.filePath(QStringLiteral("style.def")); }

  private slots:
    void cleanup() { QFile::remove(path()); }

    // A file as it was, the key and value written, and the file after.
    void writes_data() {
        columns<QString, QString, QString, QString>({"before", "key", "value", "after"});
        row("a new file", "<none>", "Tag", "H1", "[Tessaline 2]\nTag=H1\n");
        row("a key is updated where it stands", "[Tessaline 2]\nTag=H1\nClass=big\nFont1=Arial\n",
            "Class", "small", "[Tessaline 2]\nTag=H1\nClass=small\nFont1=Arial\n");
        row("a key matches in another case", "[Tessaline 2]\nBdrAllOn=No\nSizeLft=Thin\n",
            "BDRALLON", "Yes", "[Tessaline 2]\nBDRALLON=Yes\nSizeLft=Thin\n");
        row("a new key goes to the end of its section, not of the file",
            "[Tessaline 2]\nTag=H1\n\n[Other]\nX=1\n", "Float", "Left",
            "[Tessaline 2]\nTag=H1\nFloat=Left\n\n[Other]\nX=1\n");
        row("the section matches in another case", "[tessaline 2]\nTag=H1\n", "Class", "",
            "[tessaline 2]\nTag=H1\nClass=\n");
        row("a missing section goes to the end", "[Other]\nX=1\n", "Tag", "P",
            "[Other]\nX=1\n[Tessaline 2]\nTag=P\n");
        row("line ends of the file stay", "[Tessaline 2]\r\nTag=H1\r\n", "Tag", "H2",
            "[Tessaline 2]\r\nTag=H2\r\n");
        row("a comment is not a key", "[Tessaline 2]\n;Tag=old\nTag=H1\n", "Tag", "Zapf Ärger",
            "[Tessaline 2]\n;Tag=old\nTag=Zapf Ärger\n");
    }
    void writes() {
        QFETCH(QString, before);
        QFETCH(QString, key);
        QFETCH(QString, value);
        if (before != QLatin1String("<none>")) put(path(), before);
        QVERIFY(WritePrivateProfileString(kSection, key, value, path()));
        QTEST(QString::fromUtf8(contents(path())), "after");
        QCOMPARE(GetPrivateProfileString(kSection, key, "?", path()), value);
    }

    // A file, the key read and its default, and what is read.
    void reads_data() {
        columns<QString, QString, QString, QString>({"file", "key", "def", "read"});
        row("a key in another case", "[Tessaline 2]\nsmallcaps=Yes\n", "SmallCaps", "No", "Yes");
        row("blanks around the value are not kept", "[Tessaline 2]\nTag =  H1  \n", "Tag", "",
            "H1");
        row("blanks inside a key name", "[Tessaline 2]\nWhite Space=Pre\n", "White Space", "",
            "Pre");
        row("a missing key gives the default", "[Tessaline 2]\nTag=H1\n", "Class", "dflt", "dflt");
        row("a key of another section is not read", "[Other]\nTag=H1\n[Tessaline 2]\n", "Tag",
            "none", "none");
        row("an empty value is a value", "[Tessaline 2]\nClass=\n", "Class", "dflt", "");
        row("an equals sign in the value", "[Tessaline 2]\nImgURL=a.png?x=1\n", "ImgURL", "",
            "a.png?x=1");
        row("carriage returns are no part of the value", "[Tessaline 2]\r\nTag=H1\r\n", "Tag", "",
            "H1");
        row("the first of two equal keys", "[Tessaline 2]\nTag=H1\nTAG=H2\n", "Tag", "", "H1");
        row("a read is cut at 254 characters", "[Tessaline 2]\nImgURL=" + QString(300, 'u'),
            "ImgURL", "", QString(254, 'u'));
    }
    void reads() {
        QFETCH(QString, file);
        QFETCH(QString, key);
        QFETCH(QString, def);
        put(path(), file);
        QTEST(GetPrivateProfileString(kSection, key, def, path()), "read");
    }

    void a_missing_file_or_folder() {
        QCOMPARE(GetPrivateProfileString(kSection, "Font1", "(None)", path()), QString("(None)"));
        QVERIFY(!QFile::exists(path()));
        const QString inMissing = dir.filePath(QStringLiteral("no/such/style.def"));
        QVERIFY(!WritePrivateProfileString(kSection, "Tag", "H1", inMissing));
        QVERIFY(!QFile::exists(inMissing));
    }

    // A save writes the keys of the branches taken, in the table's order; Float has no option
    // on here, so its key is not written.
    void a_save_writes_the_keys_in_their_order_data() {
        columns<QString, QString>({"fields", "keys"});
        const QString head = QStringLiteral(
            "Tag;Class;AType;Font1;SecondFontOn;SecondFont;GenFontOn;GenFont;Alignment;VAlign1;"
            "VAlign2;LineHeight1;LineHeight2;LtrSpace1;LtrSpace2;WrdSpace1;WrdSpace2;Indent1;"
            "Indent2;FontSize1;FontSize2;FontSize3;Weight;Italic;Decoration;Case;SmallCaps;"
            "ForeColour;");
        const QString box = QStringLiteral(
            "Clear;ConWidth;ConWidth2;ConWidth3;ConHeight;ConHeight2;ConHeight3;Display;White "
            "Space;List Style;List Position;List Image;AllPaddingOn;");
        const QString margins = QStringLiteral(
            "MarginLeft;MarginLeftCmb;MarginRight;MarginRightCmb;MarginTop;MarginTopCmb;"
            "MarginBottom;MarginBottomCmb;Repeat;");
        row("all sides", "NoneOpt=0",
            head + "BdrAllType;BdrAllClr;BdrAllOn;SizeAllCmb;SizeAllBox;BAllCmb;BAllOn;" + box +
                "PallBox;PACmb;" + margins + "BGColour;ImgURL;Attachment");
        row("each side", "NoneOpt=0;SpecBdrOpt=1;BSpecOpt=1;PSpecOpt=1;FixOpt=1",
            head +
                "BdrAllOn;BdrLftType;BdrRtType;BdrTopType;BdrBotType;ClrL;ClrR;ClrT;ClrB;"
                "SizeLft;SizeRt;SizeTop;SizeBot;SizeBoxL;SizeBoxR;SizeBoxT;SizeBoxB;"
                "MeasureSizeL;MeasureSizeR;MeasureSizeT;MeasureSizeB;BAllOn;" +
                box + "PLBox;PLCmb;PRBox;PRCmb;PTBox;PTCmb;PBBox;PBCmb;" + margins +
                "RepeatXCmb;RepeatXBox;RepeatXCmbMeasure;RepeatYCmb;RepeatYBox;RepeatYCmbMeasure;"
                "BGColour;ImgURL;Attachment");
    }
    void a_save_writes_the_keys_in_their_order() {
        QFETCH(QString, fields);
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, fields);
        fx.saveAs(*form, "keys");
        QStringList keys;
        for (const QByteArray& line : contents(fx.file("keys")).split('\n'))
            if (line.contains('=')) keys << QString::fromUtf8(line.left(line.indexOf('=')));
        QTEST(keys.join(u';'), "keys");
    }

    // Fields set, saved, and loaded in a new opening: all come back but what the load changes.
    void round_trips_data() {
        columns<QString, QString>({"fields", "changedByTheLoad"});
        row("one branch of each",
            "TagName=H2;ClassBox=big;FontFaceCmb=Arial;SecondFontChk=1;FontFaceCmb2=Times New "
            "Roman;GenFontChk=1;FontGenCmb=Monospace;FntSizeCmb=custom;FontSizeBox=12;"
            "FontSizeCmb=px;BoldCmb=Bold;ItalicCmb=Italic;SmlCaps=1;ColourBox=1, 2, 3;"
            "AlignCmb=Center;VCmb=Percentage;ValignBox=20;LineHtBox=3;LineHtCmb=em;LtrSpaceBox=2;"
            "LtrSpaceCmb=px;WrdSpaceBox=4;WrdSpaceCmb=cm;IndentBox=-5;IndentCmb=mm;CaseCmb=UPPER "
            "CASE;TextDecoCmb=Underline;BdrAllCmb=Dotted;ColourBBox=9, 9, 9;SizeAllCmb=Custom;"
            "BallCWBox=3;BallCmb=px;RightOpt=1;BothOpt=1;WidthCmb=Custom;CWBox=50;CWCmb=px;"
            "HeightCmb=Custom;CHBox=20;CHCmb=in;DisplayCmb=List-item;WhiteSpCmb=Pre;ListCmb=Upper "
            "Roman;LPosCmb=Inside;URLBox=b.gif;LeftBox=-5;LMCmb=em;RightBox=3;RMCmb=%;TopBox=1;"
            "BottomBox=2;BMCmb=cm;PallBox=4;PACmb=px;RepVertOpt=1;BGColour=5, 6, 7;"
            "ImgURL=img/bg.png;AttachCmb=Fixed",
            "");
        // A fixed position loses its units: they are written under one key and read under
        // another.
        row("the other branches",
            "SpecBdrOpt=1;BdrLeftCmb=Dashed;LBCBox=1, 1, 1;BdrRtCmb=Solid;RBCBox=2, 2, 2;"
            "BdrTopCmb=Groove;BdrBotCmb=Inset;BBCBox=4, 4, 4;BSpecOpt=1;LeftSizeCmb=Custom;BLBox=2;"
            "BLCmb=em;RtSizeCmb=Thin;TopSizeCmb=Thick;BotSizeCmb=Custom;BBBox=7;BBCmb=mm;"
            "PSpecOpt=1;PLBox=1;PLCmb=px;PRBox=2;PTBox=3;PTCmb=em;PBBox=4;PBCmb=%;FixOpt=1;"
            "XFixCmb=Custom;Xbox=10;XCmb=px;YFixCmb=Custom;YBox=30;YCmb=px;ImgURL=a.gif",
            "XCmb=%;YCmb=%");
    }
    void round_trips() {
        QFETCH(QString, fields);
        QFETCH(QString, changedByTheLoad);
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, fields);
        form->session().AType = "A:Visited"; // the link type travels with the style
        QMap<QString, QString> expected = styleValues(*form);
        for (const QString& change : items(changedByTheLoad))
            expected[change.section('=', 0, 0)] = change.section('=', 1);
        fx.saveAs(*form, "mine");
        form.reset(); // a new opening of the dialog
        form = fx.open();
        QCOMPARE(form->TagName.Text(), QString());
        form->session().AType.clear();
        form->cmbItemName.setText("mine");
        QCOMPARE(styleValues(*form), expected);
        QCOMPARE(form->session().AType, QString("A:Visited"));
        QVERIFY(!form->session().StyleDirty);
    }

    // A save leaves the keys of the branch not taken as they were, and a load does not read
    // them; a group with no option on leaves its keys alone too.
    void keys_a_save_leaves_alone() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, "BSpecOpt=1;LeftSizeCmb=Thick;LeftOpt=1;NoRepOpt=1;PSpecOpt=1;PLBox=6");
        fx.saveAs(*form, "both");
        setFields(*form, "BAllOpt=1;SizeAllCmb=Thin;LeftOpt=0;NoRepOpt=0;PSpecOpt=0;PLBox=0");
        QVERIFY(!form->BSpecOpt.Value()); // the two are one group
        form->tbrStyle_ButtonClick(2);
        QString read;
        for (const char* key : {"SizeLft", "BAllOn", "Float", "Repeat", "AllPaddingOn", "PLBox"})
            read += fx.read("both", key) + ';';
        QCOMPARE(read, QString("Thick;Yes;Left;No-repeat;No;6;"));
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("both");
        QCOMPARE(valuesOf(*form, "SizeAllCmb;LeftSizeCmb"), QString("Thin;Medium"));
    }

    // A key of a saved file changed by hand, the field that reads it, and what it shows.
    void odd_values_in_a_file_data() {
        columns<QString, QString, QString, QString>({"key", "value", "field", "shown"});
        row("a unit the list does not hold shows the default", "LineHeight2", "PT", "LineHtCmb",
            "pt");
        row("a weight the list does not hold shows the default", "Weight", "heavy", "BoldCmb",
            "[None]");
        row("a font that is not installed joins the list", "Font1", "Frutiger", "FontFaceCmb",
            "Frutiger");
        row("the first font, left out of the lists, comes back the same way", "Font1", "Aharoni",
            "FontFaceCmb", "Aharoni");
        row("the secondary check ignores a word it does not know", "SecondFontOn", "Maybe",
            "SecondFontChk", "0");
        row("small caps take any word but No as on", "SmallCaps", "Maybe", "SmlCaps", "1");
        row("an unknown float changes nothing", "Float", "Centre", "NoneOpt", "on");
        row("an unknown border switch reads no border keys", "BdrAllOn", "Perhaps", "BdrAllOpt",
            "on");
    }
    void odd_values_in_a_file() {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QString, field);
        StyleFixture fx;
        auto form = fx.open();
        fx.saveAs(*form, "odd");
        QVERIFY(WritePrivateProfileString(kSection, key, value, fx.file("odd")));
        // The load goes on past the odd value.
        QVERIFY(WritePrivateProfileString(kSection, "Class", "still-read", fx.file("odd")));
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("odd");
        QTEST(valuesOf(*form, field), "shown");
        QCOMPARE(form->ClassBox.Text(), QString("still-read"));
    }

    void a_missing_file_loads_every_default() {
        StyleFixture fx;
        auto form = fx.open();
        const auto defaults = styleValues(*form);
        QCOMPARE(valuesOf(*form, "LineHtCmb;FontFaceCmb;BdrAllOpt;RepOpt"), // the load's own
                 QString("pt;(None);on;on"));
        fx.saveAs(*form, "gone");
        setFields(*form, "TagName=P;BoldCmb=Bold");
        form->session().StyleDirty = false;
        QVERIFY(QFile::remove(fx.file("gone")));
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("gone");
        QCOMPARE(styleValues(*form), defaults);
    }
};

QTEST_GUILESS_MAIN(TestStyleFields)
#include "test_style_fields.moc"
