#include "runtime/vb_strings.h"
#include "runtime/runtime_error.h"
#include <cmath>

namespace tsl {

namespace {
// Val passes over these anywhere in a number, as the BASIC routine does.
bool passedOver(QChar c) {
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n');
}
bool isAsciiDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}
bool isSign(QChar c) {
    return c == QLatin1Char('-') || c == QLatin1Char('+');
}
} // namespace

double Val(const QString& text) {
    const int n = static_cast<int>(text.size());
    int i = 0;
    auto skip = [&] {
        while (i < n && passedOver(text.at(i)))
            ++i;
    };
    QString number;
    skip();
    if (i < n && isSign(text.at(i))) number += text.at(i++);
    bool seenPoint = false;
    bool seenDigit = false;
    for (; i < n; ++i) {
        const QChar c = text.at(i);
        if (isAsciiDigit(c)) {
            number += c;
            seenDigit = true;
        } else if (c == QLatin1Char('.') && !seenPoint) {
            seenPoint = true;
            number += c;
        } else if (!passedOver(c)) {
            break;
        }
    }
    // An exponent (E or D) counts only when digits follow it: "-3.5e" reads as -3.5.
    if (seenDigit && i < n && QStringLiteral("eEdD").contains(text.at(i))) {
        QString exponent = QStringLiteral("e");
        ++i;
        skip();
        if (i < n && isSign(text.at(i))) exponent += text.at(i++);
        bool exponentDigits = false;
        for (; i < n; ++i) {
            const QChar c = text.at(i);
            if (isAsciiDigit(c)) {
                exponent += c;
                exponentDigits = true;
            } else if (!passedOver(c)) {
                break;
            }
        }
        if (exponentDigits) number += exponent;
    }
    if (!seenDigit) return 0.0;
    bool ok = false;
    const double value = number.toDouble(&ok);
    if (!ok && std::isinf(value)) raise(ErrOverflow);
    return ok ? value : 0.0;
}

double toNumber(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok && std::isinf(value)) raise(ErrOverflow);
    // "inf" and "nan" are no numbers to the program.
    if (!ok || !std::isfinite(value)) raise(ErrTypeMismatch);
    return value;
}

} // namespace tsl
