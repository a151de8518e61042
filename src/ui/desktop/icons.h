#pragma once
// Pictures for the menus, by key ("New", "Open", "Save", ... "Help"). They are the toolbar
// pictures' own SVG sources, compiled into the program, so a menu icon never goes missing and
// is drawn sharp at any screen scale.
// Open to the kit and the window.
#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>

namespace tsl {

// The icon for a menu key; an empty icon for a key that has no picture.
QIcon menuIcon(const QString& key);

// Every key menuIcon() knows, in the order the menus hand them out.
QStringList menuIconKeys();

// True when the desktop's windows are dark.
bool darkTheme();
// A picture drawn for light windows, made readable on dark ones: in a dark theme each colour
// keeps its hue and turns its lightness round, so dark glyphs become light.
QPixmap forTheme(const QPixmap& picture);
// A text colour that stands out at least 4.5:1 on the palette's base: the preferred colour, or
// a lighter or darker one of its hue.
QColor readableOnBase(const QColor& preferred, const QPalette& palette);

} // namespace tsl
