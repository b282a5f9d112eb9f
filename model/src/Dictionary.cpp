// The dictionary: what is registered, once each, and in which order it is given back.

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/Dictionary.h>

namespace MXF::Tessel::MetaMetadata {

namespace {

constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;

}  // namespace

MetaMetadataSetRegistry::~MetaMetadataSetRegistry() = default;
MetaElementRegistry::~MetaElementRegistry() = default;

Dictionary::Dictionary() = default;

Dictionary::~Dictionary() {
  sets_.clear();
  for (const auto& entry : elements_) Templates::auto_ptr<MetaElement>(entry.second).reset();
}

void Dictionary::addMetaElement(const Types::UniversalLabel& label, Templates::auto_ptr<MetaElement> element) {
  if (!element) throw Exceptions::InvalidValue(L"A dictionary cannot hold an empty element.", "Dictionary", __LINE__);
  const auto [entry, isNew] = elements_.emplace(label, element.get());
  if (!isNew) {
    throw Exceptions::MetaElementAlreadyLoaded(label.toString(textForm).c_str(), "Dictionary", __LINE__);
  }
  static_cast<void>(element.release());  // the map's entry is the owner now
}

const MetaElement* Dictionary::findMetaElement(const Types::UniversalLabel& label) const {
  const auto entry = elements_.find(label);
  return entry == elements_.end() ? nullptr : entry->second;
}

void Dictionary::addMetaMetadataSet(const KLV::Key& key, const MetaMetadataSet& set) {
  const auto [entry, isNew] = sets_.emplace(key, set);
  if (!isNew) {
    throw Exceptions::MetaMetadataSetAlreadyLoaded(key.toString(textForm).c_str(), "Dictionary", __LINE__);
  }
}

const MetaMetadataSet* Dictionary::findMetaMetadataSet(const KLV::Key& key) const {
  const auto entry = sets_.find(key);
  return entry == sets_.end() ? nullptr : &entry->second;
}

void Dictionary::addLocalTag(const Types::LocalTag& tag, const Types::UniversalLabel& label) {
  localTags_.emplace(tag, label);
}

Templates::vector<Types::LocalTag> Dictionary::localTagsOf(const Types::UniversalLabel& label) const {
  Templates::vector<Types::LocalTag> tags;
  for (const auto& [tag, tagged] : localTags_) {
    if (tagged == label) tags.push_back(tag);
  }
  return tags;
}

}  // namespace MXF::Tessel::MetaMetadata
