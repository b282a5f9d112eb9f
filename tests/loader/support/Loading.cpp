#include "Loading.h"

#include <Exceptions/Exceptions.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/UTFDataFormatException.hpp>
#include <xqilla/exceptions/XQException.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <memory>
#include <typeinfo>

namespace MXF::Tessel::Test {

namespace {

std::string classOf(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> readable(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                        std::free);
  const std::string name = readable ? readable.get() : type.name();
  const std::size_t separator = name.rfind("::");
  return separator == std::string::npos ? name : name.substr(separator + 2);
}

std::string described(const std::string& exceptionClass, const XMLCh* message) {
  return exceptionClass + ": " + narrow(XMLUtils::toWstring(message));
}

}  // namespace

std::string outcomeOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Exceptions::BaseException& e) {
    return classOf(typeid(e)) + " (" + std::to_string(e.code()) + "): " + narrow(e.message());
  } catch (const XQillaException& e) {
    return described("XQillaException", e.getString());
  } catch (const XQException& e) {
    return described("XQException", e.getError());
  } catch (const xercesc::DOMException& e) {
    return described("DOMException", e.getMessage());
  } catch (const xercesc::SAXException& e) {
    return described(classOf(typeid(e)), e.getMessage());
  } catch (const xercesc::XMLException& e) {
    return described(classOf(typeid(e)), e.getMessage());
  } catch (const xercesc::OutOfMemoryException&) {  // of no family
    return "OutOfMemoryException";
  } catch (const std::exception& e) {
    return classOf(typeid(e)) + ": " + e.what();
  }
  return "ok";
}

LoadSession::LoadSession(SchemaFlavour flavour) {
  if (flavour == SchemaFlavour::Urn) return;
  const SchemaBuilder multiplex =
      SchemaBuilder().target("http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004");
  loader.loadMultiplex(wide(folder.write("multiplex.xsd", multiplex.text())));
}

std::string LoadSession::outcomeOfLoad(const std::function<void()>& load) const {
  const std::string before = dump(dictionary);
  std::string outcome = outcomeOf(load);
  if (outcome == "ok") return outcome;
  const std::string after = dump(dictionary);
  return after == before ? outcome : outcome + "\nCHANGED\n" + after;
}

std::string LoadSession::loadDictionaryFile(const std::string& path) {
  return outcomeOfLoad([&] { loader.loadDictionary(wide(path), dictionary); });
}
std::string LoadSession::loadSchemeFile(const std::string& path) {
  return outcomeOfLoad([&] { loader.loadScheme(wide(path), dictionary); });
}
std::string LoadSession::loadDictionary(const SchemaBuilder& schema, const std::string& file) {
  return loadDictionaryFile(folder.write(file, schema.text()));
}
std::string LoadSession::loadScheme(const SchemaBuilder& schema, const std::string& file) {
  return loadSchemeFile(folder.write(file, schema.text()));
}

std::string LoadSession::dictionaryAfter(const SchemaBuilder& schema, Properties properties) {
  std::string outcome = loadDictionary(schema);
  return outcome == "ok" ? dump(dictionary, properties) : outcome;
}

}  // namespace MXF::Tessel::Test
