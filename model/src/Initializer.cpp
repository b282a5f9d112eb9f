// Makes the process-wide tables.

#include <Initializer.h>
#include <MetaMetadata/AttributeRequiredStatus.h>
#include <Types/Factories/BaseTypeFactory.h>

namespace MXF::Tessel {

Initializer& Initializer::instance() {
  static Initializer initializer;
  return initializer;
}

Initializer::Initializer() {
  Types::Factories::BaseTypeFactory::instance();
  MetaMetadata::AttributeRequiredStatus::instance();
}

}  // namespace MXF::Tessel
