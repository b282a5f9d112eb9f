// The parts of a dump, each checked where it is read. Entry point: dumpOf(); all else is local.

#include "diff/DumpReading.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::string_view urnNamespace = "urn:SMPTE:S377M";
constexpr std::string_view registryNamespace = "http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004";
constexpr std::string_view requiredStatuses[] = {"Req", "Opt", "D/req", "E/req", "B.Effort"};
constexpr std::string_view elementClasses[] = {"MetaSimpleElement", "MetaCollection", "MetaReferenceElement",
                                               "MetaReferenceCollection"};
constexpr int lastDataType = 34;
constexpr std::size_t labelBytes = 16;
constexpr std::size_t tagBytes = 2;

template <class Words>
bool isOneOf(const std::string& text, const Words& words) {
  return std::find(std::begin(words), std::end(words), text) != std::end(words);
}

/// Whether a text is that many bytes in dotted upper-case hexadecimal form.
bool isDottedHex(std::string_view text, std::size_t bytes) {
  if (text.size() != bytes * 3 - 1) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view allowed = i % 3 == 2 ? "." : "0123456789ABCDEF";
    if (allowed.find(text[i]) == std::string_view::npos) return false;
  }
  return true;
}

std::string upperCase(std::string text) {
  for (char& character : text) {
    if (character >= 'a' && character <= 'z') character -= 'a' - 'A';
  }
  return text;
}

/// A value in the document, with the JSON pointer (RFC 6901) to it.
class Node {
 public:
  Node(const Json& json, std::string pointer, std::set<std::string>& unknownMembers)
      : json_(json), pointer_(std::move(pointer)), unknownMembers_(unknownMembers) {}

  [[noreturn]] void fail(const std::string& expected) const {
    throw std::invalid_argument((pointer_.empty() ? "it" : pointer_) + " is not " + expected);
  }

  [[nodiscard]] const Json& json() const { return json_; }
  [[nodiscard]] bool isNull() const { return json_.is_null(); }

  /// Checks that it is an object with these members. Further ones are noted, since nobody compares them.
  /// @param optional  may be there.
  void expectMembers(std::initializer_list<const char*> names, const char* optional = "") const {
    if (!json_.is_object()) fail("an object");
    for (const char* name : names) {
      if (!json_.contains(name)) {
        throw std::invalid_argument((pointer_.empty() ? "it" : pointer_) + " has no member \"" + name + '"');
      }
    }
    if (json_.size() == names.size()) return;
    for (const auto& member : json_.items()) {
      if (!isOneOf(member.key(), names) && member.key() != optional) unknownMembers_.insert(member.key());
    }
  }

  [[nodiscard]] Node member(const char* name) const { return {json_.at(name), pointer_ + '/' + name, unknownMembers_}; }

  template <class Action>
  void forEachItem(const Action& action) const {
    if (!json_.is_array()) fail("an array");
    std::size_t index = 0;
    for (const Json& item : json_) action(Node(item, pointer_ + '/' + std::to_string(index++), unknownMembers_));
  }

  [[nodiscard]] const std::string& text() const {
    if (!json_.is_string()) fail("a text");
    return json_.get_ref<const std::string&>();
  }

  [[nodiscard]] const std::string& identifier(std::size_t bytes) const {
    if (isDottedHex(text(), bytes)) return text();
    if (isDottedHex(upperCase(text()), bytes)) fail("in upper-case hexadecimal digits");
    fail(std::to_string(bytes) + " bytes such as 06.0E");
  }

  template <class Words>
  [[nodiscard]] const std::string& word(const Words& words, const char* what) const {
    if (!isOneOf(text(), words)) fail(what);
    return text();
  }

  [[nodiscard]] bool truth() const {
    if (!json_.is_boolean()) fail("true or false");
    return json_.get<bool>();
  }

  [[nodiscard]] int dataType() const {
    const bool isInRange = json_.is_number_unsigned() && json_.get<std::uint64_t>() <= lastDataType;
    if (!isInRange) fail("the number of a data type, 0 to 34");
    return json_.get<int>();
  }

 private:
  const Json& json_;
  std::string pointer_;
  std::set<std::string>& unknownMembers_;
};

DumpedProperties propertiesOf(const Node& node) {
  if (!node.json().is_object()) node.fail("an object");
  DumpedProperties properties;
  for (const auto& member : node.json().items()) {
    properties[member.key()] = node.member(member.key().c_str()).text();
  }
  return properties;
}

