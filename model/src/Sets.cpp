// Sets, their attributes, and the words for an attribute's required status.

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/AttributeRequiredStatus.h>
#include <MetaMetadata/MetaAttribute.h>
#include <MetaMetadata/MetaMetadataSet.h>
#include <Utils/TextConversion.h>

#include <iterator>
#include <string_view>
#include <utility>

namespace MXF::Tessel::MetaMetadata {

namespace {

// Indexed by Status.
constexpr const wchar_t* statusWords[] = {L"Req", L"Opt", L"D/req", L"E/req", L"B.Effort"};

class StatusWords final : public AttributeRequiredStatus {};

}  // namespace

AttributeRequiredStatus& AttributeRequiredStatus::instance() {
  static StatusWords words;
  return words;
}

AttributeRequiredStatus::Status AttributeRequiredStatus::fromString(const wchar_t* text) const {
  for (std::size_t i = 0; i < std::size(statusWords); ++i) {
    if (std::wstring_view(text) == statusWords[i]) return static_cast<Status>(i);
  }
  const Templates::WideString message = Templates::WideString(L"Unknown required status: ") + text;
  throw Exceptions::InvalidValue(message.c_str(), "Sets", __LINE__);
}

const wchar_t* AttributeRequiredStatus::toString(const Status& status) const {
  const auto number = static_cast<int>(status);
  if (number < 0 || number >= static_cast<int>(std::size(statusWords))) {
    const Templates::WideString message = L"Unknown required status: " + Utils::toDecimal(number);
    throw Exceptions::InvalidValue(message.c_str(), "Sets", __LINE__);
  }
  return statusWords[number];
}

AbstractMetaAttributeVisitor::~AbstractMetaAttributeVisitor() = default;
AbstractMetaAttribute::~AbstractMetaAttribute() = default;

MetaAttribute::MetaAttribute(const MetaElement& element, AttributeRequiredStatus::Status status,
                             Templates::auto_ptr<const Types::BaseType> distinguishedValue,
                             const Types::LocalTag* localTag)
    : element_(element), status_(status), distinguishedValue_(std::move(distinguishedValue)) {
  if (localTag != nullptr) localTag_ = *localTag;
}
MetaAttribute::~MetaAttribute() = default;
void MetaAttribute::accept(AbstractMetaAttributeVisitor& visitor) const {
  visitor.visit(*this);
}

MetaMetadataSet::~MetaMetadataSet() = default;
void MetaMetadataSet::addMetaAttribute(Attribute attribute) {
  if (!attribute) throw Exceptions::InvalidValue(L"A set cannot hold an empty attribute.", "Sets", __LINE__);
  attributes_.push_back(std::move(attribute));
}

}  // namespace MXF::Tessel::MetaMetadata
