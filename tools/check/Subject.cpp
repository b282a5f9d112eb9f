#include "check/Subject.h"

#include "text/ElementText.h"
#include "text/Unicode.h"

#include <Types/LocalTag.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <set>
#include <tuple>

namespace MXF::Tessel::Tool {

namespace {

template <class List>
List sorted(List list, const Subject& subject) {
  std::stable_sort(list.begin(), list.end(), [&](const auto* a, const auto* b) {
    return subject.comesBefore(placeAt(a->origin()), placeAt(b->origin()));
  });
  return list;
}

}  // namespace

Subject::Subject(const LoadOutcome& outcome, const DictionaryIndex& index) : outcome_(outcome), index_(index) {
  const Annotations& annotations = annotationsOf(outcome.targetNamespace);
  for (const LoadRecord& load : outcome.loads) {
    const Templates::WideString path = shownPath(Utils::stringToWstring(load.file.path.c_str()));
    const bool isNew = ranks_.emplace(path, ranks_.size()).second;
    if (isNew && load.file.kind != FileKind::Multiplex) scans_.emplace(path, scanDeclarations(path, annotations));
  }
  elements_ = sorted(index.elements(), *this);
  sets_ = sorted(index.sets(), *this);
  collectOwnAttributes();
}

void Subject::collectOwnAttributes() {
  std::set<std::tuple<Templates::WideString, std::uint32_t, std::uint32_t>> seen;
  for (const DictionaryIndex::Set* set : sets_) {
    const auto& attributes = set->metaAttributes();
    for (std::size_t i = index_.inheritedAttributes(*set); i < attributes.size(); ++i) {
      const Place place = placeAt(attributes[i]->origin());
      if (seen.emplace(place.path, place.line, place.column).second) ownAttributes_.push_back({set, &*attributes[i]});
    }
  }
}

bool Subject::isIncomplete() const {
  const auto& loads = outcome_.loads;
  return std::any_of(loads.begin(), loads.end(), [](const LoadRecord& load) { return load.failure.has_value(); });
}

bool Subject::comesBefore(const Place& a, const Place& b) const {
  const auto keyOf = [&](const Place& place) {
    const auto rank = ranks_.find(place.path);
    return std::make_tuple(rank == ranks_.end() ? ranks_.size() : rank->second, std::cref(place.path), place.line,
                           place.column);
  };
  return keyOf(a) < keyOf(b);
}

std::string quotedName(const MetaMetadata::PropertyMap& map) {
  return '"' + encode(nameText(map)) + '"';
}

template <class Identifier>
std::string identifierText(const Identifier& identifier) {
  return encode(printable(identifier.toString(Types::StringRepresentationEncodingType::DottedHex)));
}

template std::string identifierText(const Types::UniversalLabel& label);
template std::string identifierText(const KLV::Key& key);
template std::string identifierText(const Types::LocalTag& tag);

}  // namespace MXF::Tessel::Tool
