#include "Loads.h"

#include "GeneratedSchemas.h"
#include "MetaMetadata/XSDLoaderImpl/DictionaryPass.h"
#include "MetaMetadata/XSDLoaderImpl/DocumentAccess.h"
#include "MetaMetadata/XSDLoaderImpl/Names.h"
#include "MetaMetadata/XSDLoaderImpl/SchemePass.h"
#include "ProcessCost.h"

#include <Exceptions/Exceptions.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/Initializer.h>

#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace MXF::Tessel::Bench {

namespace fs = std::filesystem;
using namespace MetaMetadata::Loading;
using Templates::WideString;

namespace {

WideString wide(const std::string& text) {
  return Utils::stringToWstring(text.c_str());
}

Files schemasIn(const fs::path& folder) {
  Files files;
  if (!fs::is_directory(folder)) return files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".xsd") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string contentOf(const std::string& file) {
  std::ostringstream content;
  content << std::ifstream(file).rdbuf();
  return content.str();
}

/// Adds those imports of the files that the loader has read. They are looked for beside the scheme that was loaded.
void addImportsRead(const XSDLoaderImplData& data, const Files& schemes, Files& read) {
  const std::regex location("schemaLocation=[\"']([^\"']*)");
  std::set<std::string> folders;
  for (const std::string& scheme : schemes) folders.insert(fs::path(scheme).parent_path().string());
  std::set<std::string> imports;
  for (std::size_t i = 0; i < read.size(); ++i) {  // imports may import
    const std::string content = contentOf(read[i]);
    for (std::sregex_iterator match(content.begin(), content.end(), location), end; match != end; ++match) {
      for (const std::string& folder : folders) {
        const std::string path = folder + "/" + match->str(1);
        const bool isRead = data.importedDocuments.find(wide(path)) != nullptr;
        if (isRead && imports.insert(path).second) read.push_back(path);
      }
    }
  }
}

void setFlavour(XSDDictionaryLoader2& loader, SchemaFlavour flavour) {
  const fs::path file = fs::temp_directory_path() / ("multiplex-" + std::to_string(getpid()) + ".xsd");
  std::ofstream(file) << multiplexSchema(flavour);
  loader.loadMultiplex(wide(file.string()));
  fs::remove(file);
}

}  // namespace

std::vector<SchemaSet> shippedSets() {
  std::vector<SchemaSet> sets;
  for (const auto& [name, flavour] : {std::pair("urn", SchemaFlavour::Urn), {"registry", SchemaFlavour::RegistryUri}}) {
    const std::string folder = std::string(TESSELMXF_SCHEMAS "/") + name + "/";
    sets.push_back({std::string("shipped schemas, ") + name,
                    flavour,
                    {folder + "dictionary.xsd"},
                    {folder + "groups.xsd", folder + "descriptive.xsd"}});
  }
  return sets;
}

SchemaSet setInFolder(const std::string& folder) {
  SchemaSet set{fs::path(folder).filename().string(), SchemaFlavour::Urn, schemasIn(fs::path(folder) / "dictionary"),
                schemasIn(fs::path(folder) / "groups")};
  if (set.dictionaries.empty()) throw std::runtime_error(folder + ": no dictionary/*.xsd");
  const bool isRegistry = std::any_of(set.dictionaries.begin(), set.dictionaries.end(), [](const std::string& file) {
    return isAnnotated(file, SchemaFlavour::RegistryUri);
  });
  if (isRegistry) set.flavour = SchemaFlavour::RegistryUri;
  return set;
}

bool isAnnotated(const std::string& file, SchemaFlavour flavour) {
  const char* source = flavour == SchemaFlavour::Urn ? "urn:SMPTE:MXF:XMLInterface:Dictionary:ElementUL"
                                                     : "http://www.smpte-ra.org/schemas/434/Dictionary/ElementUL";
  return contentOf(file).find(source) != std::string::npos;
}

double parseAlone(const Files& files) {
  xercesc::XercesDOMParser parser;
  parser.setDoNamespaces(true);
  parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
  parser.setLoadExternalDTD(false);
  return processorSeconds([&] {
    for (const std::string& file : files) parser.parse(file.c_str());
  });
}

Load::Load(SchemaFlavour flavour) {
  setFlavour(loader_, flavour);
}

template <class LoadFile>
double Load::timed(const Files& files, LoadFile loadFile) {
  return processorSeconds([&] {
    for (const std::string& file : files) {
      try {
        loadFile(wide(file));
      } catch (const Exceptions::BaseException& e) {
        const std::string message = Utils::wstringToString(e.message()).c_str();
        failures_.push_back(fs::path(file).filename().string() + ": " + message);
      }
    }
  });
}

double Load::dictionaries(const Files& files) {
  return timed(files, [this](const WideString& path) { loader_.loadDictionary(path, dictionary_); });
}
double Load::schemes(const Files& files) {
  return timed(files, [this](const WideString& path) { loader_.loadScheme(path, dictionary_); });
}

Files filesRead(const SchemaSet& set) {
  XSDLoaderImplData data;
  data.queries = queriesOf(set.flavour);
  MetaMetadata::Dictionary dictionary;
  Files files;
  const auto read = [&](const std::string& file, auto pass) {
    files.push_back(file);
    data.documentPath = wide(file);
    xercesc::DOMDocument& document = *loadDocument(data, data.documentPath);
    try {
      pass(document);
    } catch (const Exceptions::BaseException&) {  // what was read before the failure counts
    }
  };
  for (const std::string& file : set.dictionaries) {
    read(file, [&](xercesc::DOMDocument& document) { runDictionaryPass(data, document, dictionary); });
  }
  for (const std::string& file : set.schemes) {
    read(file, [&](xercesc::DOMDocument& document) { processSchemeDocument(data, document, dictionary); });
  }
  addImportsRead(data, set.schemes, files);
  return files;
}

double dictionaryPass(SchemaFlavour flavour, const std::string& file, Engine engine) {
  XSDLoaderImplData data;
  data.queries = queriesOf(flavour);
  if (engine == Engine::Stock) {
    xercesc::DOMImplementation& stock = *xercesc::DOMImplementationRegistry::getDOMImplementation(u"XPath2 3.0");
    data.parser.reset(stock.createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr,
                                           xercesc::XMLPlatformUtils::fgMemoryManager, nullptr));
  }
  xercesc::DOMDocument& document = *loadDocument(data, wide(file));
  MetaMetadata::Dictionary dictionary;
  return processorSeconds([&] { runDictionaryPass(data, document, dictionary); });
}

}  // namespace MXF::Tessel::Bench
