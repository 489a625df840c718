#pragma once

/// What a process sees to first, for the sake of the files that it writes.
namespace quor {

/// A file that would outgrow the limit of the user's session fails to be written, like one on a
/// full disk; the system would end the program instead.
void failAtFileSizeLimit();

/// A standard stream that is closed is opened so that using it fails. Otherwise the next file would
/// get its number, and what is printed would go into that file.
void occupyStandardStreams();

} // namespace quor
