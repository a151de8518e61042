// The headless controls keep the event rules the logic relies on: which assignments raise
// Change and Click, which are refused with a run-time error, and how keys reach a text box.
#include "gadgets/controls.h"
#include "test_rows.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
ComboBox* listCombo(QStringList items) {
    auto* combo = new ComboBox(QStringLiteral("cmb"), ComboBox::DropDownList);
    for (const QString& item : items)
        combo->AddItem(item);
    return combo;
}
} // namespace

class ControlsTest : public QObject {
    Q_OBJECT

  private slots:
    void textBoxChangeOnlyOnARealChange() {
        TextBox box;
        QStringList seen;
        box.Change = [&] { seen << box.Text(); };
        box.setText("abc");
        box.setText("abc");
        box.setText("abd");
        box.setText("");
        box.setText("");
        QCOMPARE(seen, QStringList({"abc", "abd", ""}));
    }

    void textBoxMaxLengthCuts() {
        TextBox box;
        box.MaxLength = 3;
        int changes = 0;
        box.Change = [&] { ++changes; };
        box.setText("abcdef");
        QCOMPARE(box.Text(), QStringLiteral("abc"));
        QCOMPARE(changes, 1);
        // A longer text that cuts to the same one is no change.
        box.setText("abcxyz");
        QCOMPARE(box.Text(), QStringLiteral("abc"));
        QCOMPARE(changes, 1);
        // Typing at the limit is dropped.
        box.typeKey('z');
        QCOMPARE(box.Text(), QStringLiteral("abc"));
        QCOMPARE(changes, 1);
    }

    void typedKeysGoThroughKeyPress() {
        TextBox box;
        QList<int> pressed;
        box.KeyPress = [&](int& key) {
            pressed << key;
            if (key == 'x')
                key = 0; // dropped
            else if (key == 'a')
                key = 'A'; // replaced
        };
        int changes = 0;
        box.Change = [&] { ++changes; };
        box.typeText("bxa");
        QCOMPARE(box.Text(), QStringLiteral("bA"));
        QCOMPARE(pressed, QList<int>({'b', 'x', 'a'}));
        QCOMPARE(changes, 2);
        box.typeKey(8);
        QCOMPARE(box.Text(), QStringLiteral("b"));
        QCOMPARE(changes, 3);
        box.typeKey(8);
        box.typeKey(8); // nothing left to take away: no change
        QCOMPARE(box.Text(), QString());
        QCOMPARE(changes, 4);
        // A locked box takes no keys.
        box.setText("keep");
        box.Locked = true;
        box.typeKey('!');
        box.typeKey(8);
        QCOMPARE(box.Text(), QStringLiteral("keep"));
    }

