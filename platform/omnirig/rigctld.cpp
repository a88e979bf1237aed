#include "platform/omnirig/rigctld.h"

#include "platform/omnirig/omnirig.h"

#include <QHash>

#include <algorithm>
#include <optional>

namespace platform::rigctld {

namespace {

/// The longest answer has two lines of a dozen characters.
constexpr qsizetype kLongest = 256;
/// So many digits of a frequency: more than any radio has, and no overflow.
constexpr qsizetype kDigits = 12;

bool IsNumber(QByteArrayView text) {
    if (text.startsWith('-')) text = text.sliced(1);
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Hertz of "14074000" or "14074000.000000"; nothing for anything else.
std::optional<qint64> ReadHertz(QByteArrayView text) {
    const qsizetype point = text.indexOf('.');
    const QByteArrayView whole = point < 0 ? text : text.first(point);
    if (point >= 0 && !IsNumber(text.sliced(point + 1))) return std::nullopt;
    if (!IsNumber(whole) || whole.startsWith('-') || whole.size() > kDigits) return std::nullopt;
    return whole.toByteArray().toLongLong();
}

bool IsModeWord(QByteArrayView text) {
    constexpr qsizetype longest = 12;
    // A number here is a frequency that nobody asked for.
    return text.size() <= longest && !IsNumber(text) && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                      c == '-' || c == '_';
           });
}

Answer Garbage() { return {.kind = Answer::Kind::Garbage}; }
Answer Refused(int error) { return {.kind = Answer::Kind::Refused, .error = error}; }

/// "RPRT 0" and "RPRT -5".
std::optional<int> ReadReport(QByteArrayView line) {
    constexpr QByteArrayView word = "RPRT ";
    if (!line.startsWith(word) || !IsNumber(line.sliced(word.size()))) return std::nullopt;
    return line.sliced(word.size()).toByteArray().toInt();
}

Answer ReadVfoMode(QByteArrayView line) {
    // "1", "CHKVFO 1" and "ChkVFO: 1" have all been seen.
    const QByteArray word = line.chopped(qMin<qsizetype>(1, line.size())).toByteArray().toLower();
    const bool isAnswer = word.isEmpty() || word == "chkvfo " || word == "chkvfo: ";
    if (!isAnswer || !(line.endsWith('0') || line.endsWith('1'))) return Garbage();
    return {.kind = Answer::Kind::Good, .vfoMode = line.endsWith('1')};
}

Answer ReadFrequency(QByteArrayView line) {
    const auto hertz = ReadHertz(line);
    if (!hertz) return Garbage();
    if (*hertz == 0) return Refused(0);
    return {.kind = Answer::Kind::Good, .frequency = *hertz};
}

} // namespace

QByteArray Question(Asked asked, bool vfoMode) {
    if (asked == Asked::VfoMode) return "\\chk_vfo\n";
    const QByteArray letter = asked == Asked::Frequency ? "f" : "m";
    return letter + (vfoMode ? " currVFO\n" : "\n");
}

QByteArray Tuning(qint64 hertz, Vfo vfo, bool vfoMode) {
    const QByteArray name = vfo == Vfo::A ? "VFOA " : "currVFO ";
    return "F " + (vfoMode ? name : QByteArray()) + QByteArray::number(hertz) + '\n';
}

Answer ReadAnswer(Asked asked, const QByteArray& received) {
    if (received.size() > kLongest) return Garbage();
    QList<QByteArray> lines = received.split('\n');
    const bool isCut = !lines.takeLast().isEmpty();
    if (lines.isEmpty()) return {};
    for (QByteArray& line : lines)
        if (line.endsWith('\r')) line.chop(1);

    const auto isAll = [&](qsizetype count) { return lines.size() == count && !isCut; };
    if (const auto report = ReadReport(lines[0])) {
        if (!isAll(1) || (*report == 0 && asked != Asked::Write)) return Garbage();
        return *report == 0 ? Answer{.kind = Answer::Kind::Good} : Refused(*report);
    }
    switch (asked) {
    case Asked::VfoMode: return isAll(1) ? ReadVfoMode(lines[0]) : Garbage();
    case Asked::Frequency: return isAll(1) ? ReadFrequency(lines[0]) : Garbage();
    case Asked::Mode:
        if (!IsModeWord(lines[0])) return Garbage();
        if (lines.size() == 1) return {};
        if (!isAll(2) || !IsNumber(lines[1])) return Garbage();
        return {.kind = Answer::Kind::Good, .mode = QString::fromLatin1(lines[0])};
    case Asked::Write: break;
    }
    return Garbage();
}

