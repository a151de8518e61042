#include "ui/source/text_view_accessible.h"
#include "ui/source/text_moves.h"
#include "ui/source/text_view.h"
#include <QAccessibleWidget>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace tsl {

namespace {
class TextViewAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit TextViewAccessible(TextView* view)
        : QAccessibleWidget(view, QAccessible::EditableText) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }
    QString text(QAccessible::Text which) const override {
        if (which == QAccessible::Value) return view()->text();
        return QAccessibleWidget::text(which);
    }

    void selection(int index, int* start, int* end) const override {
        *start = *end = 0;
        if (index != 0 || !view()->hasSelection()) return;
        *start = view()->selectionStart();
        *end = view()->selectionEnd();
    }
    int selectionCount() const override { return view()->hasSelection() ? 1 : 0; }
    void addSelection(int start, int end) override { view()->setSelection(start, end); }
    void removeSelection(int index) override {
        if (index == 0) view()->setSelection(view()->position(), view()->position());
    }
    void setSelection(int index, int start, int end) override {
        if (index == 0) view()->setSelection(start, end);
    }
    int cursorPosition() const override { return view()->position(); }
    void setCursorPosition(int position) override { view()->setSelection(position, position); }
    QString text(int start, int end) const override {
        return view()->text().mid(start, std::max(0, end - start));
    }
    int characterCount() const override { return static_cast<int>(view()->text().size()); }
    QRect characterRect(int offset) const override {
        const QRect at = view()->cursorRect(offset);
        const QRect next = view()->cursorRect(offset + 1);
        QRect character(at.topLeft(), QSize(1, at.height()));
        if (next.top() == at.top() && next.left() > at.left()) character.setRight(next.left() - 1);
        return character.translated(view()->viewport()->mapToGlobal(QPoint(0, 0)));
    }
    int offsetAtPoint(const QPoint& point) const override {
        return view()->positionAt(view()->viewport()->mapFromGlobal(point));
    }
    void scrollToSubstring(int start, int) override { view()->reveal(start); }
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                         int* end) const override {
        const moves::Range unit = unitAt(offset, type);
        *start = unit.start;
        *end = unit.end;
        return text(unit.start, unit.end);
    }
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                             int* end) const override {
        const moves::Range here = unitAt(offset, type);
        if (here.start <= 0) {
            *start = *end = 0;
            return {};
        }
        return textAtOffset(here.start - 1, type, start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                            int* end) const override {
        const moves::Range here = unitAt(offset, type);
        if (here.end >= characterCount()) {
            *start = *end = characterCount();
            return {};
        }
        return textAtOffset(here.end, type, start, end);
    }

  private:
    TextView* view() const { return static_cast<TextView*>(widget()); }

    // The character, word, sentence, line or paragraph around an offset.
    moves::Range unitAt(int offset, QAccessible::TextBoundaryType type) const {
        const QString& text = view()->text();
        const int length = static_cast<int>(text.size());
        offset = std::clamp(offset, 0, length);
        switch (type) {
        case QAccessible::CharBoundary:
            return {offset, moves::nextCharacter(text, offset)};
        case QAccessible::LineBoundary: {
            const int row = view()->rows().rowOf(offset);
            return {view()->rows().start(row), view()->rows().next(row)};
        }
        case QAccessible::ParagraphBoundary: {
            const moves::Range paragraph = moves::paragraphAt(text, offset);
            return {paragraph.start, std::min(paragraph.end + 1, length)};
        }
        case QAccessible::NoBoundary:
            return {0, length};
        case QAccessible::WordBoundary:
        case QAccessible::SentenceBoundary:
            break;
        }
        // Words and sentences within the row, which holds a few thousand characters at most.
        const int row = view()->rows().rowOf(offset);
        const int from = view()->rows().start(row);
        const int to = view()->rows().next(row);
        QTextBoundaryFinder finder(type == QAccessible::WordBoundary
                                       ? QTextBoundaryFinder::Word
                                       : QTextBoundaryFinder::Sentence,
                                   QStringView(text).mid(from, to - from).toString());
        finder.setPosition(offset - from);
        int start = finder.isAtBoundary() ? offset - from : finder.toPreviousBoundary();
        finder.setPosition(offset - from);
        int end = finder.toNextBoundary();
        if (start < 0) start = 0;
        if (end < 0) end = to - from;
        return {from + start, from + end};
    }
};
} // namespace

QAccessibleInterface* textViewAccessible(const QString&, QObject* object) {
    if (auto* view = qobject_cast<TextView*>(object)) return new TextViewAccessible(view);
    return nullptr;
}

} // namespace tsl