    // Text that arrives whole, pasted or set by an assistive tool: what it brings goes through
    // the key filter a character at a time, in a text box and in an editable combo alike.
    void arrivingTextGoesThroughKeyPress_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("arriving");
        QTest::addColumn<QString>("kept");
        QTest::newRow("into an empty box") << ""
                                           << "bxa"
                                           << "bA";
        QTest::newRow("in the middle") << "12"
                                       << "1xab2"
                                       << "1Ab2";
        QTest::newRow("over a selection, dropped") << "abc"
                                                   << "axc"
                                                   << "abc";
        QTest::newRow("over a selection, one kept") << "abc"
                                                    << "axyc"
                                                    << "ayc";
        QTest::newRow("a deletion") << "abc"
                                    << "ac"
                                    << "ac";
        QTest::newRow("the same text again") << "bA"
                                             << "bA"
                                             << "bA";
    }
    void arrivingTextGoesThroughKeyPress() {
        QFETCH(QString, before);
        QFETCH(QString, arriving);
        QFETCH(QString, kept);
        const auto filter = [](int& key) {
            if (key == 'x') key = 0;
            if (key == 'a') key = 'A';
        };
        TextBox box;
        box.setText(before);
        box.KeyPress = filter;
        box.receiveText(arriving);
        QCOMPARE(box.Text(), kept);
        ComboBox combo;
        combo.setText(before);
        combo.KeyPress = filter;
        combo.receiveText(arriving);
        QCOMPARE(combo.Text(), kept);
    }

    void arrivingTextWithNoFilterIsTakenWhole() {
        TextBox box;
        int changes = 0;
        box.Change = [&] { ++changes; };
        box.receiveText("a x");
        ComboBox combo;
        combo.receiveText("a x");
        QCOMPARE(box.Text(), QStringLiteral("a x"));
        QCOMPARE(combo.Text(), QStringLiteral("a x"));
        QCOMPARE(changes, 1);
    }

    void checkBoxClickOnChangeOnly() {
        CheckBox check;
        QList<int> clicks;
        check.Click = [&] { clicks << check.Value(); };
        check.setValue(0);
        QVERIFY(clicks.isEmpty());
        check.setValue(1);
        check.setValue(1);
        check.setValue(0);
        QCOMPARE(clicks, QList<int>({1, 0}));
    }

    // Value, caption and enabled tell the view only when they change.
    void changedTellsTheView() {
        CheckBox check;
        QSignalSpy spy(&check, &Control::changed);
        check.setValue(1);
        check.setValue(1);
        check.setCaption("x");
        check.setEnabled(false);
        check.setEnabled(false);
        QCOMPARE(spy.count(), 3);
    }

    void optionGroupExcludes() {
        OptionButton a(QStringLiteral("a")), b(QStringLiteral("b")), c(QStringLiteral("c"));
        OptionButton::group({&a, &b, &c});
        QStringList clicks;
        a.Click = [&] { clicks << "a"; };
        b.Click = [&] { clicks << "b"; };
        c.Click = [&] { clicks << "c"; };
        a.setValue(true);
        QVERIFY(a.Value());
        QVERIFY(!b.Value() && !c.Value());
        b.setValue(true);
        QVERIFY(b.Value());
        QVERIFY(!a.Value() && !c.Value());
        // A sibling turned off raises nothing; only the one turned on clicks.
        QCOMPARE(clicks, QStringList({"a", "b"}));
        // An option outside the group is not touched.
        OptionButton other;
        other.setValue(true);
        c.setValue(true);
        QVERIFY(other.Value());
        QVERIFY(!b.Value());
    }

    // A drop-down list takes only a text it holds, case and all, and clicks for it.
    void listComboTakesOnlyAHeldText() {
        std::unique_ptr<ComboBox> combo(listCombo({"left", "center", "right"}));
        QList<int> clicks;
        combo->Click = [&] { clicks << combo->ListIndex(); };
        int error = 0;
        QString description;
        try {
            combo->setText("middle");
        } catch (const RuntimeError& e) {
            error = e.number();
            description = e.description();
        }
        QCOMPARE(error, int(ErrPropertyReadOnly));
        QCOMPARE(description, QStringLiteral("'Text' property is read-only"));
        QCOMPARE(combo->ListIndex(), -1);
        QCOMPARE(errorOf([&] { combo->setText("Center"); }), int(ErrPropertyReadOnly));
        QVERIFY(clicks.isEmpty());
        combo->setText("right");
        QCOMPARE(combo->ListIndex(), 2);
        QCOMPARE(combo->Text(), QStringLiteral("right"));
        combo->setText("left");
        QCOMPARE(combo->Text(), QStringLiteral("left"));
        QCOMPARE(clicks, QList<int>({2, 0}));
    }

    void listIndexOutOfRangeIsAnError_data() {
        columns<int, int>({"index", "error"});
        QTest::newRow("-2") << -2 << int(ErrInvalidPropertyValue);
        QTest::newRow("-1 clears") << -1 << 0;
        QTest::newRow("0") << 0 << 0;
        QTest::newRow("last") << 2 << 0;
        QTest::newRow("count") << 3 << int(ErrInvalidPropertyValue);
    }
    void listIndexOutOfRangeIsAnError() {
        QFETCH(int, index);
        QFETCH(int, error);
        std::unique_ptr<ComboBox> combo(listCombo({"a", "b", "c"}));
        combo->setListIndex(1);
        int clicks = 0;
        combo->Click = [&] { ++clicks; };
        QCOMPARE(errorOf([&] { combo->setListIndex(index); }), error);
        QCOMPARE(combo->ListIndex(), error ? 1 : index);
        QCOMPARE(clicks, error ? 0 : 1);
    }

    void listIndexFollowsInsertAndRemove() {
        ListBox list;
        list.AddItem("a");
        list.AddItem("b");
        list.setListIndex(1);
        list.AddItem("first", 0);
        QCOMPARE(list.ListIndex(), 2);
        QCOMPARE(list.List(2), QStringLiteral("b"));
        list.RemoveItem(0);
        QCOMPARE(list.ListIndex(), 1);
        list.RemoveItem(1);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(errorOf([&] { list.RemoveItem(5); }), int(ErrInvalidProcedureCall));
        QCOMPARE(errorOf([&] { list.AddItem("x", 3); }), int(ErrInvalidProcedureCall));
        QCOMPARE(list.List(9), QString());
    }

    void editableComboTakesAnyText() {
        ComboBox combo;
        combo.AddItem("Arial");
        int changes = 0;
        combo.Change = [&] { ++changes; };
        combo.setText("Comic Sans");
        QCOMPARE(combo.Text(), QStringLiteral("Comic Sans"));
        QCOMPARE(changes, 1);
        combo.setText("Comic Sans");
        QCOMPARE(changes, 1);
        combo.setListIndex(0);
        QCOMPARE(combo.Text(), QStringLiteral("Arial"));
    }

    void upDownClampsAndWritesItsBuddy() {
        for (const auto& [value, expected] : {std::pair{12, 12}, std::pair{6, 6}, std::pair{72, 72},
                                              std::pair{2, 6}, std::pair{100, 72}}) {
            TextBox buddy;
            UpDown spin;
            spin.Min = 6;
            spin.Max = 72;
            spin.buddy = &buddy;
            spin.setValue(value);
            QCOMPARE(spin.Value(), expected);
            QCOMPARE(buddy.Text(), QString::number(expected));
        }
    }

    void upDownSteps() {
        TextBox buddy;
        int changes = 0;
        buddy.Change = [&] { ++changes; };
        UpDown spin;
        spin.Min = 6;
        spin.Max = 8;
        spin.buddy = &buddy;
        spin.setValue(7);
        spin.stepUp();
        QCOMPARE(buddy.Text(), QStringLiteral("8"));
        spin.stepUp(); // held at Max: nothing is written
        QCOMPARE(spin.Value(), 8);
        QCOMPARE(changes, 2);
        spin.stepDown();
        spin.stepDown();
        spin.stepDown();
        QCOMPARE(spin.Value(), 6);
        QCOMPARE(buddy.Text(), QStringLiteral("6"));
        // A number typed beyond the range is stepped back into it, also to the value it had.
        spin.setValue(8);
        buddy.setText("150");
        spin.stepDown();
        QCOMPARE(buddy.Text(), QStringLiteral("8"));
        buddy.setText("-3");
        spin.step(10);
        QCOMPARE(buddy.Text(), QStringLiteral("7"));
    }
};

QTEST_GUILESS_MAIN(ControlsTest)
#include "test_controls.moc"
