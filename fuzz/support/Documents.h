#pragma once

#include <Templates/Containers.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Inputs as texts, and as files of the process's own, in a folder that goes with it. The folder is in TMPDIR: in memory
/// when fuzz/run makes it.
namespace MXF::Tessel::Fuzz {

/// The input as bytes of text.
std::string_view inputText(const std::uint8_t* data, std::size_t size);
/// UTF-8 to code units as Utils::stringToWstring() has it, null characters included.
Templates::WideString wideInput(std::string_view text);

/// The documents of an input, which lines of five equals signs separate. The first may be empty, and is always there.
std::vector<std::string_view> splitDocuments(std::string_view input);

/// Path of a file of that name in the folder.
Templates::WideString documentPath(const std::string& file);
/// Writes the file. @return its path.
Templates::WideString writeDocument(const std::string& file, std::string_view content);
/// The file is not there afterwards.
void removeDocument(const std::string& file);

}  // namespace MXF::Tessel::Fuzz
