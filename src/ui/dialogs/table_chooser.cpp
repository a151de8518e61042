#include "ui/dialogs/table_chooser.h"
#include "dialogs/table_chooser.h"
#include "shell/code_editor.h"
#include "shell/dialog_context.h"
#include <QAction>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolBar>

namespace tsl {

namespace {
int mouseButton(Qt::MouseButtons buttons) {
    int code = 0;
    if (buttons & Qt::LeftButton) code |= keys::vbLeftButton;
    if (buttons & Qt::RightButton) code |= keys::vbRightButton;
    if (buttons & Qt::MiddleButton) code |= keys::vbMiddleButton;
    return code;
}

int shiftState(Qt::KeyboardModifiers modifiers) {
    int code = 0;
    if (modifiers & Qt::ShiftModifier) code |= keys::ShiftMask;
    if (modifiers & Qt::ControlModifier) code |= keys::CtrlMask;
    if (modifiers & Qt::AltModifier) code |= keys::AltMask;
    return code;
}
} // namespace

TableChooserPopup::TableChooserPopup(DialogContext& shell, QWidget* owner)
    : QWidget(owner, Qt::Popup), shell_(shell), chooser_(shell.part<TableChooser>()),
      window_(&shell.part<TableChooser>().DropDown) {
    setObjectName(QStringLiteral("picDropDown"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    cDropDownToolWindow& window = chooser_.DropDown;
    window.TwipsPerPixelX = 1440 / qMax(1, owner->logicalDpiX());
    window.TwipsPerPixelY = 1440 / qMax(1, owner->logicalDpiY());
    connect(&window, &cDropDownToolWindow::shown, this, &TableChooserPopup::place);
    connect(&window, &cDropDownToolWindow::hidden, this, [this] {
        // A press that hid the window still owes its release to the chooser.
        if (!pressed_) hide();
    });
    connect(&window, &Control::changed, this, &TableChooserPopup::follow);
    connect(&chooser_.picDropDown, &Control::changed, this, qOverload<>(&QWidget::update));
}

void TableChooserPopup::place() {
    const cDropDownToolWindow& window = chooser_.DropDown;
    move(window.left() / window.TwipsPerPixelX, window.top() / window.TwipsPerPixelY);
    follow();
    show();
}

void TableChooserPopup::follow() {
    const cDropDownToolWindow& window = chooser_.DropDown;
    if (window.width() > 0) resize(window.width(), window.height());
}

QPoint TableChooserPopup::twips(const QPoint& pixels) const {
    return {pixels.x() * chooser_.DropDown.TwipsPerPixelX,
            pixels.y() * chooser_.DropDown.TwipsPerPixelY};
}

void TableChooserPopup::paintEvent(QPaintEvent*) {
    const ChooserPicture& picture = chooser_.picDropDown;
    const int right = picture.ScaleWidth;
    const int bottom = picture.ScaleHeight;
    QPainter painter(this);
    painter.fillRect(rect(), palette().button());
    painter.setPen(palette().color(QPalette::Shadow));
    painter.drawRect(0, 0, right - 1, bottom - 1);
    painter.setPen(palette().color(QPalette::Light));
    painter.drawLine(1, bottom - 2, 1, 1);
    painter.drawLine(1, 1, right - 1, 1);
    for (const ChooserPicture::Cell& cell : picture.cells)
        painter.fillRect(cell.rect, cell.highlighted ? palette().highlight() : palette().base());
    if (picture.labelRect.isEmpty()) return;
    // The label as a sunken status panel.
    QStyleOptionFrame panel;
    panel.initFrom(this);
    panel.rect = picture.labelRect;
    panel.lineWidth = 1;
    panel.state |= QStyle::State_Sunken;
    style()->drawPrimitive(QStyle::PE_Frame, &panel, &painter, this);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(picture.labelRect, Qt::AlignCenter, picture.label);
}

void TableChooserPopup::mousePressEvent(QMouseEvent* event) {
    // The chooser decides whether a press outside closes it, not the popup.
    pressed_ = true;
    const QPoint at = twips(event->position().toPoint());
    shell_.dispatch([&] {
        chooser_.picDropDown_MouseDown(mouseButton(event->buttons()),
                                       shiftState(event->modifiers()), at.x(), at.y());
    });
}

void TableChooserPopup::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = twips(event->position().toPoint());
    shell_.dispatch([&] {
        chooser_.picDropDown_MouseMove(mouseButton(event->buttons()),
                                       shiftState(event->modifiers()), at.x(), at.y());
    });
}

void TableChooserPopup::mouseReleaseEvent(QMouseEvent* event) {
    const bool pressed = pressed_;
    pressed_ = false;
    if (!pressed) return; // the release of the click that opened the chooser
    const QPoint at = twips(event->position().toPoint());
    shell_.dispatch([&] {
        chooser_.picDropDown_MouseUp(mouseButton(event->button()), shiftState(event->modifiers()),
                                     at.x(), at.y());
    });
    if (!chooser_.DropDown.IsShowing()) hide();
}

void TableChooserPopup::hideEvent(QHideEvent* event) {
    // Escape or a click into another window closes the popup: the chooser hears of it.
    pressed_ = false;
    if (window_ && window_->IsShowing()) shell_.dispatch([this] { window_->Hide(); });
    QWidget::hideEvent(event);
}

void installTableChooser(DialogContext& shell, QMainWindow& window) {
    new TableChooserPopup(shell, &window);
    const int perPixel = shell.part<TableChooser>().DropDown.TwipsPerPixelX;
    QPointer<QMainWindow> owner(&window);
    shell.part<TableChooser>().DropDown.ButtonPosition = [owner, perPixel](const QString& toolbar,
                                                                   int index) {
        if (!owner) return QPoint();
        // Each document has its own table strip: the button is the one on screen.
        const QString name = toolbar + QStringLiteral("_%1").arg(index);
        QWidget* button = nullptr;
        for (QToolBar* bar : owner->findChildren<QToolBar*>()) {
            for (QAction* action : bar->actions()) {
                QWidget* widget =
                    action->objectName() == name ? bar->widgetForAction(action) : nullptr;
                if (widget && widget->isVisible() && !button) button = widget;
            }
        }
        const QPoint corner = button ? button->mapToGlobal(QPoint(0, 0)) : QPoint();
        return corner * perPixel;
    };
}

} // namespace tsl
