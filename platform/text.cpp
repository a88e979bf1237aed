#include "platform/text.h"

#include "platform/failure.h"

#include <cmath>
#include <limits>

namespace platform {
namespace {

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

QString WithoutBlanks(const QString& text) {
    QString rest;
    rest.reserve(text.size());
    for (const QChar c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n') rest.append(c);
    }
    return rest;
}

bool IsExponentMark(QChar c) { return c == u'E' || c == u'e' || c == u'D' || c == u'd'; }
bool IsSign(QChar c) { return c == u'+' || c == u'-'; }

qsizetype SkipDigits(const QString& text, qsizetype from) {
    while (from < text.size() && IsDigit(text[from])) ++from;
    return from;
}

/// End of the exponent that begins at a place; the place itself if there is none, or one without digits.
qsizetype SkipExponent(const QString& text, qsizetype from) {
    if (from >= text.size() || !IsExponentMark(text[from])) return from;
    qsizetype digits = from + 1;
    if (digits < text.size() && IsSign(text[digits])) ++digits;
    const qsizetype end = SkipDigits(text, digits);
    return end == digits ? from : end;
}

/// Length of the number at the start of a text without blanks, 0 if it has no digit.
qsizetype NumberLength(const QString& text, QStringView decimalSigns) {
    const qsizetype start = !text.isEmpty() && IsSign(text[0]) ? 1 : 0;
    qsizetype end = SkipDigits(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && decimalSigns.contains(text[end])) {
        const qsizetype afterPoint = end + 1;
        end = SkipDigits(text, afterPoint);
        digits += end - afterPoint;
    }
    return digits == 0 ? 0 : SkipExponent(text, end);
}

/// The value of a text that NumberLength has measured; infinite if it is too large.
double Magnitude(QString number) {
    number.replace(u',', u'.').replace(u'D', u'E').replace(u'd', u'e');
    return number.toDouble();
}

int ToWhole(double number, double lowest, double highest) {
    const double whole = RoundHalfEven(number);
    // Written so that NaN fails too.
    if (!(whole >= lowest && whole <= highest)) throw Failure(QStringLiteral("Talet ryms inte."));
    return static_cast<int>(whole);
}

} // namespace

double Val(const QString& text) {
    const QString rest = WithoutBlanks(text);
    const qsizetype length = NumberLength(rest, u".");
    if (length == 0) return 0;
    const double value = Magnitude(rest.left(length));
    if (std::isinf(value)) throw Failure(QStringLiteral("Talet är för stort."));
    return value;
}

std::optional<double> ReadNumber(const QString& text) {
    const QString rest = text.trimmed();
    const qsizetype length = NumberLength(rest, u".,");
    if (length == 0 || length != rest.size()) return std::nullopt;
    const double value = Magnitude(rest);
    if (std::isinf(value)) return std::nullopt;
    return value;
}

double ToNumber(const QString& text) {
    const std::optional<double> number = ReadNumber(text);
    if (!number) throw Failure(QStringLiteral("Texten \"%1\" är inget tal.").arg(text));
    return *number;
}

// The default rounding mode, which nothing here changes, rounds halves to even.
double RoundHalfEven(double number) { return std::nearbyint(number); }

int ToByte(double number) { return ToWhole(number, 0, 255); }

int ToInt16(double number) {
    return ToWhole(number, std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max());
}

int ToInt32(double number) {
    return ToWhole(number, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
}

QString PadLeft(const QString& text, int width, QChar fill) { return text.rightJustified(width, fill); }

QString FormatDigits(const QString& number, int minDigits) {
    const std::optional<double> value = ReadNumber(number);
    if (!value) return number;
    const double whole = std::round(*value);
    const QString digits = PadLeft(QString::number(std::abs(whole), 'f', 0), minDigits, u'0');
    return whole < 0 ? u'-' + digits : digits;
}

QChar ToUpper(QChar character) {
    // Their capitals, Greek my and a hooked F, are not in the code page.
    if (character == u'µ' || character == u'ƒ') return character;
    return character.toUpper();
}

QString ToUpper(const QString& text) {
    QString upper = text;
    for (QChar& c : upper) c = ToUpper(c);
    return upper;
}

} // namespace platform
