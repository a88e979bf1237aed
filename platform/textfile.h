#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QIODevice;

/// Text files as the program keeps them: Windows-1252, lines that end in CR LF. Three layers: text from data,
/// text to a device, device to a file name.
namespace platform {

/// Windows-1252, one byte for each UTF-16 unit, so the length stays that of the text. The five codes that the
/// code page leaves open stand for the control characters of the same number; anything else outside the
/// page becomes '?'.
QByteArray ToCp1252(const QString& text);
/// The reverse of ToCp1252; every byte has a character.
QString FromCp1252(const QByteArray& bytes);

// Text from data.

/// The lines, each with CR LF behind it.
QString LinesToText(const QStringList& lines);

/// A text as `Write #` puts it: between double quotes. Quotes inside are not doubled.
QString WriteItem(const QString& text);
/// #TRUE# or #FALSE#
QString WriteFlag(bool flag);
/// A number as `Print #` puts it: a blank or the minus sign in front, a blank behind.
QString PrintNumber(qint64 number);

/// Reads the items of a text one after the other as `Input #` does.
///
/// An item ends at a comma or a line end (CR LF, CR or LF). Blanks and tabs in front are dropped, those
/// behind stay. An item that begins with a double quote goes to the next double quote, commas and line ends
/// included, and what stands between that and the end of the item is dropped. A blank line is one
/// empty item.
class ItemReader {
public:
    explicit ItemReader(QString text)
        : text_(std::move(text)) {}

    /// Nothing is left to read.
    bool AtEnd() const { return position_ >= text_.size(); }

    /// @throws Failure at the end
    QString Next();
    /// @throws Failure at the end, or if the item is no number
    double NextNumber();
    /// #TRUE# or #FALSE# in any letter case. @throws Failure at the end, or for anything else
    bool NextFlag();
    /// The rest of the line as it stands, quotes and commas included. @throws Failure at the end
    QString NextLine();

private:
    QString text_;
    qsizetype position_ = 0;

    void RequireMore() const;
    QString NextQuoted();
    void SkipToItemEnd();
    void SkipSeparator();
    bool AtItemEnd() const;
    bool AtLineEnd() const;
};

// Text to a device.

/// Writes a text to an open device in Windows-1252. It does not close the device.
class TextWriter {
public:
    explicit TextWriter(QIODevice& device)
        : device_(device) {}

    /// @throws Failure if the device took less than the whole text.
    void Write(const QString& text);
    /// The text and CR LF. @throws Failure as Write
    void WriteLine(const QString& line = {});

private:
    QIODevice& device_;
};

/// All that is left in an open device, as text. @throws Failure if reading fails.
QString ReadText(QIODevice& device);

// Device to a file name.

/// Makes or replaces the file in one step: after a failure what stood there before is untouched.
/// @throws Failure if it cannot be written whole.
void SaveTextFile(const QString& path, const QString& text);

/// @throws Failure if the file is missing or cannot be read.
QString LoadTextFile(const QString& path);

} // namespace platform
