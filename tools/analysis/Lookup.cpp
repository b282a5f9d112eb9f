// Entry point: lookUp(); all else is local. Exact matches first; what comes near is looked for only without any.

#include "analysis/Lookup.h"

#include "text/IdentifierForm.h"
#include "text/Similarity.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace MXF::Tessel::Tool {

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::size_t labelSize = 16;
constexpr unsigned char wildcard = 0x7F;  // what group keys of schemas have where those of files differ
constexpr std::size_t tagSize = 2;
constexpr std::size_t fewestBytes = 4;     // fewer are a part of too many labels
constexpr std::size_t mostWrongBytes = 2;  // more make it another label
constexpr std::size_t shortestPart = 3;    // fewer letters are a part of too many names
constexpr std::u32string_view urnPrefix = U"urn:smpte:ul:";

/// The bytes that a text writes in hexadecimal digits, or nothing when it is no such text.
std::optional<Bytes> bytesOf(const std::u32string& question) {
  std::u32string text = lowerCase(question);
  if (text.compare(0, urnPrefix.size(), urnPrefix) == 0) text.erase(0, urnPrefix.size());
  if (text.compare(0, 2, U"0x") == 0) text.erase(0, 2);
  if (text.size() > 1 && text.front() == U'{' && text.back() == U'}') text = text.substr(1, text.size() - 2);
  std::string digits;
  for (const char32_t character : text) {
    const bool isDigit = (character >= U'0' && character <= U'9') || (character >= U'a' && character <= U'f');
    if (isDigit) digits += static_cast<char>(character);
    if (!isDigit && std::u32string_view(U".:- ").find(character) == std::u32string_view::npos) return std::nullopt;
  }
  if (digits.empty() || digits.size() % 2 != 0) return std::nullopt;
  Bytes bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes.push_back(static_cast<unsigned char>(std::stoul(digits.substr(i, 2), nullptr, 16)));
  }
  return bytes;
}

/// Where labels are written as UUIDs their halves are exchanged. Which half is the first one cannot be mistaken.
void restoreOrder(Bytes& bytes) {
  constexpr unsigned char start[] = {0x06, 0x0E, 0x2B, 0x34};
  if (bytes.size() != labelSize || std::equal(std::begin(start), std::end(start), bytes.begin())) return;
  const auto middle = bytes.begin() + labelSize / 2;
  if (std::equal(std::begin(start), std::end(start), middle)) std::rotate(bytes.begin(), middle, bytes.end());
}

std::optional<Types::LocalTag> tagOf(const std::optional<Bytes>& bytes) {
  if (!bytes || bytes->size() != tagSize) return std::nullopt;
  Templates::WideString text;
  for (const unsigned char byte : *bytes) {
    if (!text.empty()) text += L'.';
    for (const unsigned digit : {byte / 16U, byte % 16U}) text += L"0123456789ABCDEF"[digit];
  }
  return Types::LocalTag(text.c_str(), textForm);
}

const KLV::Key::Bytes& identifierOf(const Entry& entry) {
  return entry.element != nullptr ? entry.element->universalLabel().bytes() : entry.set->key().bytes();
}

std::vector<std::u32string> allNamesOf(const Entry& entry) {
  const MetaMetadata::PropertyMap* map = entry.element;
  if (map == nullptr) map = entry.set;
  std::vector<std::u32string> names;
  for (const wchar_t* key : {PropertyKeys::name, PropertyKeys::xmlTagName}) {
    if (const Templates::WideString* name = findProperty(*map, key)) names.push_back(printable(*name));
  }
  return names;
}

/// What is asked for, in all the ways in which it can be read.
struct Question {
  std::u32string text;
  std::u32string withoutPrefix;  ///< As an XML name.
  std::optional<Bytes> bytes;
  std::optional<Types::LocalTag> tag;
};

Question questionOf(const Templates::WideString& text) {
  Question question;
  question.text = withoutExtraBlanks(printable(text));
  const std::size_t colon = question.text.find(U':');
  const bool hasPrefix = colon != std::u32string::npos && colon == question.text.rfind(U':');  // and is no namespace
  question.withoutPrefix = hasPrefix ? question.text.substr(colon + 1) : question.text;
  question.bytes = bytesOf(question.text);
  if (question.bytes) restoreOrder(*question.bytes);
  question.tag = tagOf(question.bytes);
  return question;
}

