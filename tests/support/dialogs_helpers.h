#pragma once
// A form's fields set and read by name, so a row of a dialog's data table is one line.
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include <QMap>
#include <QTest>

namespace tsl::test {

// One row of a data table, its values in the order of the columns; a literal arrives as text.
template <typename... T> void row(const char* name, T... values) {
    (QTest::newRow(name) << ... << values);
}

inline QStringList items(const QString& text) {
    return text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
}

// Sets "Name=value" entries in order ("1" or "0" for an option).
inline void setFields(Form& form, const QString& entries) {
    for (const QString& entry : items(entries)) {
        Control* control = form.control(entry.section(QLatin1Char('='), 0, 0));
        const QString value = entry.section(QLatin1Char('='), 1);
        if (auto* box = dynamic_cast<TextBox*>(control))
            box->setText(value);
        else if (auto* combo = dynamic_cast<ComboBox*>(control))
            combo->setText(value);
        else if (auto* check = dynamic_cast<CheckBox*>(control))
            check->setValue(value.toInt());
        else if (auto* option = dynamic_cast<OptionButton*>(control))
            option->setValue(value == QLatin1String("1"));
        else
            QFAIL(qPrintable(QStringLiteral("not a field: ") + entry));
    }
}

// Every field's value by name (an option "on" or "off"): what a save and a load carry.
inline QMap<QString, QString> fieldValues(const Form& form) {
    QMap<QString, QString> values;
    for (Control* c : form.controls()) {
        if (auto* box = dynamic_cast<TextBox*>(c)) values[c->name()] = box->Text();
        if (auto* combo = dynamic_cast<ComboBox*>(c)) values[c->name()] = combo->Text();
        if (auto* check = dynamic_cast<CheckBox*>(c))
            values[c->name()] = QString::number(check->Value());
        if (auto* option = dynamic_cast<OptionButton*>(c))
            values[c->name()] = QLatin1String(option->Value() ? "on" : "off");
    }
    return values;
}

// The values of the named fields, ";" apart.
inline QString valuesOf(const Form& form, const QString& names) {
    const QMap<QString, QString> values = fieldValues(form);
    QStringList shown;
    for (const QString& name : items(names))
        shown.append(values.value(name, QStringLiteral("<no field>")));
    return shown.join(QLatin1Char(';'));
}

// Those of the named controls that are enabled, in the order named.
inline QString enabledOf(const Form& form, const QString& names) {
    QStringList on;
    for (const QString& name : items(names)) {
        const Control* control = form.control(name);
        if (!control || control->Enabled()) on.append(control ? name : name + "?");
    }
    return on.join(QLatin1Char(';'));
}

} // namespace tsl::test
