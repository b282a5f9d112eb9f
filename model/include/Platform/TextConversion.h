#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>

namespace MXF::Tessel::Platform {

/// The same conversion as Utils::stringToWstring.
TESSELMXF_MODEL_API Templates::WideString stringToWstring(const char* text);

}  // namespace MXF::Tessel::Platform
