#pragma once

/// Plays the sound file chosen in the spot presets. One that is no sound file gives a message, a missing one
/// nothing.
void SpelaLjud();

/// Starts the system's volume control. A machine without one gives a message.
void StartaVolymkontroll();
