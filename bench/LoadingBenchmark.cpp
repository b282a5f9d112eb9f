// Measures what loading costs beside parsing, and prints tables in Markdown: loading_benchmark [DIRECTORY [REPEATS]].
//
// The directory holds "dictionary/*.xsd" and "groups/*.xsd". The program runs itself again for what is measured of a
// whole process: its arguments are then a job, a flavour (0 or 1) and files.

#include "GeneratedSchemas.h"
#include "Loads.h"
#include "Measurements.h"
#include "ProcessCost.h"
#include "Report.h"

#include <xercesc/util/PlatformUtils.hpp>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdlib.h>

namespace MXF::Tessel::Bench {
namespace {

namespace fs = std::filesystem;

constexpr int dictionarySizes[] = {500, 2000, 5000, 20000, 50000};
constexpr int schemeSizes[] = {100, 500, 2000, 5000, 15000};  // more would exceed the size of a file
constexpr int referredElements = 500;
constexpr int barSize = 20000;
constexpr int memorySchemeSize = 5000;
constexpr SchemaFlavour flavours[] = {SchemaFlavour::Urn, SchemaFlavour::RegistryUri};

const char* nameOf(SchemaFlavour flavour) {
  return flavour == SchemaFlavour::Urn ? "urn" : "registry";
}

/// Measures the sets and sizes, and makes the tables.
class Benchmark {
 public:
  explicit Benchmark(const std::string& directory) : folder_(newFolder()), sets_(shippedSets()) {
    if (!directory.empty()) sets_.push_back(setInFolder(directory));
  }
  Benchmark(const Benchmark&) = delete;
  Benchmark& operator=(const Benchmark&) = delete;
  ~Benchmark() { fs::remove_all(folder_); }

  void run(int repeats) {
    for (const SchemaFlavour flavour : flavours) {
      for (const int size : dictionarySizes) addDictionary(flavour, size);
      for (const int size : schemeSizes) addScheme(flavour, size);
    }
    for (const SchemaSet& set : sets_) addSet(set);
    for (const std::string& file : sets_.back().dictionaries) addEngines(sets_.back().flavour, file);
    measurements_.run(repeats);
    tabulate();
    measureProcesses(repeats);
    std::cout << table(ratios_) << "\n" << table(comparisons_);
    for (const std::string& note : notes_) std::cout << "\n" << note << "\n";
  }

 private:
  static std::string newFolder() {
    std::string name = (fs::temp_directory_path() / "loading-benchmark-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    return name;
  }

  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ + "/" + name, std::ios::binary) << text;
    return folder_ + "/" + name;
  }
  std::string dictionaryFile(SchemaFlavour flavour, int size) const {
    const std::string name = std::string(nameOf(flavour)) + "-dictionary-" + std::to_string(size) + ".xsd";
    if (fs::exists(folder_ + "/" + name)) return folder_ + "/" + name;
    return write(name, dictionarySchema(flavour, size));
  }
  std::string schemeFile(SchemaFlavour flavour, int size) const {
    return write(std::string(nameOf(flavour)) + "-scheme-" + std::to_string(size) + ".xsd",
                 schemeSchema(flavour, size, referredElements));
  }

  static std::string nameOfDictionary(SchemaFlavour flavour, int size) {
    return "dictionary of " + std::to_string(size) + " declarations, " + nameOf(flavour);
  }
  static std::string nameOfScheme(SchemaFlavour flavour, int size) {
    return "scheme of " + std::to_string(size) + " groups, " + nameOf(flavour);
  }

  void add(const std::string& name, const Files& read, const std::function<double()>& load) {
    compared_.push_back(name);
    measurements_.add(name, load, [read] { return parseAlone(read); });
  }

  void addDictionary(SchemaFlavour flavour, int size) {
    const Files file = {dictionaryFile(flavour, size)};
    add(nameOfDictionary(flavour, size), file, [=] { return checked(Load(flavour), file, {}, false); });
  }

  void addScheme(SchemaFlavour flavour, int size) {
    const Files dictionary = {dictionaryFile(flavour, referredElements)};
    const Files file = {schemeFile(flavour, size)};
    add(nameOfScheme(flavour, size), file, [=] { return checked(Load(flavour), dictionary, file, true); });
  }

  void addSet(const SchemaSet& set) {
    Load trial(set.flavour);
    trial.dictionaries(set.dictionaries);
    trial.schemes(set.schemes);
    for (const std::string& failure : trial.failures()) notes_.push_back("Not loaded: " + failure);
    add(set.name, filesRead(set), [&set] {
      Load load(set.flavour);
      const double dictionaries = load.dictionaries(set.dictionaries);
      return dictionaries + load.schemes(set.schemes);
    });
  }

  void addEngines(SchemaFlavour flavour, const std::string& file) {
    if (!isAnnotated(file, flavour)) return;
    measurements_.add(
        file, [=] { return dictionaryPass(flavour, file, Engine::Stock); },
        [=] { return dictionaryPass(flavour, file, Engine::Own); });
  }

  /// Seconds of loading the dictionaries, or of the schemes after them.
  static double checked(Load&& load, const Files& dictionaries, const Files& schemes, bool schemesOnly) {
    const double dictionarySeconds = load.dictionaries(dictionaries);
    const double schemeSeconds = load.schemes(schemes);
    if (!load.failures().empty()) throw std::runtime_error("does not load: " + load.failures().front());
    return schemesOnly ? schemeSeconds : dictionarySeconds;
  }

