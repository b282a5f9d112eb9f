// The inheritance tree of dictionaries that need not come from schemas: bases that are missing, or go in circles.

#include "text/IdentifierForm.h"
#include "text/SetText.h"
#include "text/SetTree.h"
#include "text/TextLayout.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace MXF::Tessel::Tool {
namespace {

using MetaMetadata::MetaAttribute;
using MetaMetadata::MetaMetadataSet;

KLV::Key keyOf(int number) {
  KLV::Key::Bytes bytes{};
  bytes[14] = static_cast<unsigned char>(number / 256);
  bytes[15] = static_cast<unsigned char>(number % 256);
  return KLV::Key(bytes);
}

/// A dictionary of sets whose key and base are numbers, and whose attributes are the elements of these numbers.
class Sets {
 public:
  Sets& add(int key, int base, std::initializer_list<int> attributes = {}) {
    MetaMetadataSet set(keyOf(key));
    set.addProperty(MetaMetadata::PropertyKeys::baseGroupLabel,
                    base == 0 ? L"" : keyOf(base).toString(textForm).c_str());
    for (const int number : attributes) {
      set.addMetaAttribute(MetaMetadataSet::Attribute(std::make_unique<MetaAttribute>(
          element(number), MetaMetadata::AttributeRequiredStatus::Status::Required, nullptr, nullptr)));
    }
    dictionary.addMetaMetadataSet(set.key(), set);
    return *this;
  }

  /// The tree as "key@depth", with "-inherited attributes" where there are any.
  std::string tree() const {
    std::string text;
    for (const SetTreeEntry& entry : setTree(dictionary)) {
      text +=
          (text.empty() ? "" : " ") + std::to_string(entry.set->key().bytes()[15]) + '@' + std::to_string(entry.depth);
      if (entry.inheritedAttributes > 0) text += '-' + std::to_string(entry.inheritedAttributes);
    }
    return text;
  }

  MetaMetadata::Dictionary dictionary;

 private:
  const MetaMetadata::MetaElement& element(int number) {
    const Types::UniversalLabel label(keyOf(number));
    if (dictionary.findMetaElement(label) == nullptr) {
      dictionary.addMetaElement(
          label, std::make_unique<MetaMetadata::MetaSimpleElement>(label, Types::Identifiers::Identifier::UInt8));
    }
    return *dictionary.findMetaElement(label);
  }
};

TEST(SetTree, SetsFollowTheirBase) {
  EXPECT_EQ(Sets().tree(), "");
  EXPECT_EQ(Sets().add(1, 4).add(2, 0).add(3, 4).add(4, 2).add(5, 0).tree(), "2@0 4@1 1@2 3@2 5@0");
  EXPECT_EQ(Sets().add(1, 9).tree(), "1@0") << "a base that is not loaded";
  EXPECT_EQ(Sets().add(1, 1).tree(), "1@0") << "a set that is its own base";
  EXPECT_EQ(Sets().add(1, 3).add(2, 1).add(3, 2).add(4, 3).add(5, 0).tree(), "5@0 1@0 2@1 3@2 4@3") << "a circle";
}

TEST(SetTree, InheritedAttributesAreTheOnesThatStartWithAllOfTheBase) {
  EXPECT_EQ(Sets().add(1, 0, {7, 8}).add(2, 1, {7, 8, 9}).tree(), "1@0 2@1-2");
  EXPECT_EQ(Sets().add(1, 0, {7, 8}).add(2, 1, {7, 8}).tree(), "1@0 2@1-2");
  EXPECT_EQ(Sets().add(1, 0, {7, 7}).add(2, 1, {7, 7, 7}).tree(), "1@0 2@1-2") << "one element many times";
  EXPECT_EQ(Sets().add(1, 0, {7, 8}).add(2, 1, {8, 7, 9}).tree(), "1@0 2@1");
  EXPECT_EQ(Sets().add(1, 0, {7, 8}).add(2, 1, {7}).tree(), "1@0 2@1");
}

TEST(SetTree, DepthIsNotLimitedAndThePageStaysInForm) {
  Sets sets;
  constexpr int depth = 20000;
  for (int i = 1; i <= depth; ++i) sets.add(i, i - 1);
  EXPECT_EQ(setTree(sets.dictionary).back().depth, std::size_t{depth - 1});
  std::string page;
  appendSets(page, sets.dictionary);
  page = withoutStyles(page);
  std::size_t longest = 0;
  for (std::size_t start = 0; start < page.size(); start = page.find('\n', start) + 1) {
    longest = std::max(longest, page.find('\n', start) - start);
  }
  EXPECT_EQ(longest, 100U);
}

}  // namespace
}  // namespace MXF::Tessel::Tool
