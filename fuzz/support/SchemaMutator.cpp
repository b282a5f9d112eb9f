// Has libFuzzer change schemas as XML; now and then as bytes, for what is no XML any more.

#include "support/Documents.h"
#include "support/SchemaMutation.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace MXF::Tessel;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

/// One in so many changes is one of bytes.
constexpr unsigned bytesEvery = 8;
/// Up to so many changes at once: a sound schema is some steps away from another one.
constexpr unsigned mostChanges = 4;

bool store(const std::string& text, std::uint8_t* data, std::size_t maxSize) {
  if (text.empty() || text.size() > maxSize) return false;
  std::copy(text.begin(), text.end(), data);
  return true;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  Fuzz::Random random(seed);
  if (random() % bytesEvery == 0) return LLVMFuzzerMutate(data, size, maxSize);
  std::string schema(Fuzz::inputText(data, size));
  const std::string before = schema;
  for (auto left = 1 + random() % mostChanges; left > 0; --left) schema = Fuzz::mutateSchema(schema, random);
  return schema != before && store(schema, data, maxSize) ? schema.size() : LLVMFuzzerMutate(data, size, maxSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize, std::uint8_t* out,
                                                 std::size_t maxSize, unsigned seed) {
  Fuzz::Random random(seed);
  const std::string crossed =
      Fuzz::crossSchemas(Fuzz::inputText(first, firstSize), Fuzz::inputText(second, secondSize), random);
  return store(crossed, out, maxSize) ? crossed.size() : 0;
}
