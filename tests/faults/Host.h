#pragma once

#include "Schemas.h"
#include "loader/support/DictionaryDump.h"
#include "loader/support/TemporaryFolder.h"

#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>

#include <memory>
#include <string>

namespace MXF::Tessel::Test {

/// What a host does one after the other.
enum class Step { Construction, Multiplex, Dictionary, Scheme };
constexpr Step allSteps[] = {Step::Construction, Step::Multiplex, Step::Dictionary, Step::Scheme};
constexpr const char* stepNames[] = {"construction", "loadMultiplex", "loadDictionary", "loadScheme"};

/// A loader, and the dictionary that it fills from the schemas.
class Host {
 public:
  explicit Host(const Schemas& schemas)
      : paths_{{}, wide(schemas.multiplex), wide(schemas.dictionary), wide(schemas.scheme)} {}

  void take(Step step) {
    const Templates::WideString& path = paths_[static_cast<int>(step)];
    switch (step) {
      case Step::Construction:
        loader_ = std::make_unique<MetaMetadata::Loading::XSDDictionaryLoader2>();
        loader_->loadMetaElementDocumentation(true);
        return loader_->loadMetaElementLengthDescription(true);
      case Step::Multiplex:
        return loader_->loadMultiplex(path);
      case Step::Dictionary:
        return loader_->loadDictionary(path, *dictionary_);
      case Step::Scheme:
        return loader_->loadScheme(path, *dictionary_);
    }
  }
  void takeAllBefore(Step end) {
    for (const Step step : allSteps) {
      if (step < end) take(step);
    }
  }
  void takeAllFrom(Step first) {
    for (const Step step : allSteps) {
      if (step >= first) take(step);
    }
  }

  void startAnotherDictionary() { dictionary_ = std::make_unique<MetaMetadata::Dictionary>(); }
  std::string text() const { return dump(*dictionary_); }

 private:
  Templates::WideString paths_[4];
  std::unique_ptr<MetaMetadata::Dictionary> dictionary_ = std::make_unique<MetaMetadata::Dictionary>();
  std::unique_ptr<MetaMetadata::Loading::XSDDictionaryLoader2> loader_;
};

}  // namespace MXF::Tessel::Test
