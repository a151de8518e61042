#pragma once
// What assistive technology reads of a TextView: an editable text of several lines, its text
// and selection, and the characters, words, lines and paragraphs around a position.
// Internal to the Source pane.
class QAccessibleInterface;
class QObject;
class QString;

namespace tsl {
// The factory that QAccessible asks for the interface of a TextView.
QAccessibleInterface* textViewAccessible(const QString& className, QObject* object);
} // namespace tsl
