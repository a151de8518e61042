#pragma once
// The texts a new document starts from.
#include <QString>

namespace tsl {

inline const QString kHtmlSkeleton = QStringLiteral(
    "<html>\n<head>\n<title>Title goes here</title>\n"
    "<meta name=\"GENERATOR\" content=\"Tessaline 2\">\n</head>\n<body>\n\n</body>\n</html>");
// The caret of a new page: the empty line between the body tags. A literal, not computed.
constexpr int kHtmlSkeletonCaret = 106;
inline const QString kCssSkeleton = QStringLiteral(
    "/* This is an external style sheet. For more information look up 'external style sheets' "
    "in the help file */\n");

} // namespace tsl
