#include "ui/kit/menu_binder.h"
#include "gadgets/menu_item.h"
#include "gadgets/toolbar.h"
#include "shell/dialog_context.h"
#include "ui/desktop/icons.h"
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

namespace tsl {

namespace {
// A button image for a strip that is missing: the first letters of the tool tip.
QIcon letterIcon(const QString& toolTip, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(40, 70, 140));
    QFont font = painter.font();
    font.setPixelSize(size * 9 / 16);
    font.setBold(true);
    painter.setFont(font);
    QString letters;
    for (const QString& word : toolTip.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        if (letters.size() < 2 && word.at(0).isLetterOrNumber()) letters += word.at(0);
    painter.drawText(pixmap.rect(), Qt::AlignCenter, letters);
    return QIcon(pixmap);
}

// One image of a strip drawn at `scale` times the button size. A copy smoothed down to the
// button size goes with it for screens of scale 1, where Qt would otherwise shrink it each time.
QIcon stripIcon(const QPixmap& strip, int image, int cell, int scale) {
    const QPixmap pixels = strip.copy(image * cell, 0, cell, cell);
    QPixmap sharp = pixels;
    sharp.setDevicePixelRatio(scale);
    QIcon icon(sharp);
    if (scale > 1)
        icon.addPixmap(pixels.scaled(cell / scale, cell / scale, Qt::IgnoreAspectRatio,
                                     Qt::SmoothTransformation));
    return icon;
}
} // namespace

void MenuBinder::buildMenuBar(QMenuBar* bar, const std::vector<MenuNode>& tree) {
    for (const MenuNode& top : tree) {
        MenuItem* item = top.item;
        QMenu* menu = bar->addMenu(item->Caption());
        menu->setObjectName(item->name());
        menus_.insert(item->name(), menu);
        QAction* action = menu->menuAction();
        const auto update = [item, action] {
            action->setText(item->Caption());
            action->setEnabled(item->Enabled());
            action->setVisible(item->Visible());
        };
        update();
        QObject::connect(item, &Control::changed, action, update);
        if (item->Click)
            QObject::connect(menu, &QMenu::aboutToShow, menu,
                             [this, item] { shell_.dispatch(item->Click); });
        addNodes(menu, top.children);
    }
}

void MenuBinder::addNodes(QMenu* menu, const std::vector<MenuNode>& nodes) {
    for (const MenuNode& node : nodes) {
        MenuItem* item = node.item;
        QAction* action = nullptr;
        if (!node.children.empty()) {
            QMenu* sub = menu->addMenu(item->Caption());
            sub->setObjectName(item->name());
            menus_.insert(item->name(), sub);
            action = sub->menuAction();
            if (item->Click)
                QObject::connect(sub, &QMenu::aboutToShow, sub,
                                 [this, item] { shell_.dispatch(item->Click); });
            addNodes(sub, node.children);
        } else if (item->isSeparator()) {
            action = menu->addSeparator();
        } else {
            action = menu->addAction(item->Caption());
            if (!item->shortcut().isEmpty()) {
                const QKeySequence keys(item->shortcut());
                action->setShortcut(keys);
                shortcuts_.insert(keys);
            }
            QObject::connect(action, &QAction::triggered, action, [this, item] {
                if (item->Enabled() && item->Click) shell_.dispatch(item->Click);
            });
        }
        action->setObjectName(item->name());
        const bool separator = item->isSeparator();
        const auto iconFor = iconForKey;
        const auto iconOfItem = iconForItem;
        const auto update = [item, action, separator, iconFor, iconOfItem] {
            if (!separator) {
                if (iconFor && !item->iconKey().isEmpty())
                    action->setIcon(iconFor(item->iconKey()));
                QString caption = item->Caption();
                if (item->literalCaption) caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
                const bool askForIcon =
                    item->iconKey().isEmpty() && iconOfItem && !caption.isEmpty();
                if (askForIcon && action->text() != caption) action->setIcon(iconOfItem(*item));
                action->setText(caption);
                action->setEnabled(item->Enabled());
                if (item->Checked()) action->setCheckable(true);
                action->setChecked(item->Checked());
            }
            action->setVisible(item->Visible());
        };
        update();
        QObject::connect(item, &Control::changed, action, update);
    }
}

QToolBar* MenuBinder::buildToolBar(cToolbar& model, const QString& title,
                                   const QString& programFolder, QWidget* parent) {
    auto* bar = new QToolBar(title, parent);
    bar->setObjectName(model.name());
    const int size = model.imageSize();
    bar->setIconSize(QSize(size, size));
    const QPixmap strip = forTheme(QPixmap(programFolder + QLatin1Char('/') + model.ImageFile));
    // Strips are drawn at a multiple of the button size for high-density screens; the height
    // tells which.
    const int scale = strip.isNull() ? 1 : std::max(1, strip.height() / size);
    const int cell = size * scale;
    for (int i = 0; i < model.ButtonCount(); ++i) {
        const cToolbar::Button& button = model.button(i);
        QAction* action = nullptr;
        if (button.style == cToolbar::Separator) {
            action = bar->addSeparator();
        } else {
            const bool inStrip =
                !strip.isNull() && button.image >= 0 && (button.image + 1) * cell <= strip.width();
            const QIcon icon = inStrip ? stripIcon(strip, button.image, cell, scale)
                                       : letterIcon(button.toolTip, size);
            action = bar->addAction(icon, button.toolTip);
            action->setToolTip(button.toolTip);
            action->setCheckable(button.style == cToolbar::Check);
            QObject::connect(action, &QAction::triggered, bar, [this, &model, i, action] {
                shell_.dispatch([&] { model.press(i); });
                // Qt turned the pressed state over on its own; the model's state stands.
                if (action->isCheckable()) action->setChecked(model.button(i).checked);
            });
            if (button.style == cToolbar::DropDown) {
                // The arrow beside the button asks the model for its menu.
                auto* arrowMenu = new QMenu(bar);
                QObject::connect(arrowMenu, &QMenu::aboutToShow, bar, [this, &model, i, arrowMenu] {
                    arrowMenu->clear();
                    pendingArrow_ = arrowMenu;
                    shell_.dispatch([&] { model.pressArrow(i); });
                    pendingArrow_ = nullptr;
                });
                action->setMenu(arrowMenu);
                if (auto* tool = qobject_cast<QToolButton*>(bar->widgetForAction(action)))
                    tool->setPopupMode(QToolButton::MenuButtonPopup);
            }
        }
        action->setObjectName(model.name() + QStringLiteral("_%1").arg(i));
        const auto update = [&model, action, i] {
            const cToolbar::Button& b = model.button(i);
            action->setEnabled(b.enabled);
            action->setVisible(b.visible);
            // Any button can be shown pressed (Bold in Layout view, for one).
            if (b.checked && !action->isCheckable()) action->setCheckable(true);
            if (action->isCheckable()) action->setChecked(b.checked);
        };
        update();
        QObject::connect(&model, &cToolbar::buttonChanged, action, [update, i](int changed) {
            if (changed == i) update();
        });
    }
    return bar;
}

} // namespace tsl
