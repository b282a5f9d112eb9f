// A service that loads schemas on one thread and answers from them on many, also while it loads them anew.
#include <Exceptions/BaseException.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Utils/TextConversion.h>

#include <future>
#include <iostream>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

using namespace MXF::Tessel;

namespace {

using SharedDictionary = std::shared_ptr<const MetaMetadata::Dictionary>;

/// May run on any number of threads at once: the loader and the dictionary that it fills are this call's own.
SharedDictionary load(const Templates::WideString& folder) {
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;
  const auto dictionary = std::make_shared<MetaMetadata::Dictionary>();
  loader.loadMultiplex(folder + L"/multiplex.xsd");
  loader.loadDictionary(folder + L"/dictionary.xsd", *dictionary);
  loader.loadScheme(folder + L"/groups.xsd", *dictionary);
  return dictionary;  // complete, and constant from here on
}

/// Hands out the dictionary that was published last. Who has one keeps it until done, whatever is published meanwhile.
class DictionaryService {
 public:
  SharedDictionary current() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return current_;
  }
  void publish(SharedDictionary dictionary) {
    const std::lock_guard<std::mutex> lock(mutex_);
    current_.swap(dictionary);  // the old one goes after the lock, or with its last reader
  }

 private:
  mutable std::mutex mutex_;
  SharedDictionary current_;
};

std::size_t countAttributes(const MetaMetadata::Dictionary& dictionary) {
  std::size_t count = 0;
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    count += entry->second.metaAttributes().size();
  }
  return count;
}

}  // namespace

int main(int argc, char* argv[]) try {
  const auto schemas = Utils::stringToWstring(argc > 1 ? argv[1] : "schemas");
  DictionaryService service;
  service.publish(load(schemas + L"/registry"));

  std::future<SharedDictionary> reload = std::async(std::launch::async, load, schemas + L"/urn");
  std::vector<std::future<std::size_t>> readers;
  for (int i = 0; i < 4; ++i) {
    readers.push_back(std::async(std::launch::async, [&] { return countAttributes(*service.current()); }));
  }
  service.publish(reload.get());  // throws here what load() threw there; the old dictionary then stays published
  for (std::future<std::size_t>& reader : readers) std::cout << reader.get() << " attributes\n";
} catch (const Exceptions::BaseException& failure) {
  std::cerr << Utils::wstringToString(failure.what()) << '\n';
  return 1;
} catch (...) {
  std::cerr << "The XML libraries failed.\n";
  return 1;
}