DumpedElement elementOf(const Node& node) {
  node.expectMembers({"label", "class", "dataType", "dataSubType", "allowedSets", "properties"});
  DumpedElement element;
  element.label = node.member("label").identifier(labelBytes);
  element.className = node.member("class").word(elementClasses, "the class of an element");
  element.dataType = node.member("dataType").dataType();
  if (const Node type = node.member("dataSubType"); !type.isNull()) element.dataSubType = type.dataType();
  if (const Node sets = node.member("allowedSets"); !sets.isNull()) {
    sets.forEachItem([&](const Node& key) { element.allowedSets.insert(key.identifier(labelBytes)); });
  }
  element.properties = propertiesOf(node.member("properties"));
  return element;
}

/// A distinguished value is compared as it is; only its type has to be there.
Json valueOf(const Node& node) {
  if (node.isNull()) return nullptr;
  if (!node.json().is_object() || !node.json().contains("dataType")) node.fail("null or a value with its dataType");
  static_cast<void>(node.member("dataType").dataType());
  return node.json();
}

DumpedAttribute attributeOf(const Node& node) {
  node.expectMembers({"element", "requiredStatus", "localTag", "distinguishedValue", "properties"});
  DumpedAttribute attribute;
  attribute.element = node.member("element").identifier(labelBytes);
  attribute.requiredStatus = node.member("requiredStatus").word(requiredStatuses, "Req, Opt, D/req, E/req or B.Effort");
  if (const Node tag = node.member("localTag"); !tag.isNull()) attribute.localTag = tag.identifier(tagBytes);
  attribute.distinguishedValue = valueOf(node.member("distinguishedValue"));
  attribute.properties = propertiesOf(node.member("properties"));
  return attribute;
}

DumpedSet setOf(const Node& node) {
  node.expectMembers({"key", "attributes", "properties"});
  DumpedSet set;
  set.key = node.member("key").identifier(labelBytes);
  node.member("attributes").forEachItem([&](const Node& item) { set.attributes.push_back(attributeOf(item)); });
  set.properties = propertiesOf(node.member("properties"));
  return set;
}

DumpOptions optionsOf(const Node& node) {
  node.expectMembers({"abstractGroups", "documentation", "lengthDescription"});
  return {node.member("abstractGroups").truth(), node.member("documentation").truth(),
          node.member("lengthDescription").truth()};
}

std::size_t failedLoadsOf(const Node& loads) {
  std::size_t failures = 0;
  loads.forEachItem([&](const Node& load) {
    load.expectMembers({"kind", "path", "error"});
    if (!load.member("error").isNull()) ++failures;
  });
  return failures;
}

}  // namespace

DictionaryDump dumpOf(const Json& document) {
  DictionaryDump dump;
  const Node root(document, "", dump.unknownMembers);
  root.expectMembers({"targetNamespace", "loads", "elements", "sets", "localTags"}, "options");
  const std::string_view namespaces[] = {urnNamespace, registryNamespace};
  dump.targetNamespace = root.member("targetNamespace").word(namespaces, "a multiplex namespace");
  if (document.contains("options")) dump.options = optionsOf(root.member("options"));
  dump.failedLoads = failedLoadsOf(root.member("loads"));
  root.member("elements").forEachItem([&](const Node& node) {
    DumpedElement element = elementOf(node);
    const std::string label = element.label;
    if (!dump.elements.emplace(label, std::move(element)).second) node.fail("the only element of its label");
  });
  root.member("sets").forEachItem([&](const Node& node) {
    DumpedSet set = setOf(node);
    const std::string key = set.key;
    if (!dump.sets.emplace(key, std::move(set)).second) node.fail("the only set of its key");
  });
  root.member("localTags").forEachItem([&](const Node& node) {
    node.expectMembers({"tag", "label"});
    dump.localTags.emplace(node.member("tag").identifier(tagBytes), node.member("label").identifier(labelBytes));
  });
  return dump;
}

const std::string* findProperty(const DumpedProperties& properties, const char* key) {
  const auto found = properties.find(key);
  return found == properties.end() ? nullptr : &found->second;
}

std::string elementName(const DictionaryDump& dump, const std::string& label) {
  const auto found = dump.elements.find(label);
  const std::string* name = found == dump.elements.end() ? nullptr : findProperty(found->second.properties, "name");
  return name == nullptr ? "" : *name;
}

std::string setName(const DictionaryDump& dump, const std::string& key) {
  const auto found = dump.sets.find(key);
  const std::string* name = found == dump.sets.end() ? nullptr : findProperty(found->second.properties, "name");
  return name == nullptr ? "" : *name;
}

}  // namespace MXF::Tessel::Tool
