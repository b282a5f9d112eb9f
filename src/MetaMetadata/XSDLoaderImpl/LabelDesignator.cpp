// The length that every label and key text must have.

#include "LabelDesignator.h"

#include "SourceNames.h"

#include <Exceptions/Exceptions.h>

namespace MXF::Tessel::MetaMetadata::Loading {

namespace {

constexpr std::size_t designatorLength = 16 * 2 + 15;  // 16 bytes of two digits, 15 dots between them

}  // namespace

void checkULDesignator(const Templates::WideString& text) {
  if (text.size() != designatorLength) {
    throw Exceptions::InvalidULDesignator(text.c_str(), SourceNames::utils, __LINE__);
  }
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
