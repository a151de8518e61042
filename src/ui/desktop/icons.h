#pragma once
// Pictures for the menus, by key ("New", "Open", "Save", ... "Help"). They are the toolbar
// pictures' own SVG sources, compiled into the program, so a menu icon never goes missing and
// is drawn sharp at any screen scale.
// Open to the kit and the window.
#include <QIcon>
#include <QString>

namespace tsl {

// The icon for a menu key; an empty icon for a key that has no picture.
QIcon menuIcon(const QString& key);

// Every key menuIcon() knows, in the order the menus hand them out.
QStringList menuIconKeys();

} // namespace tsl