bool hasTag(const Entry& entry, const Types::LocalTag& tag, const DictionaryIndex& index) {
  if (entry.element == nullptr) return false;
  return index.dictionary().localTags().count({tag, entry.element->universalLabel()}) != 0;
}

bool matches(const Entry& entry, const Question& question, const DictionaryIndex& index) {
  const auto& identifier = identifierOf(entry);
  if (question.bytes &&
      std::equal(question.bytes->begin(), question.bytes->end(), identifier.begin(), identifier.end())) {
    return true;
  }
  if (question.tag && hasTag(entry, *question.tag, index)) return true;
  const std::vector<std::u32string> names = allNamesOf(entry);
  return std::any_of(names.begin(), names.end(), [&](const std::u32string& name) {
    return name == question.text || name == question.withoutPrefix;
  });
}

/// How near something is, the better the smaller.
struct Measure {
  Nearness nearness;
  std::size_t distance;

  /// Version, wildcards and case hardly count as differences.
  [[nodiscard]] bool isClose() const { return nearness <= Nearness::Case; }
  [[nodiscard]] auto rank() const { return std::make_tuple(!isClose(), distance, nearness); }
};

/// Of bytes that are too few or too many.
std::optional<Measure> measureNumberOfBytes(const Bytes& asked, const KLV::Key::Bytes& known) {
  if (asked.size() < fewestBytes) return std::nullopt;
  const auto* const part = std::search(known.begin(), known.end(), asked.begin(), asked.end());
  if (part != known.end()) return Measure{Nearness::BytesPart, static_cast<std::size_t>(part - known.begin())};
  const std::size_t shorter = std::min(asked.size(), labelSize);
  const std::size_t longer = std::max(asked.size(), labelSize);
  const auto shorterEnd = [shorter](auto begin) { return begin + static_cast<std::ptrdiff_t>(shorter); };
  const auto same = std::mismatch(asked.begin(), shorterEnd(asked.begin()), known.begin()).first - asked.begin();
  const auto sameAtEnd =
      std::mismatch(asked.rbegin(), shorterEnd(asked.rbegin()), known.rbegin()).first - asked.rbegin();
  const bool isOneOff = longer - shorter == 1 && static_cast<std::size_t>(same + sameAtEnd) >= shorter;
  return isOneOff ? std::optional(Measure{Nearness::Bytes, 1}) : std::nullopt;
}

std::optional<Measure> measureBytes(const Bytes& asked, const KLV::Key::Bytes& known) {
  if (asked.size() != labelSize) return measureNumberOfBytes(asked, known);
  std::size_t different = 0;
  std::size_t incompatible = 0;
  for (std::size_t i = 0; i < labelSize; ++i) {
    if (asked[i] == known[i] || i == versionByte) continue;
    ++different;
    if (asked[i] != wildcard && known[i] != wildcard) ++incompatible;
  }
  if (different == 0) return Measure{Nearness::Version, 0};
  if (incompatible == 0) return Measure{Nearness::Wildcard, different};
  return incompatible <= mostWrongBytes ? std::optional(Measure{Nearness::Bytes, incompatible}) : std::nullopt;
}

std::optional<Measure> measureName(const std::u32string& asked, const std::u32string& known) {
  if (asked == known) return Measure{Nearness::Case, 0};
  const bool isPart = asked.size() >= shortestPart && known.find(asked) != std::u32string::npos;
  if (isPart) return Measure{Nearness::Part, known.size() - asked.size()};
  return isSimilar(asked, known) ? std::optional(Measure{Nearness::Spelling, editDistance(asked, known)})
                                 : std::nullopt;
}

