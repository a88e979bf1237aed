#pragma once

#include <QString>

#include <vector>

/// The files that the memories of locators and names are updated from.
namespace shared {

/// A call and what is known of it.
struct Minnespost {
    QString signal;
    QString värde; ///< locator or name; may be empty
    friend bool operator==(const Minnespost&, const Minnespost&) = default;
};

/// The longest call or value that the memories hold, in characters.
inline constexpr qsizetype maxMinnestext = 255;

/// The entries of an update file.
///
/// The text is read item by item as `Input #` does. An item with an equals sign is an entry, the first one
/// parts call and value; any other item (a section head, a note) is skipped. Letter case is kept.
///
/// @return the entries in the order of the file, the same call as often as it stands there
/// @throws platform::Failure for a call or value longer than maxMinnestext
std::vector<Minnespost> LäsMinnesposter(const QString& text);

} // namespace shared
