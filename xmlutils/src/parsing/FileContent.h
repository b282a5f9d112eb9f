#pragma once

#include <Templates/Containers.h>

#include <xercesc/util/XercesDefs.hpp>

#include <optional>

namespace MXF::Tessel::XMLUtils {

using FileContent = Templates::vector<XMLByte>;

/// The whole file, or nothing when it cannot be opened or is no regular file: a schema names the files that it imports,
/// and a pipe or a device may never answer, or never end.
/// @throws Exceptions::IOError  it cannot be read ("PATH: " and the system's reason), or exceeds Limits::fileSize
///         ("PATH: Limit exceeded: ...").
std::optional<FileContent> readFile(const wchar_t* path);

}  // namespace MXF::Tessel::XMLUtils
