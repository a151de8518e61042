#include "runtime/vb_strings.h"
#include "runtime/runtime_error.h"

namespace tsl {

double Val(const QString& text) {
    QString digits;
    bool seenPoint = false;
    int i = 0;
    while (i < text.size() && text.at(i).isSpace())
        ++i;
    if (i < text.size() && (text.at(i) == QLatin1Char('-') || text.at(i) == QLatin1Char('+')))
        digits += text.at(i++);
    for (; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isDigit())
            digits += c;
        else if (c == QLatin1Char('.') && !seenPoint) {
            seenPoint = true;
            digits += c;
        } else if (c != QLatin1Char(' '))
            break;
    }
    bool ok = false;
    const double value = digits.toDouble(&ok);
    return ok ? value : 0.0;
}

double toNumber(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok) raise(ErrTypeMismatch);
    return value;
}

} // namespace tsl
