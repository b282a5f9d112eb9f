#include "Promises.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace MXF::Tessel::Test {

namespace {

using Records = std::vector<std::string>;

/// The lines of a dump, each with the indented ones below it.
Records recordsOf(const std::string& dumped) {
  Records records;
  for (std::size_t start = 0; start < dumped.size();) {
    const std::size_t end = dumped.find('\n', start) + 1;
    const std::string line = dumped.substr(start, end - start);
    if (line.front() == ' ') {
      records.back() += line;
    } else {
      records.push_back(line);
    }
    start = end;
  }
  return records;
}

}  // namespace

bool hasAdded(const std::string& dumped, const Change& change) {
  return recordsOf(dumped).size() > recordsOf(change.before).size();
}

bool isPartOf(const std::string& dumped, const Change& change) {
  const Records before = recordsOf(change.before);
  const Records after = recordsOf(change.after);
  const Records now = recordsOf(dumped);
  if (now.size() < before.size() || now.size() > after.size()) return false;
  std::size_t changed = 0;
  while (changed < now.size() && now[changed] == after[changed]) ++changed;
  if (changed >= before.size()) return changed == now.size();
  const auto unchanged = static_cast<std::ptrdiff_t>(changed);
  return now.size() == before.size() && std::equal(now.begin() + unchanged, now.end(), before.begin() + unchanged);
}

}  // namespace MXF::Tessel::Test
