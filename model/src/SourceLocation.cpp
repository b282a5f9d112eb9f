#include <Utils/SourceLocation.h>
#include <Utils/TextConversion.h>

namespace MXF::Tessel::Utils {

Templates::WideString SourceLocation::toString() const {
  if (!isKnown()) return {};
  return *path_ + L":" + toDecimal(line_) + L":" + toDecimal(column_);
}

}  // namespace MXF::Tessel::Utils
