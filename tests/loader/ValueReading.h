#pragma once

#include "MetaMetadata/XSDLoaderImpl/ValueParsing.h"
#include "support/Loading.h"

#include <Types/Identifiers.h>

#include <clocale>
#include <locale>
#include <string>

namespace MXF::Tessel::Test {

/// The value as dump() writes it, "no value", or the failure.
inline std::string readValue(Types::Identifiers::Identifier type, Types::Identifiers::Identifier subType,
                             const Templates::WideString& text) {
  std::string result = "no value";
  const std::string outcome = outcomeOf([&] {
    const auto value = MetaMetadata::Loading::stringToValue(type, subType, text);
    if (value) result = dump(*value);
  });
  return outcome == "ok" ? result : outcome;
}

/// Groups digits as German does: 1.234.567,5.
template <class Character>
class GermanDigits : public std::numpunct<Character> {
  Character do_decimal_point() const override { return ','; }
  Character do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// Makes the process German for a scope: the global locale of C++, and that of C where the system has it.
class GermanProcess {
 public:
  GermanProcess()
      : before_(std::locale::global(
            std::locale(std::locale(std::locale(), new GermanDigits<wchar_t>), new GermanDigits<char>))) {
    std::setlocale(LC_ALL, "de_DE.UTF-8");
  }
  GermanProcess(const GermanProcess&) = delete;
  GermanProcess& operator=(const GermanProcess&) = delete;
  ~GermanProcess() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }

 private:
  std::locale before_;
};

}  // namespace MXF::Tessel::Test
