#pragma once
// Where style definitions are kept: "styles" beside the program when it runs from its build
// folder, else the user's data folder, made when it is missing.
#include <QString>

namespace tsl {

class Platform;

QString stylesFolder(Platform& platform);
// The definition file of a style: the name is used as typed.
QString styleFile(Platform& platform, const QString& name);

} // namespace tsl
