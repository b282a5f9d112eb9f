#include "loading/ShippedSchemas.h"

#include <filesystem>
#include <system_error>

namespace MXF::Tessel::Tool {

std::string shippedMultiplex() {
  constexpr const char* multiplex = "registry/multiplex.xsd";
  std::error_code failed;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
  // From the program's place, as what is installed may have been moved as a whole.
  const std::filesystem::path file =
      (program.parent_path() / TESSELMXF_SCHEMAS_FROM_TOOL / multiplex).lexically_normal();
  if (!failed && std::filesystem::is_regular_file(file, failed)) return file.string();
  return std::string("schemas/") + multiplex + " of this program";
}

}  // namespace MXF::Tessel::Tool