/// Whether a text is of a pattern in which asterisks stand for any text.
bool fits(std::u32string_view pattern, std::u32string_view text) {
  const std::size_t first = pattern.find(U'*');
  if (first == std::u32string_view::npos) return text == pattern;
  if (text.substr(0, first) != pattern.substr(0, first)) return false;
  text.remove_prefix(first);
  pattern.remove_prefix(first + 1);
  for (std::size_t end = pattern.find(U'*'); end != std::u32string_view::npos; end = pattern.find(U'*')) {
    const std::size_t found = text.find(pattern.substr(0, end));
    if (found == std::u32string_view::npos) return false;
    text.remove_prefix(found + end);
    pattern.remove_prefix(end + 1);
  }
  return text.size() >= pattern.size() && text.substr(text.size() - pattern.size()) == pattern;
}

bool isPattern(const std::u32string& text) {
  return text.find(U'*') != std::u32string::npos;
}

std::optional<Measure> measurePattern(const Entry& entry, const std::u32string& pattern) {
  std::vector<std::u32string> texts = allNamesOf(entry);
  texts.push_back(printable(entry.element != nullptr ? entry.element->universalLabel().toString(textForm)
                                                     : entry.set->key().toString(textForm)));
  const bool fitsAny = std::any_of(texts.begin(), texts.end(), [&](const std::u32string& text) {
    return fits(nameLetters(pattern), nameLetters(text));
  });
  return fitsAny ? std::optional(Measure{Nearness::Pattern, 0}) : std::nullopt;
}

std::optional<Measure> measure(const Entry& entry, const Question& question) {
  if (isPattern(question.withoutPrefix)) return measurePattern(entry, question.withoutPrefix);
  std::optional<Measure> nearest;
  const auto consider = [&nearest](std::optional<Measure> found) {
    if (found && (!nearest || found->rank() < nearest->rank())) nearest = found;
  };
  if (question.bytes) consider(measureBytes(*question.bytes, identifierOf(entry)));
  for (const std::u32string& name : allNamesOf(entry)) {
    consider(measureName(nameLetters(question.withoutPrefix), nameLetters(name)));
  }
  return nearest;
}

/// Many labels are two bytes away from one that is only one away, but hardly meant then.
bool isMuchWorse(const Measure& measure, const Measure& best) {
  const bool areBytes = measure.nearness == Nearness::Bytes && best.nearness == Nearness::Bytes;
  return (best.isClose() && !measure.isClose()) || (areBytes && measure.distance > best.distance);
}

void findNearMisses(LookupResult& result, const std::vector<Entry>& entries, const Question& question) {
  std::vector<std::pair<Measure, Entry>> found;
  for (const Entry& entry : entries) {
    if (const std::optional<Measure> nearness = measure(entry, question)) found.emplace_back(*nearness, entry);
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first.rank() < b.first.rank(); });
  for (const auto& [nearness, entry] : found) {
    if (isMuchWorse(nearness, found.front().first)) break;
    if (result.nearMisses.size() < mostNearMisses) {
      result.nearMisses.push_back({entry, nearness.nearness});
    } else {
      ++result.furtherNearMisses;
    }
  }
}

std::vector<Entry> entriesOf(const DictionaryIndex& index, Sought sought) {
  std::vector<Entry> entries;
  if (sought != Sought::Sets) {
    for (const DictionaryIndex::Element* element : index.elements()) entries.push_back({element, nullptr});
  }
  for (const DictionaryIndex::Set* set : index.sets()) entries.push_back({nullptr, set});
  return entries;
}

}  // namespace

std::u32string nameLetters(std::u32string_view name) {
  std::u32string result = lowerCase(name);
  const auto isSeparator = [](char32_t c) { return c == U' ' || c == U'-' || c == U'_'; };
  result.erase(std::remove_if(result.begin(), result.end(), isSeparator), result.end());
  return result;
}

LookupResult lookUp(const DictionaryIndex& index, const Templates::WideString& question, Sought sought) {
  const Question asked = questionOf(question);
  const std::vector<Entry> entries = entriesOf(index, sought);
  LookupResult result;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(result.matches),
               [&](const Entry& entry) { return matches(entry, asked, index); });
  if (!result.matches.empty()) return result;
  findNearMisses(result, entries, asked);
  const std::size_t bytes = asked.bytes ? asked.bytes->size() : 0;
  if (bytes >= fewestBytes && bytes != labelSize) result.wrongNumberOfBytes = bytes;
  return result;
}

}  // namespace MXF::Tessel::Tool
