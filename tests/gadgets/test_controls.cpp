// The event rules of the headless controls: what raises Change and Click, what is refused.
#include "gadgets/controls.h"
#include "gadgets/rebar.h"
#include "gadgets/tab_strip.h"
#include "search_helpers.h"
#include "test_rows.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
void filter(int& key) {
    if (key == 'x') key = 0;
    if (key == 'a') key = 'A';
}
} // namespace

class ControlsTest : public QObject {
    Q_OBJECT

  private slots:
    // Change on a real change only; each typed key goes through KeyPress.
    void textBoxChangesAndTypedKeys() {
        TextBox box;
        QStringList seen;
        box.Change = [&] { seen << box.Text(); };
        for (const char* text : {"abc", "abc", "", "abcdef"})
            box.setText(text);
        // The limit is on typing: a longer text set stays whole and can only shrink by keys.
        box.MaxLength = 3;
        box.setText("abcdef");
        box.setText("abcxyz");
        box.typeKey('z');
        box.typeKey(8);
        box.KeyPress = filter;
        box.MaxLength = 0;
        box.setText("");
        box.typeText("bxa");
        for (int i = 0; i < 3; ++i)
            box.typeKey(8); // the third has nothing left to take away
        QCOMPARE(seen,
                 QStringList({"abc", "", "abcdef", "abcxyz", "abcxy", "", "b", "bA", "b", ""}));
        box.setText("keep");
        box.Locked = true;
        box.typeKey('!');
        box.typeKey(8);
        QCOMPARE(box.Text(), QStringLiteral("keep"));
    }

    // Text that arrives whole goes through KeyPress a character at a time; with none, whole.
    void arrivingTextGoesThroughKeyPress() {
        for (const char* row :
             {"|bxa|bA", "12|1xab2|1Ab2", "abc|axc|abc", "abc|axyc|ayc", "abc|ac|ac", "bA|bA|bA"}) {
            const QStringList r = QString(row).split(u'|'); // before, arriving, kept
            TextBox box, plain;
            ComboBox combo;
            box.setText(r[0]);
            combo.setText(r[0]);
            box.KeyPress = combo.KeyPress = filter;
            for (auto* arrives : {&box, &plain})
                arrives->receiveText(r[1]);
            combo.receiveText(r[1]);
            QCOMPARE(QStringList({box.Text(), combo.Text(), plain.Text()}),
                     QStringList({r[2], r[2], r[1]}));
        }
    }

    // Click on a change of value only; an option turns the others of its group off.
    void clicksAndChanges() {
        CheckBox check;
        OptionButton a, b, other;
        OptionButton::group({&a, &b});
        QStringList clicks;
        check.Click = [&] { clicks << QString::number(check.Value()); };
        a.Click = [&] { clicks << "a"; };
        b.Click = [&] { clicks << "b"; };
        for (int value : {0, 1, 1, 0})
            check.setValue(value);
        other.setValue(true);
        a.setValue(true);
        b.setValue(true);
        QVERIFY(b.Value() && !a.Value() && other.Value());
        QCOMPARE(clicks, QStringList({"1", "0", "a", "b"}));
    }

    // A drop-down list takes only a text it holds, case and all.
    void comboTexts() {
        ComboBox list(QStringLiteral("cmb"), ComboBox::DropDownList);
        QStringList log;
        list.Click = [&] { log << list.Text(); };
        for (const char* item : {"left", "center", "right"})
            list.AddItem(item);
        for (const char* text : {"Center", "right", "left"}) {
            try {
                list.setText(text);
            } catch (const RuntimeError& e) {
                log << e.description();
            }
        }
        QCOMPARE(log, QStringList({"'Text' property is read-only", "right", "left"}));
    }

    void listIndexAndMarksFollowTheEntries() {
        ListBox list;
        int clicks = 0;
        list.Click = [&] { ++clicks; };
        list.AddItem("a");
        list.AddItem("b");
        list.setListIndex(1);
        list.AddItem("first", 0);
        QCOMPARE(list.ListIndex(), 2);
        list.RemoveItem(0);
        QCOMPARE(list.ListIndex(), 1);
        for (int bad : {-2, 2})
            QCOMPARE(errorOf([&] { list.setListIndex(bad); }), int(ErrInvalidPropertyValue));
        list.setListIndex(-1);
        list.setListIndex(1);
        list.RemoveItem(1);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(clicks, 3);
        // In a multi-selection list the marks go with their entries; a cleared list keeps none.
        list.MultiSelect = true;
        for (const char* item : {"b", "c"})
            list.AddItem(item);
        for (int i : {0, 2})
            list.setSelected(i, true);
        QCOMPARE(list.SelCount(), 2);
        list.RemoveItem(0);
        QVERIFY(!list.Selected(0) && list.Selected(1));
        QCOMPARE(errorOf([&] { list.Selected(2); }), int(ErrInvalidPropertyValue));
        list.setSelected(0, true);
        list.Clear();
        list.AddItem("new");
        QVERIFY(!list.Selected(0) && list.SelCount() == 0);
    }

    // The box shows the value held in the range; a step starts from what it shows.
    void upDownClampsAndWritesItsBuddy() {
        TextBox buddy;
        UpDown spin(nullptr, "spin", buddy, 6, 8);
        QStringList shown;
        buddy.Change = [&] { shown << buddy.Text(); };
        for (int value : {7, 2, 100})
            spin.setValue(value);
        spin.stepUp(); // held at Max: nothing is written
        buddy.setText("150");
        spin.stepDown();
        buddy.setText("-3");
        spin.step(10);
        QCOMPARE(shown, QStringList({"7", "6", "8", "150", "8", "-3", "7"}));
    }

    // Tabs by 0-based index, any of them removable; the selection moves with its tab.
    void tabsAndBands() {
        TabStrip strip;
        for (const char* key : {"a", "B", "c", "d"})
            strip.add(key, QString(key) + ".htm");
        QCOMPARE(strip.findKeyIgnoringCase("b"), 1);
        strip.select(2);
        strip.remove(0);
        QCOMPARE(strip.tab(0).Caption, QStringLiteral("B.htm"));
        QCOMPARE(strip.selectedIndex(), 1);
        strip.selectLast();
        strip.remove(2);
        QCOMPARE(strip.selectedIndex(), 1);
        for (int bad : {-1, 2})
            QCOMPARE(errorOf([&] { strip.remove(bad); }), int(ErrSubscriptOutOfRange));
        // Bands are numbered in the order added; hiding a hidden band signals nothing.
        cReBar bands;
        QCOMPARE(errorOf([&] { bands.BandCount(); }), int(ErrInvalidProcedureCall));
        bands.CreateRebar();
        QCOMPARE(bands.AddBandByHwnd(nullptr, "Standard", "std"), 0);
        QCOMPARE(bands.AddBandByHwnd(nullptr, "Format", "fmt"), 1);
        QCOMPARE(bands.BandIndexForKey("fmt"), 1);
        QSignalSpy spy(&bands, &cReBar::bandVisibleChanged);
        bands.setBandVisible(1, false);
        bands.setBandVisible(1, false);
        QVERIFY(!bands.BandVisible(1) && bands.BandVisible(0));
        QCOMPARE(spy.count(), 1);
    }
};

TSL_TEST_MAIN(ControlsTest)
#include "test_controls.moc"