// Codes of rig_errcode_e in Hamlib's rig.h; of what it says, what an operator can act on.

bool IsMissing(int error) { return error == -4 || error == -11; }

QString ErrorText(int error) {
    switch (error) {
    case 0: return QStringLiteral("radion anger ingen frekvens");
    case -2: return QStringLiteral("fel inställning av radion");
    case -5: return QStringLiteral("radion svarar inte");
    case -6: return QStringLiteral("fel på porten till radion");
    case -8: return QStringLiteral("radion svarar obegripligt");
    case -9: return QStringLiteral("radion vägrar");
    case -4:
    case -11: return QStringLiteral("radion kan inte det");
    default: return QStringLiteral("fel %1 från radion").arg(error);
    }
}

int ModeOf(const QString& mode) {
    static const QHash<QString, int> modes{
        {"CW", rigmode::CwUpper},
        {"CWN", rigmode::CwUpper},
        {"CWR", rigmode::CwLower},
        {"USB", rigmode::Usb},
        {"ECSSUSB", rigmode::Usb},
        {"LSB", rigmode::Lsb},
        {"ECSSLSB", rigmode::Lsb},
        {"RTTY", rigmode::RttyLower},
        {"RTTYR", rigmode::RttyUpper},
        {"PKTUSB", rigmode::RttyUpper},
        {"USB-D", rigmode::RttyUpper},
        {"PKTLSB", rigmode::RttyLower},
        {"LSB-D", rigmode::RttyLower},
        {"PSK", rigmode::RttyUpper},
        {"PSKR", rigmode::RttyLower},
        {"FAX", rigmode::RttyUpper},
        {"AM", rigmode::Am},
        {"AMN", rigmode::Am},
        {"AMS", rigmode::Am},
        {"SAM", rigmode::Am},
        {"SAL", rigmode::Am},
        {"SAH", rigmode::Am},
        {"DSB", rigmode::Am},
        {"PKTAM", rigmode::Am},
        {"AM-D", rigmode::Am},
        {"FM", rigmode::Fm},
        {"FMN", rigmode::Fm},
        {"NFM", rigmode::Fm},
        {"WFM", rigmode::Fm},
        {"PKTFM", rigmode::Fm},
        {"FM-D", rigmode::Fm},
        {"PKTFMN", rigmode::Fm},
        {"C4FM", rigmode::Fm},
        {"DSTAR", rigmode::Fm},
        {"D-STAR", rigmode::Fm},
        {"P25", rigmode::Fm},
        {"DPMR", rigmode::Fm},
        {"NXDNVN", rigmode::Fm},
        {"NXDN-VN", rigmode::Fm},
        {"NXDN_N", rigmode::Fm},
        {"NXDN-N", rigmode::Fm},
        {"DCR", rigmode::Fm},
        {"DD", rigmode::Fm},
        {"ISBUSB", rigmode::Usb},
        {"ISBLSB", rigmode::Lsb},
        {"CW-R", rigmode::CwLower},
        {"RTTY-R", rigmode::RttyUpper},
    };
    // SPEC and IQ are no modes of a signal.
    return modes.value(mode.toUpper(), rigmode::Unknown);
}

QVector<Model> ReadModels(const QByteArray& list) {
    QVector<Model> models;
    qsizetype maker = -1;
    qsizetype version = -1;
    for (const QByteArray& line : list.split('\n')) {
        if (maker < 0) {
            // Columns stand under their headings; names hold blanks.
            maker = line.indexOf("Mfg");
            version = line.indexOf("Version");
            continue;
        }
        bool isNumber = false;
        const int number = line.first(qMin(maker, line.size())).trimmed().toInt(&isNumber);
        const QString name = QString::fromUtf8(line.mid(maker, version - maker)).simplified();
        if (isNumber && !name.isEmpty()) models.push_back({number, name});
    }
    return models;
}

} // namespace platform::rigctld
