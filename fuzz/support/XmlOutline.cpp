// Finds the parts of an XML text. Entry point: outlineOf().

#include "support/XmlOutline.h"

#include <algorithm>
#include <utility>

namespace MXF::Tessel::Fuzz {

namespace {

constexpr std::string_view blanks = " \t\r\n";

class Scanner {
 public:
  explicit Scanner(std::string_view xml) : xml_(xml) {}

  XmlOutline run() {
    while (at_ < xml_.size()) {
      if (xml_[at_] != '<') {
        text();
      } else if (startsWith("<!--")) {
        skipPast("-->");
      } else if (startsWith("<?")) {
        skipPast("?>");
      } else if (startsWith("<!")) {
        skipPast(">");
      } else if (startsWith("</")) {
        endTag();
      } else {
        startTag();
      }
    }
    return std::move(outline_);
  }

 private:
  bool startsWith(std::string_view start) const { return xml_.substr(at_, start.size()) == start; }
  /// The first of these characters from the present position on, or the end of the text.
  std::size_t next(std::string_view characters) const {
    return std::min(xml_.find_first_of(characters, at_), xml_.size());
  }
  void skipPast(std::string_view end) {
    const std::size_t found = xml_.find(end, at_);
    at_ = found == std::string_view::npos ? xml_.size() : found + end.size();
  }

  void text() {
    const Span span{at_, next("<")};
    at_ = span.end;
    const bool isBlank =
        xml_.substr(span.begin, span.end - span.begin).find_first_not_of(blanks) == std::string_view::npos;
    if (!isBlank) outline_.values.push_back(span);
  }

  void startTag() {
    const std::size_t begin = at_++;
    const Span name{at_, next(" \t\r\n/>")};
    outline_.startNames.push_back(name);
    at_ = name.end;
    while (at_ < xml_.size() && xml_[at_] != '>' && !startsWith("/>")) attribute();
    if (startsWith("/>")) {
      at_ += 2;
      outline_.elements.push_back({begin, at_});
    } else if (at_ < xml_.size()) {
      ++at_;
      open_.push_back(begin);
    }
  }

  void attribute() {
    at_ = std::min(xml_.find_first_not_of(blanks, at_), xml_.size());
    const std::size_t begin = at_;
    at_ = next("=/>");
    if (at_ + 1 >= xml_.size()) {
      at_ = xml_.size();
      return;
    }
    if (xml_[at_] != '=') {
      if (xml_[at_] == '/' && !startsWith("/>")) ++at_;
      return;
    }
    const char quote = xml_[++at_];
    if (quote != '"' && quote != '\'') return;
    const Span value{at_ + 1, std::min(xml_.find(quote, at_ + 1), xml_.size())};
    at_ = std::min(value.end + 1, xml_.size());
    outline_.values.push_back(value);
    outline_.attributes.push_back({begin, at_});
  }

  void endTag() {
    skipPast(">");
    if (open_.empty()) return;
    outline_.elements.push_back({open_.back(), at_});
    open_.pop_back();
  }

  std::string_view xml_;
  std::size_t at_ = 0;
  std::vector<std::size_t> open_;
  XmlOutline outline_;
};

}  // namespace

XmlOutline outlineOf(std::string_view xml) {
  return Scanner(xml).run();
}

}  // namespace MXF::Tessel::Fuzz
