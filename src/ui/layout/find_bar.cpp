#include "ui/layout/find_bar.h"
#include "ui/desktop/engine.h"
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QToolButton>

namespace tsl {

FindBar::FindBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("findBar"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    auto* label = new QLabel(QStringLiteral("Fi&nd:"), this);
    box_ = new QLineEdit(this);
    box_->setObjectName(QStringLiteral("findBox"));
    label->setBuddy(box_);
    box_->setAccessibleName(QStringLiteral("Find"));
    auto* previous = new QToolButton(this);
    previous->setArrowType(Qt::UpArrow);
    previous->setToolTip(QStringLiteral("Find the one before (Shift+Return)"));
    auto* next = new QToolButton(this);
    next->setArrowType(Qt::DownArrow);
    next->setToolTip(QStringLiteral("Find the next (Return)"));
    matchCase_ = new QCheckBox(QStringLiteral("Match &Case"), this);
    status_ = new QLabel(this);
    auto* close = new QToolButton(this);
    close->setText(QStringLiteral("\u2715"));
    close->setToolTip(QStringLiteral("Close the find bar (Escape)"));
    close->setAutoRaise(true);
    for (QWidget* part : std::initializer_list<QWidget*>{label, box_, previous, next, matchCase_})
        row->addWidget(part);
    row->addWidget(status_, 1);
    row->addWidget(close);
    connect(box_, &QLineEdit::returnPressed, this, [this] { find(false); });
    connect(next, &QToolButton::clicked, this, [this] { find(false); });
    connect(previous, &QToolButton::clicked, this, [this] { find(true); });
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    hide();
}

void FindBar::open(EnginePage* page) {
    page_ = page;
    show();
    box_->setFocus();
    box_->selectAll();
}

void FindBar::find(bool backward) {
    if (!page_ || box_->text().isEmpty()) return;
    QPointer<QLabel> status = status_;
    page_->findText(box_->text(), backward, matchCase_->isChecked(), [status](bool found) {
        if (status) status->setText(found ? QString() : QStringLiteral("Not found"));
    });
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        if (page_) page_->widget()->setFocus();
        return;
    }
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        (event->modifiers() & Qt::ShiftModifier)) {
        find(true);
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace tsl
