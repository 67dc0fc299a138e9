#pragma once

#include <chrono>
#include <string_view>

namespace mireval {

/// Opens /dev/null, for reading, as each of the descriptors 0 to 2 that is closed. A file that is opened
/// later would get its number, and everything that is written there. To be called before anything is opened.
void openMissingStandardDescriptors();

/// Writes the text to standard output or standard error. What a full pipe or socket, or a stopped terminal,
/// does not take within `patience` is lost. Returns whether all was taken.
/// The descriptor's flags, which it may share with other processes, stay as they are. The process must ignore
/// SIGPIPE.
bool writeWithoutBlocking(int descriptor, std::string_view text, std::chrono::milliseconds patience = {});

}  // namespace mireval
