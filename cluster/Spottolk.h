#pragma once

#include <QString>

/// Spots out of the running text of a DX cluster.
namespace cluster {

/// What an announcement says, "DX de XX9AA:   14025.5  XX9BB   big signal      1234Z".
struct Annons {
    QString spotter;
    QString frekvens; ///< as FormaFrekvens gives it
    QString signal;
    QString notering; ///< all that follows the call, up to the line end
};

/// The text of one read, and how much of it has been worked off.
///
/// An announcement is read in two steps, because one that is a repeat is left behind with its comment still
/// unread: what the comment holds is then looked through for a further announcement. Only blanks count as
/// blanks, not tabs or line ends.
class Arbetstext {
public:
    explicit Arbetstext(QString text)
        : text_(std::move(text))
        , kvar_(text_) {}
    Arbetstext(const Arbetstext&) = delete;
    Arbetstext& operator=(const Arbetstext&) = delete;

    /// Spotter, frequency and call of the next announcement; what is missing stays empty.
    ///
    /// "dx de" is found anywhere, in any letter case. The spotter ends at the next colon, wherever that is;
    /// with no colon left there is no spotter, and frequency and call are the first two words of all that is
    /// left. Words end at a blank: a frequency or call that the text ends in is none.
    /// @return false if there is no announcement left
    bool LäsHuvud(Annons& annons);

    /// The comment of the announcement whose head was read last.
    /// @return false if no line end follows; there is no comment then, and the text is left to be looked
    /// through
    bool LäsNotering(Annons& annons);

    /// What has not been worked off yet.
    QStringView Kvar() const { return kvar_; }

private:
    QString text_;
    QStringView kvar_;
    qsizetype efterSignal_ = 0; ///< place behind the blank that ended the call, 0 for none
};

/// A frequency in kHz with one decimal as MHz, kHz and hundredths of kHz: "14025.5" gives "14,025,50". What
/// does not have five to seven digits without its points stays as digits; without a decimal it is read ten
/// times too low.
QString FormaFrekvens(const QString& kHz);

/// A comment and the time at its end.
struct Notering {
    QString text;
    QString tid; ///< the last seven characters
    bool operator==(const Notering&) const = default;
};

/// Cuts the time off a comment of seven characters or more; a shorter one stays whole and has no time.
Notering DelaNotering(const QString& notering);

/// Filter for the spots of a call on a frequency in the same minute of the same day.
/// @param tid "HH:mm:ss"
QString UpprepningsFilter(const QString& signal, const QString& datum, const QString& frekvens,
                          const QString& tid);

/// Text from the network as a window can show it: without bells, NULs and other control characters, without
/// the commands of the telnet protocol, and with a line feed alone at each line end.
QString VisbarText(const QString& text);

} // namespace cluster
