#include "report/TemplateData.h"

#include "text/Unicode.h"

namespace MXF::Tessel::Tool {

TemplateData templateText(std::u32string_view text) {
  return {encode(text)};
}

TemplateData textOrNothing(std::u32string_view text) {
  return text.empty() ? TemplateData(false) : templateText(text);
}

TemplateData templateNumber(std::size_t number) {
  return {std::to_string(number)};
}

TemplateData itemsOrNothing(const TemplateList& items) {
  if (items.empty()) return {false};
  TemplateData data;
  data["count"] = templateNumber(items.size());
  data["items"] = TemplateData(items);
  return data;
}

}  // namespace MXF::Tessel::Tool
