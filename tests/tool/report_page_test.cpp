// Texts that no schema file can hold, but a dictionary can: none may get out of the place that it is written to.
#include "report/ReportPage.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace MXF::Tessel::Tool {
namespace {

namespace PropertyKeys = MetaMetadata::PropertyKeys;

constexpr const wchar_t* hostile = L"{{title}}</script>\x01\"'\x9F\xD83D&<!--";
constexpr const char* harmless = "{{title}}&lt;/script&gt; &quot;&apos; \xEF\xBF\xBD&amp;&lt;!--";

template <class Map>
void setTexts(Map& map, std::initializer_list<const wchar_t*> keys) {
  for (const wchar_t* key : keys) map.addProperty(key, hostile);
}

std::size_t count(const std::string& page, const std::string& text) {
  std::size_t found = 0;
  for (std::size_t at = page.find(text); at != std::string::npos; at = page.find(text, at + 1)) ++found;
  return found;
}

TEST(ReportPage, HostileTextsStayTexts) {
  LoadOutcome outcome;
  const KLV::Key key{KLV::Key::Bytes{}};
  const Types::UniversalLabel label(key);
  auto element = std::make_unique<MetaMetadata::MetaSimpleElement>(label, Types::Identifiers::Identifier::UInt8);
  setTexts(*element, {PropertyKeys::name, PropertyKeys::documentation, PropertyKeys::xmlTagName,
                      PropertyKeys::xmlChildTagName, PropertyKeys::xmlNamespaceURI, PropertyKeys::lengthDescription});
  const Templates::WideString pending = Templates::WideString(L"[") + hostile + L"," + hostile + L"];";
  element->addProperty(PropertyKeys::unresolvedSetReferences, pending.c_str());
  outcome.dictionary.addMetaElement(label, std::move(element));
  MetaMetadata::MetaMetadataSet set(key);
  setTexts(set, {PropertyKeys::name, PropertyKeys::documentation, PropertyKeys::xmlTagName,
                 PropertyKeys::xmlNamespaceURI, PropertyKeys::baseGroupLabel});
  outcome.dictionary.addMetaMetadataSet(key, set);
  outcome.loads.emplace_back();
  outcome.loads.back().file = {FileKind::Scheme, "</script>"};
  outcome.loads.back().failure = Failure{"Oops", std::nullopt, hostile, {}};

  const std::string page = reportPage(outcome, hostile);
  EXPECT_EQ(count(page, "</script>"), 2U);
  EXPECT_EQ(count(page, "<!--"), 0U);
  EXPECT_EQ(page.find_first_of("\x01\x9F\xED"), std::string::npos);
  // The title 3 times; of the element 7 texts, its XML names once more for the search; of the set 5, its name in the
  // tree and its XML name for the search once more; the failure.
  EXPECT_EQ(count(page, harmless), 3U + 9U + 7U + 1U);
}

}  // namespace
}  // namespace MXF::Tessel::Tool