  template <class Sizes, class NameOf>
  void tabulateGrowth(const std::string& what, const Sizes& sizes, NameOf nameOfSize) {
    for (const SchemaFlavour flavour : flavours) {
      std::vector<std::pair<int, double>> costs;
      for (const int size : sizes) costs.emplace_back(size, measurements_.median(nameOfSize(flavour, size)).work);
      ratios_.push_back(
          {what + " order of growth, " + nameOf(flavour), "at most n^1.1", "n^" + withDigits(orderOfGrowth(costs), 2)});
    }
  }

  void tabulate() {
    for (const SchemaFlavour flavour : flavours) {
      const std::string name = nameOfDictionary(flavour, barSize);
      ratios_.push_back({name + ": load / parse alone", "at most 1.8", withDigits(measurements_.medianRatio(name), 2)});
    }
    for (const SchemaSet& set : sets_) {
      ratios_.push_back({set.name + ": load / parse alone of each file that is read", "at most 1.8",
                         withDigits(measurements_.medianRatio(set.name), 2)});
    }
    tabulateGrowth("dictionary load,", dictionarySizes, nameOfDictionary);
    tabulateGrowth("scheme load,", schemeSizes, nameOfScheme);
    for (const std::string& file : sets_.back().dictionaries) {
      if (!isAnnotated(file, sets_.back().flavour)) continue;
      ratios_.push_back({fs::path(file).filename().string() + ": dictionary pass on XQilla's own DOM / on ours",
                         "at least 20", withDigits(measurements_.medianRatio(file), 0)});
    }
    for (const std::string& name : compared_) {
      const Cost cost = measurements_.median(name);
      comparisons_.push_back({name, cost.base, cost.work, measurements_.medianRatio(name)});
    }
  }

  void measurePeak(const std::string& name, SchemaFlavour flavour, const Files& dictionaries, const Files& schemes) {
    std::vector<std::string> load = {"load", std::to_string(static_cast<int>(flavour))};
    load.insert(load.end(), dictionaries.begin(), dictionaries.end());
    load.emplace_back("--");
    load.insert(load.end(), schemes.begin(), schemes.end());
    std::vector<std::string> parse = {"parse", "0"};
    for (const std::string& file : filesRead({name, flavour, dictionaries, schemes})) parse.push_back(file);
    const auto loadPeak = static_cast<double>(costOfRunning(load).peakKibibytes);
    const auto parsePeak = static_cast<double>(costOfRunning(parse).peakKibibytes);
    ratios_.push_back({name + ": peak memory of the load / of parsing alone", "at most 1.5",
                       withDigits(loadPeak / parsePeak, 2) + " (" + withDigits(loadPeak / 1024, 0) + " MiB / " +
                           withDigits(parsePeak / 1024, 0) + " MiB)"});
  }

  void measureProcesses(int repeats) {
    measurePeak(nameOfDictionary(SchemaFlavour::Urn, barSize), SchemaFlavour::Urn,
                {dictionaryFile(SchemaFlavour::Urn, barSize)}, {});
    measurePeak(nameOfScheme(SchemaFlavour::Urn, memorySchemeSize), SchemaFlavour::Urn,
                {dictionaryFile(SchemaFlavour::Urn, referredElements)},
                {schemeFile(SchemaFlavour::Urn, memorySchemeSize)});
    const SchemaSet& last = sets_.back();
    measurePeak(last.name, last.flavour, last.dictionaries, last.schemes);

    std::vector<double> milliseconds;
    for (int i = 0; i < 2 * repeats + 1; ++i) {
      milliseconds.push_back(
          costOfRunning({"load", "0", dictionaryFile(SchemaFlavour::Urn, 1), "--"}).processorSeconds * 1e3);
    }
    ratios_.push_back(
        {"first load in a process, one small schema", "at most 40 ms", withDigits(median(milliseconds), 1) + " ms"});
  }

  std::string folder_;
  std::vector<SchemaSet> sets_;
  Measurements measurements_;
  std::vector<std::string> compared_;
  std::vector<Ratio> ratios_;
  std::vector<Comparison> comparisons_;
  std::vector<std::string> notes_;
};

/// One job of a process of its own.
void runJob(const std::string& job, const Files& files) {
  if (job == "parse") {
    xercesc::XMLPlatformUtils::Initialize();
    parseAlone({files.begin() + 1, files.end()});
    return;
  }
  const auto separator = std::find(files.begin(), files.end(), "--");
  Load load(static_cast<SchemaFlavour>(std::stoi(files.front())));
  load.dictionaries({files.begin() + 1, separator});
  load.schemes({separator + 1, files.end()});
}

int run(const std::vector<std::string>& arguments) {
  if (!arguments.empty() && (arguments[0] == "parse" || arguments[0] == "load")) {
    runJob(arguments[0], {arguments.begin() + 1, arguments.end()});
    std::cout << ownPeakKibibytes();
    return EXIT_SUCCESS;
  }
  constexpr int usualRepeats = 5;
  Benchmark(arguments.empty() ? "" : arguments[0]).run(arguments.size() < 2 ? usualRepeats : std::stoi(arguments[1]));
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace MXF::Tessel::Bench

int main(int count, char** arguments) {
  try {
    return MXF::Tessel::Bench::run({arguments + 1, arguments + count});
  } catch (const std::exception& e) {
    std::cerr << "loading_benchmark: " << e.what() << "\n";
    return EXIT_FAILURE;
  }
}
