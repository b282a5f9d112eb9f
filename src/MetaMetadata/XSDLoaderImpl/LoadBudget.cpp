#include "LoadBudget.h"

#include "SourceNames.h"

#include <Exceptions/Exceptions.h>

namespace MXF::Tessel::MetaMetadata::Loading {

void LoadBudget::take(std::size_t& used, std::size_t amount, const Utils::Limit& limit) {
  used += amount;
  if (used <= limit.count) return;
  throw Exceptions::InvalidValue(messageOf(limit).c_str(), SourceNames::loaderImpl, __LINE__);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
