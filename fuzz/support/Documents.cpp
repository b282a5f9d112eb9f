#include "support/Documents.h"

#include <Utils/TextConversion.h>

#include <cstdio>
#include <loader/support/TemporaryFolder.h>

namespace MXF::Tessel::Fuzz {

using Templates::WideString;

namespace {

constexpr std::string_view separator = "\n=====\n";

const Test::TemporaryFolder& folder() {
  static const Test::TemporaryFolder own;
  return own;
}

}  // namespace

std::string_view inputText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

WideString wideInput(std::string_view text) {
  const std::string terminated(text);
  WideString wide = Utils::stringToWstring(terminated.c_str());
  for (std::size_t null = text.find('\0'); null != std::string_view::npos; null = text.find('\0', null + 1)) {
    wide += L'\0' + Utils::stringToWstring(terminated.c_str() + null + 1);
  }
  return wide;
}

std::vector<std::string_view> splitDocuments(std::string_view input) {
  std::vector<std::string_view> documents;
  for (std::size_t end = input.find(separator); end != std::string_view::npos; end = input.find(separator)) {
    documents.push_back(input.substr(0, end));
    input.remove_prefix(end + separator.size());
  }
  documents.push_back(input);
  return documents;
}

WideString documentPath(const std::string& file) {
  return Test::wide(folder().path(file));
}

WideString writeDocument(const std::string& file, std::string_view content) {
  return Test::wide(folder().write(file, std::string(content)));
}

void removeDocument(const std::string& file) {
  static_cast<void>(std::remove(folder().path(file).c_str()));
}

}  // namespace MXF::Tessel::Fuzz
