#pragma once

/// The two programs of the operator's own choice, kept in the settings.

/// Asks for the mail program and stores its path; a cancelled dialog changes nothing.
void VäljEpostprogram();

/// Asks for the text editor and stores its path; a cancelled dialog changes nothing, any other failure shows
/// the message.
void VäljEditor();
