#include "ui/kit/combo_widget.h"
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QLineEdit>

namespace tsl {

namespace {
class ComboAccessible : public QAccessibleWidget {
  public:
    explicit ComboAccessible(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    QString text(QAccessible::Text type) const override {
        if (type == QAccessible::Value) return combo()->currentText();
        return QAccessibleWidget::text(type); // its own name, or its label's
    }
    // The list that drops down, and the text of an editable combo.
    int childCount() const override { return combo()->lineEdit() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        if (index == 0) return QAccessible::queryAccessibleInterface(combo()->view());
        if (index == 1 && combo()->lineEdit())
            return QAccessible::queryAccessibleInterface(combo()->lineEdit());
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (!child) return -1;
        if (child->object() == combo()->view()) return 0;
        if (combo()->lineEdit() && child->object() == combo()->lineEdit()) return 1;
        return -1;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = combo()->view()->isVisible();
        state.editable = combo()->isEditable();
        return state;
    }
    QStringList actionNames() const override {
        return {showMenuAction(), pressAction(), setFocusAction()};
    }
    void doAction(const QString& name) override {
        if (name == setFocusAction()) {
            QAccessibleWidget::doAction(name);
        } else if (name == showMenuAction() || name == pressAction()) {
            if (combo()->view()->isVisible())
                combo()->hidePopup();
            else
                combo()->showPopup();
        }
    }

  private:
    QComboBox* combo() const { return static_cast<QComboBox*>(object()); }
};

QAccessibleInterface* comboFactory(const QString& className, QObject* object) {
    if (className == QLatin1String(ComboWidget::staticMetaObject.className()) &&
        object->isWidgetType())
        return new ComboAccessible(static_cast<QComboBox*>(object));
    return nullptr;
}
} // namespace

ComboWidget::ComboWidget(QWidget* parent) : QComboBox(parent) {
    static const bool installed = [] {
        QAccessible::installFactory(comboFactory);
        return true;
    }();
    Q_UNUSED(installed);
}

} // namespace tsl
