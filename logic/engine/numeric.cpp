#include "numeric.h"

#include "errors.h"

#include <QCoreApplication>

#include <cmath>
#include <limits>

namespace quellpad {

namespace {

double CheckedWhole(double value, double low, double high, const char* what) {
    const double whole = RoundHalfEven(value);
    if (!std::isfinite(value) || whole < low || whole > high) {
        throw OverflowError(QCoreApplication::translate("Numeric", "Overflow: %1 does not fit %2.")
                                .arg(QString::number(value, 'g', 15),
                                     QCoreApplication::translate("Numeric", what)));
    }
    return whole;
}

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

} // namespace

std::uint8_t ToByte(double value) {
    return static_cast<std::uint8_t>(
        CheckedWhole(value, 0, 255, QT_TRANSLATE_NOOP("Numeric", "a byte (0 to 255)")));
}

std::int16_t ToInt16(double value) {
    return static_cast<std::int16_t>(CheckedWhole(
        value, -32768, 32767, QT_TRANSLATE_NOOP("Numeric", "a 16-bit number (-32768 to 32767)")));
}

std::int32_t ToInt32(double value) {
    return static_cast<std::int32_t>(CheckedWhole(value, std::numeric_limits<std::int32_t>::min(),
                                                  std::numeric_limits<std::int32_t>::max(),
                                                  QT_TRANSLATE_NOOP("Numeric", "a 32-bit number")));
}

double Val(const QString& text) {
    // Gather the characters of the leading number, skipping blanks as typed numbers allow.
    QString number;
    bool seenDigit = false, seenPoint = false, seenExponent = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (IsBlank(c)) {
            continue;
        }
        if (c.isDigit() && c.unicode() < 128) {
            number += c;
            seenDigit = true;
        } else if ((c == u'+' || c == u'-') && (number.isEmpty() || number.endsWith(u'e'))) {
            number += c;
        } else if (c == u'.' && !seenPoint && !seenExponent) {
            number += c;
            seenPoint = true;
        } else if ((c == u'e' || c == u'E' || c == u'd' || c == u'D') && seenDigit &&
                   !seenExponent) {
            number += u'e';
            seenExponent = true;
        } else {
            break;
        }
    }
    // A dangling exponent or sign counts for nothing ("12e" is 12).
    while (!number.isEmpty() &&
           (number.endsWith(u'e') || number.endsWith(u'+') || number.endsWith(u'-'))) {
        number.chop(1);
        if (number.endsWith(u'e')) {
            number.chop(1);
        }
    }
    bool ok = false;
    const double value = number.toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0.0;
}

double IntPart(double value) {
    return std::floor(value);
}

double RoundHalfEven(double value) {
    const double floor = std::floor(value);
    const double fraction = value - floor;
    if (fraction > 0.5) {
        return floor + 1;
    }
    if (fraction < 0.5) {
        return floor;
    }
    return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1;
}

QString Str(double value) {
    QString text = value == std::floor(value) && std::fabs(value) < 1e15
                       ? QString::number(static_cast<long long>(value))
                       : QString::number(value, 'g', 15);
    // Fractions are written without their leading zero: " .5", "-.25".
    if (text.startsWith(QLatin1String("0."))) {
        text.remove(0, 1);
    } else if (text.startsWith(QLatin1String("-0."))) {
        text.remove(1, 1);
    }
    return value < 0 ? text : QLatin1Char(' ') + text;
}

QString Digits(long long value) {
    return QString::number(value < 0 ? -value : value);
}

} // namespace quellpad
