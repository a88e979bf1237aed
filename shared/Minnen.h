#pragma once

/// The memories of locators and of names: updating them from a file, and emptying them.

/// Ask for an update file and add its calls; a call that is known keeps what is known of it. A failure shows
/// the procedure's message; what was added before it stays.
void UppdateraLokator();
void UppdateraFriend();

/// Empty a memory that holds anything. A failure shows the procedure's message; the memory is then whole, as
/// it was or empty.
void TömLokator();
void TömFriend();
