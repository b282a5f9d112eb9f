// Loads faulty schemas, one after the other with one loader, and tells how each load ends.
#include <Exceptions/Exceptions.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Utils/TextConversion.h>

#include <iostream>
#include <iterator>
#include <new>

using namespace MXF::Tessel;

namespace {

/// Runs a load and tells how it ended, in the form that editors jump by.
template <class Load>
void report(const char* what, Load load) {
  std::cout << what << "\n  ";
  try {
    load();
    std::cout << "loaded\n";
  } catch (const Exceptions::IOError& failure) {  // nothing wrong with the schema: ask for another file, or try again
    std::cout << "cannot read: " << Utils::wstringToString(failure.message()) << '\n';
  } catch (const Exceptions::ParseError& failure) {  // not well-formed: the message begins with the place
    std::cout << Utils::wstringToString(failure.message()) << '\n';
  } catch (const Exceptions::BaseException& failure) {
    if (failure.location().isKnown()) {
      std::cout << Utils::wstringToString(failure.path()) << ':' << failure.line() << ':' << failure.column() << ": ";
    }
    std::cout << "error " << failure.code() << ": " << Utils::wstringToString(failure.message()) << '\n';
  } catch (const std::bad_alloc&) {
    std::cout << "out of memory\n";
  } catch (...) {  // only loadScheme(): an exception of the XML libraries, whose headers this program has no use for
    std::cout << "the XML libraries failed\n";
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  const auto folder = Utils::stringToWstring(argc > 1 ? argv[1] : "examples/faulty");
  const auto file = [&](const wchar_t* name) { return folder + L"/" + name; };
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;
  MetaMetadata::Dictionary dictionary;

  report("A file that is not there", [&] { loader.loadDictionary(file(L"none.xsd"), dictionary); });
  report("A file that is no XML", [&] { loader.loadDictionary(file(L"malformed.xsd"), dictionary); });
  report("A label cut short", [&] { loader.loadDictionary(file(L"label.xsd"), dictionary); });
  report("A set of elements that nobody declares", [&] { loader.loadScheme(file(L"element.xsd"), dictionary); });
  report("An import that is no XML", [&] { loader.loadScheme(file(L"import.xsd"), dictionary); });
  std::cout << std::distance(dictionary.metaElementBegin(), dictionary.metaElementEnd()) << " elements, "
            << std::distance(dictionary.metaMetadataSetBegin(), dictionary.metaMetadataSetEnd()) << " sets\n";

  report("A sound file, with the same loader", [&] { loader.loadDictionary(file(L"sound.xsd"), dictionary); });
  report("The same file again", [&] { loader.loadDictionary(file(L"sound.xsd"), dictionary); });
}
