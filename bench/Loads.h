#pragma once

#include "MetaMetadata/DictionaryLoader/SchemaFlavour.h"

#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>

#include <string>
#include <vector>

/// The measured work.
namespace MXF::Tessel::Bench {

using MetaMetadata::Loading::SchemaFlavour;

using Files = std::vector<std::string>;

/// Schema files that one loader reads, in the order of its loads.
struct SchemaSet {
  std::string name;
  SchemaFlavour flavour;
  Files dictionaries;
  Files schemes;
};

/// The sets that the project ships, and the set in a folder: "dictionary/*.xsd", and "groups/*.xsd" as schemes.
std::vector<SchemaSet> shippedSets();
SchemaSet setInFolder(const std::string& folder);

/// Whether the file has annotations of the flavour.
bool isAnnotated(const std::string& file, SchemaFlavour flavour);

/// Processor seconds that stock Xerces-C takes to parse the files, one parser for all; without its initialisation.
double parseAlone(const Files& files);

/// A loader of a flavour, and what it has loaded.
class Load {
 public:
  explicit Load(SchemaFlavour flavour);

  /// Processor seconds of the loads. What does not load adds to failures().
  double dictionaries(const Files& files);
  double schemes(const Files& files);
  /// Names and messages of the files that did not load.
  [[nodiscard]] const std::vector<std::string>& failures() const { return failures_; }

 private:
  template <class LoadFile>
  double timed(const Files& files, LoadFile loadFile);

  MetaMetadata::Loading::XSDDictionaryLoader2 loader_;
  MetaMetadata::Dictionary dictionary_;
  std::vector<std::string> failures_;
};

/// The files that loading the set reads, imports included, each as often as it is read.
Files filesRead(const SchemaSet& set);

enum class Engine { Own, Stock };

/// Processor seconds of the dictionary pass over a file that is parsed beforehand, by the library's DOM implementation
/// or by XQilla's own.
double dictionaryPass(SchemaFlavour flavour, const std::string& file, Engine engine);

}  // namespace MXF::Tessel::Bench
