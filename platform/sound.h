#pragma once

#include <QString>

#include <functional>

namespace platform {

/// Plays a wave file without waiting; one that still plays is cut off. A file that is missing, or a machine
/// without a sound card, plays nothing.
/// @throws Failure if the file is there and is no wave file
void PlaySound(const QString& path);

/// What stands in for the loudspeaker in tests; an unset function plays.
struct SoundSeam {
    std::function<void(const QString& path)> play;
};
SoundSeam& Sounds();

} // namespace platform
