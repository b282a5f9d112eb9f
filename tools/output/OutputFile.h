#pragma once

#include <string>
#include <string_view>

namespace MXF::Tessel::Tool {

/// Makes the text the content of a file. At every moment the file's name stands for the whole old content or the whole
/// new one: the text is written to a new file beside it, which then takes its name. A file that is replaced keeps its
/// permissions and, where that is allowed, its owner; through a symbolic link, the file that it points at is replaced.
/// What is no regular file, such as a device or a pipe, is written to directly.
///
/// @param path  bytes as given, whatever their encoding.
/// @throws std::system_error  the file could not be written. It is as it was, and nothing new lies beside it.
void replaceFile(const std::string& path, std::string_view text);

}  // namespace MXF::Tessel::Tool
