#pragma once
// A shell on scripted services with a styles folder of its own, a fresh style session, and
// the style dialog opened as the menu opens it.
#include "stylesheets/frm_style.h"
#include "stylesheets/style_session.h"
#include "test_shell.h"
#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

namespace tsl::test {

struct StyleFixture {
    QTemporaryDir program;
    TestShell ts;

    StyleFixture() {
        resetStyleSession();
        // The program runs from its build folder, so "styles" stands beside it.
        ts.platform.appFolder = program.path();
        QFile cache(program.filePath(QStringLiteral("CMakeCache.txt")));
        cache.open(QIODevice::WriteOnly);
        QDir(program.path()).mkdir(QStringLiteral("styles"));
        ts->FontNames = {QStringLiteral("Aharoni"), QStringLiteral("Arial"),
                         QStringLiteral("Courier New"), QStringLiteral("Times New Roman")};
    }

    std::unique_ptr<frmStyle> open() {
        auto form = std::make_unique<frmStyle>(*ts);
        form->Form_Load();
        return form;
    }
    QString file(const QString& name) const {
        return program.filePath(QStringLiteral("styles/") + name + QStringLiteral(".def"));
    }
};

// Sets fields from "Name=value" entries, in order: a text box or combo takes the text, a
// check box the number, an option is turned on by "1" and off by "0".
inline void setFields(frmStyle& form, const QStringList& entries) {
    for (const QString& entry : entries) {
        const QString name = entry.section(QLatin1Char('='), 0, 0);
        const QString value = entry.section(QLatin1Char('='), 1);
        Control* control = form.control(name);
        if (!control) QFAIL(qPrintable(QStringLiteral("no field ") + name));
        if (auto* box = dynamic_cast<TextBox*>(control))
            box->setText(value);
        else if (auto* combo = dynamic_cast<ComboBox*>(control))
            combo->setText(value);
        else if (auto* check = dynamic_cast<CheckBox*>(control))
            check->setValue(value.toInt());
        else if (auto* option = dynamic_cast<OptionButton*>(control))
            option->setValue(value == QLatin1String("1"));
        else
            QFAIL(qPrintable(QStringLiteral("not a field: ") + name));
    }
}

// Every field's value by name: what a save and a load carry.
inline QMap<QString, QString> fieldValues(const frmStyle& form) {
    QMap<QString, QString> values;
    for (Control* control : form.controls()) {
        if (control->name() == QLatin1String("cmbItemName")) continue;
        if (auto* box = dynamic_cast<TextBox*>(control))
            values[control->name()] = box->Text();
        else if (auto* combo = dynamic_cast<ComboBox*>(control))
            values[control->name()] = combo->Text();
        else if (auto* check = dynamic_cast<CheckBox*>(control))
            values[control->name()] = QString::number(check->Value());
        else if (auto* option = dynamic_cast<OptionButton*>(control))
            values[control->name()] =
                option->Value() ? QStringLiteral("on") : QStringLiteral("off");
    }
    return values;
}

} // namespace tsl::test
