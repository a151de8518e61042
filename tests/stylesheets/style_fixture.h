#pragma once
// A shell on scripted services with a styles folder of its own, a fresh style session, and
// the style dialog opened as the menu opens it.
#include "dialogs_helpers.h"
#include "stylesheets/frm_style.h"
#include "stylesheets/profile_file.h"
#include "stylesheets/style_session.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <memory>

namespace tsl::test {

struct StyleFixture {
    QTemporaryDir program;
    TestShell ts;

    StyleFixture() {
        resetStyleSession();
        // The program runs from its build folder, so "styles" stands beside it.
        ts.platform.appFolder = program.path();
        QFile(program.filePath(QStringLiteral("CMakeCache.txt"))).open(QIODevice::WriteOnly);
        QDir(program.path()).mkdir(QStringLiteral("styles"));
        ts->FontNames = items("Aharoni;Arial;Courier New;Times New Roman");
    }

    std::unique_ptr<frmStyle> open() {
        auto form = std::make_unique<frmStyle>(*ts);
        form->Form_Load();
        return form;
    }
    QString file(const QString& name) const {
        return program.filePath(QStringLiteral("styles/") + name + QStringLiteral(".def"));
    }
    // Save with the name question answered.
    void saveAs(frmStyle& form, const QString& name) {
        ts.platform.inputAnswers.enqueue(name);
        form.tbrStyle_ButtonClick(2);
    }
    QString read(const QString& name, const QString& key) const {
        return GetPrivateProfileString(QStringLiteral("Tessaline 2"), key, "<none>", file(name));
    }
};

// What a save and a load carry: every field but the name list.
inline QMap<QString, QString> styleValues(const frmStyle& form) {
    QMap<QString, QString> values = fieldValues(form);
    values.remove(QStringLiteral("cmbItemName"));
    return values;
}

} // namespace tsl::test
