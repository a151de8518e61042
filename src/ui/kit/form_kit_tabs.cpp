// The kit's tabbed pages, lines of several fields, and toolbars.
#include "gadgets/toolbar.h"
#include "ui/kit/form_kit_builder.h"
#include "ui/kit/menu_binder.h"
#include <QBoxLayout>
#include <QLabel>
#include <QTabWidget>
#include <QToolBar>
#include <QWidget>

namespace tsl::kit {

namespace {
// A widget holding what an item built.
QWidget* widgetOf(const Built& built) {
    if (built.widget) return built.widget;
    auto* holder = new QWidget;
    if (built.layout) {
        built.layout->setContentsMargins(0, 0, 0, 0);
        holder->setLayout(built.layout);
    }
    return holder;
}
} // namespace

Item Tabs(TabControl& tabs, std::vector<Item> pages) {
    return [&tabs, pages = std::move(pages)](Builder& b) {
        auto* widget = new QTabWidget;
        widget->setObjectName(tabs.name());
        for (size_t i = 0; i < pages.size(); ++i) {
            const Built built = pages[i](b);
            auto* page = new QWidget;
            auto* column = new QVBoxLayout(page);
            if (built.layout)
                column->addLayout(built.layout);
            else if (built.widget)
                column->addWidget(built.widget);
            column->addStretch(1);
            // "&&" in a caption shows as one "&", as on a button.
            widget->addTab(page, tabs.TabCaption(static_cast<int>(i) + 1));
        }
        const auto update = [&tabs, widget] {
            const QSignalBlocker quiet(widget);
            for (int i = 0; i < widget->count(); ++i)
                widget->setTabText(i, tabs.TabCaption(i + 1));
            widget->setCurrentIndex(tabs.SelectedTab() - 1);
            widget->setEnabled(tabs.Enabled());
        };
        update();
        QObject::connect(&tabs, &Control::changed, widget, update);
        QObject::connect(widget, &QTabWidget::currentChanged, widget,
                         [&tabs, shell = &b.shell](int index) {
                             if (index + 1 != tabs.SelectedTab())
                                 shell->dispatch([&tabs, index] { tabs.SelectTab(index + 1); });
                         });
        Built built;
        built.widget = widget;
        built.focus = widget;
        return built;
    };
}

Item Inline(std::vector<Item> parts, QStringList names) {
    return [parts = std::move(parts), names = std::move(names)](Builder& b) {
        auto* row = new QWidget;
        auto* layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        Built built;
        built.widget = row;
        for (size_t i = 0; i < parts.size(); ++i) {
            const Built part = parts[i](b);
            if (part.isStretch) {
                layout->addStretch(part.stretch);
                continue;
            }
            QWidget* widget = widgetOf(part);
            layout->addWidget(widget, part.stretch);
            QWidget* focus = part.focus ? part.focus : widget;
            if (!built.focus || built.focus == row) built.focus = focus;
            if (static_cast<qsizetype>(i) < names.size() && !names.at(i).isEmpty())
                focus->setAccessibleName(names.at(i));
        }
        if (!built.focus) built.focus = row;
        layout->addStretch(1);
        return built;
    };
}

Item Beside(Label& caption, Item field) {
    return [&caption, field = std::move(field)](Builder& b) {
        const Built part = field(b);
        auto* row = new QWidget;
        auto* layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        QWidget* widget = widgetOf(part);
        layout->addWidget(b.label(caption, part.focus ? part.focus : widget));
        layout->addWidget(widget, 1);
        Built built;
        built.widget = row;
        built.focus = part.focus ? part.focus : widget;
        return built;
    };
}

Item Toolbar(cToolbar& toolbar) {
    return [&toolbar](Builder& b) {
        // The binder's handlers live as long as the bar.
        auto* menus = new MenuBinder(b.shell);
        QToolBar* bar = menus->buildToolBar(toolbar, toolbar.name(),
                                            b.shell.platform().applicationFolder(), nullptr);
        QObject::connect(bar, &QObject::destroyed, [menus] { delete menus; });
        Built built;
        built.widget = bar;
        built.focus = bar;
        return built;
    };
}

} // namespace tsl::kit
