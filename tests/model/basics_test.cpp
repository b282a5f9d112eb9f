// What everything else stands on: text conversion, allocation, shared ownership, exceptions.

#include "support.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/MetaElements.h>
#include <Platform/TextConversion.h>
#include <Templates/SharedPtr.h>
#include <Types/Types.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <vector>

namespace {
int globalAllocations = 0;
}  // namespace

// The program's global heap operators count, so that a test sees memory that does not come from malloc_alloc. They stay
// functions: where a compiler inlines one of a pair it takes their blocks for mismatched.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++globalAllocations;
  if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
  std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t /*size*/) noexcept {
  std::free(block);
}

namespace MXF::Tessel {
namespace {

using Templates::auto_ptr;
using Templates::NarrowString;
using Templates::WideString;
using Test::failureOf;
using Test::narrow;
using Test::Tracked;

struct Utf8Case {
  NarrowString bytes;
  WideString codeUnits;
};

TEST(TextConversion, EveryByteSequenceSurvivesTheWayToCodeUnitsAndBack) {
  const Utf8Case cases[] = {
      {"", L""},
      {"A\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", L"A\x7F\x80\x7FF\x800\xFFFF"},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\xD800\xDC00\xDBFF\xDFFF"},
      {"\xED\x9F\xBF\xEE\x80\x80", L"\xD7FF\xE000"},          // the neighbours of the surrogates
      {"\x80\xFF", L"\xDC80\xDCFF"},                          // no lead bytes
      {"\xC3", L"\xDCC3"},                                    // the tail is missing at the end
      {"\xE2\x82x\xC3\xC3\xA9", L"\xDCE2\xDC82x\xDCC3\xE9"},  // and in the middle
      {"\xC0\x80\xC1\xBF", L"\xDCC0\xDC80\xDCC1\xDCBF"},      // longer than need be
      {"\xE0\x9F\xBF\xF0\x8F\xBF\xBF", L"\xDCE0\xDC9F\xDCBF\xDCF0\xDC8F\xDCBF\xDCBF"},
      {"\xED\xA0\x80", L"\xDCED\xDCA0\xDC80"},                      // an encoded surrogate
      {"\xF4\x90\x80\x80\xF5", L"\xDCF4\xDC90\xDC80\xDC80\xDCF5"},  // above 10FFFF
  };
  for (const auto& [bytes, codeUnits] : cases) {
    SCOPED_TRACE(testing::PrintToString(bytes));
    EXPECT_EQ(Utils::stringToWstring(bytes.c_str()), codeUnits);
    EXPECT_EQ(Platform::stringToWstring(bytes.c_str()), codeUnits);
    EXPECT_EQ(Utils::wstringToString(codeUnits.c_str()), bytes);
  }
}

TEST(TextConversion, TextThatUtf8CannotHoldBecomesReplacementCharacters) {
  const Utf8Case cases[] = {
      {"\xEF\xBF\xBDx", L"\xD83Dx"},                  // high surrogate alone
      {"\xEF\xBF\xBD\xEF\xBF\xBD", L"\xDC7F\xDD00"},  // low surrogates that stand for no byte
      {"\xF0\x9F\x98\x80", L"\x1F600"},               // a whole character in one wchar_t
      {"\xEF\xBF\xBD", L"\x110000"},
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(Utils::wstringToString(text.c_str()), bytes);
  EXPECT_EQ(Utils::toCodeUnits(L"A\x1F600\xFFFF\xD83D"), L"A\xD83D\xDE00\xFFFF\xD83D");
}

/// An allocator of malloc_alloc's kind that keeps the balance of bytes asked for and given back.
struct BalancedAllocator {
  static inline std::size_t taken = 0;
  static inline std::size_t returned = 0;
  static void* allocate(std::size_t bytes) {
    taken += bytes;
    return Platform::malloc_alloc::allocate(bytes);
  }
  static void deallocate(void* block, std::size_t bytes) {
    returned += bytes;
    Platform::malloc_alloc::deallocate(block, bytes);
  }
};

TEST(Allocation, ContainersTakeAllMemoryFromTheirAllocatorAndGiveItsSizeBack) {
  const int before = globalAllocations;
  {
    Templates::vector<int, BalancedAllocator> numbers(100);
    numbers.push_back(1);
    EXPECT_EQ(BalancedAllocator::returned, 100 * sizeof(int));  // the first buffer
    const Templates::basic_string<wchar_t, Templates::char_traits<wchar_t>, BalancedAllocator> text(100, L'x');
    const Templates::map<int, int, std::less<>, BalancedAllocator> map = {{1, 2}, {3, 4}};
    const Templates::set<int, std::less<>, BalancedAllocator> set = {1, 2};
  }
  EXPECT_EQ(BalancedAllocator::returned, BalancedAllocator::taken);
  EXPECT_EQ(globalAllocations, before);
}

TEST(Allocation, ModelObjectsNeverUseTheGlobalHeap) {
  using namespace MetaMetadata;
  constexpr auto form = Types::StringRepresentationEncodingType::DottedHex;
  const int before = globalAllocations;
  {
    const auto_ptr<KLV::Key> key(new KLV::Key(L"06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.2F.00", form));
    const auto_ptr<Types::UniversalLabel> label(new Types::UniversalLabel(*key));
    const Types::LocalTag tag(L"3C0A", form);
    auto_ptr<Types::Collection> value(new Types::Array(4));
    value->append(std::make_unique<Types::UTF16String>(L"A text long enough for the heap"));
    Dictionary dictionary;
    auto_ptr<MetaElement> element(
        new MetaReferenceElement(*label, {*key}, Types::Identifiers::Identifier::StrongReference));
    element->addProperty(L"A key long enough for the heap", L"A value long enough for the heap");
    MetaMetadataSet set(*key);
    set.addMetaAttribute(MetaMetadataSet::Attribute(
        std::make_unique<MetaAttribute>(*element, AttributeRequiredStatus::Status::Optional, value->clone(), &tag)));
    dictionary.addMetaElement(*label, std::move(element));
    dictionary.addMetaMetadataSet(*key, set);
    dictionary.addLocalTag(tag, *label);
  }
  EXPECT_EQ(globalAllocations, before);
}

struct RecordingCounter : Templates::LockedCounter {
  static inline int live = 0;
  static int* create() {
    ++live;
    return LockedCounter::create();
  }
  static void destroy(int* counter) noexcept {
    --live;
    LockedCounter::destroy(counter);
  }
};
using Pointer = Templates::SharedPtr<Tracked, RecordingCounter>;

/// Copies the pointer by construction and by assignment, then gives the three holders up in every order.
void releaseInEveryOrder(Pointer (*make)(int&), int expectedDeaths) {
  std::array<std::size_t, 3> order = {0, 1, 2};
  do {
    int deaths = 0;
    std::array<Pointer, 3> holders = {make(deaths), Pointer(), Pointer()};
    holders[1] = holders[0];
    Pointer copy(holders[1]);
    holders[2] = std::move(copy);
    EXPECT_EQ(RecordingCounter::live, 1);
    holders[order[0]] = Pointer();
    holders[order[1]] = Pointer();
    holders[order[2]] = holders[order[2]];
    EXPECT_EQ(*holders[order[2]]->deaths, 0);
    holders[order[2]] = Pointer();
    EXPECT_EQ(deaths, expectedDeaths);
    EXPECT_EQ(RecordingCounter::live, 0);
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(SharedPtr, DeletesOwnedObjectAndCounterOnceInAnyOrderOfRelease) {
  releaseInEveryOrder([](int& deaths) { return Pointer(std::make_unique<Tracked>(deaths)); }, 1);
}

TEST(SharedPtr, LeavesABorrowedObjectAloneAndFreesTheCounter) {
  static int ownerDeaths = 0;
  static Tracked owned(ownerDeaths);
  releaseInEveryOrder([](int& /*deaths*/) { return Pointer::borrowed(owned); }, 0);
  EXPECT_EQ(ownerDeaths, 0);
}

TEST(SharedPtr, DeletesTheObjectWhenThereIsNoMemoryForItsCounter) {
  struct FailingCounter : Templates::LockedCounter {
    static int* create() { throw std::bad_alloc(); }
  };
  using FailingPointer = Templates::SharedPtr<Tracked, FailingCounter>;
  int deaths = 0;
  EXPECT_THROW(FailingPointer(std::make_unique<Tracked>(deaths)), std::bad_alloc);
  EXPECT_EQ(deaths, 1);
  EXPECT_FALSE(FailingPointer(auto_ptr<Tracked>()));  // an empty pointer needs no counter
}

template <class... Classes>
std::vector<std::string> failuresOf() {
  return {failureOf([] { throw Classes(L"", "Utils", 1); })...};
}

TEST(Exceptions, EachClassHasItsCode) {
  using namespace Exceptions;
  EXPECT_EQ(
      (failuresOf<BaseException, InvalidValue, InvalidMetaElementDeclaration, InvalidULDesignator, IOError, NotFound,
                  ParseError, OperationNotAllowed, MetaElementAlreadyLoaded, MetaMetadataSetAlreadyLoaded,
                  SchemeDataMissingException, TypeNotSupportedException>()),
      (std::vector<std::string>{"0 ", "16 ", "20 ", "25 ", "26 ", "31 ", "33 ", "42 ", "44 ", "45 ", "46 ", "47 "}));
}

TEST(Exceptions, WhatAddsTheThrowSiteAndCopiesKeepTheirTexts) {
  auto_ptr<Exceptions::NotFound> original(new Exceptions::NotFound("na\xC3\xAFve", "XSDLoaderImpl", 321));
  const Exceptions::NotFound copy(*original);
  original.reset();
  EXPECT_EQ(WideString(copy.message()), L"na\xEFve");
  EXPECT_EQ(WideString(copy.what()), L"na\xEFve [XSDLoaderImpl:321]");
  EXPECT_EQ(narrow(Exceptions::IOError(L"", "Utils", 7).what()), " [Utils:7]");
}

}  // namespace
}  // namespace MXF::Tessel
