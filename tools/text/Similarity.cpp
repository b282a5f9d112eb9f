#include "text/Similarity.h"

#include "text/Unicode.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t lettersPerEdit = 3;      // a third of a short word's letters may be wrong
constexpr std::size_t mostEdits = 3;           // more make a long word another one
constexpr std::size_t shortestBeginning = 2;   // a single letter begins too many words
constexpr std::size_t longestCompared = 1000;  // the distance takes time and memory by the product of the lengths

}  // namespace

std::size_t editDistance(std::u32string_view a, std::u32string_view b) {
  std::vector<std::vector<std::size_t>> distance(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) distance[i][0] = i;
  for (std::size_t j = 0; j <= b.size(); ++j) distance[0][j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = distance[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      distance[i][j] = std::min({distance[i - 1][j] + 1, distance[i][j - 1] + 1, replaced});
      const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (exchanged) distance[i][j] = std::min(distance[i][j], distance[i - 2][j - 2] + 1);
    }
  }
  return distance[a.size()][b.size()];
}

bool isSimilar(std::u32string_view given, std::u32string_view known) {
  const auto [shorter, longer] = std::minmax({given.size(), known.size()});
  const std::size_t allowed = std::min(longer / lettersPerEdit, mostEdits);
  if (longer > longestCompared || longer - shorter > allowed) return false;
  return editDistance(lowerCase(given), lowerCase(known)) <= allowed;
}

std::vector<std::string> nearest(std::string_view given, const std::vector<std::string>& known) {
  std::vector<std::string> found;
  const std::size_t dashes = std::min(given.find_first_not_of('-'), given.size());
  for (const std::string& word : known) {
    if (given.size() >= dashes + shortestBeginning && word.compare(0, given.size(), given) == 0) found.push_back(word);
  }
  if (!found.empty()) return found;

  const std::u32string text = lowerCase(fromAscii(given));
  std::size_t fewest = longestCompared;
  for (const std::string& word : known) {
    const std::u32string candidate = lowerCase(fromAscii(word));
    if (!isSimilar(text, candidate)) continue;
    const std::size_t distance = editDistance(text, candidate);
    if (distance < fewest) found.clear();
    fewest = std::min(fewest, distance);
    if (distance == fewest) found.push_back(word);
  }
  return found;
}

}  // namespace MXF::Tessel::Tool
