#include "platform/textfile.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <QFile>
#include <QIODevice>
#include <QSaveFile>
#include <QStringBuilder>

#include <array>

namespace platform {
namespace {

/// Characters of the bytes 0x80 to 0x9F, the only ones whose code differs from the byte.
constexpr std::array<char16_t, 32> highControls{
    u'€', 0x81, u'‚', u'ƒ', u'„', u'…', u'†', u'‡', u'ˆ', u'‰', u'Š', u'‹', u'Œ', 0x8D, u'Ž', 0x8F,
    0x90, u'‘', u'’', u'“', u'”', u'•', u'–', u'—', u'˜', u'™', u'š', u'›', u'œ', 0x9D, u'ž', u'Ÿ'};

constexpr char16_t firstHigh = 0x80;
constexpr char16_t afterHigh = firstHigh + highControls.size();

char ToByte(char16_t code) {
    if (code < firstHigh || (code >= afterHigh && code <= 0xFF)) return static_cast<char>(code);
    for (std::size_t i = 0; i < highControls.size(); ++i) {
        if (highControls[i] == code) return static_cast<char>(firstHigh + i);
    }
    return '?';
}

char16_t FromByte(uchar byte) {
    return byte >= firstHigh && byte < afterHigh ? highControls[byte - firstHigh] : char16_t{byte};
}

bool IsLineEnd(QChar c) { return c == u'\r' || c == u'\n'; }

[[noreturn]] void ThrowUnwritable(const QString& reason) {
    throw Failure(QStringLiteral("Filen kan inte skrivas: %1").arg(reason));
}

[[noreturn]] void ThrowUnreadable(const QString& reason) {
    throw Failure(QStringLiteral("Filen kan inte läsas: %1").arg(reason));
}

} // namespace

QByteArray ToCp1252(const QString& text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) bytes[i] = ToByte(text[i].unicode());
    return bytes;
}

QString FromCp1252(const QByteArray& bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) text[i] = QChar(FromByte(static_cast<uchar>(bytes[i])));
    return text;
}

QString LinesToText(const QStringList& lines) {
    QString text;
    for (const QString& line : lines) text += line % u"\r\n";
    return text;
}

QString WriteItem(const QString& text) { return u'"' + text + u'"'; }

QString WriteFlag(bool flag) { return flag ? QStringLiteral("#TRUE#") : QStringLiteral("#FALSE#"); }

QString PrintNumber(qint64 number) {
    const QString digits = QString::number(number) + u' ';
    return number < 0 ? digits : u' ' + digits;
}

bool ItemReader::AtLineEnd() const { return AtEnd() || IsLineEnd(text_[position_]); }

bool ItemReader::AtItemEnd() const { return AtLineEnd() || text_[position_] == u','; }

void ItemReader::RequireMore() const {
    if (AtEnd()) ThrowUnreadable(QStringLiteral("den är slut."));
}

void ItemReader::SkipToItemEnd() {
    while (!AtItemEnd()) ++position_;
}

void ItemReader::SkipSeparator() {
    if (AtEnd()) return;
    const bool twoCharacters = QStringView(text_).mid(position_).startsWith(u"\r\n");
    position_ += twoCharacters ? 2 : 1;
}

QString ItemReader::NextQuoted() {
    const qsizetype start = ++position_;
    while (!AtEnd() && text_[position_] != u'"') ++position_;
    QString item = text_.mid(start, position_ - start);
    SkipToItemEnd();
    return item;
}

QString ItemReader::Next() {
    RequireMore();
    while (!AtEnd() && (text_[position_] == u' ' || text_[position_] == u'\t')) ++position_;
    QString item;
    if (!AtEnd() && text_[position_] == u'"') {
        item = NextQuoted();
    } else {
        const qsizetype start = position_;
        SkipToItemEnd();
        item = text_.mid(start, position_ - start);
    }
    SkipSeparator();
    return item;
}

double ItemReader::NextNumber() { return ToNumber(Next()); }

bool ItemReader::NextFlag() {
    const QString item = Next().trimmed();
    if (item.compare(u"#TRUE#", Qt::CaseInsensitive) == 0) return true;
    if (item.compare(u"#FALSE#", Qt::CaseInsensitive) == 0) return false;
    throw Failure(QStringLiteral("Texten \"%1\" är varken sann eller falsk.").arg(item));
}

QString ItemReader::NextLine() {
    RequireMore();
    const qsizetype start = position_;
    while (!AtLineEnd()) ++position_;
    QString line = text_.mid(start, position_ - start);
    SkipSeparator();
    return line;
}

void TextWriter::Write(const QString& text) {
    const QByteArray bytes = ToCp1252(text);
    if (device_.write(bytes) != bytes.size()) ThrowUnwritable(device_.errorString());
}

void TextWriter::WriteLine(const QString& line) { Write(line % u"\r\n"); }

QString ReadText(QIODevice& device) {
    constexpr qint64 blockSize = 1 << 16;
    QByteArray bytes;
    QByteArray block(blockSize, Qt::Uninitialized);
    qint64 count = 0;
    while ((count = device.read(block.data(), blockSize)) > 0) bytes.append(block.constData(), count);
    if (count < 0) ThrowUnreadable(device.errorString());
    return FromCp1252(bytes);
}

void SaveTextFile(const QString& path, const QString& text) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) ThrowUnwritable(file.errorString());
    TextWriter(file).Write(text);
    if (!file.commit()) ThrowUnwritable(file.errorString());
}

QString LoadTextFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) ThrowUnreadable(file.errorString());
    return ReadText(file);
}

} // namespace platform
