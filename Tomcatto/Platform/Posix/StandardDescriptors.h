#pragma once

namespace tomcatto {

/// Puts the null device in the place of each of standard input, output and error that the process was started without.
/// Otherwise the first files opened would take their numbers, and what is printed would be written into those. Reading
/// then ends at once, and writing fails as it does on a closed descriptor. Called before anything else in `main`.
void openMissingStandardDescriptors();

/// Lets a write fail, and the writer tell why, where a pipe has no reader left or a file may not grow further, instead
/// of ending the process. Called where the above is.
void letWritesFail();

}
