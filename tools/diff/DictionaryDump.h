#pragma once

#include "json/JsonText.h"

#include <nlohmann/json.hpp>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// What a JSON dump of a dictionary says (docs/dump-format.md), with everything in it checked. Texts are UTF-8; a lone
/// surrogate is in them as encode() writes it.
namespace MXF::Tessel::Tool {

/// Where the two digits of the version byte start in a label or key.
inline constexpr std::size_t versionDigits = std::size_t{7} * 3;

using DumpedProperties = std::map<std::string, std::string>;

struct DumpedElement {
  std::string label;
  std::string className;
  int dataType;
  std::optional<int> dataSubType;
  std::set<std::string> allowedSets;  ///< Keys.
  DumpedProperties properties;
};

// NOLINTNEXTLINE(bugprone-exception-escape): what moving JSON asserts holds for all values that it can have.
struct DumpedAttribute {
  std::string element;  ///< Its label.
  std::string requiredStatus;
  std::optional<std::string> localTag;
  Json distinguishedValue;  ///< As dumped; null for none.
  DumpedProperties properties;
};

struct DumpedSet {
  std::string key;
  std::vector<DumpedAttribute> attributes;
  DumpedProperties properties;
};

/// What a dump was made with.
struct DumpOptions {
  bool abstractGroups = false;
  bool documentation = false;
  bool lengthDescription = false;
};

struct DictionaryDump {
  std::string path;  ///< Of the dump, its bytes as given.
  std::string targetNamespace;
  std::optional<DumpOptions> options;  ///< None in dumps of versions that did not tell.
  std::size_t failedLoads = 0;
  std::map<std::string, DumpedElement> elements;            ///< By label.
  std::map<std::string, DumpedSet> sets;                    ///< By key.
  std::set<std::pair<std::string, std::string>> localTags;  ///< Tag and label.
  std::set<std::string> unknownMembers;  ///< Members of objects that are not compared, since nothing is known of them.
};

/// The property, or null.
const std::string* findProperty(const DumpedProperties& properties, const char* key);

/// The registry name of an element or set of the dump, or the empty text when there is none of that label or key.
std::string elementName(const DictionaryDump& dump, const std::string& label);
std::string setName(const DictionaryDump& dump, const std::string& key);

}  // namespace MXF::Tessel::Tool
