#pragma once
// What the kit's items build with: the shell, the binder, and the label that names a field.
// Internal to the kit.
#include "shell/dialog_context.h"
#include "ui/kit/binders.h"
#include "ui/kit/form_kit.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>

namespace tsl::kit {

class Builder {
  public:
    explicit Builder(DialogContext& shell) : shell(shell), bind(shell) {}
    DialogContext& shell;
    Binder bind;

    QLabel* label(Label& control, QWidget* buddy) {
        auto* widget = new QLabel;
        bind.label(control, widget);
        if (!buddy) return widget;
        widget->setBuddy(buddy);
        // The field's name for assistive tools: its label, which need not stand beside it.
        const auto name = [&control, buddy] {
            QString text = control.Caption();
            buddy->setAccessibleName(text.replace(QStringLiteral("&&"), QStringLiteral("\x1"))
                                         .remove(QLatin1Char('&'))
                                         .replace(QStringLiteral("\x1"), QStringLiteral("&")));
        };
        name();
        QObject::connect(&control, &Control::changed, buddy, name);
        return widget;
    }
    static Built field(QWidget* widget, QWidget* focus = nullptr) {
        Built built;
        built.widget = widget;
        built.focus = focus ? focus : widget;
        return built;
    }
    // A widget holding a row of its own parts, with no margins.
    static QHBoxLayout* strip(QWidget* row, int spacing = -1) {
        auto* layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        if (spacing >= 0) layout->setSpacing(spacing);
        return layout;
    }
};

} // namespace tsl::kit
